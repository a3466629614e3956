#include "codegen/encoders.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "codegen/unit_group.h"
#include "common/session.h"

namespace rungc {
namespace {

using Encoder = void (*)(CompileSession&, int);

struct EncodeCase {
  std::string_view text;
  std::uint32_t type;
  std::string_view field;  // what the encoder wrote
  bool malformed;          // error 9 with the operand as item
};

// Runs the encoder on operand 2 of a fresh session and checks what it wrote and reported.
void ExpectEncodes(Encoder encode, const EncodeCase& row) {
  SCOPED_TRACE(std::string(row.text));
  auto s = std::make_unique<CompileSession>();
  s->ladder.box_line.Set("the line");
  s->ladder.operands.text[2].Set(row.text);
  s->ladder.operands.type[2] = row.type;
  encode(*s, 2);
  EXPECT_EQ(s->ladder.code.view(), row.field);
  EXPECT_EQ(s->diag.current_error, row.malformed ? 9 : 0);
  if (row.malformed) {
    EXPECT_EQ(s->diag.item.view(), row.text);
    EXPECT_EQ(s->diag.text.view(), "the line");
  }
}

constexpr std::uint32_t kWordR = OPT_WORD | OPT_R;

TEST(EncodeAreaOperand, Fields) {
  const EncodeCase rows[] = {
      {"WX0", OPT_WORD | OPT_X, "WX0000", false},
      {"WR000", kWordR, "WR0000", false},
      {"WX12", OPT_WORD | OPT_X, "WX0012", false},
      {"DR100", OPT_DWORD | OPT_R, "DR0100", false},
      {"WAY7", OPT_WORD | OPT_AY, "AY0007", false},
      {"(WM1F)", OPT_PAREN | OPT_WORD | OPT_M, "WM001F", false},
      {"WR1G", kWordR, "WR001G", false},  // only the first address character is tested
      {"WX12345", OPT_WORD | OPT_X, "WX1234", true},
      {"(WR5", OPT_PAREN | kWordR, "", true},
      {"WX", OPT_WORD | OPT_X, "WX", true},
      {"WXG1", OPT_WORD | OPT_X, "WX", true},
      {"X1.0", OPT_BIT | OPT_X, "X1", true},
  };
  for (const EncodeCase& row : rows) ExpectEncodes(EncodeAreaOperand, row);
}

TEST(EncodeWordConstant, Fields) {
  const EncodeCase rows[] = {
      {"100", OPT_DEC, "K_0064", false},
      {"0", OPT_DEC, "K_0000", false},
      {"70000", OPT_DEC, "K_1170", false},
      {"-1", OPT_OPER, "K_FFFF", false},
      {"H1F", OPT_HEX, "K_001F", false},
      {"H0", OPT_HEX, "K_0000", false},
      {"H000", OPT_HEX, "K_0000", false},
      {"HFFFF", OPT_HEX, "K_FFFF", false},
      {"H0012345", OPT_HEX, "K_1234", true},
      {"H12345", OPT_HEX, "K_1234", true},
      {"H1G", OPT_HEX, "K_001", true},
      {"", 0, "K_", true},
      {"WR3", kWordR, "K_", true},
      {"4294967297", OPT_FLOAT, "K_FFFF", false},  // read as a 32-bit long: clamped
  };
  for (const EncodeCase& row : rows) ExpectEncodes(EncodeWordConstant, row);
}

TEST(EncodeBitOperand, Fields) {
  const EncodeCase rows[] = {
      {"X12.3", OPT_BIT | OPT_X, "X_0123", false},
      {"F0.8", OPT_BIT | OPT_F, "F_0008", false},
      {"X.3", OPT_BIT | OPT_X, "X_0003", false},
      {"X0.3", OPT_BIT | OPT_X, "X_0003", false},
      {"X000.1", OPT_BIT | OPT_X, "X_0001", false},
      {"X10.3", OPT_BIT | OPT_X, "X_0103", false},
      {"Y1A.F", OPT_BIT | OPT_Y, "Y_01AF", false},
      {"X12.", OPT_BIT | OPT_X, "X_012", true},
      {"X12", OPT_BIT | OPT_X, "X_", true},
      {"X1234.5", OPT_BIT | OPT_X, "X_", true},
      {"X1.G", OPT_BIT | OPT_X, "X_001", true},
      {"R1G.2", OPT_BIT | OPT_R, "R_01", true},
      {"(X1.2)", OPT_PAREN, "", true},
  };
  for (const EncodeCase& row : rows) ExpectEncodes(EncodeBitOperand, row);
}

TEST(EncodeFloatRegister, Digits) {
  const EncodeCase rows[] = {
      {"FX10", OPT_FREG, "0a", false}, {"FX255", OPT_FREG, "ff", false},
      {"FX0", OPT_FREG, "00", false},  {"FX010", OPT_FREG, "0a", false},
      {"FX256", OPT_FREG, "", true},   {"FX1000", OPT_FREG, "", true},
      {"FX", OPT_FREG, "", true},      {"FX1A", OPT_FREG, "", true},
      {"WR1", kWordR, "", true},
  };
  for (const EncodeCase& row : rows) ExpectEncodes(EncodeFloatRegister, row);
}

struct LongCase {
  std::string_view text;
  std::uint32_t type;
  std::string_view digits;
  bool malformed;
};

TEST(EncodeLongConstant, Digits) {
  const LongCase rows[] = {
      {"100000", OPT_DEC, "000186A0", false},
      {"-1", 0, "FFFFFFFF", false},
      {"-5", 0, "FFFFFFFB", false},
      {"2147483647", OPT_DEC, "7FFFFFFF", false},
      {"2147483648", OPT_FLOAT, "7FFFFFFF", false},  // clamped as a 32-bit long
      {"-9999999999", OPT_FLOAT, "80000000", false},
      {"H0", OPT_HEX, "00000000", false},
      {"H1FFFF", OPT_HEX, "0001FFFF", false},
      {"HFFFFFFFF", OPT_HEX, "FFFFFFFF", false},
      {"H123456789", OPT_HEX, "00000000", true},
      {"", 0, "00000000", true},
  };
  for (const LongCase& row : rows) {
    SCOPED_TRACE(std::string(row.text));
    auto s = std::make_unique<CompileSession>();
    s->ladder.long_constant.fill('7');
    s->ladder.operands.text[1].Set(row.text);
    s->ladder.operands.type[1] = row.type;
    EncodeLongConstant(*s, 1);
    EXPECT_EQ(std::string_view(s->ladder.long_constant.data()), row.digits);
    EXPECT_EQ(s->ladder.code.view(), "");
    EXPECT_EQ(s->diag.current_error, row.malformed ? 9 : 0);
  }
}

}  // namespace
}  // namespace rungc
