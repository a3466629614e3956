#include "source_end.h"

#include <fstream>
#include <iterator>
#include <string>

namespace rungc::tool {

namespace {

constexpr std::size_t kRecordHead = 6;  // type byte, row byte, repeat count: two digits each

// Operand characters carried by each element code after the record head. Must stay in step with
// the rung reader's element table.
int OperandLength(int code) {
  switch (code) {
    case 1:
    case 2:
    case 3:
    case 6:
    case 7:
    case 16:
    case 21:
    case 22:
    case 23:
    case 24:
    case 25:
    case 31:
    case 42:
      return 6;
    case 8:
    case 9:
    case 44:
    case 45:
    case 46:
    case 47:
    case 48:
      return 12;
    case 49:
      return 18;
    case 50:
      return 32;
    case 38:
      return 64;
    case 10:
      return 96;
    case 14:
      return 136;
    case 30:
      return 204;
    default:
      return 0;
  }
}

// One hexadecimal digit as the rung reader converts it (no check: any character gives a value).
int HexDigit(char c) {
  int value = static_cast<unsigned char>(c);
  if (c >= 'a') value &= ~0x20;
  value -= '0';
  if (value > 9) value -= 7;
  return value;
}

int HexByte(std::string_view two) {
  return (HexDigit(two[0]) * 16 + HexDigit(two[1])) & 0xFF;
}

}  // namespace

bool LastRowDropped(std::string_view source) {
  // The records begin after the last ';' of the header line (its first 39 characters).
  std::string_view header = source.substr(0, 39);
  header = header.substr(0, header.find('\n'));
  const std::size_t header_end = header.rfind(';');
  if (header_end == std::string_view::npos) return false;
  std::size_t at = header_end + 1;
  int rows = 0;
  bool last_is_row_end = false;
  while (at < source.size()) {
    if (source.size() - at < kRecordHead) return rows >= 2;  // a record cut short
    const int type = HexByte(source.substr(at, 2));
    const int row = HexByte(source.substr(at + 2, 2));
    const std::size_t length = kRecordHead + static_cast<std::size_t>(OperandLength(type & 63));
    if (source.size() - at < length) return rows >= 2;
    if (row & 0x80) ++rows;
    last_is_row_end = row == 0xFF;
    at += length;
  }
  return rows >= 2 && !last_is_row_end;
}

bool LastRowDropped(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  const std::string source((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  return LastRowDropped(std::string_view(source));
}

}  // namespace rungc::tool
