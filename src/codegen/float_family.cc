// Floating-point instructions: a line whose operand 0 is an "FX" register computes a value into
// it. Every instruction is one float function group: "Mx" with "K_00" and the function code, then
// continuation units with register numbers (2 lower-case hex digits), an area operand or the
// 16-bit groups of a constant, least significant first.
//
//   FXd = FXa op FXb     + - * /        13 14 15 16   K_ a d; K_00 b
//   FXd = SQRT FXs       ABS NEG CMP    30 01 02 1A   K_ s d
//   FXd = FXs            copy           12            K_ s d
//   FXd = W              word           10            K_00 d; W
//   FXd = D              double word    11            K_00 d; D
//   FXd = K, FXd = -K    integer        18            K_00 d; 2 groups of the 32-bit value
//   FXd = 1.5, = -1.5    floating point 19            K_00 d; 4 groups of the IEEE 754 double
#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <initializer_list>

#include "codegen/constants.h"
#include "codegen/families.h"
#include "codegen/line_operands.h"
#include "codegen/type_sets.h"
#include "codegen/unit_group.h"
#include "common/session.h"
#include "diag/report.h"
#include "ladder/classifier.h"
#include "ladder/emit.h"

namespace rungc {

namespace {

// Float function codes of this family (the one-register functions use their keyword codes).
constexpr int kLoadWord = 0x10;
constexpr int kLoadDoubleWord = 0x11;
constexpr int kCopy = 0x12;
constexpr int kAdd = 0x13;
constexpr int kSubtract = 0x14;
constexpr int kMultiply = 0x15;
constexpr int kDivide = 0x16;
constexpr int kLoadInteger = 0x18;
constexpr int kLoadFloat = 0x19;

// The report item of every refused line of this family.
constexpr std::string_view kFloatItem = "OperazFloat";

// A "K_" field with 4 upper-case hex digits of a 16-bit group, kept for a `field::Text`.
using GroupField = std::array<char, 7>;

GroupField GroupOf(std::uint64_t bits, int group) {
  GroupField f{};
  std::snprintf(f.data(), f.size(), "K_%04X",
                static_cast<unsigned>((bits >> (16 * group)) & 0xFFFFu));
  return f;
}

std::string_view ViewOf(const GroupField& f) {
  return {f.data(), 6};
}

// An operand that is a float register (an empty operand is none).
bool IsRegister(const LineOperands& op, int k) {
  return op.type(k) == OPT_FREG;
}

// The function code of a one-register function keyword, 0 for any other operand.
int FunctionCodeOf(const LineOperands& op, int k) {
  switch (op.code(k)) {
    case keyword::kSqrt:
    case keyword::kAbs:
    case keyword::kNeg:
    case keyword::kCmp:
      return op.code(k);
    default:
      return 0;
  }
}

// The rest of the group once its function is known: the code completes the head unit ("Mx" and
// "K_" stand already), then one continuation unit per field.
void EmitFunction(CompileSession& s, int code, std::initializer_list<Field> fields) {
  char digits[5];
  std::snprintf(digits, sizeof digits, "00%02X", static_cast<unsigned>(code) & 0xFFu);
  EmitCode(s, std::string_view(digits, 4));
  for (const Field& f : fields) {
    EmitCode(s, "M ");
    EmitField(s, f);
  }
}

// FXd = K: the constant as a signed 32-bit number, low half first. The operand is a decimal
// constant, possibly with a sign joined to it, so it always reads.
void EmitIntegerLoad(CompileSession& s, const LineOperands& op) {
  std::int32_t value = 0;
  ScanLong32(op.text(2).data(), value);
  const auto bits = static_cast<std::uint32_t>(value);
  const GroupField low = GroupOf(bits, 0);
  const GroupField high = GroupOf(bits, 1);
  EmitFunction(s, kLoadInteger,
               {field::Register(0), field::Text(ViewOf(low)), field::Text(ViewOf(high))});
}

// FXd = 1.5: the bit pattern of the IEEE 754 double, bits 0 to 15 first. The operand begins
// with a digit or a joined sign and a digit, so it always reads.
void EmitFloatLoad(CompileSession& s, const LineOperands& op) {
  double value = 0.0;
  ScanDouble(op.text(2).data(), value);
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const GroupField g0 = GroupOf(bits, 0);
  const GroupField g1 = GroupOf(bits, 1);
  const GroupField g2 = GroupOf(bits, 2);
  const GroupField g3 = GroupOf(bits, 3);
  EmitFunction(s, kLoadFloat,
               {field::Register(0), field::Text(ViewOf(g0)), field::Text(ViewOf(g1)),
                field::Text(ViewOf(g2)), field::Text(ViewOf(g3))});
}

// FXd = FXa op FXb. False when operand 3 is no arithmetic sign or the right side is no lone
// register.
bool CompileArithmetic(CompileSession& s, const LineOperands& op) {
  if (!IsRegister(op, 4) || !op.empty(5)) return false;
  int code = 0;
  if (op.is(3, "+")) code = kAdd;
  if (op.is(3, "-")) code = kSubtract;
  if (op.is(3, "*")) code = kMultiply;
  if (op.is(3, "/")) code = kDivide;
  if (code == 0) return false;
  EmitFunction(s, code, {field::RegisterPair(2, 0), field::Register(4)});
  return true;
}

// FXd = + K, FXd = - 1.5: the sign is joined to the constant, which is then loaded. False for
// anything else after a sign or keyword.
bool CompileSignedConstant(CompileSession& s, const LineOperands& op) {
  const char sign = op.first(2);
  if ((sign != '+' && sign != '-') || !op.empty(4)) return false;
  const bool integer = op.type(3) == OPT_DEC;
  if (!integer && op.type(3) != OPT_FLOAT) return false;
  OperandTable& ops = s.ladder.operands;
  ops.text[2].Append(op.text(3));
  ops.text[3].Clear();
  if (integer) {
    EmitIntegerLoad(s, op);
  } else {
    EmitFloatLoad(s, op);
  }
  return true;
}

// The forms after "FXd =", tried in order. False when none fits.
bool CompileForm(CompileSession& s, const LineOperands& op) {
  if (IsRegister(op, 2) && !op.empty(3) && CompileArithmetic(s, op)) return true;
  // After a keyword or sign (or nothing) only a one-register function remains.
  if ((op.empty(2) || op.type(2) == OPT_OPER) && (op.empty(3) || IsRegister(op, 3)) &&
      op.empty(4)) {
    const int code = FunctionCodeOf(op, 2);
    if (code == 0 || !IsRegister(op, 3)) return false;
    EmitFunction(s, code, {field::RegisterPair(3, 0)});
    return true;
  }
  if (!op.empty(3)) {
    return op.type(2) == OPT_OPER && CompileSignedConstant(s, op);
  }
  if (IsRegister(op, 2)) {
    EmitFunction(s, kCopy, {field::RegisterPair(2, 0)});
  } else if (op.fits(2, type_set::kWordOperand)) {
    EmitFunction(s, kLoadWord, {field::Register(0), field::Area(2)});
  } else if (op.fits(2, type_set::kConvertibleDoubleWord)) {
    EmitFunction(s, kLoadDoubleWord, {field::Register(0), field::Area(2)});
  } else if (op.type(2) == OPT_DEC) {
    EmitIntegerLoad(s, op);
  } else if (op.type(2) == OPT_FLOAT) {
    EmitFloatLoad(s, op);
  } else {
    return false;
  }
  return true;
}

}  // namespace

void CompileFloatInstruction(CompileSession& session) {
  const LineOperands op(session);
  if (op.type(1) != OPT_OPER || op.code(1) != keyword::kAssign) {
    ReportErrorText(session, 16, kFloatItem, session.ladder.box_line.view());
    return;
  }
  EmitCode(session, "MxK_");
  if (!CompileForm(session, op)) {
    ReportErrorText(session, 16, kFloatItem, session.ladder.box_line.view());
  }
}

}  // namespace rungc
