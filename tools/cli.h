// The command line of the rungc tool: what a person asked for, and running it.
#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace rungc::tool {

// Exit statuses of the tool.
inline constexpr int kExitOk = 0;        // result 0
inline constexpr int kExitFailed = 1;    // result 4098
inline constexpr int kExitUnusable = 2;  // result 4097
inline constexpr int kExitUsage = 64;    // a wrong command line

enum class Command { kCompile, kMessages, kHelp, kVersion, kUsageError };

struct CommandLine {
  Command command = Command::kUsageError;
  std::string problem;          // what is wrong with the command line (kUsageError)
  std::string directory = ".";  // compile: where status.kpx and memory.ovl are read
  bool run_sequences = false;   // compile --sequences
  std::string language;         // messages --lang: a language code, empty for the first available
  std::string key;              // messages: a module key, empty for the compiler's own ("COMP")
};

// Reads the arguments after the program name.
CommandLine ParseCommandLine(const std::vector<std::string_view>& args);

// Runs what the command line asks for; help and version go to `out`, everything about a compile
// to `err`. `escape_requested` is polled between rungs (true acts as the Escape key). Gives the
// exit status.
int RunCommandLine(const CommandLine& command_line, std::FILE* out, std::FILE* err,
                   const std::function<bool()>& escape_requested);

// Maps the result of a compile to the tool's exit status.
int ExitStatusForResult(unsigned result);

}  // namespace rungc::tool
