// One rung in memory: the grid of cells that the rung reader fills and the validation, the
// dispatch and the network compiler read.
#pragma once

#include <array>
#include <cstdint>

#include "common/limits.h"

namespace rungc {

// Type byte of a cell: bit 7 the link flag (a vertical connection up from the cell's left edge),
// bit 6 the variant flag, bits 0-5 the element code.
inline constexpr std::uint8_t kLinkFlag = 0x80;
inline constexpr std::uint8_t kVariantFlag = 0x40;
inline constexpr std::uint8_t kElementMask = 0x3F;
inline constexpr std::uint8_t kTypeMask = 0x7F;

struct CellRecord {
  std::uint8_t type = 0;          // 0 = empty cell
  std::uint8_t length = 0;        // sum of the element's operand lengths, or 0
  const char* operand = nullptr;  // NUL-terminated text in the operand pool, or null

  bool linked() const { return (type & kLinkFlag) != 0; }
  std::uint8_t element() const { return type & kElementMask; }
  std::uint8_t type_value() const { return type & kTypeMask; }
};

// Cell (row, column) is at index row * 10 + column; an empty row follows the last row.
using RungGrid = std::array<CellRecord, kGridCells>;

}  // namespace rungc
