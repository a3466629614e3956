// Whole compiles of structural rungs over one or several programs: the listing and the error
// file compared byte for byte, the Escape key, and the element checks after the last program.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/session.h"
#include "rungc/session.h"
#include "support/bench.h"
#include "support/ladder_builder.h"

namespace rungc {
namespace {

using testing::ErrorFileText;
using testing::LadderSource;
using testing::ListingText;
using testing::Rows;
using testing::SummaryLines;
using testing::TempProject;

TEST(RungsEndToEnd, BlocksAfterTheEndOfMain) {
  TempProject p;
  EXPECT_EQ(testing::CompileMain(p, Rows({"29", "42(BLK1)", "43", ".x9", "42()", "43"})),
            kCompileOk);
  EXPECT_EQ(p.ReadFile("PLANT.LII"),
            ListingText({"#F#MAIN.PLC", "#R#L2______", "#R#LTK_0000", "#R#Li______", "#R#LTK_0000",
                         "#R#Li______", "#R#L3______"}));
  EXPECT_EQ(p.ReadFile("PLANT.ERR"),
            ErrorFileText({"#F#MAIN.PLC"}, SummaryLines(8, 0, 0, 5, 1, 4)));
}

TEST(RungsEndToEnd, EscapeEndsOneProgramAndTheNextIsCompiled) {
  TempProject p;
  p.WriteSimpleProject(
      {{"MAIN.PLC", Rows({"29", "42(B)", "43"})}, {"NEXT.PLC", Rows({"42(C)", "43"})}});
  Session session;
  CompileOptions options;
  int polls = 0;
  options.escape_requested = [&polls] { return ++polls == 2; };
  EXPECT_EQ(session.Compile(p.dir(), options), kCompileFailed);
  EXPECT_EQ(p.ReadFile("PLANT.ERR"),
            ErrorFileText({"#F#MAIN.PLC", "#E#NERR=47#RUNG=2", "#F#NEXT.PLC"},
                          SummaryLines(4, 1, 0, 3, 1, 2)));
  EXPECT_EQ(p.ReadFile("PLANT.LII"), ListingText({"#F#MAIN.PLC", "#R#L2______", "#F#NEXT.PLC",
                                                  "#R#LTK_0000", "#R#Li______", "#R#L3______"},
                                                 ""));
}

// The element checks after the last program (a block never ended: 68; a block end never read
// because the last row was dropped: 69) are held back only when that program ended on an error
// of the rung loop itself.
TEST(RungsEndToEnd, ElementChecksFollowTheLastProgramsEnd) {
  struct Case {
    LadderSource source;
    bool end_record;
    testing::Lines errors;
    testing::Lines summary;
  };
  const Case cases[] = {
      {Rows({"1(A) 42(B) -x7"}),
       true,
       {"#E#NERR=1007#RUNG=1", "#E#NERR=68#RUNG=1"},
       SummaryLines(3, 2, 0, 0, 0, 0)},
      {Rows({"1(A) 42(B) -x7", "2(A) -x8 3(Y)"}),
       true,
       {"#E#NERR=1007#RUNG=1", "#E#NERR=1017#RUNG=1"},
       SummaryLines(3, 2, 0, 0, 0, 0)},
      {Rows({"29", "42(B)", "43"}), false, {"#E#NERR=69#RUNG=3"}, SummaryLines(4, 1, 0, 2, 1, 1)},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.errors.back());
    TempProject p;
    p.WriteSimpleProject({{"MAIN.PLC", c.source}});
    p.WriteFile("MAIN.PLC", c.source.Text(c.end_record));
    Session session;
    EXPECT_EQ(session.Compile(p.dir()), kCompileFailed);
    testing::Lines records = {"#F#MAIN.PLC"};
    records.insert(records.end(), c.errors.begin(), c.errors.end());
    EXPECT_EQ(p.ReadFile("PLANT.ERR"), ErrorFileText(records, c.summary));
  }
}

}  // namespace
}  // namespace rungc
