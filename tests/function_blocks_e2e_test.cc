// End-to-end compiles of function blocks: conditional and unconditional boxes with head and
// continuation cells, comparison contacts, lines of every instruction family, the IF structures
// that the label pass completes, and the errors and warnings of box lines in the error file.
#include <gtest/gtest.h>

#include <filesystem>
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
using testing::CrLfText;
using testing::HexBytes;
using testing::LadderSource;
using testing::ListingSum;
using testing::SplitLines;
using testing::SummaryLines;
using testing::TempProject;
using Lines = std::vector<std::string>;

const std::string kListingHeader = "- KORVA   1995 V2.0  LIS             ;";

Lines Concat(Lines a, const Lines& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

using testing::CompileMain;

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
  EXPECT_EQ(p.ReadFile("PLANT.LII"), CrLfText(Concat(Concat({kListingHeader}, records),
                                                     {ChecksumTrailer(ListingSum(written))})));
  // 12 rows; units 15 + 13 + 6 + 31 + 32 (the pseudo-contacts of the unconditional boxes gone).
  EXPECT_EQ(p.ReadFile("PLANT.ERR"),
            CrLfText(Concat({"#F#MAIN.PLC"}, SummaryLines(14, 0, 0, 5, 97))));
}

// Constants at the edges of their conversions: 32-bit decimals, signs joined to the number that
// follows, floating-point constants in their IEEE 754 bits, a 16-bit word keeping its low bits,
// register 255, and a line whose last operand ends in its 32nd character.
TEST(FunctionBlocksEndToEnd, ConstantsAtTheEdgesOfTheirConversions) {
  LadderSource source;
  AddBoxRung(source, "1(*) -x1", {"FX1 = 3000000000", "DR1 = -2147483647"},
             {{"FX2 = 2E3", "FX3 = - 1.5e-3", "DR2 = 2147483647"},
              {"WR1 = 70000", "WR2 = H0", "DR3 = H0"},
              {"FX255 = FX0", "WR1000 =    WR2000  +     WR3000", "FX4 = + 7"}});
  TempProject p;
  ASSERT_EQ(CompileMain(p, source), kCompileOk);
  const Lines records = {
      "#F#MAIN.PLC",
      "#R#m_______"
      "MxK_0019M_K_0001M_K_0000M_K_C000M_K_5A0BM_K_41E6"  // 3E9 is no 32-bit integer
      "ML______MdK_0001M_K_8000M_DR0001"
      "MxK_0019M_K_0002M_K_0000M_K_0000M_K_4000M_K_409F"
      "MxK_0019M_K_0003M_K_7EFAM_K_BC6AM_K_9374M_K_BF58"
      "ML______MdK_FFFFM_K_7FFFM_DR0002"
      "MdK_1170M_______M_WR0001"
      "MdK_0000M_______M_WR0002"
      "ML______MdK_0000M_K_0000M_DR0003"
      "MxK_0012M_K_00ff"
      "M+WR2000M_WR3000M_WR1000"
      "MxK_0018M_K_0004M_K_0007M_K_0000",
      "#R#L2______",
      "#R#L3______",
  };
  EXPECT_EQ(p.ReadFile("PLANT.LII"), CrLfText(Concat(Concat({kListingHeader}, records),
                                                     {ChecksumTrailer(ListingSum(records))})));
  EXPECT_EQ(p.ReadFile("PLANT.ERR"),
            CrLfText(Concat({"#F#MAIN.PLC"}, SummaryLines(6, 0, 0, 1, 46))));
}

TEST(FunctionBlocksEndToEnd, InputDestinationsWarnAndKeepTheirCode) {
  LadderSource source;
  AddBoxRung(source, "1(X0.3) -x1", {"WX1 = BIN WR2", "X1.0 = 1"},
             {{"DX1 = DR2", "DX2 = S16 WR2", "WX3 = FX1"}, {"WAX2 = 5"}});
  TempProject p;
  ASSERT_EQ(CompileMain(p, source), kCompileOk);
  const Lines records = {
      "#F#MAIN.PLC",
      "#R#A_X_0003MAK_0050MBWR0002M_______M_WX0001MOX_0010M_K_0001ML______MDDR0002M_______"
      "M_DX0001MLK_0001M_DX0002M_WR0002MxK_0020M_K_0001M_WX0003MdK_0005M_______M_AX0002Ma______",
      "#R#L2______",
      "#R#L3______",
  };
  EXPECT_EQ(p.ReadFile("PLANT.LII"), CrLfText(Concat(Concat({kListingHeader}, records),
                                                     {ChecksumTrailer(ListingSum(records))})));
  // Sign extensions and float-register conversions into the input area give no warning.
  EXPECT_EQ(
      p.ReadFile("PLANT.ERR"),
      CrLfText(Concat({"#F#MAIN.PLC", "#W#NERR=1#RUNG=1#ITEM=WX1#STRG=" + BoxLine("WX1 = BIN WR2"),
                       "#W#NERR=1#RUNG=1#ITEM=X1.0#STRG=" + BoxLine("X1.0 = 1"),
                       "#W#NERR=1#RUNG=1#ITEM=DX1#STRG=" + BoxLine("DX1 = DR2"),
                       "#W#NERR=1#RUNG=1#ITEM=WAX2#STRG=" + BoxLine("WAX2 = 5")},
                      SummaryLines(5, 0, 4, 1, 21))));
}

