#include "ladder/element_operands.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "common/session.h"
#include "diag/report.h"
#include "ladder/box_lines.h"
#include "ladder/element_table.h"
#include "ladder/emit.h"
#include "ladder/grid_cells.h"

namespace rungc {

namespace {

constexpr std::size_t kFieldLength = 6;  // one operand field of a contact, timer or label

// The NUL-terminated text at the start of a buffer.
std::string_view TextOf(std::span<const char> text) {
  std::size_t n = 0;
  while (n < text.size() && text[n] != '\0') ++n;
  return {text.data(), n};
}

// Writes exactly 7 characters: the text up to its NUL, at most 7, then blanks.
void EmitOperandField(CompileSession& s, std::string_view text) {
  std::array<char, 7> field;
  field.fill(' ');
  for (std::size_t i = 0; i < field.size() && i < text.size(); ++i) field[i] = text[i];
  EmitCode(s, std::string_view(field.data(), field.size()));
}

// Copies the cell's operand into the operand buffer: leading blanks skipped, upper case.
void LoadOperandBuffer(CompileSession& s, const CellRecord& cell) {
  OperandBuffer& buffer = s.ladder.operand_buffer;
  std::string_view text = CellOperand(cell);
  std::size_t i = 0;
  while (i < text.size() && text[i] == ' ') ++i;
  std::size_t n = 0;
  for (; i < text.size() && n + 1 < buffer.size(); ++i) buffer[n++] = UpperCase(text[i]);
  buffer[n] = '\0';
}

// The output elements (types without the link flag) that may not name an input or a timer.
bool IsOutputElement(int type_value) {
  return OneOf(type_value, {3, 6, 7, 40, 67});
}

// Element 16 ('c'): the letter T or C (the buffer has no leading blanks) and a word number of 1
// to 4 hexadecimal digits.
void EncodeTimerCounterBit(CompileSession& s) {
  OperandBuffer& buffer = s.ladder.operand_buffer;
  std::span<char> number = std::span<char>(buffer).subspan(buffer[0] == '\0' ? 0 : 1);
  if (NormaliseAddress(number, 4) != 1) {
    std::string_view text = TextOf(number);
    ReportErrorText(s, 19, text, text);
    s.ladder.walk_state = kWalkStopped;
    return;
  }
  EmitOperandField(s, TextOf(buffer));
}

// Contacts, coils, element 16, edges and element 40: the checked operand in 7 characters.
void EncodeContactOrCoil(CompileSession& s, int index, char letter) {
  const CellRecord& cell = GridCell(s, index);
  LoadOperandBuffer(s, cell);
  if (letter == 'c') {
    EncodeTimerCounterBit(s);
    return;
  }
  const int operand_class = CheckContactOperand(s, s.ladder.operand_buffer);
  if (operand_class == kOperandMalformed) return;
  if (IsOutputElement(cell.type_value()) &&
      (operand_class == kOperandInputBit || operand_class == kOperandNumbered)) {
    ReportError(s, 29);
    s.ladder.walk_state = kWalkStopped;
    return;
  }
  EmitOperandField(s, TextOf(s.ladder.operand_buffer));
}

// The timer or counter number: the first field without its leading blanks and its letter, read
// as a hexadecimal number the way "%X" reads it. -1 when none can be read or it is negative.
long ReadNumberField(const std::array<char, 2 * kFieldLength + 1>& operand) {
  std::size_t i = 0;
  while (i < kFieldLength && operand[i] == ' ') ++i;
  ++i;  // the letter T or C
  std::array<char, kFieldLength + 1> rest{};
  for (std::size_t n = 0; i < kFieldLength; ++i) rest[n++] = operand[i];
  char* end = nullptr;
  const long value = std::strtol(rest.data(), &end, 16);
  if (end == rest.data() || value < 0) return -1;
  return value;
}

// Timers and counters: "%05X" of the number and 2 blanks, then a unit "M " with the preset, a
// constant ("K_" and 4 digits) or a word of area R, M, F or Z. Every timer and counter element
// has two fields of 6 characters.
void EncodeTimerOrCounter(CompileSession& s, const CellRecord& cell) {
  std::array<char, 2 * kFieldLength + 1> operand{};
  std::string_view text = CellOperand(cell);
  for (std::size_t i = 0; i < text.size() && i < 2 * kFieldLength; ++i) operand[i] = text[i];

  const long number = ReadNumberField(operand);
  if (number < 0) {
    ReportError(s, 18);
    s.ladder.walk_state = kWalkStopped;
    return;
  }
  std::array<char, 32> unit;
  std::snprintf(unit.data(), unit.size(), "%05lX  ", number & 0xFFFFF);
  if (!EmitCode(s, std::string_view(unit.data(), 7))) return;

  std::span<char> preset = std::span<char>(operand).subspan(kFieldLength, kFieldLength);
  OperandBuffer& buffer = s.ladder.operand_buffer;
  SplitPresetField(preset, buffer);
  if (ConstantToKWord(s, buffer) != 1) {
    if (CheckWordOperand(s, buffer) != 1 || buffer[0] != 'W') {
      std::string_view preset_text = TextOf(preset);
      ReportErrorText(s, 22, preset_text, preset_text);
      s.ladder.walk_state = kWalkStopped;
      return;
    }
  }
  std::array<char, 8> preset_unit;
  preset_unit.fill(' ');
  preset_unit[0] = 'M';
  std::string_view value = TextOf(buffer);
  for (std::size_t i = 0; i < 6 && i < value.size(); ++i) preset_unit[2 + i] = value[i];
  EmitCode(s, std::string_view(preset_unit.data(), preset_unit.size()));
}

// Jump ('j') and call ('c') elements: the name is entered in its table, then written after the
// second letter as it stands, blanks included.
void EncodeJumpOrCall(CompileSession& s, const CellRecord& cell, char second) {
  std::string_view name = CellOperand(cell);
  LabelTable& table = second == 'j' ? s.labels.jumps : s.labels.subroutines;
  const int result = table.Reference(name);
  if (result != 0) {
    ReportErrorText(s, result, name, name);
    return;
  }
  std::array<char, 7> field;
  field.fill(' ');
  field[0] = second;
  for (std::size_t i = 0; i < kFieldLength && i < name.size(); ++i) field[1 + i] = name[i];
  EmitCode(s, std::string_view(field.data(), field.size()));
}

}  // namespace

// By the letter: comparison contact, jump or call, a cell without operand text (7 blanks), timer
// or counter, else a contact or coil. Nothing at a function block.
void EncodeElementOperand(CompileSession& session, int index, std::int32_t code) {
  CompileSession& s = session;
  if (s.ladder.walk_state == kWalkStoppedAtBox) return;
  const char letter = CodeLetter(code);
  const char second = CodeSecondLetter(code);
  const CellRecord& cell = GridCell(s, index);
  if (letter == 'e') {
    CompileComparisonContact(s, index);
    return;
  }
  if (letter == 'L' && (second == 'j' || second == 'c')) {
    EncodeJumpOrCall(s, cell, second);
    return;
  }
  if (CellOperand(cell).empty()) {
    EmitOperandField(s, {});
    return;
  }
  switch (letter) {
    case 'T':
    case 'C':
    case 'O':
    case 'P':
    case 'Q':
    case 'o':
    case 'p':
      EncodeTimerOrCounter(s, cell);
      return;
    default:
      EncodeContactOrCoil(s, index, letter);
      return;
  }
}

// By the area letter: R, F, Z, Y and X take a bit address, C and T a word number, both of up to 5
// digits.
int CheckContactOperand(CompileSession& session, std::span<char> text) {
  std::span<char> address = text.size() > 1 ? text.subspan(1) : std::span<char>();
  switch (text.empty() ? '\0' : text[0]) {
    case 'R':
    case 'F':
    case 'Z':
      if (NormaliseAddress(address, 5) == 0) return kOperandBit;
      break;
    case 'Y':
      if (NormaliseAddress(address, 5) == 0) return kOperandOutputBit;
      break;
    case 'X':
      if (NormaliseAddress(address, 5) == 0) return kOperandInputBit;
      break;
    case 'C':
    case 'T':
      if (NormaliseAddress(address, 5) == 1) return kOperandNumbered;
      break;
    case '*':
      if (!address.empty()) address[0] = '\0';
      return kOperandPseudo;
    default:
      break;
  }
  std::string_view shown = TextOf(text);
  ReportErrorText(session, 27, shown, shown);
  return kOperandMalformed;
}

// Leading zeros, then upper-case hexadecimal digits, then an optional '.' and bit digit; the
// address ends at NUL or a blank. Rewritten only when well-formed.
int NormaliseAddress(std::span<char> text, int width) {
  auto at = [&text](std::size_t i) { return i < text.size() ? text[i] : '\0'; };
  if (at(0) == '\0') return -1;
  std::size_t taken = 0;
  while (at(taken) == '0') ++taken;
  if (static_cast<int>(taken) > width) return -1;
  while (IsUpperHexDigit(at(taken))) ++taken;
  int count = static_cast<int>(taken);
  if (count > width) return -1;
  int result = 1;
  if (at(taken) == '.') {
    if (!IsUpperHexDigit(at(taken + 1))) return -1;
    taken += 2;
    count += 2;
    result = 0;
  }
  if (at(taken) != '\0' && at(taken) != ' ') return -1;
  const std::size_t pad = count < width ? static_cast<std::size_t>(width - count) : 0;
  if (pad + taken + 1 > text.size()) return -1;  // no room to rewrite it
  std::memmove(text.data() + pad, text.data(), taken);
  std::memset(text.data(), '0', pad);
  text[pad + taken] = '\0';
  return result;
}

// The operand ends at '=' or ':', or at a blank or ',' outside parentheses; a field that begins
// with ';' (a comment) or holds only blanks gives an empty operand.
void SplitPresetField(std::span<char> field, OperandBuffer& out) {
  out[0] = '\0';
  const std::size_t n = field.size();
  if (n == 0 || field[0] == ';') return;
  if (field[0] == ' ') {
    std::size_t lead = 0;
    while (lead < n && field[lead] == ' ') ++lead;
    if (lead == n) return;
    std::memmove(field.data(), field.data() + lead, n - lead);
    std::memset(field.data() + (n - lead), ' ', lead);
  }
  std::size_t used = 0;
  int depth = 0;
  for (std::size_t i = 0; i < n && used + 1 < out.size(); ++i) {
    const char c = field[i];
    if (c == '\0' || c == '=' || c == ':') break;
    if (depth <= 0 && (c == ' ' || c == ',')) break;
    if (c == '(') ++depth;
    if (c == ')') --depth;
    out[used++] = UpperCase(c);
  }
  out[used] = '\0';
}

// Decimal digits are read as "%d" reads them; 'H' is followed by up to 4 hexadecimal digits.
int ConstantToKWord(CompileSession& session, OperandBuffer& text) {
  const char first = text[0];
  if (first >= '0' && first <= '9') {
    std::uint32_t value = 0;  // the low 16 bits are kept, so wrapping is harmless
    for (std::size_t i = 0; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
      value = value * 10u + static_cast<std::uint32_t>(text[i] - '0');
    }
    std::snprintf(text.data(), text.size(), "K_%04X", static_cast<unsigned>(value & 0xFFFFu));
    return 1;
  }
  if (first != 'H' && first != 'h') return 0;
  // Up to four digits right after the 'H', left-padded with '0'.
  std::array<char, 4> digits{};
  std::size_t n = 0;
  for (std::size_t i = 1; n < digits.size() && i < text.size() && text[i] != '\0'; ++i) {
    const char c = UpperCase(text[i]);
    if (!IsUpperHexDigit(c)) {
      ReportError(session, 27);
      return -1;
    }
    digits[n++] = c;
  }
  std::array<char, 7> word = {'K', '_', '0', '0', '0', '0', '\0'};
  std::memcpy(word.data() + 2 + (4 - n), digits.data(), n);
  std::memcpy(text.data(), word.data(), word.size());
  return 1;
}

// 'W' (or 'w' from parentheses), the area letter, and a word number of up to 4 digits (3 for AX
// and AY).
int CheckWordOperand(CompileSession& session, OperandBuffer& text) {
  auto malformed = [&session] {
    ReportError(session, 27);
    return -1;
  };
  char* t = text.data();
  if (t[0] == '(') {
    char* close = static_cast<char*>(std::memchr(t, ')', std::strlen(t)));
    if (close == nullptr) return malformed();
    *close = '\0';
    std::memmove(t, t + 1, std::strlen(t + 1) + 1);
    if (t[0] != 'W' || (t[1] != 'R' && t[1] != 'M')) return malformed();
    t[0] = 'w';
  }
  if (t[0] != 'W' && t[0] != 'w') return 0;
  std::span<char> rest(text);
  switch (t[1]) {
    case 'R':
    case 'M':
    case 'F':
    case 'Z':
      return NormaliseAddress(rest.subspan(2), 4) == 1 ? 1 : malformed();
    case 'Y':
      return NormaliseAddress(rest.subspan(2), 4) == 1 ? 2 : malformed();
    case 'X':
      return NormaliseAddress(rest.subspan(2), 4) == 1 ? 3 : malformed();
    case 'C':
    case 'T':
      return NormaliseAddress(rest.subspan(2), 4) == 1 ? 4 : malformed();
    case 'A':
      if (t[2] == 'X' && NormaliseAddress(rest.subspan(3), 3) == 1) return 6;
      if (t[2] == 'Y' && NormaliseAddress(rest.subspan(3), 3) == 1) return 7;
      return malformed();
    default:
      return malformed();
  }
}

}  // namespace rungc
