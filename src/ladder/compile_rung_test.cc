// The network walk and the rung compiler, rung by rung: raw code, folded record and errors.
#include "ladder/compile_rung.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/bench.h"

namespace rungc {
namespace {

using testing::Cell;
using testing::DumpUnits;
using testing::LadderSource;

struct RungCase {
  const char* name;
  std::vector<std::string> rows;
  const char* raw;     // the walk's code text
  const char* record;  // after the peephole pass
};

class RungCompiles : public ::testing::TestWithParam<RungCase> {};

TEST_P(RungCompiles, GivesRawCodeAndRecord) {
  const RungCase& c = GetParam();
  testing::Bench bench;
  CompileSession& s = bench.session();
  bench.LoadRung(c.rows);
  CompileRawRungCode(s);
  EXPECT_EQ(s.diag.current_error, 0);
  EXPECT_EQ(DumpUnits(s.ladder.code.view()), c.raw);

  bench.LoadRung(c.rows);
  s.dispatch.conditional_block = 0;
  CompileLadderRung(s);
  EXPECT_EQ(s.diag.current_error, 0);
  EXPECT_EQ(DumpUnits(s.dispatch.record.view()), c.record);
}

INSTANTIATE_TEST_SUITE_P(
    Networks, RungCompiles,
    ::testing::Values(
        RungCase{"Series",
                 {"1(X0.1) 2(X0.2) -x6 3(Y0.1)"},
                 "DX000.1 BX000.2 GY000.1",
                 "AX000.1 BX000.2 GY000.1"},
        RungCase{"ParallelContactsAtStart",
                 {"1(X0.1) 2(X0.2) -x6 3(Y0.1)", "^2(X0.3) ^. .x7"},
                 "DX000.1 DX000.3 F DX000.2 GY000.1",
                 "AX000.1 HX000.3 BX000.2 GY000.1"},
        RungCase{"ParallelContactInTheMiddle",
                 {"1(X0.1) 2(X0.2) 2(X0.3) -x5 3(Y0.1)", ". ^2(X0.4) ^. .x6"},
                 "DX000.1 DX000.2 DX000.4 F E DX000.3 GY000.1",
                 "AX000.1 DX000.2 HX000.4 E BX000.3 GY000.1"},
        RungCase{"ParallelCoils",
                 {"1(X0.1) -x7 3(Y0.1)", ".x8 ^3(Y0.2)"},
                 "DX000.1 GY000.1 GY000.2",
                 "AX000.1 GY000.1 GY000.2"},
        RungCase{"BranchStartingWithALine",
                 {"1(X0.1) 2(X0.2) 2(X0.3) -x5 3(Y0.1)", ". ^- 2(X0.4) ^. .x5"},
                 "DX000.1 DX000.2 BX000.3 Y BX000.4 F E Y GY000.1",
                 "AX000.1 DX000.2 BX000.3 HX000.4 E GY000.1"},
        RungCase{"EdgeAfterAParallelJoin",
                 {"1(X0.1) 17 -x6 3(Y0.1)", "^2(X0.3) ^. .x7"},
                 "DX000.1 DX000.3 F Y N GY000.1",
                 "AX000.1 HX000.3 N GY000.1"},
        RungCase{"ThreeParallelContacts",
                 {"1(X0.1) 2(X0.2) -x6 3(Y0.1)", "^2(X0.3) ^. .x7", "^2(X0.4) ^. .x7"},
                 "DX000.1 DX000.3 F DX000.4 F DX000.2 GY000.1",
                 "AX000.1 HX000.3 HX000.4 BX000.2 GY000.1"},
        RungCase{"NegatedForms",
                 {"!1(x0.1) !2(r1.0) -x6 !3(y0.1)"},
                 "dX000.1 bR001.0 gY000.1",
                 "aX000.1 bR001.0 gY000.1"},
        RungCase{"SetAndResetCoils",
                 {"1(X0.1) -x7 6(Y0.1)", ".x8 ^7(Y0.2)"},
                 "DX000.1 IY000.1 iY000.2",
                 "AX000.1 IY000.1 iY000.2"},
        RungCase{"Timer",
                 {"1(X0.1) -x7 8(T1A,100)"},
                 "DX000.1 T0001A M·K_0064",
                 "AX000.1 T0001A M·K_0064"},
        RungCase{"CounterWithWordPreset",
                 {"1(X0.1) -x7 9(C2,WR10)"},
                 "DX000.1 C00002 M·WR0010",
                 "AX000.1 C00002 M·WR0010"},
        RungCase{"TimerVariants",
                 {"1(X0.1) -x7 44(T3,H1F)", ".x8 ^45(T4,1)", ".x8 ^46(T5,WM2)"},
                 "DX000.1 O00003 M·K_001F P00004 M·K_0001 Q00005 M·WM0002",
                 "AX000.1 O00003 M·K_001F P00004 M·K_0001 Q00005 M·WM0002"},
        RungCase{"CounterVariants",
                 {"1(X0.1) -x7 47(C6,10)", ".x8 ^48(C7,WZ3)"},
                 "DX000.1 o00006 M·K_000A p00007 M·WZ0003",
                 "AX000.1 o00006 M·K_000A p00007 M·WZ0003"},
        RungCase{"TimerCounterBit", {"1(X0.1) -x7 16(t5)"}, "DX000.1 cT0005", "AX000.1 cT0005"},
        RungCase{"Jump", {"1(X0.1) -x7 22(LOOP1)"}, "DX000.1 LjLOOP1", "AX000.1 LjLOOP1"},
        RungCase{"Call", {"1(X0.1) -x7 31(SUB1)"}, "DX000.1 LcSUB1", "AX000.1 LcSUB1"},
        RungCase{"ConditionalBlockStart", {"1(X0.1) -x7 40"}, "DX000.1 J", "AX000.1 J"},
        RungCase{
            "ConditionalBox", {"1(X0.1) -x1 38"}, "DX000.1 MAK_0008 Ma", "AX000.1 MAK_0008 Ma"},
        RungCase{"UnconditionalBox", {"1(*) -x1 38"}, "D* m_______", "m_______"},
        RungCase{"ComparisonContactInASeries",
                 {"1(X0.1) 49(WX0010,>=,WR0020) -x5 3(Y0.1)"},
                 "DX000.1 e M]WX0010 M·WR0020 M·F_0008 GY000.1",
                 "AX000.1 e M]WX0010 M·WR0020 M·F_0008 GY000.1"},
        RungCase{"ComparisonContactAfterAJoin",
                 {"1(X0.1) 49(WX1,>=,100) -x5 3(Y0.1)", "^2(X0.3) ^. .x7"},
                 "DX000.1 DX000.3 F Y e M]WX0001 M·K_0064 M·F_0008 GY000.1",
                 "AX000.1 HX000.3 e M]WX0001 M·K_0064 M·F_0008 GY000.1"},
        RungCase{"EdgeInASeries",
                 {"1(X0.1) 2(X0.2) 18 -x5 3(Y0.1)"},
                 "DX000.1 BX000.2 n GY000.1",
                 "AX000.1 BX000.2 n GY000.1"}),
    [](const ::testing::TestParamInfo<RungCase>& info) { return std::string(info.param.name); });

// A function-block rung: `head` before the box in column 0, lines and a line cell in columns 1
// and 2, the box head with `lines` in columns 3 to 9, and continuation cells under it.
std::vector<std::vector<Cell>> BoxRung(const std::string& head, std::vector<std::string> lines,
                                       std::vector<std::vector<std::string>> more = {}) {
  std::vector<Cell> row = LadderSource::ParseRow("1(" + head + ") -x1");
  row.push_back(Cell(38, std::move(lines)));
  std::vector<std::vector<Cell>> rows{row};
  for (std::vector<std::string>& continuation : more) {
    std::vector<Cell> below = LadderSource::ParseRow(".x2");
    below.push_back(Cell(10, std::move(continuation)));
    rows.push_back(below);
  }
  return rows;
}

struct BoxCase {
  const char* name;
  std::vector<std::vector<Cell>> rung;
  const char* raw;
  const char* record;
  int counted;  // units added to the InstructionCounter
};

class BoxRungCompiles : public ::testing::TestWithParam<BoxCase> {};

TEST_P(BoxRungCompiles, FramedByItsCondition) {
  const BoxCase& c = GetParam();
  testing::Bench bench;
  CompileSession& s = bench.session();
  bench.LoadRung(c.rung);
  CompileRawRungCode(s);
  EXPECT_EQ(s.diag.current_error, 0);
  EXPECT_EQ(DumpUnits(s.ladder.code.view()), c.raw);
  bench.LoadRung(c.rung);
  CompileLadderRung(s);
  EXPECT_EQ(s.diag.current_error, 0);
  EXPECT_EQ(DumpUnits(s.dispatch.record.view()), c.record);
  EXPECT_EQ(s.dispatch.instruction_counter, c.counted);
}

INSTANTIATE_TEST_SUITE_P(
    Networks, BoxRungCompiles,
    ::testing::Values(
        BoxCase{"ConditionalSkipCountsFourPerUnit", BoxRung("X0.1", {"F0.8 : WX1 >= 100"}),
                "DX000.1 MAK_0014 M]WX0001 M·K_0064 M·F_0008 Ma",
                "AX000.1 MAK_0014 M]WX0001 M·K_0064 M·F_0008 Ma", 6},
        BoxCase{"ConditionalWithContinuationCells",
                BoxRung("X0.1", {"Y1.0 = X2.3", "; a comment"}, {{"", "Y1.1 = 1"}, {"Y1.2 = 0"}}),
                "DX000.1 MAK_0020 MOY_0010 M·X_0023 MOY_0011 M·K_0001 MOY_0012 M·K_0000 Ma",
                "AX000.1 MAK_0020 MOY_0010 M·X_0023 MOY_0011 M·K_0001 MOY_0012 M·K_0000 Ma", 9},
        BoxCase{"Unconditional", BoxRung("*", {"Y1.0 = X2.3"}), "D* m_______ MOY_0010 M·X_0023",
                "m_______ MOY_0010 M·X_0023", 3}),
    [](const ::testing::TestParamInfo<BoxCase>& info) { return std::string(info.param.name); });

TEST(FunctionBlock, LineErrorStopsTheBox) {
  testing::Bench bench;
  CompileSession& s = bench.session();
  bench.LoadRung(BoxRung("X0.1", {"100 = WR1", "Y1.0 = X2.3"}));
  CompileLadderRung(s);
  EXPECT_EQ(s.diag.current_error, 16);
  EXPECT_EQ(s.dispatch.record.view(), "");
}

struct FailingRung {
  const char* name;
  std::vector<std::string> rows;
  int error;
  const char* item;  // also the report text where the error carries one
};

class RungFails : public ::testing::TestWithParam<FailingRung> {};

// Each rung breaks one rule; its first error is recorded and the record stays empty.
TEST_P(RungFails, WithItsError) {
  const FailingRung& c = GetParam();
  testing::Bench bench;
  CompileSession& s = bench.session();
  bench.LoadRung(c.rows);
  CompileLadderRung(s);
  EXPECT_EQ(s.diag.current_error, c.error);
  EXPECT_EQ(s.diag.item.view(), c.item);
  EXPECT_EQ(s.diag.text.view(), c.item);
  EXPECT_EQ(s.dispatch.record.view(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Networks, RungFails,
    ::testing::Values(
        FailingRung{"ContactElementOutsideColumn0", {"1(X0.1) -x2 1(X0.2) -x3 3(Y0.1)"}, 2, ""},
        FailingRung{"CoilOutsideColumn9", {"1(X0.1) -x6 3(Y0.1) -"}, 3, ""},
        FailingRung{"TimerOutsideColumn9", {"1(X0.1) -x5 8(T1,5) -x1"}, 3, ""},
        FailingRung{"ContactEndingTheRow", {"1(X0.1) -x7 2(X0.2)"}, 4, ""},
        FailingRung{"UnknownElement", {"1(X0.1) 21(L1) -x6 3(Y0.1)"}, 16, ""},
        FailingRung{"TimerNumberNotHexadecimal", {"1(X0.1) -x7 8(TX,100)"}, 18, "TX    100   "},
        FailingRung{"CoilOnAnInputName", {"1(X0.1) -x7 3(I0.1)"}, 21, ""},
        FailingRung{"UnconditionalBoxWithoutLines", {"1(*) 2(X0.1) - 38"}, 23, ""},
        FailingRung{"UnconditionalBoxWithALinkBelow", {"1(*) -x1 38", ". ^2(X0.2) ^. .x6"}, 23, ""},
        FailingRung{"CounterOnATimer", {"1(X0.1) -x7 47(T1,100)"}, 24, "T1    100   "},
        FailingRung{"TimerCounterBitOnAnInput", {"1(X0.1) -x7 16(X5)"}, 24, "X5    "},
        FailingRung{"EdgeWithALinkInTheWay", {"1(X0.1) ^17 -x6 3(Y0.1)"}, 25, ""},
        FailingRung{"EdgeWithABranchBelow",
                    {"1(X0.1) - 17 -x5 3(Y0.1)", ". ^2(X0.2) ^2(X0.3) ^. .x5"},
                    25,
                    ""},
        FailingRung{"BoxContinuationInTheWalk", {"1(X0.1) -x1 10"}, 26, ""},
        FailingRung{"CodeNotBeginningWithALoad", {"49(WX1,>=,100) -x6 3(Y0.1)"}, 15, ""},
        FailingRung{"PseudoContactNotFirst", {"1(X0.1) 2(*) - 38"}, 39, ""},
        FailingRung{"PseudoContactWithoutABox", {"1(*) -x7 3(Y0.1)"}, 40, ""},
        FailingRung{"LinkedBoxHead", {"1(X0.1) -x1 ^38"}, 26, ""}),
    [](const ::testing::TestParamInfo<FailingRung>& info) { return std::string(info.param.name); });

// Row 0: a contact, 8 contacts and `output` in column 9; under it 27 rows of 9 contacts in parallel
// with row 0's, each rejoining at column 9: 9 + 27 * 10 units, then the output's units.
std::vector<std::string> WideRung(const std::string& output) {
  std::string row0 = "1(X0.0)";
  for (int c = 1; c <= 8; ++c) row0 += " 2(R0." + std::to_string(c) + ")";
  std::vector<std::string> rows{row0 + " " + output};
  for (int r = 1; r <= 27; ++r) {
    std::string row = "^2(R" + std::to_string(r) + ".0)";
    for (int c = 1; c <= 8; ++c) row += " 2(R" + std::to_string(r) + "." + std::to_string(c) + ")";
    rows.push_back(row + " ^.");
  }
  return rows;
}

TEST(CodeText, ExactlyFullRungCompiles) {
  testing::Bench bench;
  CompileSession& s = bench.session();
  bench.LoadRung(WideRung("3(Y0.1)"));
  CompileRawRungCode(s);
  EXPECT_EQ(s.diag.current_error, 0);
  EXPECT_EQ(s.ladder.code.position(), 2240u);
}

TEST(CodeText, OverflowIsError16AndWritesNothingPastTheBuffer) {
  testing::Bench bench;
  CompileSession& s = bench.session();
  bench.LoadRung(WideRung("8(T1,100)"));  // a timer adds a preset unit: 281 units
  CompileLadderRung(s);
  EXPECT_EQ(s.diag.current_error, 16);
  EXPECT_EQ(s.diag.item.view(), "");
  EXPECT_EQ(s.ladder.code.position(), 2240u);
  EXPECT_EQ(s.ladder.code.data()[2240], '\0');
  EXPECT_EQ(s.ladder.walk_state, -1);
  EXPECT_EQ(s.dispatch.record.view(), "");
}

TEST(InstructionCounter, GrowsByTheRecordsUnits) {
  testing::Bench bench;
  CompileSession& s = bench.session();
  s.dispatch.instruction_counter = 5;
  bench.LoadRung({"1(X0.1) -x7 3(Y0.1)"});
  CompileLadderRung(s);
  EXPECT_EQ(s.dispatch.instruction_counter, 7);
  bench.LoadRung({"1(*) -x1 38"});  // the pseudo-contact is not counted
  CompileLadderRung(s);
  EXPECT_EQ(s.dispatch.instruction_counter, 8);
}

TEST(ConditionalBlock, SecondStartBeforeItsEndIsError20) {
  testing::Bench bench;
  CompileSession& s = bench.session();
  bench.LoadRung({"1(X0.1) -x7 40"});
  CompileLadderRung(s);
  EXPECT_EQ(s.diag.current_error, 0);
  EXPECT_EQ(s.dispatch.conditional_block, 1);
  bench.LoadRung({"1(X0.1) -x7 40"});
  CompileLadderRung(s);
  EXPECT_EQ(s.diag.current_error, 20);
}

}  // namespace
}  // namespace rungc
