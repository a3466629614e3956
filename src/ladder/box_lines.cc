#include "ladder/box_lines.h"

#include <cstring>
#include <string_view>

#include "codegen/families.h"
#include "codegen/type_sets.h"
#include "common/session.h"
#include "diag/report.h"
#include "ladder/classifier.h"
#include "ladder/emit.h"
#include "ladder/lexer.h"

namespace rungc {

namespace {

// The comparison contact's fixed beginning: it stores its result in the flag bit F0.8.
constexpr std::string_view kComparisonFlag = "F0.8 ";
constexpr std::string_view kComparisonSign = " : ";
constexpr int kComparisonLexLength = 6;

// A cell's operand text: its characters up to its length, cut at a NUL.
std::string_view CellText(const CellRecord& cell) {
  if (cell.operand == nullptr) return {};
  const void* nul = std::memchr(cell.operand, '\0', cell.length);
  const std::size_t size =
      nul == nullptr ? cell.length
                     : static_cast<std::size_t>(static_cast<const char*>(nul) - cell.operand);
  return {cell.operand, size};
}

// `length` characters of a text from `start` on, fewer where the text ends.
std::string_view Piece(std::string_view text, int start, int length) {
  if (start < 0 || length <= 0 || static_cast<std::size_t>(start) >= text.size()) return {};
  return text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
}

enum class LineCut { kOperands, kNothing, kLexError };

// Cuts the box line into up to 8 operands, each from the rest of the line that the ones before
// left; the operands after the last one found are emptied. An empty, blank or comment line gives
// nothing to compile.
LineCut CutBoxLine(CompileSession& s, int length) {
  OperandTable& ops = s.ladder.operands;
  const std::string_view line = s.ladder.box_line.view();
  int used = LexToken(ops.text[0], line, length);
  if (used == kLexNoToken) return LineCut::kNothing;
  if (used < 0) return LineCut::kLexError;
  std::size_t k = 1;
  while (k < kOperandCount && used < length) {
    const int result = LexToken(ops.text[k], Piece(line, used, length - used), length - used);
    if (result == kLexNoToken) break;
    if (result < 0) return LineCut::kLexError;
    used += result;
    ++k;
  }
  for (; k < kOperandCount; ++k) ops.text[k].Clear();
  return LineCut::kOperands;
}

}  // namespace

void CompileBoxCell(CompileSession& session, int index, int type) {
  const CellRecord& cell = session.reader.grid[static_cast<std::size_t>(index)];
  const ElementDescriptor& element =
      session.reader.elements[static_cast<std::size_t>(type) & kElementMask];
  const int length = element.lengths[0];
  const std::string_view text = CellText(cell);
  for (int line = 0; line < element.operands; ++line) {
    session.ladder.box_line.Set(Piece(text, line * length, length));
    switch (CutBoxLine(session, length)) {
      case LineCut::kNothing:
        continue;
      case LineCut::kLexError:
        // The cell's later lines are not compiled.
        ReportErrorText(session, 9, "", session.ladder.box_line.view());
        return;
      case LineCut::kOperands:
        ClassifyOperands(session);
        DispatchBoxLine(session);
        break;
    }
  }
}

void DispatchBoxLine(CompileSession& session) {
  const std::uint32_t t0 = session.ladder.operands.type[0];
  if (t0 == 0) {
    ReportErrorText(session, 16, "", session.ladder.box_line.view());
  } else if (FitsSet(t0, type_set::kWordOperand)) {
    CompileWordInstruction(session);
  } else if (FitsSet(t0, type_set::kBitOperand)) {
    CompileBitInstruction(session);
  } else if (FitsSet(t0, type_set::kOperator)) {
    CompileKeywordInstruction(session);
  } else if (FitsSet(t0, type_set::kDoubleWord)) {
    CompileDoubleWordInstruction(session);
  } else if (FitsSet(t0, type_set::kFloatRegister)) {
    CompileFloatInstruction(session);
  } else {
    // A constant, a parenthesised operand or a mixed set: no family takes it.
    ReportErrorText(session, 16, "", session.ladder.box_line.view());
  }
}

void CompileComparisonContact(CompileSession& session, int index) {
  EmitCode(session, "       ");
  // No box line of the rung has been compiled before its contacts, so the comparison's reports
  // carry no text.
  session.ladder.box_line.Clear();
  OperandTable& ops = session.ladder.operands;
  LexToken(ops.text[0], kComparisonFlag, kComparisonLexLength);
  LexToken(ops.text[1], kComparisonSign, kComparisonLexLength);
  // The fields a, op and b, each lexed alone; a field the lexer refuses keeps what it took.
  const CellRecord& cell = session.reader.grid[static_cast<std::size_t>(index)];
  const ElementDescriptor& element = session.reader.elements[49];
  const std::string_view text = CellText(cell);
  int start = 0;
  for (std::size_t field = 0; field < 3; ++field) {
    const int length = element.lengths[field];
    LexToken(ops.text[2 + field], Piece(text, start, length), kComparisonLexLength);
    start += length;
  }
  for (std::size_t k = 5; k < kOperandCount; ++k) ops.text[k].Clear();
  ClassifyOperands(session);
  DispatchBoxLine(session);
}

}  // namespace rungc
