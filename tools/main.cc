// rungc: runs one compile of a project directory and explains the result to a person.
#include <cstdio>
#include <string_view>
#include <vector>

#include "cli.h"
#include "interrupt.h"

int main(int argc, char** argv) {
  std::vector<std::string_view> args(argv + 1, argv + argc);
  const rungc::tool::CommandLine command_line = rungc::tool::ParseCommandLine(args);
  if (command_line.command == rungc::tool::Command::kCompile) rungc::tool::CatchInterrupts();
  const int status =
      rungc::tool::RunCommandLine(command_line, stdout, stderr, rungc::tool::TakeInterrupt);
  rungc::tool::ReleaseInterrupts();
  return status;
}
