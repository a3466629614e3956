#include "codegen/encoders.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "codegen/constants.h"
#include "common/chars.h"
#include "common/session.h"
#include "diag/report.h"
#include "ladder/emit.h"

namespace rungc {

namespace {

constexpr std::string_view kZeros = "00000000";

std::string_view OperandOf(const CompileSession& s, int k) {
  return s.ladder.operands.text[static_cast<std::size_t>(k)].view();
}
std::uint32_t TypeOf(const CompileSession& s, int k) {
  return s.ladder.operands.type[static_cast<std::size_t>(k)];
}

void ReportMalformed(CompileSession& s, int k) {
  ReportErrorText(s, 9, OperandOf(s, k), s.ladder.box_line.view());
}

std::string_view SkipZeros(std::string_view t) {
  const std::size_t i = t.find_first_not_of('0');
  return i == std::string_view::npos ? std::string_view() : t.substr(i);
}

// The significant digits of a hex constant: after the 'H' and the leading zeros.
std::string_view HexDigitsOf(std::string_view t) {
  if (!t.empty()) t.remove_prefix(1);
  return SkipZeros(t);
}

}  // namespace

void EncodeAreaOperand(CompileSession& session, int k) {
  std::string_view t = OperandOf(session, k);
  if (!t.empty() && t[0] == '(') {
    t.remove_prefix(1);
    const std::size_t close = t.find(')');
    if (close == std::string_view::npos) {
      ReportMalformed(session, k);
      return;
    }
    t = t.substr(0, close);
  }
  if ((TypeOf(session, k) & (OPT_AX | OPT_AY)) != 0 && !t.empty()) t.remove_prefix(1);
  const std::size_t prefix = t.size() < 2 ? t.size() : 2;
  EmitCode(session, t.substr(0, prefix));
  t.remove_prefix(prefix);
  // Only the first address character is tested; the others are copied as they stand.
  if (t.empty() || !IsHexDigit(t[0])) {
    ReportMalformed(session, k);
    return;
  }
  t = SkipZeros(t);
  if (t.empty()) {
    EmitCode(session, "0000");
  } else if (t.size() > 4) {
    ReportMalformed(session, k);
    EmitCode(session, t.substr(0, 4));
  } else {
    EmitCode(session, kZeros.substr(0, 4 - t.size()));
    EmitCode(session, t);
  }
}

void EncodeWordConstant(CompileSession& session, int k) {
  EmitCode(session, "K_");
  if ((TypeOf(session, k) & OPT_HEX) != 0) {
    const std::string_view t = HexDigitsOf(OperandOf(session, k));
    if (t.empty()) {
      EmitCode(session, "0000");
      return;
    }
    if (t.size() > 4) {
      ReportMalformed(session, k);
      EmitCode(session, t.substr(0, 4));
      return;
    }
    EmitCode(session, kZeros.substr(0, 4 - t.size()));
    for (std::size_t i = 0; i < t.size(); ++i) {
      if (!IsHexDigit(t[i])) {
        ReportMalformed(session, k);
        return;
      }
      EmitCode(session, t.substr(i, 1));
    }
    return;
  }
  std::int32_t value = 0;
  if (!ScanLong32(session.ladder.operands.text[static_cast<std::size_t>(k)].c_str(), value)) {
    ReportMalformed(session, k);
    return;
  }
  char digits[8];
  std::snprintf(
      digits, sizeof digits, "%04X",
      static_cast<unsigned>(static_cast<std::uint16_t>(static_cast<std::uint32_t>(value))));
  EmitCode(session, digits);
}

void EncodeLongConstant(CompileSession& session, int k) {
  auto& text = session.ladder.long_constant;
  for (std::size_t i = 0; i < 8; ++i) text[i] = '0';
  text[8] = '\0';
  if ((TypeOf(session, k) & OPT_HEX) != 0) {
    const std::string_view t = HexDigitsOf(OperandOf(session, k));
    if (t.size() > 8) {
      ReportMalformed(session, k);
      return;
    }
    for (std::size_t i = 0; i < t.size(); ++i) {
      if (!IsHexDigit(t[i])) {
        ReportMalformed(session, k);
        return;
      }
      text[8 - t.size() + i] = t[i];
    }
    return;
  }
  std::int32_t value = 0;
  if (!ScanLong32(session.ladder.operands.text[static_cast<std::size_t>(k)].c_str(), value)) {
    ReportMalformed(session, k);
    return;
  }
  std::snprintf(text.data(), text.size(), "%08lX",
                static_cast<unsigned long>(static_cast<std::uint32_t>(value)));
}

void EncodeBitOperand(CompileSession& session, int k) {
  const std::string_view t = OperandOf(session, k);
  if (!t.empty() && t[0] == '(') {
    ReportMalformed(session, k);
    return;
  }
  EmitCode(session, t.substr(0, 1));
  EmitCode(session, "_");
  // Leading zeros of the word address go, but one stays before the '.' when all were zeros.
  std::size_t start = 1;
  while (start < t.size() && t[start] == '0') ++start;
  if (start > 1 && start < t.size() && t[start] == '.') --start;
  const std::size_t dot = t.find('.', start < t.size() ? start : t.size());
  if (dot == std::string_view::npos || dot - start > 3) {
    ReportMalformed(session, k);
    return;
  }
  EmitCode(session, kZeros.substr(0, 3 - (dot - start)));
  for (std::size_t i = start; i < dot; ++i) {
    if (!IsHexDigit(t[i])) {
      ReportMalformed(session, k);
      return;
    }
    EmitCode(session, t.substr(i, 1));
  }
  if (dot + 1 >= t.size() || !IsHexDigit(t[dot + 1])) {
    ReportMalformed(session, k);
    return;
  }
  EmitCode(session, t.substr(dot + 1, 1));
}

void EncodeFloatRegister(CompileSession& session, int k) {
  const std::string_view t = OperandOf(session, k);
  const std::string_view digits = t.size() > 2 ? t.substr(2) : std::string_view();
  bool valid = t.substr(0, 2) == "FX" && !digits.empty() && digits.size() <= 3;
  unsigned number = 0;
  for (std::size_t i = 0; valid && i < digits.size(); ++i) {
    valid = IsDigit(digits[i]);
    if (valid) number = number * 10 + static_cast<unsigned>(digits[i] - '0');
  }
  if (!valid || number > 255) {
    ReportMalformed(session, k);
    return;
  }
  char field[4];
  std::snprintf(field, sizeof field, "%02x", number);
  EmitCode(session, field);
}

}  // namespace rungc
