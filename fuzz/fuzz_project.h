// A project directory shared by the executions of one fuzzer process: each execution writes its
// input files into it and runs one whole compile in a fresh session.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>

namespace rungc::fuzz {

class FuzzProject {
 public:
  FuzzProject();
  ~FuzzProject();

  void Write(std::string_view name, std::string_view bytes) const;
  void Remove(std::string_view name) const;
  // A status file and a project file of one program, MAIN.PLC, and a memory map that asks for
  // object code with areas for every operand family.
  void WriteStandardProject() const;
  // One compile in a fresh session; gives its result.
  std::uint32_t Compile() const;
  const std::filesystem::path& dir() const { return dir_; }

 private:
  std::filesystem::path dir_;
};

// The fuzzer's project, made on first use.
FuzzProject& Project();

}  // namespace rungc::fuzz
