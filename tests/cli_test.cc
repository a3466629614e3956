// The rungc tool run as a process on projects in temporary directories.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/bench.h"
#include "support/seqmsg_fixtures.h"

namespace rungc {
namespace {

using ::testing::HasSubstr;
using testing::LadderSource;
using ::testing::Not;
using testing::RunTool;
using testing::TempProject;

TEST(ToolProcess, ACleanCompileExitsZeroAndSaysSo) {
  TempProject p;
  p.WriteSimpleProject({{"MAIN.PLC", LadderSource()}});
  const testing::ToolRun run = RunTool({"compile"}, p.dir());  // the current directory
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, HasSubstr("rungc: 0 errors, 0 warnings, 0 rungs"));
  EXPECT_THAT(run.err, HasSubstr("rungc: result 0: compiled; listing "));
  EXPECT_TRUE(p.Exists("PLANT.LII"));
}

TEST(ToolProcess, AnUnusableProjectExitsTwoAndNamesTheFile) {
  for (const auto& [status, says] :
       {std::pair{"", "rungc: error 50: cannot open the status file "},
        std::pair{"- KORVA   1993\r\n", "rungc: error 53: the status file "}}) {
    TempProject p;
    if (*status != '\0') p.WriteFile("status.kpx", status);
    const testing::ToolRun run = RunTool({"compile", "."}, p.dir());
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr(says));
    EXPECT_THAT(run.err, HasSubstr("rungc: result 4097"));
  }
}

TEST(ToolProcess, AFailedCompileExitsOneAndExplainsWhatStoppedIt) {
  struct Case {
    std::vector<std::string> lines;
    bool end_line;
    std::string_view says;
  };
  const Case cases[] = {
      {{"MISSING.PLC"},
       true,
       "MISSING.PLC: error 51: the ladder source cannot be opened; the compile stopped there"},
      {{"MAIN.PLC"}, false, "ends without its end-of-list line"},
      {{"MAIN.PLC", "; no name"}, true, "names no program"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.says);
    TempProject p;
    p.WriteStatus();
    p.WriteProject(c.lines, c.end_line);
    p.WriteLadder("MAIN.PLC", LadderSource());
    const testing::ToolRun run = RunTool({"compile"}, p.dir());
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr(c.says));
    EXPECT_THAT(run.err, HasSubstr("rungc: result 4098: the compile failed"));
  }
}

TEST(ToolProcess, ADroppedLastRowIsReportedToThePersonOnly) {
  TempProject p;
  p.WriteStatus();
  p.WriteProject({"MAIN.PLC", "FULL.PLC"});
  LadderSource rungs;
  rungs.Row("1 2(X1.0) -x6 3(Y1.0)").Row("1 2(X1.1) -x6 3(Y1.1)");
  p.WriteFile("MAIN.PLC", rungs.Text(false));
  p.WriteFile("FULL.PLC", rungs.Text());
  const testing::ToolRun run = RunTool({"compile"}, p.dir());
  EXPECT_THAT(run.err, HasSubstr("rungc: warning: MAIN.PLC: the source does not end with a "
                                 "row-end record, so its last row was not compiled"));
  EXPECT_THAT(run.err, Not(HasSubstr("FULL.PLC: the source")));
  EXPECT_THAT(p.ReadFile("PLANT.ERR"), Not(HasSubstr("row")));
}

TEST(ToolProcess, VersionAndAWrongCommandLine) {
  TempProject p;
  const testing::ToolRun version = RunTool({"--version"}, p.dir());
  EXPECT_EQ(version.status, 0);
  EXPECT_THAT(version.out, ::testing::MatchesRegex("rungc [0-9]+\\.[0-9]+\\.[0-9]+\n"));
  const testing::ToolRun wrong = RunTool({"compile", "a", "b"}, p.dir());
  EXPECT_EQ(wrong.status, 64);
  EXPECT_THAT(wrong.err, HasSubstr("usage: rungc compile"));
  EXPECT_FALSE(p.Exists("PLANT.ERR"));
}

TEST(ToolProcess, MessagesPrintsAModulesSectionsOrTheLanguagesAvailable) {
  TempProject p;
  const testing::ToolRun none = RunTool({"messages"}, p.dir());
  EXPECT_EQ(none.status, 1);
  EXPECT_THAT(none.err, HasSubstr("no message file"));

  p.WriteFile("MESSAG.ING",
              testing::MessageFile().Section(24).Entry(1, "Output in the input area").Text());
  const testing::ToolRun comp = RunTool({"messages", "--lang", "ing", "COMP"}, p.dir());
  EXPECT_EQ(comp.status, 0) << comp.err;
  EXPECT_THAT(comp.out,
              HasSubstr("#B24 WCMP_WARN\n   1  Output in the input area\n#B25 WANA_ERRS\n"));
  EXPECT_THAT(comp.out, HasSubstr("#B26 WCMP_ERRS\n   1  *****\n"));

  const testing::ToolRun other = RunTool({"messages", "--lang", "ITA"}, p.dir());
  EXPECT_EQ(other.status, 1);
  EXPECT_THAT(other.err, HasSubstr("no usable MESSAG.ITA here; languages available: ING"));
}

}  // namespace
}  // namespace rungc
