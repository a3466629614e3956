#include "ladder/classifier.h"

#include <cstdio>
#include <cstdlib>

#include "common/chars.h"
#include "common/operand_table.h"
#include "common/session.h"
#include "diag/report.h"
#include "ladder/lexer.h"

namespace rungc {

namespace {

// The flag of an area letter of a word, double word or bit; 0 for a letter of no area.
std::uint32_t AreaFlag(char letter, std::string_view areas) {
  if (letter == '\0' || areas.find(letter) == std::string_view::npos) return 0;
  switch (letter) {
    case 'X':
      return OPT_X;
    case 'Y':
      return OPT_Y;
    case 'R':
      return OPT_R;
    case 'M':
      return OPT_M;
    case 'F':
      return OPT_F;
    case 'Z':
      return OPT_Z;
    case 'T':
      return OPT_T;
    case 'C':
      return OPT_C;
    default:
      return 0;
  }
}

// A sign operand ("=", "+", ">=", ...): its type and keyword code. False when the text is not
// one; a '>' or '<' with a partner that makes no comparison keeps type and code 0.
bool ClassifySign(std::string_view s, std::uint32_t& type, std::int32_t& code) {
  const char second = At(s, 1);
  switch (s[0]) {
    case '=':
      type = OPT_OPER;
      code = s == "=" ? keyword::kAssign : second == '=' ? keyword::kCompare : 0;
      return true;
    case '+':
    case '-':
    case ':':
    case '*':
    case '/':
      type = OPT_OPER;
      code = keyword::kAssign;
      return true;
    case '>':
    case '<':
      if (second == '\0' || second == '=' || second == (s[0] == '>' ? '<' : '>')) {
        type = OPT_OPER;
        code = keyword::kCompare;
      }
      return true;
    default:
      return false;
  }
}

// A decimal integer constant from `start` on: rewritten as "%ld" of its value when that value is
// 0 or from 1 to 2147483647, otherwise taken as a floating-point constant.
std::uint32_t ClassifyNumber(OperandText& text, std::size_t start) {
  std::string_view p = text.view().substr(start);
  if (p.find('.') != std::string_view::npos || p.find('E') != std::string_view::npos) {
    return OPT_FLOAT;
  }
  // The text begins with a digit, so "%lf" always reads a value here.
  const double value = std::strtod(text.c_str() + start, nullptr);
  if (value != 0.0 && !(value >= 1.0 && value <= 2147483647.0)) return OPT_FLOAT;
  char digits[16];
  std::snprintf(digits, sizeof digits, "%ld", static_cast<long>(value));
  OperandText rewritten(text.view().substr(0, start));
  rewritten.Append(digits);
  text = rewritten;
  return OPT_DEC;
}

// The flags of an operand form (word, double word, register, constant, bit) for the text from
// `start` on; 0 when the text is no operand and must be looked up as a keyword.
std::uint32_t ClassifyOperandForm(OperandText& text, std::size_t start) {
  std::string_view p = text.view().substr(start);
  if (p.empty()) return 0;
  const char first = p[0];
  const char second = At(p, 1);
  if (first == 'W') {
    if (p.substr(0, 3) == "WAX") return OPT_WORD | OPT_AX;
    if (p.substr(0, 3) == "WAY") return OPT_WORD | OPT_AY;
    const std::uint32_t area = AreaFlag(second, "XYRMFZTC");
    return area != 0 ? OPT_WORD | area : 0;
  }
  if (first == 'D') {
    const std::uint32_t area = AreaFlag(second, "XYRMZ");
    return area != 0 ? OPT_DWORD | area : 0;
  }
  if (first == 'F' && second == 'X') return OPT_FREG;
  if (first == 'H' && IsHexDigit(second)) return OPT_HEX;
  if (IsDigit(first)) return ClassifyNumber(text, start);
  const std::size_t dot = p.find('.');
  if (dot == std::string_view::npos || p.size() - dot - 1 > 1) return 0;
  const std::uint32_t area = AreaFlag(first, "XYRFZ");
  return area != 0 ? OPT_BIT | area : 0;
}

}  // namespace

void ClassifyOperand(CompileSession& session, int k) {
  OperandTable& ops = session.ladder.operands;
  const auto i = static_cast<std::size_t>(k);
  OperandText& text = ops.text[i];
  std::uint32_t& type = ops.type[i];
  std::int32_t& code = ops.code[i];
  type = 0;
  code = 0;
  if (text.empty()) return;
  if (ClassifySign(text.view(), type, code)) return;
  std::size_t start = 0;
  if (text.view()[0] == '(') {
    type = OPT_PAREN;
    start = 1;
  }
  const std::uint32_t form = ClassifyOperandForm(text, start);
  if (form != 0) {
    type |= form;
    return;
  }
  for (const KeywordEntry& entry : KeywordTable) {
    if (entry.text == text.view()) {
      code = entry.code;
      type |= OPT_OPER;
      return;
    }
  }
  ReportErrorText(session, 16, text.view(), session.ladder.box_line.view());
}

void ClassifyOperands(CompileSession& session) {
  for (int k = 0; k < static_cast<int>(kOperandCount); ++k) ClassifyOperand(session, k);
}

}  // namespace rungc
