// Keyword instructions: a line that begins with a keyword is an instruction of its own. The head
// mnemonic's second character is the keyword's code.
//
//   INC W, DEC W, SHFR W, SHFL W     MI Mi MS Ms + W
//   SFR B n k (SFL, ROR, ROL)        MT Mt MU Mu + B, n, k   (n at most 256, k at most 32)
//   IF a op b                        the comparison of a and b into flag F0.8, then Mj + blank
//   ELSE, ENDIF                      Mk, Ml + blank
//   FUN K [S1 [S2]]                  MX + K, then S1 and S2 when given
//   DPREAD K P K2                    MP + K, K2, P
//   DPWRITE P K K2                   Mp + P, K2, K
//   SEGMENT K                        Mf + K
// W is a word, B a word of area R, M or Z, P a word of area X, Y, R or M, S a word or constant,
// K, n and k constants.
#include <cstdint>
#include <string_view>

#include "codegen/constants.h"
#include "codegen/families.h"
#include "codegen/line_operands.h"
#include "codegen/type_sets.h"
#include "codegen/unit_group.h"
#include "common/session.h"
#include "ladder/box_lines.h"
#include "ladder/classifier.h"
#include "ladder/lexer.h"

namespace rungc {

namespace {

// Limits of the shift and rotate instructions: the length of the shifted field and the count.
constexpr std::uint32_t kShiftLengthMax = 256;
constexpr std::uint32_t kShiftCountMax = 32;

// The IF's comparison is stored in the flag bit F0.8 by a comparison line "F0.8 : a op b".
constexpr std::string_view kIfFlag = "F0.8 ";
constexpr std::string_view kIfSign = " : ";

// An operand that can only be a constant: no type bit besides decimal and hex (an empty operand
// passes and fails later in the constant encoder with error 9).
bool IsConstantOperand(const LineOperands& op, int k) {
  return op.fits(k, type_set::kConstant);
}

// The number of a shift or rotate operand, read as hexadecimal after an 'H', else as decimal.
// False for a missing operand or one that cannot be read.
bool ReadShiftNumber(const LineOperands& op, int k, std::uint32_t& value) {
  const std::string_view t = op.text(k);
  if (t.empty()) return false;
  if (t[0] == 'H') return ScanHex32(t.data() + 1, value);
  std::int32_t decimal = 0;
  if (!ScanLong32(t.data(), decimal)) return false;
  value = static_cast<std::uint32_t>(decimal);
  return true;
}

// SFR, SFL, ROR, ROL: the head unit, then each number is checked against its limit before its
// continuation unit is written. A failed check is error 16; the units before it stay.
void CompileShiftRotate(CompileSession& s, const LineOperands& op, char operation) {
  if (!op.fits(1, type_set::kShiftBase) || !IsConstantOperand(op, 2) || !IsConstantOperand(op, 3) ||
      !op.empty(4)) {
    ReportNoForm(s);
    return;
  }
  EmitUnitGroup(s, operation, {field::Area(1)});
  const int operands[2] = {2, 3};
  const std::uint32_t limits[2] = {kShiftLengthMax, kShiftCountMax};
  for (int i = 0; i < 2; ++i) {
    std::uint32_t value = 0;
    if (!ReadShiftNumber(op, operands[i], value) || value > limits[i]) {
      ReportNoForm(s);
      return;
    }
    EmitUnitGroup(s, ' ', {field::Constant(operands[i])});
  }
}

// IF a op b: accepted for two words, two double words or two bits (a constant may stand on the
// right); the line is then rewritten as "F0.8 : a op b", classified and dispatched again, and the
// bit family compiles the comparison with all its checks. "Mj" follows only when no error stands
// on the rung.
void CompileIf(CompileSession& s, const LineOperands& op) {
  const bool accepted = op.code(2) == keyword::kCompare &&
                        ((op.fits(1, type_set::kBitOperand) && op.fits(3, type_set::kBitSource)) ||
                         (op.fits(1, type_set::kComparableDoubleWord) &&
                          op.fits(3, type_set::kComparableDoubleWord)) ||
                         (op.fits(1, type_set::kWordSource) && op.fits(3, type_set::kWordSource)));
  if (!accepted) {
    ReportNoForm(s);
    return;
  }
  OperandTable& ops = s.ladder.operands;
  for (std::size_t k = 4; k >= 2; --k) ops.text[k] = ops.text[k - 1];
  LexToken(ops.text[0], kIfFlag, static_cast<int>(kIfFlag.size()));
  LexToken(ops.text[1], kIfSign, static_cast<int>(kIfSign.size()));
  ClassifyOperands(s);
  DispatchBoxLine(s);
  if (s.diag.current_error == 0)
    EmitUnitGroup(s, static_cast<char>(keyword::kIf), {field::Blank()});
}

// A FUN parameter: an area operand for a word, else a constant.
Field FunParameter(const LineOperands& op, int k) {
  return op.fits(k, type_set::kWordOperand) ? field::Area(k) : field::Constant(k);
}

// FUN K with up to two word-source parameters; the operands after them are not looked at.
void CompileFun(CompileSession& s, const LineOperands& op) {
  const char operation = static_cast<char>(keyword::kFun);
  if (!IsConstantOperand(op, 1)) {
    ReportNoForm(s);
  } else if (op.empty(2)) {
    EmitUnitGroup(s, operation, {field::Constant(1)});
  } else if (!op.fits(2, type_set::kWordSource)) {
    ReportNoForm(s);
  } else if (op.empty(3)) {
    EmitUnitGroup(s, operation, {field::Constant(1), FunParameter(op, 2)});
  } else if (!op.fits(3, type_set::kWordSource)) {
    ReportNoForm(s);
  } else {
    EmitUnitGroup(s, operation, {field::Constant(1), FunParameter(op, 2), FunParameter(op, 3)});
  }
}

// DPREAD K P K2 and DPWRITE P K K2: both write the operand 3 before operand 2.
void CompileDataPort(CompileSession& s, const LineOperands& op, bool read) {
  if (read && IsConstantOperand(op, 1) && op.fits(2, type_set::kPortWord) &&
      IsConstantOperand(op, 3)) {
    EmitUnitGroup(s, static_cast<char>(keyword::kDpread),
                  {field::Constant(1), field::Constant(3), field::Area(2)});
  } else if (!read && op.fits(1, type_set::kPortWord) && IsConstantOperand(op, 2) &&
             IsConstantOperand(op, 3)) {
    EmitUnitGroup(s, static_cast<char>(keyword::kDpwrite),
                  {field::Area(1), field::Constant(3), field::Constant(2)});
  } else {
    ReportNoForm(s);
  }
}

}  // namespace

void CompileKeywordInstruction(CompileSession& session) {
  const LineOperands op(session);
  const std::int32_t code = op.code(0);
  const char operation = static_cast<char>(code);
  switch (code) {
    case keyword::kInc:
    case keyword::kDec:
    case keyword::kShfr:
    case keyword::kShfl:
      if (!op.fits(1, type_set::kWordOperand) || !op.empty(2)) break;
      EmitUnitGroup(session, operation, {field::Area(1)});
      return;
    case keyword::kSfr:
    case keyword::kSfl:
    case keyword::kRor:
    case keyword::kRol:
      CompileShiftRotate(session, op, operation);
      return;
    case keyword::kIf:
      CompileIf(session, op);
      return;
    case keyword::kElse:
    case keyword::kEndif:
      EmitUnitGroup(session, operation, {field::Blank()});
      return;
    case keyword::kFun:
      CompileFun(session, op);
      return;
    case keyword::kDpread:
    case keyword::kDpwrite:
      CompileDataPort(session, op, code == keyword::kDpread);
      return;
    case keyword::kSegment:
      if (!IsConstantOperand(op, 1)) break;
      EmitUnitGroup(session, operation, {field::Constant(1)});
      return;
    default:
      break;
  }
  ReportNoForm(session);
}

}  // namespace rungc
