// Function-block cells and comparison contacts: how lines are cut, skipped, refused and handed to
// the families, and how a comparison contact becomes a comparison into F0.8.
#include <gtest/gtest.h>

#include <string>

#include "common/session.h"
#include "support/bench.h"

namespace rungc::testing {
namespace {

TEST(BoxlinesCell, LinesWithoutStatementsProduceNothing) {
  for (const char* line : {"", "                                ", ";WR1 = 5", "   ; WR1 = 5"}) {
    SCOPED_TRACE(line);
    const BoxResult r = CompileBoxLine(line);
    EXPECT_EQ(r.code, "");
    EXPECT_TRUE(r.reports.empty());
  }
}

TEST(BoxlinesCell, FirstOperandChoosesTheFamily) {
  const LineCase rows[] = {
      {"5 = WR1", "", {"E16"}},
      {"H10 = WR1", "", {"E16"}},
      {"1.5 = WR1", "", {"E16"}},
      {"(WR10) = 5", "", {"E16"}},
      {"= WR1", "", {"E16"}},  // an operator sign reaches the keyword instructions
      {"FOO = WR1", "", {"E16:FOO"}},
      // A comment ends the operands of a line.
      {"WY1 = WX2 ; copy", "MDWX0002 M M·WY0001", {}},
      {"Y1.0 = X1.0;copy", "", {"E9"}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(BoxlinesCell, LexerRefusalsAreError9WithTheLine) {
  const LineCase rows[] = {
      {"WR1 = (WR5", "", {"E9"}},  {"WR1 = (WR5 X)", "", {"E9"}}, {"WR1 = WX10)", "", {"E9"}},
      {"WR1 = ()", "", {"E9"}},    {"WR1 = 5#", "", {"E9"}},      {"WR1 = 12AB", "", {"E9"}},
      {"WR1,WR2 = 5", "", {"E9"}}, {"Y1.0 = (X1.0)", "", {"E9"}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(BoxlinesCell, HeadCellCompilesBothLines) {
  Bench bench;
  const BoxResult r = bench.CompileCell({"WY1 = WX2", "Y1.0 = 1"});
  EXPECT_EQ(DumpUnits(r.code), "MDWX0002 M M·WY0001 MOY_0010 M·K_0001");
  EXPECT_TRUE(r.reports.empty());
}

TEST(BoxlinesCell, ContinuationCellCompilesThreeLines) {
  Bench bench;
  const BoxResult r = bench.CompileCell({"WR1 = 1", "; skipped", "WR2 = WR1"}, 10);
  EXPECT_EQ(DumpUnits(r.code), "MdK_0001 M M·WR0001 MDWR0001 M M·WR0002");
  EXPECT_TRUE(r.reports.empty());
}

TEST(BoxlinesCell, LexerErrorStopsTheCell) {
  Bench bench;
  const BoxResult r = bench.CompileCell({"WR1 = (WR5", "WX1 = 1"});
  EXPECT_EQ(r.code, "");
  EXPECT_EQ(r.reports, (std::vector<std::string>{Record("E9", BoxLine("WR1 = (WR5"))}));
}

TEST(BoxlinesCell, OtherErrorsLetTheNextLineCompile) {
  // The rung is dropped for the error; the next line's warning is reported all the same.
  Bench bench;
  const BoxResult r = bench.CompileCell({"WY1 = WX2 + WX3 + WX4", "WX1 = 5"});
  EXPECT_EQ(DumpUnits(r.code), "MdK_0005 M M·WX0001");
  EXPECT_EQ(r.reports, (std::vector<std::string>{Record("E16", BoxLine("WY1 = WX2 + WX3 + WX4")),
                                                 Record("W1:WX1", BoxLine("WX1 = 5"))}));
}

TEST(BoxlinesCell, UnitThatDoesNotFitFailsTheRung) {
  Bench bench;
  CompileSession& s = bench.session();
  s.ladder.code.Append(std::string(kCodeTextSize - 8, 'B'));
  const BoxResult r = bench.CompileCell({"WY1 = WX2"});
  EXPECT_EQ(r.code.size(), kCodeTextSize);
  EXPECT_EQ(DumpUnits(r.code.substr(kCodeTextSize - 8)), "MDWX0002");
  EXPECT_EQ(r.reports, (std::vector<std::string>{"#E#NERR=16#RUNG=1"}));
  EXPECT_EQ(s.ladder.walk_state, kWalkStopped);
}

struct ComparisonCase {
  const char* a;
  const char* op;
  const char* b;
  const char* units;
  std::vector<std::string> reports;
};

TEST(BoxlinesCell, ComparisonContactComparesIntoF08) {
  const ComparisonCase rows[] = {
      {"WX0010", ">=", "WR0020", "e M]WX0010 M·WR0020 M·F_0008", {}},
      {"wx10", "<>", "h1f", "e MeWX0010 M·K_001F M·F_0008", {}},
      {" DR1", "==", "DR2 ", "e ML MEDR0001 M·DR0002 M·F_0008", {}},
      {"X1.0", "==", "0", "e MQX_0010 M·K_0000 M·F_0008", {}},
      // Its reports carry no text: no box line has been compiled yet in the rung.
      {"DR1", "==", "5", "e", {"#E#NERR=16#RUNG=1"}},
      {"X1.0", ">", "X1.1", "e", {"#E#NERR=16#RUNG=1#ITEM=:"}},
      {"WR1", "=>", "5", "e", {"#E#NERR=16#RUNG=1"}},
      {"FOO", ">", "5", kAnyCode.data(), {"#E#NERR=16#RUNG=1#ITEM=FOO"}},
      // A field the lexer refuses keeps what it took: "12AB" compares 12.
      {"WR1", ">", "12AB", "e M>WR0001 M·K_000C M·F_0008", {}},
  };
  for (const ComparisonCase& row : rows) {
    SCOPED_TRACE(std::string(row.a) + " " + row.op + " " + row.b);
    Bench bench;
    bench.session().ladder.box_line.Set("WR1 = FOO");  // left over from an earlier rung
    const BoxResult r = bench.CompileComparison(row.a, row.op, row.b);
    if (row.units != kAnyCode) {
      EXPECT_EQ(DumpUnits(r.code), row.units);
    }
    EXPECT_EQ(r.reports, row.reports);
  }
}

}  // namespace
}  // namespace rungc::testing
