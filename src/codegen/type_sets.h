// The operand type sets that the dispatcher and the instruction generators test. A type fits a
// set when it has no bit outside it (`FitsSet`); the type of an empty operand is 0 and fits every
// set, so a form that needs an operand present tests that separately.
#pragma once

#include <cstdint>

#include "common/operand_table.h"

namespace rungc::type_set {

inline constexpr std::uint32_t kAreas =
    OPT_X | OPT_Y | OPT_R | OPT_M | OPT_F | OPT_Z | OPT_T | OPT_C;

// A word of any area, "WAX", "WAY".
inline constexpr std::uint32_t kWordOperand = OPT_WORD | OPT_AX | OPT_AY | kAreas;  // 0x023FF
// A word operand or a 16-bit constant (decimal or hex).
inline constexpr std::uint32_t kWordSource = kWordOperand | OPT_DEC | OPT_HEX;  // 0x02FFF
// A word, optionally in parentheses (not "WAX", "WAY").
inline constexpr std::uint32_t kBracketedWord = OPT_PAREN | OPT_WORD | kAreas;  // 0x0A0FF
// A word of area R or M.
inline constexpr std::uint32_t kIndexBase = OPT_WORD | OPT_R | OPT_M;  // 0x0200C
// A word of area X, Y, R or M.
inline constexpr std::uint32_t kPortWord = OPT_WORD | OPT_X | OPT_Y | OPT_R | OPT_M;  // 0x0200F
// A word of area R, M or Z.
inline constexpr std::uint32_t kShiftBase = OPT_WORD | OPT_R | OPT_M | OPT_Z;  // 0x0202C
// A bit.
inline constexpr std::uint32_t kBitOperand = OPT_BIT | kAreas;  // 0x010FF
// A bit or a decimal constant.
inline constexpr std::uint32_t kBitSource = kBitOperand | OPT_DEC;  // 0x014FF
// A double word of any area.
inline constexpr std::uint32_t kDoubleWord = OPT_DWORD | kAreas;  // 0x040FF
// A double word or a constant.
inline constexpr std::uint32_t kDoubleWordSource = kDoubleWord | OPT_DEC | OPT_HEX;  // 0x04CFF
// A double word of area X, Y, R, M or Z, or a constant.
inline constexpr std::uint32_t kComparableDoubleWord =
    OPT_DWORD | OPT_DEC | OPT_HEX | OPT_X | OPT_Y | OPT_R | OPT_M | OPT_Z;  // 0x04C2F
// A double word of area X, Y, R, M or Z.
inline constexpr std::uint32_t kConvertibleDoubleWord =
    OPT_DWORD | OPT_X | OPT_Y | OPT_R | OPT_M | OPT_Z;  // 0x0402F
// A decimal or hex constant.
inline constexpr std::uint32_t kConstant = OPT_DEC | OPT_HEX;  // 0x00C00
inline constexpr std::uint32_t kDecimalConstant = OPT_DEC;     // 0x00400
inline constexpr std::uint32_t kFloatRegister = OPT_FREG;      // 0x10000
inline constexpr std::uint32_t kFloatConstant = OPT_FLOAT;     // 0x40000
// An operator sign or keyword.
inline constexpr std::uint32_t kOperator = OPT_OPER;  // 0x20000

static_assert(kWordOperand == 0x023FF && kWordSource == 0x02FFF && kBracketedWord == 0x0A0FF);
static_assert(kIndexBase == 0x0200C && kPortWord == 0x0200F && kShiftBase == 0x0202C);
static_assert(kBitOperand == 0x010FF && kBitSource == 0x014FF && kDoubleWord == 0x040FF);
static_assert(kDoubleWordSource == 0x04CFF && kComparableDoubleWord == 0x04C2F);
static_assert(kConvertibleDoubleWord == 0x0402F && kConstant == 0x00C00);

}  // namespace rungc::type_set
