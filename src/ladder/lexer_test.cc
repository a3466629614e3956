#include "ladder/lexer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace rungc {
namespace {

struct LexCase {
  std::string_view text;
  int length;  // -1: the text's own length
  std::string_view token;
  int result;
};

TEST(LexToken, OneTokenFromTheFront) {
  const LexCase rows[] = {
      {"( wr10 )", -1, "(WR10)", 8},
      {"()", -1, "()", kLexBadCharacter},
      {"( )", -1, "()", kLexBadCharacter},
      {"(WR10", -1, "(WR10", kLexUnclosed},
      {"(WR10 X)", -1, "(WR10", kLexUnclosed},
      {"(#)", -1, "(", kLexUnclosed},
      {"(", -1, "(", kLexUnclosed},
      {"(WR10)", 5, "(WR10", kLexUnclosed},
      {"WX10)", -1, "WX10", kLexParenAfter},
      {"x1.2", -1, "X1.2", 4},
      {"X1.2)", -1, "X1.2", kLexParenAfter},
      {"WX1.2.3", -1, "WX1.2", kLexBadCharacter},
      {"1.5e-3", -1, "1.5E-3", 6},
      {"2E3 ", -1, "2E3", 3},
      {"1e+", -1, "1E+", 3},
      {".5 ", -1, ".5", 2},
      {"0012", -1, "0012", 4},
      {"12AB", -1, "12", kLexBadCharacter},
      {"DX0010", -1, "DX0010", 6},
      {"inc wr5", -1, "INC", 3},
      {"   INC", -1, "INC", 6},
      {"ABC.D", -1, "ABC", kLexBadCharacter},
      {"WR1;", -1, "WR1", kLexBadCharacter},
      {"WR1,WR2", -1, "WR1", kLexBadCharacter},
      {"#", -1, "", kLexBadCharacter},
      {"FX1(", -1, "FX1", 3},
      {"WR1=5", -1, "WR1", 3},
      // "%lf" reads "INF", "INFINITY" and "NAN" as numbers; no digits follow, so nothing ends.
      {"INFO", -1, "", kLexBadCharacter},
      {"nan", -1, "", kLexBadCharacter},
      // The count reaching the length ends a token without the end check.
      {"WR10", 2, "WR", 2},
      {"12AB", 2, "12", 2},
      {"X1.", 3, "X1.", 3},
      // Signs, alone and in pairs.
      {"==", -1, "==", 2},
      {"=>", -1, "=>", 2},
      {"=<", -1, "=", 1},
      {" = 5", -1, "=", 2},
      {"><", -1, "><", 2},
      {">>", -1, ">", 1},
      {"<<", -1, "<", 1},
      {"+5", -1, "+", 1},
      {":", -1, ":", 1},
      // No token: the end of the text, or a comment.
      {"; text", -1, ";", kLexNoToken},
      {"   ", -1, "", kLexNoToken},
      {"", -1, "", kLexNoToken},
      {"  WR1", 2, "", kLexNoToken},
  };
  for (const LexCase& row : rows) {
    SCOPED_TRACE(std::string(row.text));
    OperandText token("stale");
    const int length = row.length < 0 ? static_cast<int>(row.text.size()) : row.length;
    EXPECT_EQ(LexToken(token, row.text, length), row.result);
    EXPECT_EQ(token.view(), row.token);
  }
}

TEST(LexToken, CharactersPastTheTextReadAsNul) {
  OperandText token;
  EXPECT_EQ(LexToken(token, "WR1", 32), 3);
  EXPECT_EQ(LexToken(token, "  ", 32), 2);  // blanks, then an empty token at the NUL
  EXPECT_EQ(token.view(), "");
}

TEST(OperandPrefixLength, LongestPrefixFirst) {
  const std::pair<std::string_view, int> rows[] = {
      {"WAX1", 3}, {"way", 3}, {"WAZ", 0}, {"WX", 2}, {"wy1", 2}, {"WR", 2}, {"WM", 2}, {"WF", 2},
      {"WZ", 2},   {"fx2", 2}, {"WT", 2},  {"WC", 2}, {"X", 1},   {"y", 1},  {"R1", 1}, {"F", 1},
      {"FY", 1},   {"z", 1},   {"W", 0},   {"WA", 0}, {"DX1", 0}, {"M1", 0}, {"", 0},
  };
  for (const auto& [text, length] : rows) {
    EXPECT_EQ(OperandPrefixLength(text), length) << text;
  }
}

}  // namespace
}  // namespace rungc
