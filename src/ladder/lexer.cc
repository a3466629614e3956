#include "ladder/lexer.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>

#include "common/chars.h"

namespace rungc {

namespace {

// Area prefixes, longest first: the first one the text begins with decides.
constexpr std::array<std::string_view, 16> kAreaPrefixes = {
    "WAX", "WAY", "WX", "WY", "WR", "WM", "WF", "WZ", "FX", "WT", "WC", "X", "Y", "R", "F", "Z"};

// True when the text reads as a number with the "%lf" conversion: leading white space, a sign,
// digits with a decimal point and an exponent, "INF", "INFINITY", "NAN" and hexadecimal forms
// all count. Only a prefix decides, so a bounded copy is enough.
bool ReadsAsNumber(std::string_view text) {
  std::array<char, 64> copy{};
  const std::size_t n = text.size() < copy.size() - 1 ? text.size() : copy.size() - 1;
  if (n > 0) std::memcpy(copy.data(), text.data(), n);
  char* end = nullptr;
  (void)std::strtod(copy.data(), &end);
  return end != copy.data();
}

// Walks one token: the position in the line, the count of characters used and the token taken.
class TokenScanner {
 public:
  TokenScanner(OperandText& token, std::string_view text, int length)
      : token_(token), text_(text), length_(length) {}

  // The character `ahead` places after the current one; NUL past the end of the text.
  char Peek(int ahead = 0) const {
    const std::size_t i = static_cast<std::size_t>(count_ + ahead);
    return i < text_.size() ? text_[i] : '\0';
  }
  std::string_view Rest() const {
    const std::size_t i = static_cast<std::size_t>(count_);
    return i < text_.size() ? text_.substr(i) : std::string_view();
  }
  void Skip() { ++count_; }
  // Adds the character to the token and steps past it; true when the count reached the length.
  bool Take(char c) {
    token_.Append(std::string_view(&c, 1));
    ++count_;
    return AtLength();
  }
  bool AtLength() const { return count_ >= length_; }
  int count() const { return count_; }

 private:
  OperandText& token_;
  std::string_view text_;
  int length_;
  int count_ = 0;
};

// A sign that may pair with a second one: "=" with "=" or ">", ">" with "=" or "<", "<" with
// "=" or ">". The pair is taken whole; the length is not looked at.
int TakeSign(TokenScanner& s, std::string_view partners) {
  const int before = s.count();
  const char first = s.Peek();
  const char second = s.Peek(1);
  s.Take(first);
  if (partners.find(second) != std::string_view::npos) {
    s.Take(second);
    return before + 2;
  }
  return before + 1;
}

// "(" name ")" with blanks allowed around the name; the token drops the blanks.
int TakeParenthesised(TokenScanner& s) {
  if (s.Take('(')) return kLexUnclosed;
  auto skip_blanks = [&s]() {
    while (s.Peek() == ' ') {
      s.Skip();
      if (s.AtLength()) return false;
    }
    return true;
  };
  if (!skip_blanks()) return kLexUnclosed;
  bool named = false;
  while (IsLetterOrDigit(s.Peek())) {
    named = true;
    if (s.Take(ToUpper(s.Peek()))) return kLexUnclosed;
  }
  if (!skip_blanks()) return kLexUnclosed;
  if (s.Peek() != ')') return kLexUnclosed;
  s.Take(')');
  return named ? s.count() : kLexBadCharacter;
}

// Letters and digits, upper-cased; true when the count reached the length.
bool TakeLettersAndDigits(TokenScanner& s) {
  while (IsLetterOrDigit(s.Peek())) {
    if (s.Take(ToUpper(s.Peek()))) return true;
  }
  return false;
}

// An area operand: its letters and digits, then a '.' and the bit's letters and digits.
bool TakeAreaOperand(TokenScanner& s) {
  if (TakeLettersAndDigits(s)) return true;
  if (s.Peek() != '.') return false;
  if (s.Take('.')) return true;
  return TakeLettersAndDigits(s);
}

bool TakeDigits(TokenScanner& s) {
  while (IsDigit(s.Peek())) {
    if (s.Take(s.Peek())) return true;
  }
  return false;
}

// A number as written: digits, a fraction, an exponent written with 'E'.
bool TakeNumber(TokenScanner& s) {
  if (TakeDigits(s)) return true;
  if (s.Peek() == '.') {
    if (s.Take('.') || TakeDigits(s)) return true;
  }
  if (s.Peek() == 'E' || s.Peek() == 'e') {
    if (s.Take('E')) return true;
    if (s.Peek() == '+' || s.Peek() == '-') {
      if (s.Take(s.Peek())) return true;
    }
    if (TakeDigits(s)) return true;
  }
  return false;
}

// The character after a token decides whether the token may end there.
int EndCheck(const TokenScanner& s) {
  switch (s.Peek()) {
    case ' ':
    case '=':
    case '+':
    case '-':
    case ':':
    case '*':
    case '/':
    case '>':
    case '<':
    case '(':
    case '\0':
      return s.count();
    case ')':
      return kLexParenAfter;
    default:
      return kLexBadCharacter;
  }
}

}  // namespace

int OperandPrefixLength(std::string_view text) {
  for (std::string_view prefix : kAreaPrefixes) {
    if (text.size() < prefix.size()) continue;
    bool same = true;
    for (std::size_t i = 0; i < prefix.size() && same; ++i) same = ToUpper(text[i]) == prefix[i];
    if (same) return static_cast<int>(prefix.size());
  }
  return 0;
}

int LexToken(OperandText& token, std::string_view text, int length) {
  token.Clear();
  TokenScanner s(token, text, length);
  while (!s.AtLength() && s.Peek() == ' ') s.Skip();
  if (s.AtLength()) return kLexNoToken;
  const char c = s.Peek();
  switch (c) {
    case ';':
      token.Set(";");
      return kLexNoToken;
    case '=':
      return TakeSign(s, "=>");
    case '>':
      return TakeSign(s, "=<");
    case '<':
      return TakeSign(s, "=>");
    case '+':
    case '-':
    case ':':
    case '*':
    case '/':
      s.Take(c);
      return s.count();
    case '(':
      return TakeParenthesised(s);
    default:
      break;
  }
  bool full = false;
  if (OperandPrefixLength(s.Rest()) > 0) {
    full = TakeAreaOperand(s);
  } else if (ReadsAsNumber(s.Rest())) {
    full = TakeNumber(s);
  } else {
    full = TakeLettersAndDigits(s);
  }
  return full ? s.count() : EndCheck(s);
}

}  // namespace rungc
