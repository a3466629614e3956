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

TEST(ElementOperands, NormaliseAddressPadsToItsWidth) {
  struct Case {
    const char* text;
    int width;
    int result;
    const char* rewritten;  // the text afterwards (unchanged when malformed)
  };
  const Case cases[] = {
      {"1.2", 5, 0, "001.2"},    {"1234.5", 5, 0, "1234.5"},
      {"5    ", 4, 1, "0005"},   {"1A.F ", 5, 0, "01A.F"},
      {"0012", 4, 1, "0012"},    {"00012", 4, -1, "00012"},  // zeros and digits count together
      {"12345", 4, -1, "12345"}, {"00000", 4, -1, "00000"},
      {"", 5, -1, ""},           {"12.", 5, -1, "12."},
      {"12.3X", 5, -1, "12.3X"}, {"1Z", 4, -1, "1Z"},
      {"1a", 5, -1, "1a"},
  };
  for (const Case& c : cases) {
    OperandBuffer buffer = BufferOf(c.text);
    EXPECT_EQ(NormaliseAddress(buffer, c.width), c.result) << c.text;
    EXPECT_STREQ(buffer.data(), c.rewritten);
  }
}

TEST(ElementOperands, ContactOperandsByTheirArea) {
  struct Case {
    const char* text;
    int operand_class;
    const char* rewritten;
  };
  const Case cases[] = {
      {"X1.2", kOperandInputBit, "X001.2"},
      {"X1234.5", kOperandInputBit, "X1234.5"},
      {"Y1.0", kOperandOutputBit, "Y001.0"},
      {"R10.F", kOperandBit, "R010.F"},
      {"F0.8", kOperandBit, "F000.8"},
      {"Z3.1", kOperandBit, "Z003.1"},
      {"T5", kOperandNumbered, "T00005"},
      {"C1F", kOperandNumbered, "C0001F"},
      {"*ABC", kOperandPseudo, "*"},
      // A word where a bit belongs (and the reverse) is reported as rewritten.
      {"X12", kOperandMalformed, "X00012"},
      {"T1.2", kOperandMalformed, "T001.2"},
      {"M1.0", kOperandMalformed, "M1.0"},
      {"Q1.0  ", kOperandMalformed, "Q1.0  "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    CompileSession s;
    OperandBuffer buffer = BufferOf(c.text);
    EXPECT_EQ(CheckContactOperand(s, buffer), c.operand_class);
    EXPECT_STREQ(buffer.data(), c.rewritten);
    const bool malformed = c.operand_class == kOperandMalformed;
    EXPECT_EQ(s.diag.current_error, malformed ? 27 : 0);
    EXPECT_EQ(s.diag.item.view(), malformed ? c.rewritten : "");
  }
}

// The walk's code of a rung of one contact and an element in column 9, or its error with the
// item (also the report text).
TEST(ElementOperands, OutputsEncodeOrRefuseTheirOperands) {
  struct Case {
    Cell output;
    const char* raw;
    int error;
    const char* item;
  };
  const Case cases[] = {
      {Cell(3, {"  R2.3"}), "DX000.1 GR002.3", 0, ""},  // leading blanks skipped
      {Cell(3, {"X1.0"}), "", 29, ""},
      {Cell(6, {"T5"}), "", 29, ""},
      {Cell(16, {"T12345"}), "", 19, "12345"},
      {Cell(16, {"T1.2"}), "", 19, "01.2"},
      {Cell(22, {"  AB"}), "DX000.1 Lj··AB", 0, ""},  // a jump name as it stands
      // Presets: a decimal, hexadecimal or word constant, up to a comma or an assignment.
      {Cell(8, {"T1A", "70000"}), "DX000.1 T0001A M·K_1170", 0, ""},
      {Cell(8, {"T1A", "h00ff"}), "DX000.1 T0001A M·K_00FF", 0, ""},
      {Cell(8, {"T1A", "H12345"}), "DX000.1 T0001A M·K_1234", 0, ""},  // four digits read
      {Cell(8, {"T1A", "WR10"}), "DX000.1 T0001A M·WR0010", 0, ""},
      {Cell(8, {"T1A", "  WF1"}), "DX000.1 T0001A M·WF0001", 0, ""},
      {Cell(8, {"T1A", "10,20"}), "DX000.1 T0001A M·K_000A", 0, ""},
      {Cell(8, {"T1A", "WZ2=5"}), "DX000.1 T0001A M·WZ0002", 0, ""},
      {Cell(8, {"T1A", "WAX1"}), "", 22, "WAX1  "},
      {Cell(9, {"C1", "WY0010"}), "", 22, "WY0010"},
      {Cell(8, {"T1A", "(WR10)"}), "", 22, "(WR10)"},
      {Cell(8, {"T1A", "R10"}), "", 22, "R10   "},
      {Cell(8, {"T1A", ""}), "", 22, "      "},
      {Cell(8, {"T1A", ";100"}), "", 22, ";100  "},
      {Cell(8, {"T1A", "(WR10"}), "", 27, ""},
      {Cell(8, {"T1A", "  WX1"}), "", 22, "WX1   "},  // reported as moved left
      {Cell(8, {"T1A", "WQ10"}), "", 27, ""},
      {Cell(8, {"T1A", "WR1.2"}), "", 27, ""},
      {Cell(8, {"T1A", "H1G"}), "", 27, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.output.fields.back());
    testing::Bench bench;
    CompileSession& s = bench.session();
    std::vector<Cell> row = LadderSource::ParseRow("1(X0.1) -x7");
    row.push_back(c.output);
    bench.LoadRung(std::vector<std::vector<Cell>>{row});
    CompileRawRungCode(s);
    EXPECT_EQ(s.diag.current_error, c.error);
    if (c.error == 0) {
      EXPECT_EQ(DumpUnits(s.ladder.code.view()), c.raw);
    } else {
      EXPECT_EQ(s.diag.item.view(), c.item);
      EXPECT_EQ(s.diag.text.view(), c.item);
    }
  }
}

// A jump enters its label as referred to; a name defined before is refused (jumps 37, calls 58),
// and so is a blank name (35).
TEST(ElementOperands, JumpsAndCallsEnterTheirNames) {
  testing::Bench bench;
  CompileSession& s = bench.session();
  bench.LoadRung({"1(X0.1) -x7 22(loop1)"});
  CompileRawRungCode(s);
  EXPECT_EQ(DumpUnits(s.ladder.code.view()), "DX000.1 Ljloop1");
  EXPECT_EQ(s.labels.jumps.slot(0).name.view(), "loop1");
  EXPECT_EQ(s.labels.jumps.slot(0).state, 1);

  const std::pair<const char*, int> refused[] = {{"22(LOOP1)", 37}, {"31(SUB1)", 58}, {"22()", 35}};
  for (const auto& [element, error] : refused) {
    testing::Bench defined;
    CompileSession& d = defined.session();
    ASSERT_EQ(d.labels.jumps.Define("LOOP1 "), 0);
    ASSERT_EQ(d.labels.subroutines.Define("SUB1"), 0);
    defined.LoadRung({std::string("1(X0.1) -x7 ") + element});
    CompileLadderRung(d);
    EXPECT_EQ(d.diag.current_error, error) << element;
    EXPECT_EQ(d.dispatch.record.view(), "");
  }
}

}  // namespace
}  // namespace rungc
