// Bit assignments and comparisons: a line whose operand 0 is a bit assigns it, or stores in it
// the comparison of two words, two double words or two bits ("bit : a op b").
//
//   bit = source         MO + bit, source (a bit, or a constant "0"/"1")
//   bit = NOT bit2       Mo + bit, bit2
//   bit : a op b         words: M<c> + a, b, bit
//                        double words: ML + blank, then M<c> + a, b, bit
//                        bits: MQ/Mq + a, b, bit
// The comparison character c comes from the text of op (table below).
#include <array>
#include <string_view>

#include "codegen/families.h"
#include "codegen/line_operands.h"
#include "codegen/type_sets.h"
#include "codegen/unit_group.h"
#include "common/session.h"
#include "diag/report.h"
#include "ladder/classifier.h"

namespace rungc {

namespace {

// The comparison character of a comparison text for each kind of comparison; NUL where the text
// is not allowed for that kind.
struct ComparisonRow {
  std::string_view text;
  char word;
  char double_word;
  char bit;
};

constexpr std::array<ComparisonRow, 8> kComparisons = {{
    {">", '>', '>', '\0'},
    {"<", '<', '<', '\0'},
    {"=", 'E', '\0', '\0'},
    {"==", 'E', 'E', 'Q'},
    {">=", ']', ']', '\0'},
    {"<=", '[', '[', '\0'},
    {"><", 'e', 'e', 'q'},
    {"<>", 'e', 'e', 'q'},
}};

enum class Compared { kWords, kDoubleWords, kBits };

char ComparisonCharacter(std::string_view text, Compared kind) {
  for (const ComparisonRow& row : kComparisons) {
    if (row.text != text) continue;
    switch (kind) {
      case Compared::kWords:
        return row.word;
      case Compared::kDoubleWords:
        return row.double_word;
      case Compared::kBits:
        return row.bit;
    }
  }
  return '\0';
}

// The comparison character of operand 3, or error 16 with operand 1 as item and NUL.
char CheckedComparison(CompileSession& s, const LineOperands& op, Compared kind) {
  const char c = ComparisonCharacter(op.text(3), kind);
  if (c == '\0') ReportErrorText(s, 16, op.text(1), s.ladder.box_line.view());
  return c;
}

// bit : a op b. False when no comparison form matches.
bool CompileComparison(CompileSession& s, const LineOperands& op) {
  const bool compares = op.code(3) == keyword::kCompare;
  if (op.fits(2, type_set::kWordSource)) {
    if (!(compares || op.code(3) == keyword::kAssign) || !op.fits(4, type_set::kWordSource) ||
        !op.empty(5)) {
      return false;
    }
    WarnInputDestination(s, OPT_X);
    const char c = CheckedComparison(s, op, Compared::kWords);
    if (c != '\0') {
      EmitUnitGroup(s, c, {field::WordSource(2), field::WordSource(4), field::Bit(0)});
    }
    return true;
  }
  if (op.fits(2, type_set::kDoubleWord)) {
    if (!compares || !op.fits(4, type_set::kDoubleWord) || !op.empty(5)) return false;
    WarnInputDestination(s, OPT_X);
    // The prefix that marks a double-word operation stands before the comparison is checked.
    EmitUnitGroup(s, 'L', {field::Blank()});
    const char c = CheckedComparison(s, op, Compared::kDoubleWords);
    if (c != '\0') EmitUnitGroup(s, c, {field::Area(2), field::Area(4), field::Bit(0)});
    return true;
  }
  if (op.fits(2, type_set::kBitOperand)) {
    if (!compares || !op.fits(4, type_set::kBitSource) || !op.empty(5)) return false;
    WarnInputDestination(s, OPT_X);
    const char c = CheckedComparison(s, op, Compared::kBits);
    if (c != '\0') EmitUnitGroup(s, c, {field::Bit(2), field::BitSource(4), field::Bit(0)});
    return true;
  }
  return false;
}

// bit = source, bit = NOT bit2. False when neither form matches.
bool CompileAssignment(CompileSession& s, const LineOperands& op) {
  if (op.fits(2, type_set::kBitSource)) {
    if (!op.empty(3)) return false;
    WarnInputDestination(s, OPT_X);
    EmitUnitGroup(s, 'O', {field::Bit(0), field::BitSource(2)});
    return true;
  }
  if (op.code(2) == keyword::kNot && op.is(2, "NOT") && op.fits(3, type_set::kBitOperand) &&
      op.empty(4)) {
    WarnInputDestination(s, OPT_X);
    EmitUnitGroup(s, 'o', {field::Bit(0), field::Bit(3)});
    return true;
  }
  return false;
}

}  // namespace

void CompileBitInstruction(CompileSession& session) {
  const LineOperands op(session);
  // Only the first character of operand 1 is looked at: "==" assigns like "=".
  const char sign = op.first(1);
  if (sign == ':' && CompileComparison(session, op)) return;
  if (sign == '=' && CompileAssignment(session, op)) return;
  ReportNoForm(session);
}

}  // namespace rungc
