// The rung reader's state and the per-program state of the rung loop.
#pragma once

#include <array>
#include <cstdint>

#include "common/cell.h"
#include "common/code_text.h"
#include "common/limits.h"
#include "platform/file_io.h"

namespace rungc {

// How much operand text each element code carries: the count and the lengths of its operands.
struct ElementDescriptor {
  std::uint8_t code = 0;
  std::uint8_t operands = 0;
  std::array<std::int8_t, 3> lengths{};

  int total_length() const { return lengths[0] + lengths[1] + lengths[2]; }
};

using ElementTable = std::array<ElementDescriptor, 64>;

struct RungReaderState {
  ElementTable elements{};
  RungGrid grid{};
  std::array<char, kOperandPoolSize> pool{};
  std::array<char, kRungTextSize> rung_text{};
  std::int32_t line_counter = 0;  // rows read in the current program, plus 1
  // Set, never cleared, for the life of the session: the end-of-compile element checks read them.
  bool ordinary_element_seen = false;
  bool element42_seen = false;
  bool element43_seen = false;
  platform::InputFile source;  // the ladder source being read
};

// The record of one rung as it goes to the listing: 8-character units ended by a NUL.
using CodeRecord = UnitBuffer<kCodeRecordSize>;

struct DispatchState {
  std::int32_t program_rung_count = 0;   // rungs compiled in the current program
  std::int32_t conditional_block = 0;    // 1 while a conditional block is open
  std::int32_t subroutine_flag = 0;      // 1 between a subroutine start and its end
  std::int32_t sub_area_depth = 0;       // SubAreaDepth: 0 until the end-of-main rung
  std::int32_t instruction_counter = 0;  // InstructionCounter: units of the current area
  CodeRecord record;
};

}  // namespace rungc
