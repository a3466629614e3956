// The sequencer's state: the sequence file read into memory (text area and sequence table), the
// working copy and output buffer of the sequence being compiled, and the sequence error number.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/code_text.h"
#include "common/fixed_text.h"

namespace rungc {

inline constexpr std::size_t kSequenceTextMax = 9899;     // bytes of the text area
inline constexpr std::size_t kSequenceBufferSize = 9901;  // text area and working copy buffers
inline constexpr std::size_t kSequenceOutputMax = 9899;   // output buffer of 9,900 with its NUL

// One row of the sequence table.
struct SequenceRow {
  FixedText<8> name;       // the record's name in the "%-6s" form
  std::int64_t start = 0;  // offset of its text in the text area (the sum of the lengths before)
  std::int32_t length = 0;
};

struct SequencerState {
  bool file_read = false;  // the sequencer flag: a sequence file was read whole
  std::array<unsigned char, kSequenceBufferSize> text{};  // the text area
  std::size_t text_length = 0;
  std::vector<SequenceRow> table;   // SequenceTable: one row per record of the file
  std::int32_t sequence_count = 0;  // sequences compiled: the count, less one above 26
  std::array<unsigned char, kSequenceBufferSize> work{};  // the sequence being compiled
  UnitBuffer<kSequenceOutputMax> output;                  // its lines until it succeeds
  std::int32_t error_number = 0;      // 61 to 65 (67: lines past the output buffer); 0 none
  std::int32_t failed_sequence = -1;  // index of the sequence that stopped the compile, or -1
};

}  // namespace rungc
