// A project directory shared by the executions of one fuzzer process, and a compile session set up
// in it for targets that drive one pass directly. Executions write only the file their input
// becomes; everything else is written once per process.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace rungc {
struct CompileSession;
}

namespace rungc::fuzz {

// The memory map of the standard project: object code wanted, an area for every operand family
// and "WZ", so that the side files are converted.
extern const std::string_view kStandardMemoryMap;

class FuzzProject {
 public:
  FuzzProject();
  ~FuzzProject();

  void Write(std::string_view name, std::string_view bytes) const;
  void Remove(std::string_view name) const;
  // A status file and a project file of one program, MAIN.PLC, and the standard memory map.
  void WriteStandardProject() const;
  // One compile in a fresh session; gives its result.
  std::uint32_t Compile() const;
  // Removes the outputs a compile in `session` named when they are not the standard project's
  // (a fuzzed status file can name other outputs); keeps the directory small, so the lookups
  // that scan it stay fast.
  void RemoveForeignOutputs(const CompileSession& session) const;
  const std::filesystem::path& dir() const { return dir_; }

 private:
  std::filesystem::path dir_;
};

// The fuzzer's project, made on first use.
FuzzProject& Project();

// A session that works in the fuzzer's project with the listing "PLANT.LII" and its ".$$$" and
// ".ERR" paths named as the compile names them. The error file is the null device: reports are
// written in full but cost no disk. The standard memory map is loaded.
CompileSession& PassSession();

// Clears what the rung loop clears before every rung: the current numbers, the report texts and
// the once-per-rung latch.
void ClearRungReports(CompileSession& session);

// Splits an input at its first NUL byte: the part before it, and the part after it (empty when
// there is none).
std::pair<std::string_view, std::string_view> SplitAtNul(const std::uint8_t* data,
                                                         std::size_t size);

}  // namespace rungc::fuzz
