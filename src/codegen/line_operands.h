// What the generators of the instruction families share besides the encoders: read access to
// the classified operands of the current line and the two reports every family makes.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/operand_table.h"

namespace rungc {

struct CompileSession;

// The operands of the current function-block line, by index 0 to 7, as the generators test
// them: text, first character (NUL for an empty operand), type and keyword code.
class LineOperands {
 public:
  explicit LineOperands(const CompileSession& session);

  std::string_view text(int k) const { return ops_.text[Slot(k)].view(); }
  char first(int k) const { return empty(k) ? '\0' : text(k)[0]; }
  std::uint32_t type(int k) const { return ops_.type[Slot(k)]; }
  std::int32_t code(int k) const { return ops_.code[Slot(k)]; }
  bool empty(int k) const { return ops_.text[Slot(k)].empty(); }
  bool fits(int k, std::uint32_t set) const { return FitsSet(type(k), set); }
  bool is(int k, std::string_view t) const { return text(k) == t; }

 private:
  static std::size_t Slot(int k) { return static_cast<std::size_t>(k); }
  const OperandTable& ops_;
};

// Error 16 for a line that matches no form of its family: no item, the box line as text.
void ReportNoForm(CompileSession& session);
// Warning 1 when the destination (operand 0) has a type flag of `input_flags`: the instruction
// writes into the input area. Item operand 0, text the box line; the code is written all the same.
void WarnInputDestination(CompileSession& session, std::uint32_t input_flags);

}  // namespace rungc
