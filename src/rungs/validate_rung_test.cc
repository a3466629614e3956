// Rung validation: each code with a grid that breaks only that rule, beside a valid grid of the
// same shape. Grids are read from row notation by the real rung reader.
#include "rungs/validate_rung.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "support/bench.h"

namespace rungc {
namespace {

// Reads the first rung of a source of these rows with the rung reader and validates its grid.
int ValidateRows(const std::vector<std::string>& rows) {
  testing::Bench bench;
  bench.Open(testing::Rows(rows));
  if (bench.Read() != 0) throw std::runtime_error("the rung cannot be read");
  return ValidateRung(bench.session().reader.grid);
}

// A first row: contact, contact, lines to column 8, coil in column 9.
const std::string kRow0 = "1(A) 2(B) -x6 3(Y)";
// A first row that ends in a box in columns 3 to 9.
const std::string kBoxRow0 = "1(A) 2(B) 2(C) 38(P,Q)";

// Each grid breaks one rule (or none) and gives its code; a first row, then lower rows under it.
TEST(RungValidation, GivesTheFirstRuleBroken) {
  const std::pair<std::vector<std::string>, int> cases[] = {
      {{kRow0}, 0},
      {{"1(A) 2(B) 2(C) 2(D) 2(E) 2(F) 2(G) 2(H) 2(I) 3(Y)"}, 0},
      {{kBoxRow0}, 0},
      {{"1(A) 2(B) -x6 40"}, 0},
      {{"1(A) 2(B) -x5 3(Y) -"}, 3},
      {{"1(A) 2(B) 2(C) 10(P,Q,R)"}, 4},
      {{"1(A) 2(B) 38(P,Q) -"}, 4},
      {{"1(A) . -x6 3(Y)"}, 5},
      {{"1(A) ^2(B) -x6 3(Y)"}, 6},
      {{"1(A) 2(B) -x3"}, 7},
      {{"1(A) 2(B) -x7"}, 13},
      {{"1(A) 2(B) -x6 49(P,Q,R)"}, 13},
      // A parallel contact from column 0 that rejoins at column 2.
      {{kRow0, "^- 2(C) ^. .x6"}, 0},
      {{kRow0, "^- - ^. .x6"}, 12},
      {{"1(A) -x1 2(B) -x4 3(Y)", ". . ^- 2(C) ^. .x4"}, 0},
      {{"1(A) -x1 2(B) -x4 3(Y)", ". ^- 2(C) ^. .x5"}, 12},
      // A parallel coil in column 9.
      {{kRow0, ".x8 ^3(Z)"}, 0},
      {{kRow0, ". ^2(C) .x7"}, 10},
      {{kRow0, "^- 2(C) 3(Z) ^. .x5"}, 3},
      {{kRow0, "^- 2(C) . ^. .x5"}, 5},
      {{kRow0, ". 3(Z) ^. .x6"}, 5},
      {{kRow0, "^1(C) ^. .x7"}, 7},
      // Links that hang under the rows above.
      {{kRow0, "^- 2(C) ^. .x6", "^- 2(D) ^. .x6"}, 0},
      {{kRow0, "^- 2(C) ^. .x6", "^- 2(D) - - ^. .x4"}, 8},
      {{kRow0, "^- 2(C) ^. ^. .x5", "^- 2(D) ^. ^. .x5"}, 0},
      {{kRow0, "^- 2(C) ^. ^. .x5", "^- 2(D) ^. -x6"}, 8},
      {{kBoxRow0, "^- 2(D) - ^. .x5"}, 0},
      {{kBoxRow0, "^- 2(D) - - ^. .x4"}, 9},
      // Boxes in lower rows.
      {{kBoxRow0, "^2(D) ^2(E) - ^38(P,Q)"}, 0},
      {{kBoxRow0, "^2(D) ^2(E) - 38(P,Q)"}, 14},
      {{kBoxRow0, "^2(D) ^. . 10(P,Q,R)"}, 0},
      {{kRow0, "^2(D) ^. . 10(P,Q,R)"}, 23},
      // A branch whose upper path is crossed by a link of the row above.
      {{kRow0, "^. ^- 2(C) ^- -x4 3(Z)", "^2(D) ^. .x7"}, 0},
      {{kRow0, "^. ^- 2(C) ^- -x4 3(Z)", "^- 2(D) 2(E) 2(F) ^. .x4"}, 14},
      // Output branches: a second coil fed from a plain line of the row above.
      {{kRow0, "^2(C) 2(D) ^- -x5 3(Z)"}, 0},
      {{kRow0, "^2(C) 2(D) ^- 2(E) -x4 3(Z)"}, 15},
      {{kRow0, "^2(C) ^- -x6 3(Z)"}, 15},
      {{kRow0, "^2(C) ^- -x7"}, 13},
      // Edges need a condition before them in a branch.
      {{kRow0, "^- 2(C) 17 ^. .x5"}, 0},
      {{kRow0, "^- 17 2(C) ^. .x5"}, 30},
      {{kRow0, "^17 ^. .x7"}, 30}};
  for (const auto& [rows, code] : cases) {
    EXPECT_EQ(ValidateRows(rows), code) << rows.back();
  }
}

// A grid whose second row begins with an empty cell ends there, whatever the row holds.
TEST(RungValidationGrid, EmptyColumn0EndsTheGrid) {
  testing::Bench bench;
  bench.Open(testing::LadderSource().Row(kRow0));
  ASSERT_EQ(bench.Read(), 0);
  RungGrid grid = bench.session().reader.grid;
  grid[11].type = 0x83;  // a linked coil in column 1 of row 1
  EXPECT_EQ(ValidateRung(grid), 0);
  grid[10].type = 0x82;  // row 1 now begins with a linked contact: the coil is checked
  EXPECT_EQ(ValidateRung(grid), 3);
}

}  // namespace
}  // namespace rungc
