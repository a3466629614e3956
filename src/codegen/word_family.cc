// Word instructions: a line whose operand 0 is a word assigns it a 16-bit result.
//
//   W = S              move                  MD/Md + source, blank, W
//   W = S1 op S2       arithmetic + - * /    M+ M- M* M/ + S1, S2, W
//   W = S1 AND S2      logical AND OR XOR    M& M| M^ + S1, S2, W
//   W = B (I)          indexed read          M@ + B, I, W
//   B (I) = S          indexed write         M$ + I, S, B
//   W = BIN W2         BIN, BCD              MB Mb + W2, blank, W
//   W = COPY S K       COPY FILL SUM AVRG    MC MF MV MG + S, K, W
//   W = FXs            float register        Mx K_0020, K_00 s, W
// S is a word or a 16-bit constant, B a word of area R or M, I a word in parentheses.
#include "codegen/families.h"
#include "codegen/line_operands.h"
#include "codegen/type_sets.h"
#include "codegen/unit_group.h"
#include "common/session.h"
#include "diag/report.h"
#include "ladder/classifier.h"

namespace rungc {

namespace {

// The destination lies in the input area when it is a word of area X or a "WAX" word.
constexpr std::uint32_t kInputWord = OPT_X | OPT_AX;
// The float function code of a conversion of a float register into a word.
constexpr int kFloatToWord = 0x20;

bool IsArithmeticSign(char c) {
  return c == '+' || c == '-' || c == '*' || c == '/';
}

bool IsLogicalKeyword(std::int32_t code) {
  return code == keyword::kAnd || code == keyword::kOr || code == keyword::kXor;
}

// An indexed read or write: the base must be a word of area R or M, else error 79 and nothing of
// the line is written.
bool CheckIndexBase(CompileSession& s, const LineOperands& op, int base) {
  if (op.fits(base, type_set::kIndexBase)) return true;
  ReportErrorText(s, 79, op.text(base), s.ladder.box_line.view());
  return false;
}

// W = S: a word source is moved with "MD", a constant with "Md".
void CompileMove(CompileSession& s, const LineOperands& op) {
  WarnInputDestination(s, kInputWord);
  if (op.first(2) == 'W') {
    EmitUnitGroup(s, 'D', {field::Area(2), field::Blank(), field::Area(0)});
  } else {
    EmitUnitGroup(s, 'd', {field::Constant(2), field::Blank(), field::Area(0)});
  }
}

// The forms "W = S ..." whose operand 2 is a word source. False when the shape that operand 3
// selects does not hold, so that the other "=" forms are tried.
bool CompileWordSourceForm(CompileSession& s, const LineOperands& op) {
  if (op.empty(3)) {
    CompileMove(s, op);
    return true;
  }
  if (IsArithmeticSign(op.first(3))) {
    if (!op.fits(4, type_set::kWordSource) || !op.empty(5)) return false;
    WarnInputDestination(s, kInputWord);
    EmitUnitGroup(s, op.first(3), {field::WordSource(2), field::WordSource(4), field::Area(0)});
    return true;
  }
  if (!IsLogicalKeyword(op.code(3))) {
    if (!op.fits(3, type_set::kBracketedWord) || !op.empty(4)) return false;
    WarnInputDestination(s, kInputWord);
    if (!CheckIndexBase(s, op, 2)) return true;
    EmitUnitGroup(s, '@', {field::WordSource(2), field::Index(3), field::Area(0)});
    return true;
  }
  if (!op.fits(4, type_set::kWordSource) || !op.empty(5)) return false;
  WarnInputDestination(s, kInputWord);
  EmitUnitGroup(s, static_cast<char>(op.code(3)),
                {field::WordSource(2), field::WordSource(4), field::Area(0)});
  return true;
}

// W = keyword ...: the conversions BIN and BCD of a word, the block operations COPY, FILL, SUM
// and AVRG of a source with a constant count. Other keywords are error 16. The keyword chooses
// the instruction, so an input destination is warned of before its operands are checked.
void CompileKeywordSource(CompileSession& s, const LineOperands& op) {
  const std::int32_t code = op.code(2);
  const char operation = static_cast<char>(code);
  switch (code) {
    case keyword::kBin:
    case keyword::kBcd:
      WarnInputDestination(s, kInputWord);
      if (!op.fits(3, type_set::kWordOperand) || !op.empty(4)) break;
      EmitUnitGroup(s, operation, {field::Area(3), field::Blank(), field::Area(0)});
      return;
    case keyword::kCopy:
    case keyword::kFill:
    case keyword::kSum:
    case keyword::kAvrg:
      WarnInputDestination(s, kInputWord);
      // The source is not type-tested: the area encoder rejects what is no word.
      if ((op.type(4) & type_set::kConstant) == 0) break;
      EmitUnitGroup(s, operation, {field::Area(3), field::Constant(4), field::Area(0)});
      return;
    default:
      break;
  }
  ReportNoForm(s);
}

// B (I) = S.
bool IsIndexedWrite(const LineOperands& op) {
  return op.fits(1, type_set::kBracketedWord) && op.first(2) == '=' &&
         op.fits(3, type_set::kWordSource) && op.empty(4);
}

}  // namespace

void CompileWordInstruction(CompileSession& session) {
  const LineOperands op(session);
  if (op.is(1, "=")) {
    if (op.fits(2, type_set::kWordSource) && CompileWordSourceForm(session, op)) return;
    if (op.fits(2, type_set::kOperator)) {
      CompileKeywordSource(session, op);
      return;
    }
    if (op.fits(2, type_set::kFloatRegister) && op.empty(3)) {
      // No input warning: the conversion may fill an input word.
      EmitUnitGroup(session, 'x',
                    {field::FunctionCode(kFloatToWord), field::Register(2), field::Area(0)});
      return;
    }
  } else if (IsIndexedWrite(op)) {
    WarnInputDestination(session, kInputWord);
    if (!CheckIndexBase(session, op, 0)) return;
    EmitUnitGroup(session, '$', {field::Index(1), field::WordSource(3), field::Area(0)});
    return;
  }
  ReportNoForm(session);
}

}  // namespace rungc
