// Keyword instructions compiled from whole box lines through the lexer, classifier and
// dispatcher, including the IF's second pass through the bit comparisons.
#include <gtest/gtest.h>

#include "support/bench.h"

namespace rungc::testing {
namespace {

TEST(FamiliesKeyword, ExampleLines) {
  const LineCase rows[] = {
      {"INC WR5", "MIWR0005", {}},
      {"SHFL WM2", "MsWM0002", {}},
      {"SFR WR10 16 4", "MTWR0010 M·K_0010 M·K_0004", {}},
      {"ROL WZ1 H100 32", "MuWZ0001 M·K_0100 M·K_0020", {}},
      {"IF WX1 > 5", "M>WX0001 M·K_0005 M·F_0008 Mj", {}},
      {"ELSE", "Mk", {}},
      {"ENDIF", "Ml", {}},
      {"FUN 12 WR1 7", "MXK_000C M·WR0001 M·K_0007", {}},
      {"DPREAD 3 WR4 10", "MPK_0003 M·K_000A M·WR0004", {}},
      {"DPWRITE WR4 3 10", "MpWR0004 M·K_000A M·K_0003", {}},
      {"SEGMENT 2", "MfK_0002", {}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(FamiliesKeyword, WordAndShiftInstructions) {
  const LineCase rows[] = {
      {"DEC WAY3", "MiAY0003", {}},
      {"SHFR WX1", "MSWX0001", {}},  // no input warning in this family
      {"INC WR5 WR6", "", {"E16"}},
      {"INC X1.0", "", {"E16"}},
      {"INC", kAnyCode, {"E9"}},  // no operand to encode
      {"SFL WM1 H0100 H20", "MtWM0001 M·K_0100 M·K_0020", {}},
      {"ROR WR10 256 32", "MUWR0010 M·K_0100 M·K_0020", {}},
      {"ROR WR10 0 0", "MUWR0010 M·K_0000 M·K_0000", {}},
      // A number above its limit stops the group after the units already written.
      {"SFR WR10 257 4", "MTWR0010", {"E16"}},
      {"SFR WR10 H101 4", "MTWR0010", {"E16"}},
      {"SFR WR10 16 33", "MTWR0010 M·K_0010", {"E16"}},
      {"SFR WR10 16", "MTWR0010 M·K_0010", {"E16"}},
      // A hex length beyond 32 bits reads as the largest value, not as its low bits (256).
      {"SFR WR10 H100000100 4", "MTWR0010", {"E16"}},
      // Operand types and the end of the form are checked before anything is written.
      {"SFR WX1 16 4", "", {"E16"}},
      {"SFR WT1 16 4", "", {"E16"}},
      {"SFR WR10 16 4 7", "", {"E16"}},
      {"SFR WR10 WR2 4", "", {"E16"}},
      {"SFR WR10 1.5 4", "", {"E16"}},
      {"SFR (WR10) 16 4", "", {"E16"}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(FamiliesKeyword, IfComparesThroughTheFlagBit) {
  const LineCase rows[] = {
      {"IF DR1 <> DR2", "ML MeDR0001 M·DR0002 M·F_0008 Mj", {}},
      {"IF X1.0 == 1", "MQX_0010 M·K_0001 M·F_0008 Mj", {}},
      {"IF 5 <= WR1", "M[K_0005 M·WR0001 M·F_0008 Mj", {}},
      {"IF H10 >< H20", "MeK_0010 M·K_0020 M·F_0008 Mj", {}},
      {"if wy1<wr2", "M<WY0001 M·WR0002 M·F_0008 Mj", {}},
      // The IF's own test: a comparison sign between two words, double words or bits.
      {"IF WX1 = 5", "", {"E16"}},
      {"IF WX1 5", "", {"E16"}},
      {"IF X1.0 == WR1", "", {"E16"}},
      {"IF WX1 > DR1", "", {"E16"}},
      {"IF FX1 > FX2", "", {"E16"}},
      // Errors of the comparison itself come from the bit family; no "Mj" follows them.
      {"IF DR1 == 5", "", {"E16"}},
      {"IF X1.0 > X1.1", "", {"E16::"}},
      {"IF WR1 < WR2 WR3 WR4", "", {"E16"}},
      {"IF WX1 >", kAnyCode, {"E9"}},
      {"IF WX12345 > 1", kAnyCode, {"E9:WX12345"}},
      // The comparison's right side is moved over operand 4, which is not looked at.
      {"IF WX1 >= H10 WR3", "M]WX0001 M·K_0010 M·F_0008 Mj", {}},
      // ELSE and ENDIF look at nothing else.
      {"ELSE WR1", "Mk", {}},
      {"ENDIF 5", "Ml", {}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(FamiliesKeyword, IfWritesNoJumpUnitOnARungWithAnError) {
  Bench bench;
  const BoxResult result = bench.CompileCell({"FOO = 1", "IF WX1 > 5"});
  EXPECT_EQ(DumpUnits(result.code), "M>WX0001 M·K_0005 M·F_0008");
  EXPECT_EQ(result.reports, std::vector<std::string>{Record("E16:FOO", BoxLine("FOO = 1"))});
}

TEST(FamiliesKeyword, ConditionalBlockInOneCell) {
  Bench bench;
  const BoxResult result = bench.CompileCell({"IF X1.0 == 0", "ELSE", "ENDIF"}, 10);
  EXPECT_EQ(DumpUnits(result.code), "MQX_0010 M·K_0000 M·F_0008 Mj Mk Ml");
  EXPECT_TRUE(result.reports.empty());
}

TEST(FamiliesKeyword, FunctionCallsDataPortsAndSegments) {
  const LineCase rows[] = {
      {"FUN 7", "MXK_0007", {}},
      {"FUN H1F WR1", "MXK_001F M·WR0001", {}},
      {"FUN 7 WAX1 H2", "MXK_0007 M·AX0001 M·K_0002", {}},
      {"FUN 7 WR1 WR2 WR3", "MXK_0007 M·WR0001 M·WR0002", {}},  // later operands not tested
      {"FUN 7 X1.0", "", {"E16"}},
      {"FUN 7 5 X1.0", "", {"E16"}},
      {"FUN 7 DR1", "", {"E16"}},
      {"FUN WR1", "", {"E16"}},
      {"FUN", kAnyCode, {"E9"}},
      {"DPREAD 3 WX4 H10", "MPK_0003 M·K_0010 M·WX0004", {}},
      {"DPREAD 3 WZ4 10", "", {"E16"}},
      {"DPREAD WR3 WR4 10", "", {"E16"}},
      {"DPREAD 3 WR4 WR5", "", {"E16"}},
      {"DPWRITE WY4 3 10", "MpWY0004 M·K_000A M·K_0003", {}},
      {"DPWRITE 3 WR4 10", "", {"E16"}},
      {"DPWRITE WT4 3 10", "", {"E16"}},
      {"SEGMENT H1F", "MfK_001F", {}},
      {"SEGMENT WR1", "", {"E16"}},
      {"SEGMENT 70000", "MfK_1170", {}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(FamiliesKeyword, OtherKeywordsAndSignsFirstAreError16) {
  const LineCase rows[] = {
      {"AND WR1", "", {"E16"}},    {"BIN WR1", "", {"E16"}},  {"SQRT FX1", "", {"E16"}},
      {"S16 WR1", "", {"E16"}},    {"NOT X1.0", "", {"E16"}}, {"+ WR1", "", {"E16"}},
      {"= 5", "", {"E16"}},        {">= 5", "", {"E16"}},     {"=> WR1", "", {"E16"}},
      {"COPY WR1 5", "", {"E16"}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

}  // namespace
}  // namespace rungc::testing
