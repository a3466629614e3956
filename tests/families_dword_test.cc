// Double-word instructions compiled from whole box lines through the lexer, classifier and
// dispatcher.
#include <gtest/gtest.h>

#include "support/bench.h"

namespace rungc::testing {
namespace {

TEST(FamiliesDoubleWord, ExampleLines) {
  const LineCase rows[] = {
      {"DR1 = DR2", "ML MDDR0002 M M·DR0001", {}},
      {"DR1 = 100000", "ML MdK_86A0 M·K_0001 M·DR0001", {}},
      {"DR1 = -5", "ML MdK_FFFB M·K_FFFF M·DR0001", {}},
      {"DR1 = H1FFFF", "ML MdK_FFFF M·K_0001 M·DR0001", {}},
      {"DR3 = DR1 * DR2", "ML M*DR0001 M·DR0002 M·DR0003", {}},
      {"DR1 = S16 WR2", "MLK_0001 M·DR0001 M·WR0002", {}},
      {"DR1 = S12 WR2", "MLK_0002 M·DR0001 M·WR0002", {}},
      {"DM4 = FX2", "MxK_0021 M·K_0002 M·DM0004", {}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(FamiliesDoubleWord, MovesAndArithmetic) {
  const LineCase rows[] = {
      {"DY1 = DM2", "ML MDDM0002 M M·DY0001", {}},
      {"DR1 = + 7", "ML MdK_0007 M·K_0000 M·DR0001", {}},
      {"DR1 = -1", "ML MdK_FFFF M·K_FFFF M·DR0001", {}},
      {"DR1 = 0012", "ML MdK_000C M·K_0000 M·DR0001", {}},
      {"DR1 = 2147483647", "ML MdK_FFFF M·K_7FFF M·DR0001", {}},
      {"DR1 = - 2147483647", "ML MdK_0001 M·K_8000 M·DR0001", {}},
      {"DR1 = H0", "ML MdK_0000 M·K_0000 M·DR0001", {}},
      {"DR1 = HFFFFFFFF", "ML MdK_FFFF M·K_FFFF M·DR0001", {}},
      {"DZ1 = DY2 + DX3", "ML M+DY0002 M·DX0003 M·DZ0001", {}},
      {"DR1 = DR2 - DM3", "ML M-DR0002 M·DM0003 M·DR0001", {}},
      {"DR1 = DR2 / DR3", "ML M/DR0002 M·DR0003 M·DR0001", {}},
      {"DR1 = S16 WAX2", "MLK_0001 M·DR0001 M·AX0002", {}},
      {"DR1 = FX10", "MxK_0021 M·K_000a M·DR0001", {}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(FamiliesDoubleWord, InputDestinationWarnsForMovesAndArithmeticOnly) {
  const LineCase rows[] = {
      {"DX1 = DR2", "ML MDDR0002 M M·DX0001", {"W1:DX1"}},
      {"DX1 = -5", "ML MdK_FFFB M·K_FFFF M·DX0001", {"W1:DX1"}},
      {"DX1 = DR2 + DR3", "ML M+DR0002 M·DR0003 M·DX0001", {"W1:DX1"}},
      {"DX1 = S16 WR2", "MLK_0001 M·DX0001 M·WR0002", {}},
      {"DX1 = FX1", "MxK_0021 M·K_0001 M·DX0001", {}},
      // The warning comes before the errors of the chosen form's operands.
      {"DX1 =", kAnyCode, {"W1:DX1", "E9"}},
      {"DX1 = DR12345", kAnyCode, {"W1:DX1", "E9:DR12345"}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(FamiliesDoubleWord, LinesOfNoFormAreError16WithoutCode) {
  const LineCase rows[] = {
      {"DR1 = DR2 + 5", "", {"E16"}},
      {"DR1 = 5 + DR2", "", {"E16"}},
      {"DR1 = DR2 : DR3", "", {"E16"}},
      {"DR1 = DR2 DR3", "", {"E16"}},
      {"DR1 = DR2 + DR3 DR4", "", {"E16"}},
      {"DR1 = - H10", "", {"E16"}},
      {"DR1 = - DR2", "", {"E16"}},
      {"DR1 = * 5", "", {"E16"}},
      {"DR1 = - WR2", "", {"E16"}},
      {"DR1 = S16 WR2 WR3", "", {"E16"}},
      {"DR1 = S16 5", "", {"E16"}},
      {"DR1 = SQRT WR2", "", {"E16"}},
      {"DR1 = WR2", "", {"E16"}},
      {"DR1 = X1.0", "", {"E16"}},
      {"DR1 = 1.5", "", {"E16"}},
      {"DR1 = 3000000000", "", {"E16"}},  // beyond 32 bits: a floating-point constant
      {"DR1 = (DR2)", "", {"E16"}},
      {"DR1 = FX2 + FX3", "", {"E16"}},
      {"DR1 == DR2", "", {"E16"}},
      {"DR1 : DR2", "", {"E16"}},
      {"DR1", "", {"E16"}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(FamiliesDoubleWord, MalformedOperandsStillWriteTheGroup) {
  const LineCase rows[] = {
      // The missing constant reads as nothing: the move is written with zeros.
      {"DR1 =", "ML MdK_0000 M·K_0000 M·DR0001", {"E9"}},
      {"DR1 = H123456789", "ML MdK_0000 M·K_0000 M·DR0001", {"E9:H123456789"}},
      {"DR1 = S16", kAnyCode, {"E9"}},
      {"DR1 = FX256", kAnyCode, {"E9:FX256"}},
      {"DR1 = DR2 +", kAnyCode, {"E9"}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

}  // namespace
}  // namespace rungc::testing
