// Operand conversion of the object code writer: the operand field of a unit in listing form
// (area name in characters 2 and 3, hexadecimal index in 4 to 7) becomes an access byte and a
// 16-bit target address through the memory area table.
#pragma once

#include <array>
#include <cstdint>

#include "common/limits.h"

namespace rungc {

struct MemoryMapState;

// One code unit as the object writer sees it: 8 characters, NUL after a line end.
using UnitText = std::array<char, kUnitSize>;

// Failure codes of the object writers; the driver reports each as error 5000 + code.
inline constexpr int kUnknownMnemonic = -1;   // not in the opcode table
inline constexpr int kUnknownAreaType = 1;    // the area's type has no conversion
inline constexpr int kNoSuchArea = 2;         // no area of that name (or a non-word table operand)
inline constexpr int kElementOutOfRange = 3;  // element (low part) not below the low limit
inline constexpr int kGroupOutOfRange = 4;    // group (high part) not below the high limit
inline constexpr int kNoBufferMemory = 5;     // the line or word buffers cannot hold a record
inline constexpr int kFileFailure = 6;        // listing missing or wrong, output not created

struct OperandAddress {
  std::uint8_t access = 0;  // 255 a word, a bit mask for a bit, 0 constants and no operand
  std::uint8_t low = 0;     // target address, little-endian
  std::uint8_t high = 0;
};

// Splits the unit's index by the type of its area, checks it against the area's limits and
// forms the address. 0, or one of the failure codes 1 to 4 (`out` is then all zeros).
int ResolveOperand(const MemoryMapState& map, const UnitText& unit, OperandAddress* out);

}  // namespace rungc
