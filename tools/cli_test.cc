// The tool's command line: what each form asks for and which are refused.
#include "cli.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace rungc::tool {
namespace {

TEST(CommandLineParse, FormsAndWhatTheyAskFor) {
  struct Case {
    std::vector<std::string_view> args;
    Command command;
    std::string_view directory = ".";
    bool sequences = false;
    std::string_view language = "";
    std::string_view key = "";
  };
  const Case cases[] = {
      {{"compile"}, Command::kCompile},
      {{"compile", "--sequences", "proj"}, Command::kCompile, "proj", true},
      {{"compile", "proj", "--sequences"}, Command::kCompile, "proj", true},
      {{"compile", "--", "--odd-name"}, Command::kCompile, "--odd-name"},
      {{"compile", "--help"}, Command::kHelp},
      {{"-h"}, Command::kHelp},
      {{"help"}, Command::kHelp},
      {{"--version"}, Command::kVersion},
      {{"messages"}, Command::kMessages},
      {{"messages", "--lang", "ing", "COMP"}, Command::kMessages, ".", false, "ING", "COMP"},
      {{"messages", "NARO", "--lang=DEU"}, Command::kMessages, ".", false, "DEU", "NARO"},
      {{}, Command::kUsageError},
      {{"compile", "a", "b"}, Command::kUsageError},
      {{"compile", "--sequence"}, Command::kUsageError},
      {{"--version", "compile"}, Command::kUsageError},
      {{"messages", "--lang"}, Command::kUsageError},
      {{"messages", "--lang", "ENG"}, Command::kUsageError},
      {{"messages", "comp"}, Command::kUsageError},
  };
  for (const Case& c : cases) {
    std::string shown;
    for (std::string_view arg : c.args) shown += " " + std::string(arg);
    SCOPED_TRACE(shown);
    const CommandLine line = ParseCommandLine(c.args);
    EXPECT_EQ(line.command, c.command);
    EXPECT_EQ(line.problem.empty(), c.command != Command::kUsageError);
    if (c.command == Command::kUsageError) continue;
    EXPECT_EQ(line.directory, c.directory);
    EXPECT_EQ(line.run_sequences, c.sequences);
    EXPECT_EQ(line.language, c.language);
    EXPECT_EQ(line.key, c.key);
  }
}

// Runs a command line in-process and gives what it wrote to standard output and error.
struct Captured {
  int status;
  std::string out, err;
};

std::string ReadBack(std::FILE* file) {
  std::string text;
  std::rewind(file);
  for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) text += static_cast<char>(c);
  std::fclose(file);
  return text;
}

Captured RunInProcess(const std::vector<std::string_view>& args) {
  std::FILE* out = std::tmpfile();
  std::FILE* err = std::tmpfile();
  Captured captured;
  captured.status = RunCommandLine(ParseCommandLine(args), out, err, nullptr);
  captured.out = ReadBack(out);
  captured.err = ReadBack(err);
  return captured;
}

TEST(CommandLineRun, HelpAndVersionGoToStandardOutput) {
  const Captured help = RunInProcess({"--help"});
  EXPECT_EQ(help.status, kExitOk);
  EXPECT_NE(help.out.find("exit status: 0 compiled, 1 the compile failed"), std::string::npos);
  EXPECT_EQ(help.err, "");
  const Captured version = RunInProcess({"--version"});
  EXPECT_EQ(version.status, kExitOk);
  EXPECT_EQ(version.out.rfind("rungc ", 0), 0u);
}

TEST(CommandLineRun, AWrongCommandLineSaysWhatIsWrong) {
  const Captured wrong = RunInProcess({"messages", "--lang", "XX"});
  EXPECT_EQ(wrong.status, kExitUsage);
  EXPECT_EQ(wrong.out, "");
  EXPECT_EQ(wrong.err.rfind("rungc: messages: unknown language XX", 0), 0u);
  EXPECT_NE(wrong.err.find("Try 'rungc --help'"), std::string::npos);
}

}  // namespace
}  // namespace rungc::tool
