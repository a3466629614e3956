#include "platform/file_io.h"

#include <cctype>
#include <system_error>
#include <utility>

namespace rungc::platform {

std::string HostPath(std::string_view suite_path) {
  std::string path(suite_path);
#ifndef _WIN32
  for (char& c : path) {
    if (c == '\\') c = '/';
  }
#endif
  return path;
}

std::filesystem::path WorkDir::Resolve(std::string_view name) const {
  std::filesystem::path path(HostPath(name));
  if (path.is_absolute() || dir_.empty()) return path;
  return dir_ / path;
}

namespace {

// Opens and renames by the host's native form of the path: no text is built for the call, so
// opening, creating and renaming never allocate (a compile that runs out of memory cannot fail
// between renaming the listing and creating its replacement for want of a path text).
#ifdef _WIN32
std::FILE* OpenNative(const std::filesystem::path& path, const wchar_t* mode) {
  return _wfopen(path.c_str(), mode);
}
bool RenameNative(const std::filesystem::path& from, const std::filesystem::path& to) {
  return _wrename(from.c_str(), to.c_str()) == 0;
}
#define RUNGC_MODE(text) L##text
#else
std::FILE* OpenNative(const std::filesystem::path& path, const char* mode) {
  return std::fopen(path.c_str(), mode);
}
bool RenameNative(const std::filesystem::path& from, const std::filesystem::path& to) {
  return std::rename(from.c_str(), to.c_str()) == 0;
}
#define RUNGC_MODE(text) text
#endif

bool SameIgnoringCase(const std::string& a, const std::string& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (std::tolower(static_cast<unsigned char>(a[i])) !=
        std::tolower(static_cast<unsigned char>(b[i])))
      return false;
  }
  return true;
}

}  // namespace

std::filesystem::path WorkDir::ResolveInput(std::string_view name) const {
  std::filesystem::path path = Resolve(name);
  std::error_code ec;
  if (std::filesystem::exists(path, ec) || !path.has_filename()) return path;
  std::filesystem::path parent = path.parent_path();
  if (parent.empty()) parent = ".";
  const std::string wanted = path.filename().string();
  std::filesystem::path match;
  int matches = 0;
  for (std::filesystem::directory_iterator it(parent, ec), end; !ec && it != end;
       it.increment(ec)) {
    if (SameIgnoringCase(it->path().filename().string(), wanted)) {
      match = it->path();
      ++matches;
    }
  }
  return matches == 1 ? match : path;
}

InputFile::InputFile(InputFile&& other) noexcept
    : file_(std::exchange(other.file_, nullptr)), mode_(other.mode_), at_eof_(other.at_eof_) {}

InputFile& InputFile::operator=(InputFile&& other) noexcept {
  if (this != &other) {
    Close();
    file_ = std::exchange(other.file_, nullptr);
    mode_ = other.mode_;
    at_eof_ = other.at_eof_;
  }
  return *this;
}

bool InputFile::Open(const std::filesystem::path& path, OpenMode mode) {
  Close();
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) return false;
  file_ = OpenNative(path, RUNGC_MODE("rb"));
  mode_ = mode;
  at_eof_ = false;
  return file_ != nullptr;
}

void InputFile::Close() {
  if (file_ != nullptr) std::fclose(file_);
  file_ = nullptr;
}

int InputFile::GetByte() {
  if (file_ == nullptr) return -1;
  int c = std::getc(file_);
  if (c == '\r' && mode_ == OpenMode::kText) {
    int next = std::getc(file_);
    if (next == '\n') return '\n';
    if (next != EOF) {
      std::ungetc(next, file_);
    } else {
      at_eof_ = true;
    }
  }
  if (c == EOF) {
    at_eof_ = true;
    return -1;
  }
  return c;
}

bool InputFile::ReadLine(char* buffer, std::size_t max_chars) {
  std::size_t n = 0;
  if (file_ == nullptr) return false;
  while (n < max_chars) {
    int c = GetByte();
    if (c < 0) break;
    buffer[n++] = static_cast<char>(c);
    if (c == '\n') break;
  }
  if (n == 0) return false;  // as fgets: nothing read leaves the buffer as it was
  buffer[n] = '\0';
  return true;
}

std::size_t InputFile::Read(char* buffer, std::size_t count) {
  std::size_t n = 0;
  while (n < count) {
    int c = GetByte();
    if (c < 0) break;
    buffer[n++] = static_cast<char>(c);
  }
  return n;
}

long InputFile::Tell() const {
  return file_ == nullptr ? -1 : std::ftell(file_);
}

bool InputFile::Seek(long offset) {
  at_eof_ = false;
  return file_ != nullptr && std::fseek(file_, offset, SEEK_SET) == 0;
}

OutputFile::OutputFile(OutputFile&& other) noexcept : file_(std::exchange(other.file_, nullptr)) {}

OutputFile& OutputFile::operator=(OutputFile&& other) noexcept {
  if (this != &other) {
    Close();
    file_ = std::exchange(other.file_, nullptr);
  }
  return *this;
}

bool OutputFile::Create(const std::filesystem::path& path) {
  Close();
  file_ = OpenNative(path, RUNGC_MODE("wb"));
  return file_ != nullptr;
}

bool OutputFile::OpenAppend(const std::filesystem::path& path) {
  Close();
  file_ = OpenNative(path, RUNGC_MODE("ab"));
  return file_ != nullptr;
}

void OutputFile::Close() {
  if (file_ != nullptr) std::fclose(file_);
  file_ = nullptr;
}

bool OutputFile::Write(std::string_view text) {
  return Write(text.data(), text.size());
}

bool OutputFile::Write(const void* bytes, std::size_t count) {
  if (file_ == nullptr) return false;
  return std::fwrite(bytes, 1, count, file_) == count;
}

bool OutputFile::Put(char c) {
  return file_ != nullptr && std::fputc(c, file_) != EOF;
}

bool OutputFile::WriteLine(std::string_view text) {
  return Write(text) && Write("\r\n", 2);
}

bool RemoveFile(const std::filesystem::path& path) {
  // A missing file is reported as removed without an error; only a failed deletion sets `ec`.
  std::error_code ec;
  std::filesystem::remove(path, ec);
  return !ec;
}

bool RenameFile(const std::filesystem::path& from, const std::filesystem::path& to) {
  return RenameNative(from, to);
}

bool FileExists(const std::filesystem::path& path) {
  std::error_code ec;
  return std::filesystem::is_regular_file(path, ec);
}

}  // namespace rungc::platform
