// Reading the cells of the current rung by index for the network walk. The walk looks beyond the
// rows of a rung (the cell below the last row, the left neighbour of a column-0 cell); an index
// outside the grid reads as an empty cell, so no search can leave the grid.
#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "common/cell.h"
#include "common/session.h"

namespace rungc {

inline constexpr int kWalkCells = 280;  // rows 0 to 27: the cells the walk looks at

// The cell at `index`, or an empty cell when the index lies outside the grid.
inline const CellRecord& GridCell(const CompileSession& session, int index) {
  static constexpr CellRecord kOutside{};
  if (index < 0 || index >= static_cast<int>(kGridCells)) return kOutside;
  return session.reader.grid[static_cast<std::size_t>(index)];
}

// A vertical connection up from the cell's left edge on a cell that holds something.
inline bool IsLinked(const CellRecord& cell) {
  return cell.type >= 0x81;
}
// Linked, but a linked column-0 contact (0x81) does not count: the upward merge uses it.
inline bool IsStronglyLinked(const CellRecord& cell) {
  return cell.type > 0x81;
}

// True when `value` is one of `set` (element codes, unit letters).
template <typename T>
bool OneOf(T value, std::initializer_list<T> set) {
  return std::find(set.begin(), set.end(), value) != set.end();
}

// Operand characters: a to z upper-cased; hexadecimal digits of upper-case operands.
inline char UpperCase(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
inline bool IsUpperHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
}

// The cell's operand text up to its NUL, at most its operand length; empty when it has none.
inline std::string_view CellOperand(const CellRecord& cell) {
  if (cell.operand == nullptr || cell.length == 0) return {};
  std::size_t n = 0;
  while (n < cell.length && cell.operand[n] != '\0') ++n;
  return {cell.operand, n};
}

}  // namespace rungc
