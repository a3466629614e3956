#include "codegen/constants.h"

#include <cstdlib>

namespace rungc {

namespace {

bool IsSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

}  // namespace

bool ScanLong32(const char* text, std::int32_t& value) {
  char* end = nullptr;
  const long long wide = std::strtoll(text, &end, 10);
  if (end == text) return false;
  if (wide > INT32_MAX) {
    value = INT32_MAX;
  } else if (wide < INT32_MIN) {
    value = INT32_MIN;
  } else {
    value = static_cast<std::int32_t>(wide);
  }
  return true;
}

bool ScanHex32(const char* text, std::uint32_t& value) {
  const char* p = text;
  while (IsSpace(*p)) ++p;
  const bool negative = *p == '-';
  if (*p == '-' || *p == '+') ++p;
  // "0x" is a prefix only when a hex digit follows; otherwise the "0" alone is the number.
  if (p[0] == '0' && (p[1] == 'x' || p[1] == 'X') && HexValue(p[2]) >= 0) p += 2;
  if (HexValue(*p) < 0) return false;
  std::uint64_t magnitude = 0;
  for (; HexValue(*p) >= 0; ++p) {
    if (magnitude <= UINT32_MAX) magnitude = magnitude * 16 + static_cast<unsigned>(HexValue(*p));
  }
  if (magnitude > UINT32_MAX) {
    value = UINT32_MAX;
  } else {
    const auto low = static_cast<std::uint32_t>(magnitude);
    value = negative ? 0u - low : low;
  }
  return true;
}

bool ScanDouble(const char* text, double& value) {
  char* end = nullptr;
  value = std::strtod(text, &end);
  return end != text;
}

}  // namespace rungc
