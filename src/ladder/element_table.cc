#include "ladder/element_table.h"

#include <string_view>

#include "common/session.h"
#include "diag/report.h"
#include "ladder/grid_cells.h"

namespace rungc {

namespace {

// The column of a cell index.
int ColumnOf(int index) {
  return index % static_cast<int>(kGridColumns);
}

// The operand character at `pos`, upper-cased; a blank when the operand is shorter.
char OperandChar(const CellRecord& cell, std::size_t pos) {
  std::string_view text = CellOperand(cell);
  return pos < text.size() ? UpperCase(text[pos]) : ' ';
}

// A walk-stopping error: the element writes no unit.
std::int32_t StopWalk(CompileSession& s) {
  s.ladder.walk_state = kWalkStopped;
  return kNoUnit;
}

// Outputs belong in column 9 (error 3); there an operand that names an input ('I') is error 21.
// Neither error stops the walk.
std::int32_t ApplyOutputRule(CompileSession& s, int index, char letter) {
  if (ColumnOf(index) != 9) {
    ReportError(s, 3);
  } else if (OperandChar(GridCell(s, index), 0) == 'I') {
    ReportError(s, 21);
  }
  return letter;
}

// Timers and counters: column 9 (error 3, nothing more checked), the area letter `area` first
// (error 24, the walk goes on) and a hexadecimal digit second (error 18, the walk stops).
std::int32_t ApplyNumberedRule(CompileSession& s, int index, char letter, char area) {
  if (ColumnOf(index) != 9) {
    ReportError(s, 3);
    return letter;
  }
  const CellRecord& cell = GridCell(s, index);
  std::string_view text = CellOperand(cell);
  if (OperandChar(cell, 0) != area) ReportErrorText(s, 24, text, text);
  if (!IsUpperHexDigit(OperandChar(cell, 1))) {
    ReportErrorText(s, 18, text, text);
    return StopWalk(s);
  }
  return letter;
}

// Element 16 ('c'): a timer or counter operand, then the output rule.
std::int32_t ApplyTimerCounterBitRule(CompileSession& s, int index) {
  const CellRecord& cell = GridCell(s, index);
  std::string_view text = CellOperand(cell);
  const char area = OperandChar(cell, 0);
  if (area != 'T' && area != 'C') ReportErrorText(s, 24, text, text);
  if (!IsUpperHexDigit(OperandChar(cell, 1))) {
    ReportErrorText(s, 18, text, text);
    return StopWalk(s);
  }
  return ApplyOutputRule(s, index, 'c');
}

// True when an edge element at `index` has a contact to its left in its row: the cells are
// walked leftwards; a link on the way, the row start, or a link below that is not a bare column
// of linked blanks ending on an unlinked cell refuses it.
bool EdgeHasContact(const CompileSession& s, int index) {
  int p = index;
  for (int c = ColumnOf(index);; --c) {
    if (c <= 0) return false;
    if (IsLinked(GridCell(s, p))) return false;
    if (IsLinked(GridCell(s, p + 10))) {
      int k = p + 10;
      while (k < kWalkCells && GridCell(s, k).type == 0x85) k += 10;
      return k < kWalkCells && !IsLinked(GridCell(s, k));
    }
    --p;
    const int code = GridCell(s, p).element();
    if (code == 1 || code == 2 || code == 49) return true;
  }
}

// Edges ('N' rising, 'n' falling) need a contact to their left (error 25, the walk stops).
std::int32_t ApplyEdgeRule(CompileSession& s, int index, char letter) {
  if (EdgeHasContact(s, index)) return letter;
  ReportError(s, 25);
  return StopWalk(s);
}

// Element 40 opens the program's one conditional block; a second one before its end is error 20.
std::int32_t ApplyConditionalRule(CompileSession& s, int index) {
  if (s.dispatch.conditional_block != 0) {
    ReportError(s, 20);
    return StopWalk(s);
  }
  s.dispatch.conditional_block = 1;
  return ApplyOutputRule(s, index, 'J');
}

// The element code of an "L" unit: the letter and its second letter.
std::int32_t WithSecondLetter(char letter, char second) {
  return static_cast<std::int32_t>(static_cast<unsigned char>(letter)) |
         static_cast<std::int32_t>(static_cast<unsigned char>(second)) << 8;
}

}  // namespace

// The element table, selected by the type without the link flag (65 to 67 are elements 1 to 3
// with the variant flag: the negated forms).
std::int32_t DecodeElement(CompileSession& session, int index) {
  CompileSession& s = session;
  switch (GridCell(s, index).type_value()) {
    case 1:
    case 65:
      if (ColumnOf(index) != 0) ReportError(s, 2);
      return GridCell(s, index).type_value() == 1 ? 'B' : 'b';
    case 2:
      return 'B';
    case 66:
      return 'b';
    case 3:
      return ApplyOutputRule(s, index, 'G');
    case 67:
      return ApplyOutputRule(s, index, 'g');
    case 6:
      return ApplyOutputRule(s, index, 'I');
    case 7:
      return ApplyOutputRule(s, index, 'i');
    case 4:
    case 5:
    case 14:
    case 30:
      return kNoUnit;
    case 8:
      return ApplyNumberedRule(s, index, 'T', 'T');
    case 44:
      return ApplyNumberedRule(s, index, 'O', 'T');
    case 45:
      return ApplyNumberedRule(s, index, 'P', 'T');
    case 46:
      return ApplyNumberedRule(s, index, 'Q', 'T');
    case 9:
      return ApplyNumberedRule(s, index, 'C', 'C');
    case 47:
      return ApplyNumberedRule(s, index, 'o', 'C');
    case 48:
      return ApplyNumberedRule(s, index, 'p', 'C');
    case 10:
      ReportError(s, 26);
      return StopWalk(s);
    case 16:
      return ApplyTimerCounterBitRule(s, index);
    case 17:
      return ApplyEdgeRule(s, index, 'N');
    case 18:
      return ApplyEdgeRule(s, index, 'n');
    case 22:
      s.ladder.walk_state = kWalkStoppedAtJump;
      return WithSecondLetter('L', 'j');
    case 31:
      s.ladder.walk_state = kWalkStoppedAtJump;
      return WithSecondLetter('L', 'c');
    case 38:
      s.ladder.walk_state = kWalkStoppedAtBox;
      return kNoUnit;
    case 40:
      return ApplyConditionalRule(s, index);
    case 49:
      return 'e';
    default:
      ReportError(s, 16);
      return StopWalk(s);
  }
}

}  // namespace rungc
