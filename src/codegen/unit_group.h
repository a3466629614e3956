// Unit groups: one function-block instruction is a head unit, "M" and its operation character,
// followed by continuation units "M" and a blank. Each unit carries one 6-character operand
// field. A generator describes its group as the operation and the list of fields in order; the
// first field goes into the head unit.
//
//   EmitUnitGroup(s, 'D', {field::Area(2), field::Blank(), field::Area(0)})
//   writes "MD" + area(op2), "M " + 6 blanks, "M " + area(op0): MDWX0002 M······· M·WY0001
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace rungc {

struct CompileSession;

enum class FieldKind : std::uint8_t {
  kBlank,         // 6 blanks
  kText,          // 6 characters given by the generator
  kArea,          // `EncodeAreaOperand`
  kConstant,      // `EncodeWordConstant`
  kWordSource,    // area operand when the text begins with 'W', else constant
  kIndex,         // an index written "(W..)": area operand when its second character is 'W',
                  // else constant (an index without parentheses fails as a constant)
  kBit,           // `EncodeBitOperand`
  kBitSource,     // constant when the text begins with '0' or '1', else bit
  kRegister,      // "K_00" and the FX register number
  kRegisterPair,  // "K_", the FX register number of `operand`, then that of `second`
  kFunctionCode,  // "K_00" and the float function code `second` in 2 upper-case hex digits
  kLongLow,       // "K_" and characters 5 to 8 of the long constant text (its low 16 bits)
  kLongHigh,      // "K_" and characters 1 to 4 of the long constant text (its high 16 bits)
};

struct Field {
  FieldKind kind = FieldKind::kBlank;
  int operand = 0;
  int second = 0;
  std::string_view text;
};

namespace field {
constexpr Field Blank() {
  return {FieldKind::kBlank, 0, 0, {}};
}
constexpr Field Text(std::string_view six) {
  return {FieldKind::kText, 0, 0, six};
}
constexpr Field Area(int k) {
  return {FieldKind::kArea, k, 0, {}};
}
constexpr Field Constant(int k) {
  return {FieldKind::kConstant, k, 0, {}};
}
constexpr Field WordSource(int k) {
  return {FieldKind::kWordSource, k, 0, {}};
}
constexpr Field Index(int k) {
  return {FieldKind::kIndex, k, 0, {}};
}
constexpr Field Bit(int k) {
  return {FieldKind::kBit, k, 0, {}};
}
constexpr Field BitSource(int k) {
  return {FieldKind::kBitSource, k, 0, {}};
}
constexpr Field Register(int k) {
  return {FieldKind::kRegister, k, 0, {}};
}
constexpr Field RegisterPair(int first, int second) {
  return {FieldKind::kRegisterPair, first, second, {}};
}
constexpr Field FunctionCode(int code) {
  return {FieldKind::kFunctionCode, 0, code, {}};
}
constexpr Field LongLow() {
  return {FieldKind::kLongLow, 0, 0, {}};
}
constexpr Field LongHigh() {
  return {FieldKind::kLongHigh, 0, 0, {}};
}
}  // namespace field

// Writes one operand field at the code write position.
void EmitField(CompileSession& session, const Field& f);
// Writes the head unit "M" + operation with the first field, then one continuation unit per
// further field.
void EmitUnitGroup(CompileSession& session, char operation, std::initializer_list<Field> fields);

}  // namespace rungc
