#include "sequencer/sequence_operands.h"

#include <cctype>
#include <cstdio>
#include <cstring>

#include "driver/memory_map.h"

namespace rungc {

namespace {

constexpr std::size_t kOperandLength = 6;

char Upper(char c) {
  return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// Reads hexadecimal digits from `at` up to the first non-digit or the end of the operand.
// Gives the number of digits; `value` holds what they read.
std::size_t ReadHexDigits(const SequenceOperand& op, std::size_t at, int& value) {
  std::size_t n = 0;
  value = 0;
  while (at + n < kOperandLength && HexValue(op[at + n]) >= 0) {
    value = value * 16 + HexValue(op[at + n]);
    ++n;
  }
  return n;
}

// The index of a word operand: hexadecimal digits from `at` that end at a blank or at the
// sixth character. -1 when there is none or another character ends them.
int WordIndex(const SequenceOperand& op, std::size_t at) {
  int value = 0;
  const std::size_t n = ReadHexDigits(op, at, value);
  if (n == 0) return -1;
  if (at + n < kOperandLength && op[at + n] != ' ') return -1;
  return value;
}

// The word of a bit operand "Lwww.b": the digits after the letter, '.', one bit digit, then a
// blank or the end. -1 when the operand is not of that form.
int BitOperandWord(const SequenceOperand& op) {
  int word = 0;
  const std::size_t n = ReadHexDigits(op, 1, word);
  const std::size_t dot = 1 + n;
  if (n == 0 || dot + 1 >= kOperandLength || op[dot] != '.') return -1;
  if (HexValue(op[dot + 1]) < 0) return -1;
  if (dot + 2 < kOperandLength && op[dot + 2] != ' ') return -1;
  return word;
}

// An index of an input or output area: its low byte below the elements, its high part below the
// groups.
bool WithinGroups(int index, int high_part, std::int32_t groups, std::int32_t elements) {
  return (index & 0xFF) < elements && high_part < groups;
}

bool CheckBitOperand(const DerivedSizes& z, const SequenceOperand& op) {
  const int word = BitOperandWord(op);
  if (word < 0) return false;
  switch (op[0]) {
    case 'F':
      return word < z.wf_elements;
    case 'M':
      return word < z.wm_elements;
    case 'R':
      return word < z.wr_elements;
    case 'X':
      return WithinGroups(word, (word >> 8) & 0xF, z.wx_groups, z.wx_elements);
    default:
      return WithinGroups(word, (word >> 8) & 0xF, z.wy_groups, z.wy_elements);  // 'Y'
  }
}

bool CheckWordOperand(const DerivedSizes& z, const SequenceOperand& op) {
  if (op[1] == 'A') {
    if (op[2] != 'X' && op[2] != 'Y') return false;
    const int index = WordIndex(op, 3);
    if (index < 0) return false;
    return op[2] == 'X' ? WithinGroups(index, index >> 8, z.wax_groups, z.wax_elements)
                        : WithinGroups(index, index >> 8, z.way_groups, z.way_elements);
  }
  const int index = WordIndex(op, 2);
  if (index < 0) return false;
  switch (op[1]) {
    case 'F':
      return index < z.wf_elements;
    case 'M':
      return index < z.wm_elements;
    case 'R':
      return index < z.wr_elements;
    case 'S':
      return index < z.ws_elements;
    case 'C':
      return index < z.c_elements;
    case 'T':
      return index <= z.t_elements;
    case 'X':
      return WithinGroups(index, index >> 8, z.wx_groups, z.wx_elements);
    case 'Y':
      return WithinGroups(index, index >> 8, z.wy_groups, z.wy_elements);
    default:
      return false;
  }
}

// When the sixth character is a blank, the characters from the third up to the first blank move
// to the end and '0's fill in before them: WR10 becomes WR0010.
void AlignSequenceOperand(SequenceOperand& op) {
  if (op[5] != ' ') return;
  std::size_t end = 2;
  while (end < kOperandLength && op[end] != ' ') ++end;
  const std::size_t count = end - 2;
  std::memmove(op.data() + kOperandLength - count, op.data() + 2, count);
  std::memset(op.data() + 2, '0', kOperandLength - 2 - count);
}

}  // namespace

int CheckSequenceOperand(const DerivedSizes& sizes, SequenceOperand& operand) {
  for (char& c : operand) c = Upper(c);
  bool valid = false;
  switch (operand[0]) {
    case 'F':
    case 'M':
    case 'R':
    case 'X':
    case 'Y':
      valid = CheckBitOperand(sizes, operand);
      break;
    case 'W':
      valid = CheckWordOperand(sizes, operand);
      break;
    default:
      break;
  }
  if (!valid) return -1;
  NormalizeSequenceOperand(operand);
  AlignSequenceOperand(operand);
  return 0;
}

void NormalizeSequenceOperand(SequenceOperand& operand) {
  SequenceOperand out;
  out.fill(' ');
  if (operand[0] == 'W' && operand[1] == 'A') {
    out[0] = 'A';
    out[1] = operand[2];
    out[2] = '0';
    std::memcpy(out.data() + 3, operand.data() + 3, 3);
  } else {
    const void* dot = std::memchr(operand.data(), '.', kOperandLength);
    if (dot == nullptr) return;
    const std::size_t at = static_cast<std::size_t>(static_cast<const char*>(dot) - operand.data());
    if (at == 0) return;
    out[0] = operand[0];
    out[1] = '_';
    std::memcpy(out.data() + 2, operand.data() + 1, at - 1);
    std::memcpy(out.data() + 1 + at, operand.data() + at + 1, kOperandLength - at - 1);
  }
  operand = out;
}

int EncodeSequenceConstant(SequenceOperand& operand) {
  std::size_t at = 0;
  while (at < kOperandLength && operand[at] == ' ') ++at;
  int value = 0;
  std::size_t digits = 0;
  if (at < kOperandLength && (operand[at] == 'H' || operand[at] == 'h')) {
    ++at;
    digits = ReadHexDigits(operand, at, value);
    if (digits > 4) return -1;
  } else {
    while (at + digits < kOperandLength &&
           std::isdigit(static_cast<unsigned char>(operand[at + digits]))) {
      value = value * 10 + (operand[at + digits] - '0');
      ++digits;
    }
    if (value > 65535) return -1;
  }
  if (digits == 0) return -1;
  for (std::size_t i = at + digits; i < kOperandLength; ++i) {
    if (operand[i] != ' ') return -1;
  }
  std::array<char, 12> text;
  std::snprintf(text.data(), text.size(), "K %04X", static_cast<unsigned>(value));
  std::memcpy(operand.data(), text.data(), kOperandLength);
  return 0;
}

int EncodeSequenceOperand(const DerivedSizes& sizes, SequenceOperand& operand, int mode,
                          bool no_input) {
  const char first = Upper(operand[0]);
  int checked = 0;
  switch (first) {
    case 'F':
    case 'M':
    case 'R':
    case 'Y':
    case 'X':
      if (mode != kSequenceBit) return kSequenceWrongFamily;
      if (first == 'X' && no_input) return kSequenceInputRefused;
      checked = CheckSequenceOperand(sizes, operand);
      break;
    case 'W': {
      if (mode == kSequenceBit) return kSequenceWrongFamily;
      const char second = Upper(operand[1]);
      if (no_input && (second == 'X' || (second == 'A' && Upper(operand[2]) == 'X'))) {
        return kSequenceInputRefused;
      }
      checked = CheckSequenceOperand(sizes, operand);
      break;
    }
    default:
      if (mode != kSequenceWordOrConstant) return kSequenceConstantRefused;
      checked = EncodeSequenceConstant(operand);
      break;
  }
  return checked == 0 ? 0 : kSequenceBadOperand;
}

}  // namespace rungc
