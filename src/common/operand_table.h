// The operands of one function-block statement line, with the type and keyword code that the
// classifier gives each. The lexer fills the texts, the classifier the types and codes, and the
// instruction generators read all three.
#pragma once

#include <array>
#include <cstdint>

#include "common/fixed_text.h"
#include "common/limits.h"

namespace rungc {

// Operand type flags. The area flags come first so that the sets of the generators can be written
// as masks; the classifier and the encoders depend on these exact values.
inline constexpr std::uint32_t OPT_X = 0x00001;  // area X (inputs)
inline constexpr std::uint32_t OPT_Y = 0x00002;  // area Y (outputs)
inline constexpr std::uint32_t OPT_R = 0x00004;
inline constexpr std::uint32_t OPT_M = 0x00008;
inline constexpr std::uint32_t OPT_F = 0x00010;
inline constexpr std::uint32_t OPT_Z = 0x00020;
inline constexpr std::uint32_t OPT_T = 0x00040;      // timers
inline constexpr std::uint32_t OPT_C = 0x00080;      // counters
inline constexpr std::uint32_t OPT_AX = 0x00100;     // "WAX" word
inline constexpr std::uint32_t OPT_AY = 0x00200;     // "WAY" word
inline constexpr std::uint32_t OPT_DEC = 0x00400;    // decimal integer constant
inline constexpr std::uint32_t OPT_HEX = 0x00800;    // 'H' and a hexadecimal digit
inline constexpr std::uint32_t OPT_BIT = 0x01000;    // area letter, address, '.', bit
inline constexpr std::uint32_t OPT_WORD = 0x02000;   // 'W' and an area letter
inline constexpr std::uint32_t OPT_DWORD = 0x04000;  // 'D' and an area letter
inline constexpr std::uint32_t OPT_PAREN = 0x08000;  // begins with '('
inline constexpr std::uint32_t OPT_FREG = 0x10000;   // "FX" register
inline constexpr std::uint32_t OPT_OPER = 0x20000;   // operator sign or keyword
inline constexpr std::uint32_t OPT_FLOAT = 0x40000;  // floating-point constant

// True when the type has no bit outside the set (an empty operand, type 0, fits every set).
constexpr bool FitsSet(std::uint32_t type, std::uint32_t set) {
  return (type & ~set) == 0;
}

struct OperandTable {
  std::array<FixedText<kOperandTextMax>, kOperandCount> text;
  std::array<std::uint32_t, kOperandCount> type{};
  std::array<std::int32_t, kOperandCount> code{};

  bool empty(std::size_t k) const { return text[k].empty(); }
};

}  // namespace rungc
