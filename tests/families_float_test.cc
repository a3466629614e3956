// Floating-point instructions compiled from whole box lines through the lexer, classifier and
// dispatcher.
#include <gtest/gtest.h>

#include "support/bench.h"

namespace rungc::testing {
namespace {

TEST(FamiliesFloat, ExampleLines) {
  const LineCase rows[] = {
      {"FX1 = FX2 + FX3", "MxK_0013 M·K_0201 M·K_0003", {}},
      {"FX10 = FX2 / FX3", "MxK_0016 M·K_020a M·K_0003", {}},
      {"FX1 = SQRT FX2", "MxK_0030 M·K_0201", {}},
      {"FX1 = ABS FX2", "MxK_0001 M·K_0201", {}},
      {"FX1 = FX2", "MxK_0012 M·K_0201", {}},
      {"FX1 = WR5", "MxK_0010 M·K_0001 M·WR0005", {}},
      {"FX1 = DR5", "MxK_0011 M·K_0001 M·DR0005", {}},
      {"FX1 = 100", "MxK_0018 M·K_0001 M·K_0064 M·K_0000", {}},
      {"FX1 = -1", "MxK_0018 M·K_0001 M·K_FFFF M·K_FFFF", {}},
      {"FX1 = 1.5", "MxK_0019 M·K_0001 M·K_0000 M·K_0000 M·K_0000 M·K_3FF8", {}},
      {"FX1 = -2.25", "MxK_0019 M·K_0001 M·K_0000 M·K_0000 M·K_0000 M·K_C002", {}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(FamiliesFloat, EveryFunctionAndLoad) {
  const LineCase rows[] = {
      {"FX1 = FX2 - FX3", "MxK_0014 M·K_0201 M·K_0003", {}},
      {"FX1 = FX2 * FX3", "MxK_0015 M·K_0201 M·K_0003", {}},
      {"FX1 = NEG FX2", "MxK_0002 M·K_0201", {}},
      {"FX1 = CMP FX2", "MxK_001A M·K_0201", {}},
      {"FX255 = FX254", "MxK_0012 M·K_feff", {}},
      {"fx01 = fx002", "MxK_0012 M·K_0201", {}},
      {"FX1 = WT5", "MxK_0010 M·K_0001 M·WT0005", {}},
      {"FX1 = WAX3", "MxK_0010 M·K_0001 M·AX0003", {}},
      {"FX1 = DX5", "MxK_0011 M·K_0001 M·DX0005", {}},
      {"FX1 = 0", "MxK_0018 M·K_0001 M·K_0000 M·K_0000", {}},
      {"FX1 = + 100000", "MxK_0018 M·K_0001 M·K_86A0 M·K_0001", {}},
      {"FX1 = 2147483647", "MxK_0018 M·K_0001 M·K_FFFF M·K_7FFF", {}},
      {"FX1 = - 2147483647", "MxK_0018 M·K_0001 M·K_0001 M·K_8000", {}},
      // Above 32 bits a number is a floating-point constant.
      {"FX1 = 3000000000", "MxK_0019 M·K_0001 M·K_0000 M·K_C000 M·K_5A0B M·K_41E6", {}},
      {"FX1 = 1E3", "MxK_0019 M·K_0001 M·K_0000 M·K_0000 M·K_4000 M·K_408F", {}},
      {"FX1 = 1.5e-3", "MxK_0019 M·K_0001 M·K_7EFA M·K_BC6A M·K_9374 M·K_3F58", {}},
      {"FX1 = 0.1", "MxK_0019 M·K_0001 M·K_999A M·K_9999 M·K_9999 M·K_3FB9", {}},
      {"FX1 = + 1.5", "MxK_0019 M·K_0001 M·K_0000 M·K_0000 M·K_0000 M·K_3FF8", {}},
      {"FX1 = - 0.0", "MxK_0019 M·K_0001 M·K_0000 M·K_0000 M·K_0000 M·K_8000", {}},
      {"FX1 = 1E400", "MxK_0019 M·K_0001 M·K_0000 M·K_0000 M·K_0000 M·K_7FF0", {}},
      // Every single sign carries the assignment code, as "=" does.
      {"FX1 : FX2", "MxK_0012 M·K_0201", {}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(FamiliesFloat, LinesOfNoFormAreError16OperazFloat) {
  constexpr std::string_view kRefused = "E16:OperazFloat";
  const LineCase rows[] = {
      // Without an assignment sign nothing is written.
      {"FX1 == FX2", "", {kRefused}},
      {"FX1 FX2", "", {kRefused}},
      {"FX1", "", {kRefused}},
      // Afterwards the head's "Mx" and "K_" stand.
      {"FX1 = FX2 + 5", "MxK_", {kRefused}},
      {"FX1 = FX2 : FX3", "MxK_", {kRefused}},
      {"FX1 = FX2 +", "MxK_", {kRefused}},
      {"FX1 = FX2 + FX3 FX4", "MxK_", {kRefused}},
      {"FX1 = FX2 FX3", "MxK_", {kRefused}},
      {"FX1 = SQRT", "MxK_", {kRefused}},
      {"FX1 =", "MxK_", {kRefused}},
      {"FX1 = SQRT FX2 FX3", "MxK_", {kRefused}},
      {"FX1 = SQRT WR2", "MxK_", {kRefused}},
      {"FX1 = INC FX2", "MxK_", {kRefused}},
      {"FX1 = - FX2", "MxK_", {kRefused}},
      {"FX1 = - H10", "MxK_", {kRefused}},
      {"FX1 = - 5 6", "MxK_", {kRefused}},
      {"FX1 = * 5", "MxK_", {kRefused}},
      {"FX1 = H10", "MxK_", {kRefused}},
      {"FX1 = X1.0", "MxK_", {kRefused}},
      {"FX1 = (WR1)", "MxK_", {kRefused}},
      {"FX1 = WR1 + WR2", "MxK_", {kRefused}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

TEST(FamiliesFloat, MalformedRegistersAndOperands) {
  const LineCase rows[] = {
      {"FX256 = FX1", kAnyCode, {"E9:FX256"}},
      {"FX1 = FX1000", kAnyCode, {"E9:FX1000"}},
      {"FX1 = ABS FX2A", kAnyCode, {"E9:FX2A"}},
      {"FX1 = WR12345", kAnyCode, {"E9:WR12345"}},
  };
  for (const LineCase& row : rows) ExpectLine(row);
}

}  // namespace
}  // namespace rungc::testing
