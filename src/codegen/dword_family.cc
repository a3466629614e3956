// Double-word instructions: a line whose operand 0 is a double word assigns it a 32-bit result.
// Every form but the float-register conversion starts with "ML", which marks a 32-bit operation.
//
//   D = D2             move                 ML + blank; MD + D2, blank, D
//   D = K, D = -K      constant move        ML + blank; Md + low 16 bits, high 16 bits, D
//   D = D1 op D2       arithmetic + - * /   ML + blank; M+ M- M* M/ + D1, D2, D
//   D = S16 W (S12)    sign extension       ML + K_0001 (K_0002), D, W
//   D = FXs            float register       Mx K_0021, K_00 s, D
#include <cstdint>

#include "codegen/encoders.h"
#include "codegen/families.h"
#include "codegen/line_operands.h"
#include "codegen/type_sets.h"
#include "codegen/unit_group.h"
#include "common/session.h"
#include "ladder/classifier.h"

namespace rungc {

namespace {

// The destination lies in the input area when it is a double word of area X.
constexpr std::uint32_t kInputDoubleWord = OPT_X | OPT_AX;
// The float function code of a conversion of a float register into a double word.
constexpr int kFloatToDoubleWord = 0x21;

bool IsArithmeticSign(char c) {
  return c == '+' || c == '-' || c == '*' || c == '/';
}

void EmitDoubleWordPrefix(CompileSession& s) {
  EmitUnitGroup(s, 'L', {field::Blank()});
}

// D = D2 or D = K: a source that begins with 'D' is a double word, anything else a 32-bit
// constant, written low half first.
void CompileMove(CompileSession& s, const LineOperands& op) {
  WarnInputDestination(s, kInputDoubleWord);
  if (op.first(2) == 'D') {
    EmitDoubleWordPrefix(s);
    EmitUnitGroup(s, 'D', {field::Area(2), field::Blank(), field::Area(0)});
    return;
  }
  EncodeLongConstant(s, 2);
  EmitDoubleWordPrefix(s);
  EmitUnitGroup(s, 'd', {field::LongLow(), field::LongHigh(), field::Area(0)});
}

// The forms whose operand 2 is a double word or a constant. False when none fits.
bool CompileSourceForm(CompileSession& s, const LineOperands& op) {
  if (op.empty(3)) {
    CompileMove(s, op);
    return true;
  }
  if (!IsArithmeticSign(op.first(3)) || !op.fits(2, type_set::kDoubleWord) ||
      !op.fits(4, type_set::kDoubleWord) || !op.empty(5)) {
    return false;
  }
  WarnInputDestination(s, kInputDoubleWord);
  EmitDoubleWordPrefix(s);
  EmitUnitGroup(s, op.first(3), {field::Area(2), field::Area(4), field::Area(0)});
  return true;
}

// The forms whose operand 2 is a keyword or a sign: the sign extensions of a word, and a sign
// before a decimal constant, which is joined to it ("-") or dropped ("+") to make a constant
// move. False when none fits.
bool CompileKeywordForm(CompileSession& s, const LineOperands& op) {
  if (op.fits(3, type_set::kWordOperand)) {
    if (!op.empty(4)) return false;
    const std::int32_t code = op.code(2);
    if (code != keyword::kS16 && code != keyword::kS12) return false;
    const std::string_view extension = code == keyword::kS16 ? "K_0001" : "K_0002";
    EmitUnitGroup(s, 'L', {field::Text(extension), field::Area(0), field::Area(3)});
    return true;
  }
  if (op.type(3) != OPT_DEC || !(op.is(2, "-") || op.is(2, "+"))) return false;
  OperandTable& ops = s.ladder.operands;
  if (op.is(2, "-")) {
    ops.text[2].Append(op.text(3));
  } else {
    ops.text[2] = ops.text[3];
  }
  ops.text[3].Clear();
  CompileMove(s, op);
  return true;
}

// D = FXs: the float function group of the conversion, without the "ML" prefix.
bool CompileFloatConversion(CompileSession& s, const LineOperands& op) {
  if (!op.fits(2, type_set::kFloatRegister) || !op.empty(3)) return false;
  EmitUnitGroup(s, 'x',
                {field::FunctionCode(kFloatToDoubleWord), field::Register(2), field::Area(0)});
  return true;
}

// The forms "D = ...", chosen by operand 2. False when none fits.
bool CompileAssignment(CompileSession& s, const LineOperands& op) {
  if (op.fits(2, type_set::kDoubleWordSource)) return CompileSourceForm(s, op);
  if (!op.fits(2, type_set::kOperator)) return CompileFloatConversion(s, op);
  return CompileKeywordForm(s, op);
}

}  // namespace

void CompileDoubleWordInstruction(CompileSession& session) {
  const LineOperands op(session);
  if (op.is(1, "=") && CompileAssignment(session, op)) return;
  ReportNoForm(session);
}

}  // namespace rungc
