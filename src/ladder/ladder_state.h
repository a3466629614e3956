// The network compiler's per-rung state: the raw code text and the walk, the operand of the
// element being encoded and the operands of the function-block line being compiled.
#pragma once

#include <array>
#include <cstdint>

#include "common/code_text.h"
#include "common/fixed_text.h"
#include "common/limits.h"
#include "common/operand_table.h"

namespace rungc {

using CodeText = UnitBuffer<kCodeTextSize>;

// The operand of the element being encoded: upper case, NUL-terminated, rewritten in place by the
// address and preset checks.
using OperandBuffer = std::array<char, 64>;

// Walk states of the network compiler.
inline constexpr int kWalkRunning = 0;
inline constexpr int kWalkStopped = -1;
inline constexpr int kWalkStoppedAtJump = 76;  // 'L'
inline constexpr int kWalkStoppedAtBox = 77;   // 'M'

struct LadderState {
  CodeText code;  // raw code of the rung; the write position is its end
  int walk_state = kWalkRunning;
  int junction_kind = 0;                // shared by every level of the walk, never reset per rung
  OperandBuffer operand_buffer{};       // operand of the element being encoded
  FixedText<kBoxLineMax> box_line;      // the function-block line being compiled
  OperandTable operands;                // operands of that line
  std::array<char, 9> long_constant{};  // 8 hexadecimal digits of the last long constant
};

}  // namespace rungc
