// The platform layer: every file the compiler touches goes through these few types, so the
// rest of the compiler never sees the host's paths, text-mode rules or file handles.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace rungc::platform {

// Turns a path of the suite (backslash separators) into a host path.
std::string HostPath(std::string_view suite_path);

// The directory that names without a directory are relative to: the current directory of the
// exported entry point, or the directory a session compiles in.
class WorkDir {
 public:
  WorkDir() = default;
  explicit WorkDir(std::filesystem::path dir) : dir_(std::move(dir)) {}

  // Where a file of this name lies: relative names are taken from the work directory.
  std::filesystem::path Resolve(std::string_view name) const;
  // Where an input of this name lies: the exact name when it exists, otherwise the one file of the
  // same directory whose name differs only in case, otherwise the exact name (which then fails).
  std::filesystem::path ResolveInput(std::string_view name) const;

  const std::filesystem::path& dir() const { return dir_; }

 private:
  std::filesystem::path dir_;
};

enum class OpenMode { kText, kBinary };

// A file opened for reading. Text mode reads as the suite's host does: a carriage return directly
// before a line feed is dropped; binary mode sees every byte.
class InputFile {
 public:
  InputFile() = default;
  ~InputFile() { Close(); }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  InputFile(InputFile&& other) noexcept;
  InputFile& operator=(InputFile&& other) noexcept;

  bool Open(const std::filesystem::path& path, OpenMode mode);
  void Close();
  bool is_open() const { return file_ != nullptr; }

  // Reads a line as fgets does with a buffer of max_chars + 1: at most max_chars characters, the
  // line feed included when it fits, NUL-terminated. False when nothing could be read; the
  // buffer is then left as it was.
  bool ReadLine(char* buffer, std::size_t max_chars);
  // One byte, or -1 at the end of the file.
  int GetByte();
  // Up to count bytes; gives the number read.
  std::size_t Read(char* buffer, std::size_t count);
  // True when a read met the end of the file (as feof after the read); a seek clears it.
  bool eof() const { return at_eof_; }
  long Tell() const;
  bool Seek(long offset);
  bool Rewind() { return Seek(0); }

 private:
  std::FILE* file_ = nullptr;
  OpenMode mode_ = OpenMode::kBinary;
  bool at_eof_ = false;
};

// A file written in binary mode: the compiler writes every line end itself.
class OutputFile {
 public:
  OutputFile() = default;
  ~OutputFile() { Close(); }
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  OutputFile(OutputFile&& other) noexcept;
  OutputFile& operator=(OutputFile&& other) noexcept;

  // Creates or truncates the file.
  bool Create(const std::filesystem::path& path);
  // Opens the file for appending; fails when it does not exist and cannot be created.
  bool OpenAppend(const std::filesystem::path& path);
  void Close();
  bool is_open() const { return file_ != nullptr; }

  bool Write(std::string_view text);
  bool Write(const void* bytes, std::size_t count);
  bool Put(char c);
  // A line of the suite's files: the text, carriage return and line feed.
  bool WriteLine(std::string_view text);

 private:
  std::FILE* file_ = nullptr;
};

// Deletes a file; a missing file is no error. Gives true when the file is gone.
bool RemoveFile(const std::filesystem::path& path);
// Renames a file; gives true on success.
bool RenameFile(const std::filesystem::path& from, const std::filesystem::path& to);
bool FileExists(const std::filesystem::path& path);

}  // namespace rungc::platform
