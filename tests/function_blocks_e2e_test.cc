// Whole compiles of function blocks: boxes of every statement family with head and continuation
// cells, comparison contacts, the IF structures the label pass completes, and the reports of
// failing rungs and box lines in the error file.
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
using testing::ChecksumTrailer;
using testing::CompileMain;
using testing::ErrorFileText;
using testing::LadderSource;
using testing::Lines;
using testing::ListingSum;
using testing::SummaryLines;
using testing::TempProject;

// A listing record as the record writer wrote it, before the label pass: the distance fields of
// the IF and ELSE units ("Mj", "Mk") blank again.
std::string BeforeLabelPass(std::string_view record) {
  std::string text(record);
  // Units start after the three-character record mark, 8 characters each.
  for (std::size_t at = 3; at + 8 <= text.size(); at += 8) {
    if (text.compare(at, 2, "Mj") == 0 || text.compare(at, 2, "Mk") == 0) {
      text.replace(at + 2, 6, "______");
    }
  }
  return text;
}

TEST(FunctionBlocksEndToEnd, BoxesOfEveryFamilyCompileToTheirListing) {
  LadderSource source;
  // A conditional box of word lines; the comment line of the continuation cell adds nothing.
  AddBoxRung(source, "1(X0.1) -x1", {"WY1 = WX2", "WR5 = WR1 + H10"},
             {{"WM2 = WR1 AND WR3", "; a comment", "WY1 = WR10 (WR3)"}});
  // An unconditional box of bit assignments and comparisons into flag bits.
  AddBoxRung(source, "1(*) -x1", {"Y1.0 = X2.3", "Y1.1 = NOT X2.4"},
             {{"F0.8 : WX1 >= 100", "Y1.2 = 1", "F0.9 : X1.0 == 0"}});
  // A comparison contact between a contact and a coil.
  source.Row("1(X0.1) 49(WX10,>=,WR20) -x5 3(Y0.1)");
  // A comparison contact heading a conditional box that nests an IF in the ELSE of another.
  AddBoxRung(source, "1(X0.2) 49(WX1,>,5)", {"IF DR1 == DR2", "DR3 = DR1 * DR2"},
             {{"ELSE", "IF WR1 > 5", "FX1 = 1.5"}, {"ENDIF", "Y1.3 = 0", "ENDIF"}});
  // An unconditional box of keyword, double-word, float and word lines.
  AddBoxRung(source, "1(*) -x1", {"INC WR5", "SFR WR10 16 4"},
             {{"FUN 12 WR1 7", "DPREAD 3 WR4 10", "DPWRITE WR4 3 10"},
              {"SEGMENT 2", "DR1 = -5", "FX10 = FX2 / FX3"},
              {"WR1 = FX3", "DR1 = S16 WR2", "FX1 = -1"}});
  TempProject p;
  ASSERT_EQ(CompileMain(p, source), kCompileOk);

  // The skip of a conditional box counts 4 for each unit from "MA" to "Ma"; the IF units carry
  // the distance to their ELSE or ENDIF, the ELSE units the distance to their ENDIF.
  const Lines records = {
      "#F#MAIN.PLC",
      "#R#A_X_0001MAK_0038MDWX0002M_______M_WY0001M+WR0001M_K_0010M_WR0005M&WR0001M_WR0003"
      "M_WM0002M@WR0010M_WR0003M_WY0001Ma______",
      "#R#m_______MOY_0010M_X_0023MoY_0011M_X_0024M]WX0001M_K_0064M_F_0008MOY_0012M_K_0001"
      "MQX_0010M_K_0000M_F_0009",
      "#R#A_X_0001e_______M]WX0010M_WR0020M_F_0008G_Y_0001",
      "#R#A_X_0002e_______M>WX0001M_K_0005M_F_0008MAK_0068ML______MEDR0001M_DR0002M_F_0008"
      "MjK_0005ML______M*DR0001M_DR0002M_DR0003MkK_000EM>WR0001M_K_0005M_F_0008MjK_0007"
      "MxK_0019M_K_0001M_K_0000M_K_0000M_K_0000M_K_3FF8Ml______MOY_0013M_K_0000Ml______Ma______",
      "#R#m_______MIWR0005MTWR0010M_K_0010M_K_0004MXK_000CM_WR0001M_K_0007MPK_0003M_K_000A"
      "M_WR0004MpWR0004M_K_000AM_K_0003MfK_0002ML______MdK_FFFBM_K_FFFFM_DR0001MxK_0016"
      "M_K_020aM_K_0003MxK_0020M_K_0003M_WR0001MLK_0001M_DR0001M_WR0002MxK_0018M_K_0001"
      "M_K_FFFFM_K_FFFF",
      "#R#L2______",
      "#R#L3______",
  };
  // The checksum sums the records as they were written, before the label pass.
  Lines written;
  for (const std::string& record : records) written.push_back(BeforeLabelPass(record));
  EXPECT_EQ(p.ReadFile("PLANT.LII"),
            testing::ListingText(records, ChecksumTrailer(ListingSum(written))));
  // 12 rows; units 15 + 13 + 6 + 31 + 32 (the pseudo-contacts of the unconditional boxes gone).
  EXPECT_EQ(p.ReadFile("PLANT.ERR"), ErrorFileText({"#F#MAIN.PLC"}, SummaryLines(14, 0, 0, 5, 97)));
}

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
