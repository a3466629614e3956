#include "codegen/unit_group.h"

#include <cstdio>

#include "codegen/encoders.h"
#include "common/session.h"
#include "ladder/emit.h"

namespace rungc {

namespace {

char FirstOf(const CompileSession& s, int k, std::size_t at) {
  const std::string_view t = s.ladder.operands.text[static_cast<std::size_t>(k)].view();
  return at < t.size() ? t[at] : '\0';
}

}  // namespace

void EmitField(CompileSession& session, const Field& f) {
  const std::string_view long_constant(session.ladder.long_constant.data(), 8);
  switch (f.kind) {
    case FieldKind::kBlank:
      EmitCode(session, "      ");
      return;
    case FieldKind::kText:
      EmitCode(session, f.text);
      return;
    case FieldKind::kArea:
      EncodeAreaOperand(session, f.operand);
      return;
    case FieldKind::kConstant:
      EncodeWordConstant(session, f.operand);
      return;
    case FieldKind::kWordSource:
    case FieldKind::kIndex:
      if (FirstOf(session, f.operand, f.kind == FieldKind::kIndex ? 1 : 0) == 'W') {
        EncodeAreaOperand(session, f.operand);
      } else {
        EncodeWordConstant(session, f.operand);
      }
      return;
    case FieldKind::kBit:
      EncodeBitOperand(session, f.operand);
      return;
    case FieldKind::kBitSource: {
      const char first = FirstOf(session, f.operand, 0);
      if (first == '0' || first == '1') {
        EncodeWordConstant(session, f.operand);
      } else {
        EncodeBitOperand(session, f.operand);
      }
      return;
    }
    case FieldKind::kRegister:
      EmitCode(session, "K_00");
      EncodeFloatRegister(session, f.operand);
      return;
    case FieldKind::kRegisterPair:
      EmitCode(session, "K_");
      EncodeFloatRegister(session, f.operand);
      EncodeFloatRegister(session, f.second);
      return;
    case FieldKind::kFunctionCode: {
      char code[8];
      std::snprintf(code, sizeof code, "K_00%02X", static_cast<unsigned>(f.second) & 0xFFu);
      EmitCode(session, code);
      return;
    }
    case FieldKind::kLongLow:
      EmitCode(session, "K_");
      EmitCode(session, long_constant.substr(4, 4));
      return;
    case FieldKind::kLongHigh:
      EmitCode(session, "K_");
      EmitCode(session, long_constant.substr(0, 4));
      return;
  }
}

void EmitUnitGroup(CompileSession& session, char operation, std::initializer_list<Field> fields) {
  bool head = true;
  for (const Field& f : fields) {
    const char mnemonic[2] = {'M', head ? operation : ' '};
    EmitCode(session, std::string_view(mnemonic, 2));
    EmitField(session, f);
    head = false;
  }
}

}  // namespace rungc
