// Operands of sequence steps against the default area sizes: WX 8 groups of 4, WAX 4 of 32,
// WR 1048, WM 256, WF 128, WS 8, T and C 128.
#include "sequencer/sequence_operands.h"

#include <gtest/gtest.h>

#include <string>

#include "driver/memory_map.h"

namespace rungc {
namespace {

struct OperandCase {
  std::string operand;  // padded with blanks to 6 characters
  int mode;
  bool no_input;
  int result;
  std::string encoded;  // the normalised operand when the result is 0
};

SequenceOperand MakeOperand(const std::string& text) {
  SequenceOperand op;
  op.fill(' ');
  for (std::size_t i = 0; i < text.size() && i < op.size(); ++i) op[i] = text[i];
  return op;
}

TEST(SequenceOperands, EncodeByModeFamilyAndLimits) {
  const OperandCase cases[] = {
      // Bit operands: letter, word digits, '.', bit digit.
      {"M12.3", kSequenceBit, false, 0, "M_0123"},
      {"F7F.0", kSequenceBit, false, 0, "F_07F0"},
      {"F80.0", kSequenceBit, false, kSequenceBadOperand, ""},
      {"R417.F", kSequenceBit, false, 0, "R_417F"},
      {"R418.0", kSequenceBit, false, kSequenceBadOperand, ""},
      {"X703.1", kSequenceBit, false, 0, "X_7031"},
      {"X4.0", kSequenceBit, false, kSequenceBadOperand, ""},    // low byte 4 of 4 elements
      {"X803.0", kSequenceBit, false, kSequenceBadOperand, ""},  // group 8 of 8
      {"X1.2", kSequenceBit, true, kSequenceInputRefused, ""},
      {"Y3.F", kSequenceBit, true, 0, "Y_003F"},
      {"M12.", kSequenceBit, false, kSequenceBadOperand, ""},
      {"M12.3X", kSequenceBit, false, kSequenceBadOperand, ""},
      {"M.3", kSequenceBit, false, kSequenceBadOperand, ""},
      {"M123", kSequenceBit, false, kSequenceBadOperand, ""},
      {"M1.2", kSequenceWord, false, kSequenceWrongFamily, ""},
      {"X1.2", kSequenceWordOrConstant, false, kSequenceWrongFamily, ""},
      // Word operands.
      {"WR10", kSequenceWord, false, 0, "WR0010"},
      {"WR418", kSequenceWord, false, kSequenceBadOperand, ""},
      {"WM1234", kSequenceWord, false, kSequenceBadOperand, ""},
      {"WMFF", kSequenceWord, false, 0, "WM00FF"},
      {"WS8", kSequenceWord, false, kSequenceBadOperand, ""},
      {"WT80", kSequenceWord, false, 0, "WT0080"},  // the timer limit itself is allowed
      {"WT81", kSequenceWord, false, kSequenceBadOperand, ""},
      {"WC80", kSequenceWord, false, kSequenceBadOperand, ""},
      {"WX703", kSequenceWordOrConstant, false, 0, "WX0703"},
      {"WX3", kSequenceWord, true, kSequenceInputRefused, ""},
      {"WAX5", kSequenceWord, false, 0, "AX0005"},
      {"WAX31F", kSequenceWord, false, 0, "AX031F"},
      {"WAX20", kSequenceWord, false, kSequenceBadOperand, ""},
      {"WAY7", kSequenceWord, true, 0, "AY0007"},
      {"WZ1", kSequenceWord, false, kSequenceBadOperand, ""},
      {"WR1G", kSequenceWord, false, kSequenceBadOperand, ""},
      {"WR", kSequenceWord, false, kSequenceBadOperand, ""},
      {"WR10", kSequenceBit, false, kSequenceWrongFamily, ""},
      // Constants.
      {"255", kSequenceWordOrConstant, false, 0, "K 00FF"},
      {"65535", kSequenceWordOrConstant, false, 0, "K FFFF"},
      {"70000", kSequenceWordOrConstant, false, kSequenceBadOperand, ""},
      {"h1ffF", kSequenceWordOrConstant, false, 0, "K 1FFF"},
      {"H12345", kSequenceWordOrConstant, false, kSequenceBadOperand, ""},
      {"1 2", kSequenceWordOrConstant, false, kSequenceBadOperand, ""},
      {"", kSequenceWordOrConstant, false, kSequenceBadOperand, ""},
      {"T1", kSequenceWordOrConstant, false, kSequenceBadOperand, ""},
      {"255", kSequenceWord, false, kSequenceConstantRefused, ""},
  };
  const DerivedSizes sizes;
  for (const OperandCase& c : cases) {
    SequenceOperand op = MakeOperand(c.operand);
    const int result = EncodeSequenceOperand(sizes, op, c.mode, c.no_input);
    EXPECT_EQ(result, c.result) << c.operand << " mode " << c.mode;
    if (c.result == 0) {
      EXPECT_EQ(std::string(op.data(), 6), c.encoded) << c.operand;
    }
  }
}

TEST(SequenceOperands, LimitsComeFromTheMemoryMap) {
  DerivedSizes sizes;
  sizes.wr_elements = 0x10;
  sizes.wx_groups = 2;
  sizes.wx_elements = 0x10;
  const std::pair<std::string, int> cases[] = {
      {"WRF", 0}, {"WR10", kSequenceBadOperand}, {"X10F.0", 0}, {"X20F.0", kSequenceBadOperand}};
  for (const auto& [text, expected] : cases) {
    SequenceOperand op = MakeOperand(text);
    const int mode = text[0] == 'X' ? kSequenceBit : kSequenceWord;
    EXPECT_EQ(EncodeSequenceOperand(sizes, op, mode, false), expected) << text;
  }
}

}  // namespace
}  // namespace rungc
