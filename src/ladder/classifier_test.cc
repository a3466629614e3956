#include "ladder/classifier.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "common/session.h"

namespace rungc {
namespace {

struct ClassifyCase {
  std::string_view text;
  std::uint32_t type;
  std::int32_t code;
  std::string_view rewritten;  // the operand text afterwards
  bool unknown;                // error 16 reported
};

class ClassifyOperandTest : public ::testing::Test {
 protected:
  // Classifies the text as operand 3 of a fresh session.
  void Classify(std::string_view text) {
    session_ = std::make_unique<CompileSession>();
    session_->ladder.box_line.Set("WY1 = FOO");
    session_->ladder.operands.text[3].Set(text);
    session_->ladder.operands.type[3] = 0xFFFF;
    session_->ladder.operands.code[3] = 99;
    ClassifyOperand(*session_, 3);
  }
  std::uint32_t type() const { return session_->ladder.operands.type[3]; }
  std::int32_t code() const { return session_->ladder.operands.code[3]; }
  std::string_view text() const { return session_->ladder.operands.text[3].view(); }

  std::unique_ptr<CompileSession> session_;
};

TEST_F(ClassifyOperandTest, EveryRule) {
  const ClassifyCase rows[] = {
      {"", 0, 0, "", false},
      // Signs.
      {"=", OPT_OPER, 61, "=", false},
      {"==", OPT_OPER, 69, "==", false},
      {"=>", OPT_OPER, 0, "=>", false},
      {"+", OPT_OPER, 61, "+", false},
      {":", OPT_OPER, 61, ":", false},
      {">", OPT_OPER, 69, ">", false},
      {"<>", OPT_OPER, 69, "<>", false},
      {">>", 0, 0, ">>", false},
      // Words and double words, by their first letters only.
      {"WX0010", 0x2001, 0, "WX0010", false},
      {"WAY0003", 0x2200, 0, "WAY0003", false},
      {"WAX1", 0x2100, 0, "WAX1", false},
      {"WT5", 0x2040, 0, "WT5", false},
      {"WC5", 0x2080, 0, "WC5", false},
      {"(WR0010)", 0xA004, 0, "(WR0010)", false},
      {"DR0010", 0x4004, 0, "DR0010", false},
      {"DZ1", 0x4020, 0, "DZ1", false},
      {"FX02", 0x10000, 0, "FX02", false},
      {"H1F", 0x800, 0, "H1F", false},
      // Numbers: decimal integers are rewritten, everything else is a float constant.
      {"0012", 0x400, 0, "12", false},
      {"000", 0x400, 0, "0", false},
      {"2147483647", 0x400, 0, "2147483647", false},
      {"2147483648", 0x40000, 0, "2147483648", false},
      {"3000000000", 0x40000, 0, "3000000000", false},
      {"1.5", 0x40000, 0, "1.5", false},
      {"2E3", 0x40000, 0, "2E3", false},
      {"(0012)", 0x8400, 0, "(12", false},
      // Bits: one character after the '.', an area with a bit form.
      {"R10.3", 0x1004, 0, "R10.3", false},
      {"X10.", 0x1001, 0, "X10.", false},
      {"F10.3", 0x1010, 0, "F10.3", false},
      {"Z1.F", 0x1020, 0, "Z1.F", false},
      // Keywords and unknown words.
      {"INC", OPT_OPER, 73, "INC", false},
      {"SQRT", OPT_OPER, 48, "SQRT", false},
      {"OR", OPT_OPER, 124, "OR", false},
      {"CMP", OPT_OPER, 26, "CMP", false},
      {"(INC)", OPT_PAREN, 0, "(INC)", true},
      {"inc", 0, 0, "inc", true},
      {"M10.3", 0, 0, "M10.3", true},
      {"T1.2", 0, 0, "T1.2", true},
      {"X10.12", 0, 0, "X10.12", true},
      {"HX", 0, 0, "HX", true},
      {"H", 0, 0, "H", true},
      {"DA10", 0, 0, "DA10", true},
      {"WA5", 0, 0, "WA5", true},
      {"W", 0, 0, "W", true},
  };
  for (const ClassifyCase& row : rows) {
    SCOPED_TRACE(std::string(row.text));
    Classify(row.text);
    EXPECT_EQ(type(), row.type);
    EXPECT_EQ(code(), row.code);
    EXPECT_EQ(text(), row.rewritten);
    EXPECT_EQ(session_->diag.current_error, row.unknown ? 16 : 0);
  }
}

TEST_F(ClassifyOperandTest, UnknownWordNamesItselfAndTheLine) {
  Classify("FOO");
  EXPECT_EQ(session_->diag.current_error, 16);
  EXPECT_EQ(session_->diag.item.view(), "FOO");
  EXPECT_EQ(session_->diag.text.view(), "WY1 = FOO");
}

TEST_F(ClassifyOperandTest, NoEarlierRuleShadowsAKeyword) {
  for (const KeywordEntry& entry : KeywordTable) {
    SCOPED_TRACE(std::string(entry.text));
    Classify(entry.text);
    EXPECT_EQ(type(), OPT_OPER);
    EXPECT_EQ(code(), entry.code);
  }
}

}  // namespace
}  // namespace rungc