// IF structures are checked per record by the label pass: an IF left open, a second ELSE. The
// rung number of its messages counts the records that begin with a load, so an unconditional box
// does not advance it. An ENDIF with no IF in its record is not checked at all.
TEST(FunctionBlocksEndToEnd, UnbalancedIfStructuresAreLabelPassErrors) {
  LadderSource source;
  source.Row("1(X0.1) -x7 3(Y0.1)");
  AddBoxRung(source, "1(X0.2) -x1", {"IF WR1 > 5", "WR2 = 1"});
  AddBoxRung(source, "1(*) -x1", {"IF WR1 > 5", "ELSE"}, {{"ELSE", "ENDIF"}});
  AddBoxRung(source, "1(X0.3) -x1", {"ENDIF"});
  TempProject p;
  ASSERT_EQ(CompileMain(p, source), kCompileFailed);
  // The failed rewrite leaves the listing as the rungs were written.
  EXPECT_EQ(p.ReadFile("PLANT.LII"),
            CrLfText({kListingHeader, "#F#MAIN.PLC", "#R#A_X_0001G_Y_0001",
                      "#R#A_X_0002MAK_0024M>WR0001M_K_0005M_F_0008Mj______MdK_0001M_______"
                      "M_WR0002Ma______",
                      "#R#m_______M>WR0001M_K_0005M_F_0008Mj______Mk______Mk______Ml______",
                      "#R#A_X_0003MAK_000CMl______Ma______", "#R#L2______", "#R#L3______"}));
  EXPECT_FALSE(p.Exists("PLANT.$$$"));
  EXPECT_EQ(p.ReadFile("PLANT.ERR"),
            CrLfText(Concat({"#F#MAIN.PLC", "#F#MAIN.PLC", "#J#NERR=1#RUNG= 2 : Error",
                             "#F#MAIN.PLC", "#J#NERR=2#RUNG= 2 : many"},
                            SummaryLines(7, 2, 0, 4, 24))));
}

// Function-block units become object words through the example's memory map: head and
// continuation mnemonics, the skip and the IF distances as constants, a flag bit in the high byte
// of its word, blank fields as no operand.
TEST(FunctionBlocksEndToEnd, BoxUnitsBecomeObjectWords) {
  LadderSource source;
  AddBoxRung(source, "1(X0.1) -x1", {"IF WX1 > 5", "WY1 = WX2"}, {{"ELSE", "Y1.0 = 1", "ENDIF"}});
  AddBoxRung(source, "1(*) -x1", {"FX1 = 1.5"});
  TempProject p;
  std::filesystem::copy_file(
      std::filesystem::path(RUNGC_SOURCE_DIR) / "examples" / "plant" / "memory.ovl",
      p.dir() / "memory.ovl");
  ASSERT_EQ(CompileMain(p, source), kCompileOk);
  const Lines records = {
      "#F#MAIN.PLC",
      "#R#A_X_0001MAK_0034M>WX0001M_K_0005M_F_0008MjK_0004MDWX0002M_______M_WY0001MkK_0003"
      "MOY_0010M_K_0001Ml______Ma______",
      "#R#m_______MxK_0019M_K_0001M_K_0000M_K_0000M_K_0000M_K_3FF8",
      "#R#L2______",
      "#R#L3______",
  };
  const Lines lines = SplitLines(p.ReadFile("PLANT.LII"));
  ASSERT_EQ(lines.size(), 7u);
  EXPECT_EQ(Lines(lines.begin() + 1, lines.end() - 1), records);
  const std::string cod = p.ReadFile("PLANT.cod");
  ASSERT_GT(cod.size(), 40u);
  EXPECT_EQ(HexBytes(cod.substr(40)),
            "02 02 00 00 5C 00 34 00 AC FF 02 00 00 00 05 00 00 01 31 1A F4 00 04 00 "
            "86 FF 04 00 00 00 00 00 00 FF 42 00 F6 00 03 00 A0 01 42 00 00 00 01 00 "
            "F8 00 00 00 5A 00 00 00 "
            "00 00 00 00 D0 00 19 00 00 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 "
            "00 00 F8 3F "
            "44 00 00 00 46 00 00 00");
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
            CrLfText({kListingHeader, "#F#MAIN.PLC",
                      "#R#A_X_0002MAK_0018M>WR0001M_K_0005M_F_0008Mj______Ma______", "#R#L2______",
                      "#R#L3______"}));
  EXPECT_EQ(p.ReadFile("PLANT.ERR"),
            CrLfText(Concat({"#F#MAIN.PLC", "#E#NERR=1018#RUNG=2"}, SummaryLines(3, 1, 0, 1, 7))));
}

