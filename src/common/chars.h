// Character classes of the compiler's inputs: the classic ASCII classes, whatever the host's
// locale, and reads past the end of a text that see a NUL as the suite's NUL-padded buffers do.
#pragma once

#include <cstddef>
#include <string_view>

namespace rungc {

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
constexpr bool IsLetterOrDigit(char c) {
  return IsLetter(c) || IsDigit(c);
}
// A hexadecimal digit in upper case only, as the compiler writes and checks them.
constexpr bool IsHexDigit(char c) {
  return IsDigit(c) || (c >= 'A' && c <= 'F');
}
constexpr char ToUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}
// The character at i, or NUL past the end.
constexpr char At(std::string_view s, std::size_t i) {
  return i < s.size() ? s[i] : '\0';
}

}  // namespace rungc
