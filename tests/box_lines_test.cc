// Function-block lines compiled whole through the lexer, the classifier, the dispatcher and the
// statement families: the code each form gives and the reports it makes, with how a cell's lines
// are cut, skipped and refused, and how a comparison contact becomes a comparison into F0.8.
// The spelling of single operands (case, zeros, lengths) is pinned by the lexer, classifier and
// encoder tests; rows here pin forms. Code in `DumpUnits` notation, reports as `Record` takes.
#include <gtest/gtest.h>

#include <string>

#include "common/session.h"
#include "support/bench.h"

namespace rungc::testing {
namespace {

void ExpectLines(std::initializer_list<LineCase> rows) {
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(BoxCell, LinesAreCutIntoOperandsForTheFamilyOfTheFirst) {
  ExpectLines({
      {"WY1 = WX2 ; copy", "MDWX0002 M M·WY0001", {}},  // a comment ends the operands
      {"WR1 =                        100", "MdK_0064 M M·WR0001", {}},  // ends in character 32
      {"5 = WR1", "", {"E16"}},  // no family takes a constant
  });
}

TEST(BoxCell, HeadAndContinuationCellsCompileEachLine) {
  Bench head;
  BoxResult r = head.CompileCell({"WY1 = WX2", "Y1.0 = 1"});
  EXPECT_EQ(DumpUnits(r.code), "MDWX0002 M M·WY0001 MOY_0010 M·K_0001");
  EXPECT_TRUE(r.reports.empty());
  Bench continuation;
  r = continuation.CompileCell({"WR1 = 1", "; skipped", "WR2 = WR1"}, 10);
  EXPECT_EQ(DumpUnits(r.code), "MdK_0001 M M·WR0001 MDWR0001 M M·WR0002");
}

TEST(BoxCell, ALexerErrorStopsTheCellOtherErrorsDoNot) {
  Bench lexer;
  BoxResult r = lexer.CompileCell({"WR1 = (WR5", "WX1 = 1"});
  EXPECT_EQ(r.code, "");
  EXPECT_EQ(r.reports, Lines{Record("E9", BoxLine("WR1 = (WR5"))});
  // The rung is dropped for the error; the next line's warning is reported all the same.
  Bench other;
  r = other.CompileCell({"WY1 = WX2 + WX3 + WX4", "WX1 = 5"});
  EXPECT_EQ(DumpUnits(r.code), "MdK_0005 M M·WX0001");
  EXPECT_EQ(r.reports, (Lines{Record("E16", BoxLine("WY1 = WX2 + WX3 + WX4")),
                              Record("W1:WX1", BoxLine("WX1 = 5"))}));
}

TEST(BoxCell, AComparisonContactComparesIntoF08) {
  struct Case {
    const char *a, *op, *b;
    std::string_view units;
    Lines reports;
  };
  const Case cases[] = {
      {"wx10", ">=", "h1f", "e M]WX0010 M·K_001F M·F_0008", {}},
      {" DR1", "<>", "DR2 ", "e ML MeDR0001 M·DR0002 M·F_0008", {}},
      {"X1.0", "==", "0", "e MQX_0010 M·K_0000 M·F_0008", {}},
      // Its reports carry no text: no box line has been compiled yet in the rung.
      {"DR1", "==", "5", "e", {"#E#NERR=16#RUNG=1"}},
      {"X1.0", ">", "X1.1", "e", {"#E#NERR=16#RUNG=1#ITEM=:"}},
      {"FOO", ">", "5", kAnyCode, {"#E#NERR=16#RUNG=1#ITEM=FOO"}},
      // A field the lexer refuses keeps what it took: "12AB" compares 12.
      {"WR1", ">", "12AB", "e M>WR0001 M·K_000C M·F_0008", {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.a) + " " + c.op + " " + c.b);
    Bench bench;
    bench.session().ladder.box_line.Set("WR1 = FOO");  // left over from an earlier rung
    const BoxResult r = bench.CompileComparison(c.a, c.op, c.b);
    if (c.units != kAnyCode) {
      EXPECT_EQ(DumpUnits(r.code), c.units);
    }
    EXPECT_EQ(r.reports, c.reports);
  }
}

TEST(BitFamily, AssignmentsAndComparisons) {
  ExpectLines({
      {"Y1.0 = X2.3", "MOY_0010 M·X_0023", {}},
      {"Y1.0 = 1", "MOY_0010 M·K_0001", {}},
      {"Y1.0 = NOT X2.3", "MoY_0010 M·X_0023", {}},
      {"Y1.0 == X1.3", "MOY_0010 M·X_0013", {}},  // only the sign's first character counts
      // Words: every comparison text.
      {"R1.2 : WR1 > WR2", "M>WR0001 M·WR0002 M·R_0012", {}},
      {"R1.2 : WR1 < WR2", "M<WR0001 M·WR0002 M·R_0012", {}},
      {"R1.2 : WR1 = WR2", "MEWR0001 M·WR0002 M·R_0012", {}},
      {"R1.2 : WR1 == WR2", "MEWR0001 M·WR0002 M·R_0012", {}},
      {"R1.2 : WR1 <= WR2", "M[WR0001 M·WR0002 M·R_0012", {}},
      {"F0.8 : WX1 >= 100", "M]WX0001 M·K_0064 M·F_0008", {}},
      {"R1.2 : WR1 >< WR2", "MeWR0001 M·WR0002 M·R_0012", {}},
      {"Z3.F : 5 <> H10", "MeK_0005 M·K_0010 M·Z_003F", {}},
      // Double words: the "ML" prefix first.
      {"F0.8 : DX1 > DY2", "ML M>DX0001 M·DY0002 M·F_0008", {}},
      {"F0.8 : DX1 < DY2", "ML M<DX0001 M·DY0002 M·F_0008", {}},
      {"F0.8 : DM1 == DZ2", "ML MEDM0001 M·DZ0002 M·F_0008", {}},
      {"F0.8 : DM1 >= DZ2", "ML M]DM0001 M·DZ0002 M·F_0008", {}},
      {"F0.8 : DM1 <= DZ2", "ML M[DM0001 M·DZ0002 M·F_0008", {}},
      {"F0.8 : DM1 >< DZ2", "ML MeDM0001 M·DZ0002 M·F_0008", {}},
      {"F0.8 : DR1 <> DR2", "ML MeDR0001 M·DR0002 M·F_0008", {}},
      // Bits: equal or not.
      {"F0.8 : X1.0 == 1", "MQX_0010 M·K_0001 M·F_0008", {}},
      {"F0.8 : X1.0 <> Y2.F", "MqX_0010 M·Y_002F M·F_0008", {}},
      {"F0.8 : X1.0 >< Y2.F", "MqX_0010 M·Y_002F M·F_0008", {}},
      // A destination in the input area warns first and is written all the same.
      {"X1.0 = 1", "MOX_0010 M·K_0001", {"W1:X1.0"}},
      {"X1.0 = NOT X1.1", "MoX_0010 M·X_0011", {"W1:X1.0"}},
      {"X1.0 : WX1 > 5", "M>WX0001 M·K_0005 M·X_0010", {"W1:X1.0"}},
      {"X1.0 : DR1 > DR2", "ML M>DR0001 M·DR0002 M·X_0010", {"W1:X1.0"}},
      {"X1.0 : X1.1 == 1", "MQX_0011 M·K_0001 M·X_0010", {"W1:X1.0"}},
  });
}

TEST(BitFamily, FailingLines) {
  ExpectLines({
      // "=" carries the assignment code: only words compare with it.
      {"F0.8 : DR1 = DR2", "", {"E16"}},
      {"F0.8 : X1.0 = X1.1", "", {"E16"}},
      {"F0.8 : X1.0 == WR1", "", {"E16"}},
      {"F0.8 : WX1 => 5", "", {"E16"}},
      {"F0.8 : (WR1) > 5", "", {"E16"}},
      {"Y1.0 = NOT X1.0 X1.1", "", {"E16"}},
      {"Y1.0 = X1.0 X1.1", "", {"E16"}},
      {"Y1.0 = WR1", "", {"E16"}},
      // A comparison text the kind does not allow names operand 1.
      {"F0.8 : WX1 + 5", "", {"E16::"}},
      {"Y1.0 = 5", kAnyCode, {"E9:5"}},
      {"Y1.0 = NOT", kAnyCode, {"E9"}},
      {"M10.3 = 1", "", {"E9"}},  // area M has no bit form: the lexer refuses the '.'
  });
}

TEST(WordFamily, EveryForm) {
  ExpectLines({
      {"WY1 = WX2", "MDWX0002 M M·WY0001", {}},
      {"WY1 = 100", "MdK_0064 M M·WY0001", {}},
      {"WR5 = WR1 + H10", "M+WR0001 M·K_0010 M·WR0005", {}},
      {"WZ3 = 5 - WT2", "M-K_0005 M·WT0002 M·WZ0003", {}},
      {"WF1 = WC1 * 3", "M*WC0001 M·K_0003 M·WF0001", {}},
      {"WR1 = WR2 / H0", "M/WR0002 M·K_0000 M·WR0001", {}},
      {"WM2 = WR1 AND WR3", "M&WR0001 M·WR0003 M·WM0002", {}},
      {"WM2 = WR1 OR H00FF", "M|WR0001 M·K_00FF M·WM0002", {}},
      {"WM2 = WR1 XOR 70000", "M^WR0001 M·K_1170 M·WM0002", {}},
      {"WY1 = WR10 (WR3)", "M@WR0010 M·WR0003 M·WY0001", {}},
      {"WM4 (WR2) = 7", "M$WR0002 M·K_0007 M·WM0004", {}},
      {"WY2 = BCD WAX3", "MbAX0003 M M·WY0002", {}},
      {"WR1 = COPY WM5 10", "MCWM0005 M·K_000A M·WR0001", {}},
      {"WR1 = FILL (WM5) H10", "MFWM0005 M·K_0010 M·WR0001", {}},
      {"WR1 = SUM DR4 3", "MVDR0004 M·K_0003 M·WR0001", {}},
      {"WR1 = AVRG WR0 1", "MGWR0000 M·K_0001 M·WR0001", {}},
      {"WR1 = FX3", "MxK_0020 M·K_0003 M·WR0001", {}},
      // An input destination warns as soon as the form is chosen, before its operands' errors;
      // the float-register conversion may fill an input word without a warning.
      {"WAX2 = WR1", "MDWR0001 M M·AX0002", {"W1:WAX2"}},
      {"WX1 = WR2 + 1", "M+WR0002 M·K_0001 M·WX0001", {"W1:WX1"}},
      {"WX1 = WR2 AND 1", "M&WR0002 M·K_0001 M·WX0001", {"W1:WX1"}},
      {"WX1 = WR2 (WR3)", "M@WR0002 M·WR0003 M·WX0001", {"W1:WX1"}},
      {"WX1 = BIN WR2", "MBWR0002 M M·WX0001", {"W1:WX1"}},
      {"WX1 = COPY WR2 1", "MCWR0002 M·K_0001 M·WX0001", {"W1:WX1"}},
      {"WX1 = FX255", "MxK_0020 M·K_00ff M·WX0001", {}},
      {"WX1 =", kAnyCode, {"W1:WX1", "E9"}},
      {"WX1 = BIN 5", "", {"W1:WX1", "E16"}},
      {"WX1 = NOT WR2", "", {"E16"}},
      {"WX1 = WX2 WX3", "", {"W1:WX1", "E79:WX2"}},
      {"WX4 (WR2) = 7", "", {"W1:WX4", "E79:WX4"}},
  });
}

TEST(WordFamily, FailingLines) {
  ExpectLines({
      {"WY1 = WX2 + WX3 + WX4", "", {"E16"}},
      {"WY1 = WX2 : WX3", "", {"E16"}},  // ':' is no arithmetic sign
      {"WY1 = WX2 + 1.5", "", {"E16"}},
      {"WY1 = FX3 + FX4", "", {"E16"}},
      {"WY1 = BIN WR2 WR3", "", {"E16"}},
      {"WY1 = COPY WM5 WR2", "", {"E16"}},
      {"WR1 = DR5", "", {"E16"}},
      {"WR1 = WR2 X1.0", "", {"E16"}},
      {"WY1 == WX2", "", {"E16"}},
      {"WY1 WR2", "", {"E16"}},
      {"WR4 (5) = 7", "", {"E16"}},
      {"WM4 (WR2) = 7 8", "", {"E16"}},
      // Index bases are words of area R or M.
      {"WY1 = WZ2 (WR3)", "", {"E79:WZ2"}},
      {"WY4 (WR2) = 7", "", {"E79:WY4"}},
      {"WY1 =", kAnyCode, {"E9"}},              // a move of a missing constant
      {"WY1 = WR2 WR3", kAnyCode, {"E9:WR3"}},  // an index without parentheses is a constant
      {"WY1 = COPY X1.0 5", kAnyCode, {"E9:X1.0"}},
      // An unknown word is reported by the classifier; the line's later errors are dropped.
  });
}

TEST(DoubleWordFamily, EveryForm) {
  ExpectLines({
      {"DR1 = DR2", "ML MDDR0002 M M·DR0001", {}},
      {"DR1 = -5", "ML MdK_FFFB M·K_FFFF M·DR0001", {}},
      {"DR1 = + 7", "ML MdK_0007 M·K_0000 M·DR0001", {}},
      {"DR1 = - 2147483647", "ML MdK_0001 M·K_8000 M·DR0001", {}},
      {"DZ1 = DY2 + DX3", "ML M+DY0002 M·DX0003 M·DZ0001", {}},
      {"DR1 = DR2 - DM3", "ML M-DR0002 M·DM0003 M·DR0001", {}},
      {"DR3 = DR1 * DR2", "ML M*DR0001 M·DR0002 M·DR0003", {}},
      {"DR1 = DR2 / DR3", "ML M/DR0002 M·DR0003 M·DR0001", {}},
      {"DR1 = S16 WR2", "MLK_0001 M·DR0001 M·WR0002", {}},
      {"DR1 = S12 WR2", "MLK_0002 M·DR0001 M·WR0002", {}},
      {"DM4 = FX2", "MxK_0021 M·K_0002 M·DM0004", {}},
      // Moves and arithmetic into the input area warn; extensions and conversions do not.
      {"DX1 = DR2", "ML MDDR0002 M M·DX0001", {"W1:DX1"}},
      {"DX1 = DR2 + DR3", "ML M+DR0002 M·DR0003 M·DX0001", {"W1:DX1"}},
      {"DX1 = S16 WR2", "MLK_0001 M·DX0001 M·WR0002", {}},
      {"DX1 = FX1", "MxK_0021 M·K_0001 M·DX0001", {}},
      {"DX1 =", "ML MdK_0000 M·K_0000 M·DX0001", {"W1:DX1", "E9"}},
  });
}

TEST(DoubleWordFamily, FailingLines) {
  ExpectLines({
      {"DR1 = DR2 + 5", "", {"E16"}},
      {"DR1 = 5 + DR2", "", {"E16"}},
      {"DR1 = DR2 : DR3", "", {"E16"}},
      {"DR1 = DR2 + DR3 DR4", "", {"E16"}},
      {"DR1 = - H10", "", {"E16"}},
      {"DR1 = * 5", "", {"E16"}},
      {"DR1 = S16 WR2 WR3", "", {"E16"}},
      {"DR1 = S16 5", "", {"E16"}},
      {"DR1 = SQRT WR2", "", {"E16"}},
      {"DR1 = WR2", "", {"E16"}},
      {"DR1 = 3000000000", "", {"E16"}},  // beyond 32 bits: a floating-point constant
      {"DR1 = FX2 + FX3", "", {"E16"}},
      {"DR1 == DR2", "", {"E16"}},
      // A malformed constant reads as nothing: the move is written with zeros.
      {"DR1 = H123456789", "ML MdK_0000 M·K_0000 M·DR0001", {"E9:H123456789"}},
      {"DR1 = DR2 +", kAnyCode, {"E9"}},
  });
}

TEST(FloatFamily, EveryFunctionAndLoad) {
  ExpectLines({
      {"FX1 = FX2 + FX3", "MxK_0013 M·K_0201 M·K_0003", {}},
      {"FX1 = FX2 - FX3", "MxK_0014 M·K_0201 M·K_0003", {}},
      {"FX1 = FX2 * FX3", "MxK_0015 M·K_0201 M·K_0003", {}},
      {"FX10 = FX2 / FX3", "MxK_0016 M·K_020a M·K_0003", {}},
      {"FX1 = SQRT FX2", "MxK_0030 M·K_0201", {}},
      {"FX1 = ABS FX2", "MxK_0001 M·K_0201", {}},
      {"FX1 = NEG FX2", "MxK_0002 M·K_0201", {}},
      {"FX1 = CMP FX2", "MxK_001A M·K_0201", {}},
      {"FX255 = FX254", "MxK_0012 M·K_feff", {}},
      {"FX1 : FX2", "MxK_0012 M·K_0201", {}},  // every single sign assigns, as "=" does
      {"FX1 = WAX3", "MxK_0010 M·K_0001 M·AX0003", {}},
      {"FX1 = DR5", "MxK_0011 M·K_0001 M·DR0005", {}},
      {"FX1 = 100", "MxK_0018 M·K_0001 M·K_0064 M·K_0000", {}},
      {"FX1 = + 100000", "MxK_0018 M·K_0001 M·K_86A0 M·K_0001", {}},
      {"FX1 = - 2147483647", "MxK_0018 M·K_0001 M·K_0001 M·K_8000", {}},
      // Floating-point constants in the bits of an IEEE 754 double, low group first; above 32
      // bits a number is one too.
      {"FX1 = 1.5", "MxK_0019 M·K_0001 M·K_0000 M·K_0000 M·K_0000 M·K_3FF8", {}},
      {"FX1 = - 0.0", "MxK_0019 M·K_0001 M·K_0000 M·K_0000 M·K_0000 M·K_8000", {}},
      {"FX1 = 3000000000", "MxK_0019 M·K_0001 M·K_0000 M·K_C000 M·K_5A0B M·K_41E6", {}},
      {"FX1 = 1.5e-3", "MxK_0019 M·K_0001 M·K_7EFA M·K_BC6A M·K_9374 M·K_3F58", {}},
      {"FX1 = 1E400", "MxK_0019 M·K_0001 M·K_0000 M·K_0000 M·K_0000 M·K_7FF0", {}},
  });
}

TEST(FloatFamily, LinesOfNoFormAreError16OperazFloat) {
  ExpectLines({
      // Without an assignment sign nothing is written; afterwards the head's "Mx" and "K_" stand.
      {"FX1 == FX2", "", {"E16:OperazFloat"}},
      {"FX1 FX2", "", {"E16:OperazFloat"}},
      {"FX1 = FX2 + 5", "MxK_", {"E16:OperazFloat"}},
      {"FX1 = FX2 : FX3", "MxK_", {"E16:OperazFloat"}},
      {"FX1 = FX2 + FX3 FX4", "MxK_", {"E16:OperazFloat"}},
      {"FX1 =", "MxK_", {"E16:OperazFloat"}},
      {"FX1 = SQRT FX2 FX3", "MxK_", {"E16:OperazFloat"}},
      {"FX1 = SQRT WR2", "MxK_", {"E16:OperazFloat"}},
      {"FX1 = INC FX2", "MxK_", {"E16:OperazFloat"}},
      {"FX1 = - 5 6", "MxK_", {"E16:OperazFloat"}},
      {"FX1 = - H10", "MxK_", {"E16:OperazFloat"}},
      {"FX1 = SQRT", "MxK_", {"E16:OperazFloat"}},
      {"FX1 = * 5", "MxK_", {"E16:OperazFloat"}},
      {"FX1 = X1.0", "MxK_", {"E16:OperazFloat"}},
      {"FX1 = WR1 + WR2", "MxK_", {"E16:OperazFloat"}},
      {"FX256 = FX1", kAnyCode, {"E9:FX256"}},
  });
}

TEST(KeywordFamily, WordShiftAndPortInstructions) {
  ExpectLines({
      {"INC WR5", "MIWR0005", {}},
      {"DEC WAY3", "MiAY0003", {}},
      {"SHFL WM2", "MsWM0002", {}},
      {"SHFR WX1", "MSWX0001", {}},  // no input warning in this family
      {"SFR WR10 16 4", "MTWR0010 M·K_0010 M·K_0004", {}},
      {"SFL WM1 H0100 H20", "MtWM0001 M·K_0100 M·K_0020", {}},
      {"ROL WZ1 H100 32", "MuWZ0001 M·K_0100 M·K_0020", {}},
      {"ROR WR10 256 32", "MUWR0010 M·K_0100 M·K_0020", {}},
      {"ROR WR10 0 0", "MUWR0010 M·K_0000 M·K_0000", {}},
      {"FUN 12 WR1 7", "MXK_000C M·WR0001 M·K_0007", {}},
      {"FUN 7", "MXK_0007", {}},
      {"FUN H1F WR1", "MXK_001F M·WR0001", {}},
      {"FUN 7 WR1 WR2 WR3", "MXK_0007 M·WR0001 M·WR0002", {}},  // later operands not tested
      {"DPREAD 3 WX4 H10", "MPK_0003 M·K_0010 M·WX0004", {}},
      {"DPWRITE WY4 3 10", "MpWY0004 M·K_000A M·K_0003", {}},
      {"SEGMENT 70000", "MfK_1170", {}},
      {"INC WR5 WR6", "", {"E16"}},
      {"INC X1.0", "", {"E16"}},
      // A number above its limit stops the group after the units already written.
      {"SFR WR10 257 4", "MTWR0010", {"E16"}},
      {"SFR WR10 16 33", "MTWR0010 M·K_0010", {"E16"}},
      {"SFR WR10 16", "MTWR0010 M·K_0010", {"E16"}},
      // A hex length beyond 32 bits reads as the largest value, not as its low bits (256).
      {"SFR WR10 H100000100 4", "MTWR0010", {"E16"}},
      // Operand types and the end of the form are checked before anything is written.
      {"SFR WX1 16 4", "", {"E16"}},
      {"SFR WR10 16 4 7", "", {"E16"}},
      {"SFR WR10 WR2 4", "", {"E16"}},
      {"FUN 7 X1.0", "", {"E16"}},
      {"FUN 7 5 X1.0", "", {"E16"}},
      {"FUN WR1", "", {"E16"}},
      {"DPREAD 3 WZ4 10", "", {"E16"}},
      {"DPREAD WR3 WR4 10", "", {"E16"}},
      {"DPREAD 3 WR4 WR5", "", {"E16"}},
      {"DPWRITE 3 WR4 10", "", {"E16"}},
      {"SEGMENT WR1", "", {"E16"}},
      // Keywords of other families and signs are no instruction of their own.
      {"+ WR1", "", {"E16"}},
  });
}

TEST(KeywordFamily, IfComparesThroughTheFlagBit) {
  ExpectLines({
      {"IF WX1 > 5", "M>WX0001 M·K_0005 M·F_0008 Mj", {}},
      {"IF DR1 <> DR2", "ML MeDR0001 M·DR0002 M·F_0008 Mj", {}},
      {"IF X1.0 == 1", "MQX_0010 M·K_0001 M·F_0008 Mj", {}},
      {"IF 5 <= WR1", "M[K_0005 M·WR0001 M·F_0008 Mj", {}},
      // The comparison's right side is moved over operand 4, which is not looked at.
      {"IF WX1 >= H10 WR3", "M]WX0001 M·K_0010 M·F_0008 Mj", {}},
      {"ELSE WR1", "Mk", {}},  // ELSE and ENDIF look at nothing else
      {"ENDIF 5", "Ml", {}},
      // The IF's own test: a comparison sign between two words, double words or bits.
      {"IF WX1 = 5", "", {"E16"}},
      {"IF X1.0 == WR1", "", {"E16"}},
      {"IF WX1 > DR1", "", {"E16"}},
      {"IF FX1 > FX2", "", {"E16"}},
      // Errors of the comparison itself come from the bit family; no "Mj" follows them.
      {"IF X1.0 > X1.1", "", {"E16::"}},
      {"IF WR1 < WR2 WR3 WR4", "", {"E16"}},
      {"IF WX1 >", kAnyCode, {"E9"}},
  });
  // After an error in the rung the IF writes no jump unit; in one cell a whole structure.
  Bench after_error;
  BoxResult r = after_error.CompileCell({"FOO = 1", "IF WX1 > 5"});
  EXPECT_EQ(DumpUnits(r.code), "M>WX0001 M·K_0005 M·F_0008");
  EXPECT_EQ(r.reports, Lines{Record("E16:FOO", BoxLine("FOO = 1"))});
  Bench structure;
  r = structure.CompileCell({"IF X1.0 == 0", "ELSE", "ENDIF"}, 10);
  EXPECT_EQ(DumpUnits(r.code), "MQX_0010 M·K_0000 M·F_0008 Mj Mk Ml");
  EXPECT_TRUE(r.reports.empty());
}

}  // namespace
}  // namespace rungc::testing
