#include "support/driver_fixtures.h"

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "support/ladder_builder.h"

namespace rungc::testing {

namespace {

// A shell word: the text in single quotes, each quote written as '\''.
std::string Quoted(std::string_view text) {
  std::string word = "'";
  for (char c : text) {
    if (c == '\'') {
      word += "'\\''";
    } else {
      word += c;
    }
  }
  return word + "'";
}

}  // namespace

std::string EmptyLadderSource() {
  return LadderSource().Text(false);
}

std::uint32_t ListingSum(const std::vector<std::string>& lines) {
  std::uint32_t sum = 0;
  for (const std::string& line : lines) {
    for (char c : line) sum += static_cast<std::uint32_t>(static_cast<signed char>(c));
    sum += 23;
  }
  return sum;
}

std::string ChecksumTrailer(std::uint32_t sum_before_trailer) {
  char line[24];
  std::snprintf(line, sizeof line, "#s#%04X", sum_before_trailer + 35 + 115 + 35);
  return line;
}

std::string ReadFileText(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

ToolRun RunTool(const std::vector<std::string>& args, const std::filesystem::path& cwd) {
  const std::filesystem::path out = cwd / ".tool-stdout";
  const std::filesystem::path err = cwd / ".tool-stderr";
  std::string command = "cd " + Quoted(cwd.string()) + " && " + Quoted(RUNGC_TOOL);
  for (const std::string& arg : args) command += " " + Quoted(arg);
  command += " >" + Quoted(out.string()) + " 2>" + Quoted(err.string());
  const int wait_status = std::system(command.c_str());
  ToolRun run;
  if (wait_status != -1 && WIFEXITED(wait_status)) run.status = WEXITSTATUS(wait_status);
  run.out = ReadFileText(out);
  run.err = ReadFileText(err);
  std::filesystem::remove(out);
  std::filesystem::remove(err);
  return run;
}

}  // namespace rungc::testing
