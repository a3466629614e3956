// The opcode of every unit mnemonic the object code writer knows.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace rungc {

struct OpcodeRow {
  char mnemonic[3];  // two characters as they stand in the listing ('_' for a blank)
  std::uint8_t opcode;
};

// 88 mnemonics in search order, then the end row "FF".
inline constexpr std::size_t kOpcodeRows = 88;
extern const std::array<OpcodeRow, kOpcodeRows + 1> kOpcodeTable;

// Looks the first two characters of a unit up in table order (exact, case matters); false when
// the end row is reached first.
bool LookUpOpcode(char first, char second, std::uint8_t* opcode);

}  // namespace rungc
