// Whole compiles of function blocks (the example project compiles boxes of every family): the
// warnings and errors of box lines and failing rungs as the error file carries them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "rungc/session.h"
#include "support/bench.h"
#include "support/ladder_builder.h"

namespace rungc {
namespace {

using testing::AddBoxRung;
using testing::BoxLine;
using testing::CompileMain;
using testing::ErrorFileText;
using testing::LadderSource;
using testing::Lines;
using testing::SummaryLines;
using testing::TempProject;

// A destination in the input area is a warning: the code is kept and the compile succeeds.
TEST(FunctionBlocksEndToEnd, InputDestinationsWarnAndKeepTheirCode) {
  LadderSource source;
  AddBoxRung(source, "1(X0.3) -x1", {"WX1 = BIN WR2", "X1.0 = 1"});
  TempProject p;
  ASSERT_EQ(CompileMain(p, source), kCompileOk);
  EXPECT_EQ(
      p.ReadFile("PLANT.LII"),
      testing::ListingText({"#F#MAIN.PLC",
                            "#R#A_X_0003MAK_001CMBWR0002M_______M_WX0001MOX_0010M_K_0001Ma______",
                            "#R#L2______", "#R#L3______"}));
  EXPECT_EQ(
      p.ReadFile("PLANT.ERR"),
      ErrorFileText({"#F#MAIN.PLC", "#W#NERR=1#RUNG=1#ITEM=WX1#STRG=" + BoxLine("WX1 = BIN WR2"),
                     "#W#NERR=1#RUNG=1#ITEM=X1.0#STRG=" + BoxLine("X1.0 = 1")},
                    SummaryLines(3, 0, 2, 1, 8)));
}

// A label error is dropped when the last program ended on an error of the rung loop itself (the
// reader's 1018 here), as that error's latch still stands; the pass fails all the same.
TEST(FunctionBlocksEndToEnd, LabelErrorAfterAProgramEndedOnAnErrorIsDropped) {
  LadderSource source;
  AddBoxRung(source, "1(X0.2) -x1", {"IF WR1 > 5"});
  source.Row("1(X0.1) 12 -x6 3(Y0.1)");
  TempProject p;
  ASSERT_EQ(CompileMain(p, source), kCompileFailed);
  EXPECT_EQ(p.ReadFile("PLANT.LII"),
            testing::ListingText(
                {"#F#MAIN.PLC", "#R#A_X_0002MAK_0018M>WR0001M_K_0005M_F_0008Mj______Ma______",
                 "#R#L2______", "#R#L3______"},
                ""));
  EXPECT_EQ(p.ReadFile("PLANT.ERR"),
            ErrorFileText({"#F#MAIN.PLC", "#E#NERR=1018#RUNG=2"}, SummaryLines(3, 1, 0, 1, 7)));
}

// A rung that fails leaves no record and the next rung compiles; the error file holds the rung's
// reports with their item and text fields, and the compile fails.
TEST(FunctionBlocksEndToEnd, FailingRungsLeaveTheirReportsOnly) {
  struct Case {
    LadderSource rung;
    int rows;
    Lines reports;
  };
  auto box = [](const char* before, const Lines& head, const std::vector<Lines>& more = {}) {
    LadderSource source;
    return AddBoxRung(source, before, head, more);
  };
  const Case cases[] = {
      {box("1(X0.1) -x1", {"WR1 = (WR5", "WY1 = 1"}),
       1,
       {"#E#NERR=9#RUNG=1#STRG=" + BoxLine("WR1 = (WR5")}},
      {box("1(X0.1) -x1", {"WR1 = 1"}, {{"WR2 = 2", "WR1 = FOO"}}),
       2,
       {"#E#NERR=16#RUNG=1#ITEM=FOO#STRG=" + BoxLine("WR1 = FOO")}},
      {box("1(X0.1) -x1", {"WX1 = 5", "WR1 = FOO"}),
       1,
       {"#W#NERR=1#RUNG=1#ITEM=WX1#STRG=" + BoxLine("WX1 = 5"),
        "#E#NERR=16#RUNG=1#ITEM=FOO#STRG=" + BoxLine("WR1 = FOO")}},
      // A comparison contact's line is no box line: its error carries no text.
      {testing::Rows({"1(X0.1) 49(DR1,==,5) -x5 3(Y0.1)"}), 1, {"#E#NERR=16#RUNG=1"}},
      {testing::Rows({"1(Q0.1) -x7 3(Y0.1)"}), 1, {"#E#NERR=27#RUNG=1#ITEM=Q0.1  #STRG=Q0.1  "}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.reports.back());
    LadderSource source = c.rung;
    source.Row("1(X0.1) -x7 3(Y0.1)");
    TempProject p;
    EXPECT_EQ(CompileMain(p, source), kCompileFailed);
    EXPECT_EQ(p.ReadFile("PLANT.LII"),
              testing::ListingText(
                  {"#F#MAIN.PLC", "#R#A_X_0001G_Y_0001", "#R#L2______", "#R#L3______"}, ""));
    Lines records = {"#F#MAIN.PLC"};
    records.insert(records.end(), c.reports.begin(), c.reports.end());
    const int warnings = static_cast<int>(c.reports.size()) - 1;
    EXPECT_EQ(p.ReadFile("PLANT.ERR"),
              ErrorFileText(records, SummaryLines(c.rows + 3, 1, warnings, 2, 2)));
  }
}

}  // namespace
}  // namespace rungc
