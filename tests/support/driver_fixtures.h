// Fixtures for the driver, diagnostics and tool tests: empty program sources, listing checksums
// and running the rungc tool as a process.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace rungc::testing {

// A ladder source with no rungs: the header alone (a lone row-end record would be read as a rung).
std::string EmptyLadderSource();

// What the record writer adds to the listing checksum for these listing lines: every byte taken
// as signed, plus 23 for each line end.
std::uint32_t ListingSum(const std::vector<std::string>& lines);

// The listing's trailer line for a checksum that does not yet include "#s#".
std::string ChecksumTrailer(std::uint32_t sum_before_trailer);

// The whole content of a file ("" when it cannot be read).
std::string ReadFileText(const std::filesystem::path& path);

struct ToolRun {
  int status = -1;  // the exit status, -1 when the tool did not exit normally
  std::string out;
  std::string err;
};

// Runs the rungc tool with `args` in the directory `cwd` and collects its output.
ToolRun RunTool(const std::vector<std::string>& args, const std::filesystem::path& cwd);

}  // namespace rungc::testing
