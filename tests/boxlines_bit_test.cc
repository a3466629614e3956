// Bit assignments and comparisons compiled from whole box lines.
#include <gtest/gtest.h>

#include "support/bench.h"

namespace rungc::testing {
namespace {

TEST(BoxlinesBit, ExampleLines) {
  const LineCase rows[] = {
      {"Y1.0 = X2.3", "MOY_0010 M·X_0023", {}},
      {"Y1.0 = 1", "MOY_0010 M·K_0001", {}},
      {"Y1.0 = NOT X2.3", "MoY_0010 M·X_0023", {}},
      {"F0.8 : WX1 >= 100", "M]WX0001 M·K_0064 M·F_0008", {}},
      {"F0.8 : DR1 <> DR2", "ML MeDR0001 M·DR0002 M·F_0008", {}},
      {"F0.8 : X1.0 == 1", "MQX_0010 M·K_0001 M·F_0008", {}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(BoxlinesBit, ComparisonCharacters) {
  const LineCase rows[] = {
      {"R1.2 : WR1 > WR2", "M>WR0001 M·WR0002 M·R_0012", {}},
      {"R1.2 : WR1 < WR2", "M<WR0001 M·WR0002 M·R_0012", {}},
      {"R1.2 : WR1 = WR2", "MEWR0001 M·WR0002 M·R_0012", {}},
      {"R1.2 : WR1 == WR2", "MEWR0001 M·WR0002 M·R_0012", {}},
      {"R1.2 : WR1 <= WR2", "M[WR0001 M·WR0002 M·R_0012", {}},
      {"R1.2 : WR1 >< WR2", "MeWR0001 M·WR0002 M·R_0012", {}},
      {"Z3.F : 5 <> H10", "MeK_0005 M·K_0010 M·Z_003F", {}},
      {"F0.8 : DX1 > DY2", "ML M>DX0001 M·DY0002 M·F_0008", {}},
      {"F0.8 : DX1 < DY2", "ML M<DX0001 M·DY0002 M·F_0008", {}},
      {"F0.8 : DM1 == DZ2", "ML MEDM0001 M·DZ0002 M·F_0008", {}},
      {"F0.8 : DM1 >= DZ2", "ML M]DM0001 M·DZ0002 M·F_0008", {}},
      {"F0.8 : DM1 <= DZ2", "ML M[DM0001 M·DZ0002 M·F_0008", {}},
      {"F0.8 : DM1 >< DZ2", "ML MeDM0001 M·DZ0002 M·F_0008", {}},
      {"F0.8 : X1.0 <> Y2.F", "MqX_0010 M·Y_002F M·F_0008", {}},
      {"F0.8 : X1.0 >< Y2.F", "MqX_0010 M·Y_002F M·F_0008", {}},
      {"F0.8 : X1.0 == 0", "MQX_0010 M·K_0000 M·F_0008", {}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(BoxlinesBit, AssignmentForms) {
  const LineCase rows[] = {
      // Only the first character of the sign is looked at.
      {"Y1.0 == X1.3", "MOY_0010 M·X_0013", {}},
      {"Y1.0 = 0", "MOY_0010 M·K_0000", {}},
      {"Y.3 = X0.3", "MOY_0003 M·X_0003", {}},
      {"Y1A.F = R10.0", "MOY_01AF M·R_0100", {}},
      {"y1.0=not r2.1", "MoY_0010 M·R_0021", {}},
      // A destination in the input area warns first and is written all the same.
      {"X1.0 = 1", "MOX_0010 M·K_0001", {"W1:X1.0"}},
      {"X1.0 = NOT X1.1", "MoX_0010 M·X_0011", {"W1:X1.0"}},
      {"X1.0 : WX1 > 5", "M>WX0001 M·K_0005 M·X_0010", {"W1:X1.0"}},
      {"X1.0 : DR1 > DR2", "ML M>DR0001 M·DR0002 M·X_0010", {"W1:X1.0"}},
      {"X1.0 : X1.1 == 1", "MQX_0011 M·K_0001 M·X_0010", {"W1:X1.0"}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(BoxlinesBit, FailingLines) {
  const LineCase rows[] = {
      // "=" carries the assignment code: words only compare with it.
      {"F0.8 : DR1 = DR2", "", {"E16"}},
      {"F0.8 : X1.0 = X1.1", "", {"E16"}},
      // Both sides of a double-word comparison are double words.
      {"F0.8 : DR1 == 5", "", {"E16"}},
      {"F0.8 : X1.0 == WR1", "", {"E16"}},
      {"F0.8 : WX1 > 5 6", "", {"E16"}},
      {"F0.8 : (WR1) > 5", "", {"E16"}},
      {"Y1.0 = NOT X1.0 X1.1", "", {"E16"}},
      {"Y1.0 = X1.0 X1.1", "", {"E16"}},
      {"Y1.0 = WR1", "", {"E16"}},
      {"Y1.0 X1.0", "", {"E16"}},
      {"Y1.0", "", {"E16"}},
      // A comparison text the kind does not allow names operand 1.
      {"F0.8 : X1.0 > X1.1", "", {"E16::"}},
      {"F0.8 : WX1 + 5", "", {"E16::"}},
      {"X1.0 : WX1 + 5", "", {"W1:X1.0", "E16::"}},
      // Malformed operands.
      {"Y1.0 = 5", kAnyCode, {"E9:5"}},
      {"X1.0 = 5", kAnyCode, {"W1:X1.0", "E9:5"}},
      {"F0.8 : X1.0 == 2", kAnyCode, {"E9:2"}},
      {"Y1.0 = NOT", kAnyCode, {"E9"}},
      {"F0.8 : WX1 >", kAnyCode, {"E9"}},
      {"Y1234.0 = 1", kAnyCode, {"E9:Y1234.0"}},
      {"Y1.G = 1", kAnyCode, {"E9:Y1.G"}},
      // Area M has no bit form: the lexer already refuses the '.' after a name.
      {"M10.3 = 1", "", {"E9"}},
      {"X10.12 = 1", kAnyCode, {"E16:X10.12"}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

}  // namespace
}  // namespace rungc::testing
