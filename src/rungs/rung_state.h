// The rung reader's state and the per-program state of the rung loop.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

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

// The operand texts of the current rung, each followed by a NUL.
using OperandPool = std::array<char, kOperandPoolSize>;
// The raw rows of the current rung as read, ended by two NULs.
using RungText = std::array<char, kRungTextSize>;

struct RungReaderState {
  ElementTable elements{};
  RungGrid grid{};
  OperandPool pool{};
  RungText rung_text{};
  std::size_t rung_text_length = 0;  // characters of the rows kept; the two NULs follow them
  std::size_t cell_count = 0;        // cells of the last rung read, before its closing empty row
  std::int32_t line_counter = 0;     // rows read in the current program, plus 1
  // Set, never cleared, for the life of the session: the end-of-compile element checks read them.
  bool ordinary_element_seen = false;
  bool element42_seen = false;
  bool element43_seen = false;
  // The current program's source ended inside a row that was not a row-end record, so that row
  // was dropped: its writer left out the row-end record after the last rung.
  bool last_row_dropped = false;
  // Every program of the session's compiles, in order, whose last row was dropped that way; a
  // person is warned about them (never through the error file).
  std::vector<std::string> programs_missing_row_end;
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
