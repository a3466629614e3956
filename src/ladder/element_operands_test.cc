// Element operands: address checks, presets, and the operand units of contacts, coils, timers,
// counters, element 16, jumps and calls.
#include "ladder/element_operands.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "ladder/compile_rung.h"
#include "support/bench.h"

namespace rungc {
namespace {

using testing::Cell;
using testing::DumpUnits;
using testing::LadderSource;

OperandBuffer BufferOf(const std::string& text) {
  OperandBuffer buffer{};
  std::memcpy(buffer.data(), text.data(), text.size());
  return buffer;
}

struct AddressCase {
  const char* text;
  int width;
  int result;
  const char* rewritten;  // the text afterwards (unchanged when malformed)
};

class NormalisesAddress : public ::testing::TestWithParam<AddressCase> {};

TEST_P(NormalisesAddress, ToItsWidth) {
  const AddressCase& c = GetParam();
  OperandBuffer buffer = BufferOf(c.text);
  EXPECT_EQ(NormaliseAddress(buffer, c.width), c.result);
  EXPECT_STREQ(buffer.data(), c.rewritten);
}

INSTANTIATE_TEST_SUITE_P(
    ElementOperands, NormalisesAddress,
    ::testing::Values(AddressCase{"1.2", 5, 0, "001.2"}, AddressCase{"1234.5", 5, 0, "1234.5"},
                      AddressCase{"5", 5, 1, "00005"}, AddressCase{"5    ", 4, 1, "0005"},
                      AddressCase{"1A.F ", 5, 0, "01A.F"}, AddressCase{"0012", 4, 1, "0012"},
                      AddressCase{"00012", 4, -1, "00012"},  // zeros and digits count together
                      AddressCase{"00000", 4, -1, "00000"}, AddressCase{"12345", 4, -1, "12345"},
                      AddressCase{"", 5, -1, ""}, AddressCase{"12.", 5, -1, "12."},
                      AddressCase{"12.3X", 5, -1, "12.3X"}, AddressCase{"1Z", 4, -1, "1Z"},
                      AddressCase{"1a", 5, -1, "1a"}));

struct ContactCase {
  const char* text;
  int operand_class;
  const char* rewritten;
};

class ChecksContactOperand : public ::testing::TestWithParam<ContactCase> {};

TEST_P(ChecksContactOperand, ByItsArea) {
  const ContactCase& c = GetParam();
  testing::Bench bench;
  CompileSession& s = bench.session();
  OperandBuffer buffer = BufferOf(c.text);
  EXPECT_EQ(CheckContactOperand(s, buffer), c.operand_class);
  EXPECT_STREQ(buffer.data(), c.rewritten);
  if (c.operand_class == kOperandMalformed) {
    EXPECT_EQ(s.diag.current_error, 27);
    EXPECT_EQ(s.diag.item.view(), c.rewritten);
    EXPECT_EQ(s.diag.text.view(), c.rewritten);
  } else {
    EXPECT_EQ(s.diag.current_error, 0);
  }
}

INSTANTIATE_TEST_SUITE_P(
    ElementOperands, ChecksContactOperand,
    ::testing::Values(
        ContactCase{"X1.2", kOperandInputBit, "X001.2"},
        ContactCase{"X1234.5", kOperandInputBit, "X1234.5"},
        ContactCase{"Y1.0", kOperandOutputBit, "Y001.0"},
        ContactCase{"R10.F", kOperandBit, "R010.F"}, ContactCase{"F0.8", kOperandBit, "F000.8"},
        ContactCase{"Z3.1", kOperandBit, "Z003.1"}, ContactCase{"T5", kOperandNumbered, "T00005"},
        ContactCase{"C1F", kOperandNumbered, "C0001F"}, ContactCase{"*ABC", kOperandPseudo, "*"},
        // A word where a bit belongs (and the reverse) is reported as rewritten.
        ContactCase{"X12", kOperandMalformed, "X00012"},
        ContactCase{"T1.2", kOperandMalformed, "T001.2"},
        ContactCase{"M1.0", kOperandMalformed, "M1.0"},
        ContactCase{"Q1.0  ", kOperandMalformed, "Q1.0  "}));

// A rung of one contact and the given element in column 9.
std::vector<std::vector<Cell>> RungTo(const Cell& output, const char* contact = "X0.1") {
  std::vector<Cell> row = LadderSource::ParseRow(std::string("1(") + contact + ") -x7");
  row.push_back(output);
  return {row};
}

struct OperandCase {
  const char* name;
  std::vector<std::vector<Cell>> rung;
  const char* raw;  // the walk's code, when it compiles
  int error;
  const char* item;  // item and text of the error
};

class EncodesOperand : public ::testing::TestWithParam<OperandCase> {};

TEST_P(EncodesOperand, OrRefusesIt) {
  const OperandCase& c = GetParam();
  testing::Bench bench;
  CompileSession& s = bench.session();
  bench.LoadRung(c.rung);
  CompileRawRungCode(s);
  EXPECT_EQ(s.diag.current_error, c.error);
  if (c.error == 0) {
    EXPECT_EQ(DumpUnits(s.ladder.code.view()), c.raw);
  } else {
    EXPECT_EQ(s.diag.item.view(), c.item);
    EXPECT_EQ(s.diag.text.view(), c.item);
  }
}

INSTANTIATE_TEST_SUITE_P(
    ElementOperands, EncodesOperand,
    ::testing::Values(
        OperandCase{"ContactAddressPadded", RungTo(Cell(3, {"Y1.0"}), "x1.2"), "DX001.2 GY001.0", 0,
                    ""},
        OperandCase{"ContactOnATimer", RungTo(Cell(3, {"Y1.0"}), "T5"), "DT00005 GY001.0", 0, ""},
        OperandCase{"LeadingBlanksSkipped", RungTo(Cell(3, {"  R2.3"})), "DX000.1 GR002.3", 0, ""},
        OperandCase{"EdgesCarryNoOperand",
                    {LadderSource::ParseRow("1(X0.1) 17 18 -x5 3(Y0.1)")},
                    "DX000.1 N n GY000.1",
                    0,
                    ""},
        OperandCase{"MalformedContact", RungTo(Cell(3, {"Y1.0"}), "Q1.0"), "", 27, "Q1.0  "},
        OperandCase{"CoilOnAnInput", RungTo(Cell(3, {"X1.0"})), "", 29, ""},
        OperandCase{"CoilOnATimer", RungTo(Cell(6, {"T5"})), "", 29, ""},
        OperandCase{"TimerCounterBitTooLong", RungTo(Cell(16, {"T12345"})), "", 19, "12345"},
        OperandCase{"TimerCounterBitNotANumber", RungTo(Cell(16, {"C1Z"})), "", 19, "1Z   "},
        OperandCase{"TimerCounterBitOnABit", RungTo(Cell(16, {"T1.2"})), "", 19, "01.2"},
        OperandCase{"PresetDecimal", RungTo(Cell(8, {"T1A", "100"})), "DX000.1 T0001A M·K_0064", 0,
                    ""},
        OperandCase{"PresetKeepsTheLow16Bits", RungTo(Cell(8, {"T1A", "70000"})),
                    "DX000.1 T0001A M·K_1170", 0, ""},
        OperandCase{"PresetHexadecimal", RungTo(Cell(8, {"T1A", "H1F"})), "DX000.1 T0001A M·K_001F",
                    0, ""},
        OperandCase{"PresetHexadecimalFourDigits", RungTo(Cell(8, {"T1A", "h00ff"})),
                    "DX000.1 T0001A M·K_00FF", 0, ""},
        OperandCase{"PresetHexadecimalReadsFourDigits", RungTo(Cell(8, {"T1A", "H12345"})),
                    "DX000.1 T0001A M·K_1234", 0, ""},
        OperandCase{"PresetAnalogueWord", RungTo(Cell(8, {"T1A", "WAX1"})), "", 22, "WAX1  "},
        OperandCase{"PresetWord", RungTo(Cell(8, {"T1A", "WR10"})), "DX000.1 T0001A M·WR0010", 0,
                    ""},
        OperandCase{"PresetWordOfAreaM", RungTo(Cell(9, {"C2", "wm1f"})), "DX000.1 C00002 M·WM001F",
                    0, ""},
        OperandCase{"PresetAfterBlanks", RungTo(Cell(8, {"T1A", "  WF1"})),
                    "DX000.1 T0001A M·WF0001", 0, ""},
        OperandCase{"PresetEndsAtAComma", RungTo(Cell(8, {"T1A", "10,20"})),
                    "DX000.1 T0001A M·K_000A", 0, ""},
        OperandCase{"PresetEndsAtAnAssignment", RungTo(Cell(8, {"T1A", "WZ2=5"})),
                    "DX000.1 T0001A M·WZ0002", 0, ""},
        OperandCase{"PresetOfAreaY", RungTo(Cell(8, {"T1A", "WY0010"})), "", 22, "WY0010"},
        OperandCase{"PresetInParentheses", RungTo(Cell(8, {"T1A", "(WR10)"})), "", 22, "(WR10)"},
        OperandCase{"PresetNotAWord", RungTo(Cell(8, {"T1A", "R10"})), "", 22, "R10   "},
        OperandCase{"PresetBlank", RungTo(Cell(8, {"T1A", ""})), "", 22, "      "},
        OperandCase{"PresetComment", RungTo(Cell(8, {"T1A", ";100"})), "", 22, ";100  "},
        OperandCase{"PresetMovedLeftIsReported", RungTo(Cell(8, {"T1A", "  WX1"})), "", 22,
                    "WX1   "},
        OperandCase{"PresetMalformedWord", RungTo(Cell(8, {"T1A", "WQ10"})), "", 27, ""},
        OperandCase{"PresetWordFourDigits", RungTo(Cell(8, {"T1A", "WR1234"})),
                    "DX000.1 T0001A M·WR1234", 0, ""},
        OperandCase{"PresetWordBit", RungTo(Cell(8, {"T1A", "WR1.2"})), "", 27, ""},
        OperandCase{"PresetBadHexadecimal", RungTo(Cell(8, {"T1A", "H1G"})), "", 27, ""},
        OperandCase{"PresetUnclosedParenthesis", RungTo(Cell(8, {"T1A", "(WR10"})), "", 27, ""},
        OperandCase{"JumpNameAsItStands", RungTo(Cell(22, {"  AB"})), "DX000.1 Lj··AB", 0, ""}),
    [](const ::testing::TestParamInfo<OperandCase>& info) { return std::string(info.param.name); });

TEST(ElementOperands, JumpEntersItsLabel) {
  testing::Bench bench;
  CompileSession& s = bench.session();
  bench.LoadRung(RungTo(Cell(22, {"loop1"})));
  CompileRawRungCode(s);
  EXPECT_EQ(DumpUnits(s.ladder.code.view()), "DX000.1 Ljloop1");
  EXPECT_EQ(s.labels.jumps.slot(0).name.view(), "loop1");
  EXPECT_EQ(s.labels.jumps.slot(0).state, 1);
}

TEST(ElementOperands, JumpToALabelDefinedEarlierIsError37) {
  testing::Bench bench;
  CompileSession& s = bench.session();
  ASSERT_EQ(s.labels.jumps.Define("LOOP1 "), 0);
  bench.LoadRung(RungTo(Cell(22, {"LOOP1"})));
  CompileLadderRung(s);
  EXPECT_EQ(s.diag.current_error, 37);
  EXPECT_EQ(s.diag.item.view(), "LOOP1 ");
  EXPECT_EQ(s.dispatch.record.view(), "");
}

TEST(ElementOperands, CallOfASubroutineDefinedEarlierIsError58) {
  testing::Bench bench;
  CompileSession& s = bench.session();
  ASSERT_EQ(s.labels.subroutines.Define("SUB1"), 0);
  bench.LoadRung(RungTo(Cell(31, {"SUB1"})));
  CompileLadderRung(s);
  EXPECT_EQ(s.diag.current_error, 58);
  EXPECT_EQ(s.diag.text.view(), "SUB1  ");
}

TEST(ElementOperands, BlankJumpNameIsError35) {
  testing::Bench bench;
  CompileSession& s = bench.session();
  bench.LoadRung(RungTo(Cell(22, {""})));
  CompileLadderRung(s);
  EXPECT_EQ(s.diag.current_error, 35);
}

}  // namespace
}  // namespace rungc
