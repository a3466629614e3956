// Word instructions compiled from whole box lines through the lexer, classifier and dispatcher.
#include <gtest/gtest.h>

#include "support/bench.h"

namespace rungc::testing {
namespace {

TEST(BoxlinesWord, ExampleLines) {
  const LineCase rows[] = {
      {"WY1 = WX2", "MDWX0002 M M·WY0001", {}},
      {"WY1 = 100", "MdK_0064 M M·WY0001", {}},
      {"WR5 = WR1 + H10", "M+WR0001 M·K_0010 M·WR0005", {}},
      {"WM2 = WR1 AND WR3", "M&WR0001 M·WR0003 M·WM0002", {}},
      {"WY1 = WR10 (WR3)", "M@WR0010 M·WR0003 M·WY0001", {}},
      {"WM4 (WR2) = 7", "M$WR0002 M·K_0007 M·WM0004", {}},
      {"WX1 = BIN WR2", "MBWR0002 M M·WX0001", {"W1:WX1"}},
      {"WR1 = COPY WM5 10", "MCWM0005 M·K_000A M·WR0001", {}},
      {"WR1 = FX3", "MxK_0020 M·K_0003 M·WR0001", {}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(BoxlinesWord, EveryOperationAndOperandForm) {
  const LineCase rows[] = {
      // Arithmetic and logical operations take words and constants on both sides.
      {"WZ3 = 5 - WT2", "M-K_0005 M·WT0002 M·WZ0003", {}},
      {"WF1 = WC1 * 3", "M*WC0001 M·K_0003 M·WF0001", {}},
      {"WR1 = WR2 / H0", "M/WR0002 M·K_0000 M·WR0001", {}},
      {"WM2 = WR1 OR H00FF", "M|WR0001 M·K_00FF M·WM0002", {}},
      {"WM2 = WR1 XOR 70000", "M^WR0001 M·K_1170 M·WM0002", {}},
      // Keyword sources.
      {"WY2 = BCD WAX3", "MbAX0003 M M·WY0002", {}},
      {"WR1 = FILL (WM5) H10", "MFWM0005 M·K_0010 M·WR0001", {}},
      {"WR1 = SUM DR4 3", "MVDR0004 M·K_0003 M·WR0001", {}},
      {"WR1 = AVRG WR0 1", "MGWR0000 M·K_0001 M·WR0001", {}},
      // Operand fields: "WAY"/"WAX" words, zeros, constants rewritten by the classifier.
      {"WAY7 = 0012", "MdK_000C M M·AY0007", {}},
      {"WR1 = HFFFF", "MdK_FFFF M M·WR0001", {}},
      {"WR0 = WR000", "MDWR0000 M M·WR0000", {}},
      {"wy1=wx2", "MDWX0002 M M·WY0001", {}},
      {"WY1 = WM2 (WM1F)", "M@WM0002 M·WM001F M·WY0001", {}},
      {"WR4 ( wr2 ) = WX7", "M$WR0002 M·WX0007 M·WR0004", {}},
      {"WR1 = FX10", "MxK_0020 M·K_000a M·WR0001", {}},
      // The last operand of a full 32-character line is kept.
      {"WR1 =                        100", "MdK_0064 M M·WR0001", {}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(BoxlinesWord, InputDestinationWarnsAndStillWrites) {
  const LineCase rows[] = {
      {"WAX2 = WR1", "MDWR0001 M M·AX0002", {"W1:WAX2"}},
      {"WX1 = WR2 + 1", "M+WR0002 M·K_0001 M·WX0001", {"W1:WX1"}},
      {"WX1 = WR2 AND 1", "M&WR0002 M·K_0001 M·WX0001", {"W1:WX1"}},
      {"WX1 = WR2 (WR3)", "M@WR0002 M·WR0003 M·WX0001", {"W1:WX1"}},
      {"WX1 = COPY WR2 1", "MCWR0002 M·K_0001 M·WX0001", {"W1:WX1"}},
      // The float-register conversion may fill an input word without a warning.
      {"WX1 = FX255", "MxK_0020 M·K_00ff M·WX0001", {}},
      // The warning comes as soon as the form is chosen, before an error of its operands.
      {"WX1 =", kAnyCode, {"W1:WX1", "E9"}},
      {"WX1 = H1G", kAnyCode, {"W1:WX1", "E9:H1G"}},
      // The keyword chooses the instruction: its operand checks come after the warning.
      {"WX1 = BIN 5", "", {"W1:WX1", "E16"}},
      {"WAX1 = COPY WR2 WR3", "", {"W1:WAX1", "E16"}},
      {"WX1 = NOT WR2", "", {"E16"}},
      {"WX1 = WX2 WX3", "", {"W1:WX1", "E79:WX2"}},
      {"WX4 (WR2) = 7", "", {"W1:WX4", "E79:WX4"}},
      {"WX12345 = 1", kAnyCode, {"W1:WX12345", "E9:WX12345"}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(BoxlinesWord, LinesOfNoFormAreError16WithoutCode) {
  const LineCase rows[] = {
      {"WY1 = WX2 + WX3 + WX4", "", {"E16"}},
      {"WY1 = WX2 : WX3", "", {"E16"}},  // ':' is no arithmetic sign
      {"WY1 = FX3 + FX4", "", {"E16"}},
      {"WY1 = FX3 FX4", "", {"E16"}},
      {"WY1 = SQRT WR2", "", {"E16"}},
      {"WY1 = + 5", "", {"E16"}},
      {"WY1 = BIN 5", "", {"E16"}},
      {"WY1 = BIN WR2 WR3", "", {"E16"}},
      {"WY1 = COPY WM5 WR2", "", {"E16"}},
      {"WY1 = COPY WM5", "", {"E16"}},
      {"WR1 = DR5", "", {"E16"}},
      {"WR1 = (WR3)", "", {"E16"}},
      {"WR1 = WR2 X1.0", "", {"E16"}},
      {"WY1 = WX2 + 1.5", "", {"E16"}},
      {"WY1 == WX2", "", {"E16"}},
      {"WY1 WR2", "", {"E16"}},
      {"WR4 (5) = 7", "", {"E16"}},
      {"WM4 (WR2) = 7 8", "", {"E16"}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(BoxlinesWord, MalformedOperandsAndIndexBases) {
  const LineCase rows[] = {
      // Nothing after "=" is a move of a missing constant.
      {"WY1 =", kAnyCode, {"E9"}},
      {"WY1 = WX2 WX3", "", {"E79:WX2"}},
      {"WY1 = WZ2 (WR3)", "", {"E79:WZ2"}},
      {"WY4 (WR2) = 7", "", {"E79:WY4"}},
      // An index without parentheses is taken as a constant.
      {"WY1 = WR2 WR3", kAnyCode, {"E9:WR3"}},
      {"WM4 WR2 = 7", kAnyCode, {"E9:WR2"}},
      {"WY1 = COPY X1.0 5", kAnyCode, {"E9:X1.0"}},
      {"WY1 = BIN", kAnyCode, {"E9"}},
      {"WR1 = H12345", kAnyCode, {"E9:H12345"}},
      {"WY1 = WX", kAnyCode, {"E9:WX"}},
      {"WY1 = FX256", kAnyCode, {"E9:FX256"}},
      {"WY1 = FX1000", kAnyCode, {"E9:FX1000"}},
      // An unknown word is reported by the classifier; the line's later errors are dropped.
      {"WY1 = FOO", kAnyCode, {"E16:FOO"}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

}  // namespace
}  // namespace rungc::testing