struct FailingBox {
  const char* name;
  LadderSource rung;
  int rows;
  Lines reports;  // the error file's lines for the rung
  int warnings;
};

LadderSource Box(const char* before, const Lines& head, const std::vector<Lines>& more = {}) {
  LadderSource source;
  AddBoxRung(source, before, head, more);
  return source;
}

LadderSource Relay(const char* row) {
  LadderSource source;
  source.Row(row);
  return source;
}

class FunctionBlockFails : public ::testing::TestWithParam<FailingBox> {};

// The failing rung leaves no record and the next rung compiles; the error file holds the rung's
// reports and the compile fails.
TEST_P(FunctionBlockFails, WithItsReports) {
  const FailingBox& c = GetParam();
  LadderSource source = c.rung;
  source.Row("1(X0.1) -x7 3(Y0.1)");
  TempProject p;
  EXPECT_EQ(CompileMain(p, source), kCompileFailed);
  EXPECT_EQ(p.ReadFile("PLANT.LII"), CrLfText({kListingHeader, "#F#MAIN.PLC", "#R#A_X_0001G_Y_0001",
                                               "#R#L2______", "#R#L3______"}));
  EXPECT_EQ(p.ReadFile("PLANT.ERR"),
            CrLfText(Concat(Concat({"#F#MAIN.PLC"}, c.reports),
                            SummaryLines(c.rows + 3, 1, c.warnings, 2, 2))));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, FunctionBlockFails,
    ::testing::Values(FailingBox{"LexerRefusal",
                                 Box("1(X0.1) -x1", {"WR1 = (WR5", "WY1 = 1"}),
                                 1,
                                 {"#E#NERR=9#RUNG=1#STRG=" + BoxLine("WR1 = (WR5")},
                                 0},
                      FailingBox{"AddressTooLong",
                                 Box("1(X0.1) -x1", {"WR1 = WX12345"}),
                                 1,
                                 {"#E#NERR=9#RUNG=1#ITEM=WX12345#STRG=" + BoxLine("WR1 = WX12345")},
                                 0},
                      FailingBox{"FloatRegisterAbove255",
                                 Box("1(*) -x1", {"FX256 = FX1"}),
                                 1,
                                 {"#E#NERR=9#RUNG=1#ITEM=FX256#STRG=" + BoxLine("FX256 = FX1")},
                                 0},
                      FailingBox{"UnknownWordInAContinuationCell",
                                 Box("1(X0.1) -x1", {"WR1 = 1"}, {{"WR2 = 2", "WR1 = FOO"}}),
                                 2,
                                 {"#E#NERR=16#RUNG=1#ITEM=FOO#STRG=" + BoxLine("WR1 = FOO")},
                                 0},
                      FailingBox{"UnconditionalBoxWithAContactBeforeIt",
                                 Box("1(*) 2(X0.1) -", {"WY1 = WX2"}),
                                 1,
                                 {"#E#NERR=23#RUNG=1"},
                                 0},
                      FailingBox{"IndexBaseNotOfAreaROrM",
                                 Box("1(*) -x1", {"WY1 = WX2 (WR3)"}),
                                 1,
                                 {"#E#NERR=79#RUNG=1#ITEM=WX2#STRG=" + BoxLine("WY1 = WX2 (WR3)")},
                                 0},
                      FailingBox{
                          "FloatLineOfNoForm",
                          Box("1(X0.1) -x1", {"FX1 = FX2"}, {{"", "", "FX1 = FX2 + 5"}}),
                          2,
                          {"#E#NERR=16#RUNG=1#ITEM=OperazFloat#STRG=" + BoxLine("FX1 = FX2 + 5")},
                          0},
                      FailingBox{"IfComparingADoubleWordWithAConstant",
                                 Box("1(X0.1) -x1", {"IF DR1 == 5", "ENDIF"}),
                                 1,
                                 {"#E#NERR=16#RUNG=1#STRG=" + BoxLine("IF DR1 == 5")},
                                 0},
                      FailingBox{"ShiftLengthAbove256",
                                 Box("1(X0.1) -x1", {"SFR WR10 257 4"}),
                                 1,
                                 {"#E#NERR=16#RUNG=1#STRG=" + BoxLine("SFR WR10 257 4")},
                                 0},
                      // A comparison contact's line is no box line: its error carries no text.
                      FailingBox{"ComparisonContactOfNoForm",
                                 Relay("1(X0.1) 49(DR1,==,5) -x5 3(Y0.1)"),
                                 1,
                                 {"#E#NERR=16#RUNG=1"},
                                 0},
                      FailingBox{"WarningThenError",
                                 Box("1(X0.1) -x1", {"WX1 = 5", "WR1 = FOO"}),
                                 1,
                                 {"#W#NERR=1#RUNG=1#ITEM=WX1#STRG=" + BoxLine("WX1 = 5"),
                                  "#E#NERR=16#RUNG=1#ITEM=FOO#STRG=" + BoxLine("WR1 = FOO")},
                                 1}),
    [](const ::testing::TestParamInfo<FailingBox>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace rungc
