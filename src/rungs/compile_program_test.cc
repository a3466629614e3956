// The rung loop of one program: structural rungs, their errors and counters, the Escape key and
// the balance check, with the listing and error files as the record writer leaves them.
#include "rungs/compile_program.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/bench.h"

namespace rungc {
namespace {

using testing::Bench;
using testing::Rows;
using testing::ScriptedKeyboard;
using Lines = std::vector<std::string>;

TEST(CompileProgram, StructuralRungsBecomeOneUnitRecords) {
  Bench bench;
  const Lines rows = {"24(SUB1)", "21(  AB  )", "23(AB)", "29", "42(BLK)", "43", "25(SUB1)", "26"};
  EXPECT_EQ(bench.CompileProgram("MAIN.PLC", Rows(rows)), 1);
  const CompileSession& s = bench.session();
  EXPECT_EQ(s.dispatch.program_rung_count, 8);
  // Three units before the end of the main program; four after it.
  EXPECT_EQ(s.driver.main_instruction_total, 4);
  EXPECT_EQ(s.dispatch.instruction_counter, 4);
  EXPECT_EQ(s.dispatch.sub_area_depth, 1);
  EXPECT_EQ(s.reader.line_counter, 8 + 2);
  EXPECT_EQ(s.labels.jumps.slot(0).name.view(), "AB");
  EXPECT_EQ(s.labels.jumps.slot(0).state, -1);
  EXPECT_EQ(s.labels.subroutines.slot(0).name.view(), "SUB1");
  EXPECT_EQ(s.labels.subroutines.slot(0).state, -1);
  EXPECT_EQ(bench.ListingLines(),
            (Lines{"#F#MAIN.PLC", "#R#LCSUB1__", "#R#LJAB____", "#R#LlAB____", "#R#L2______",
                   "#R#LTK_0000", "#R#Li______", "#R#LSSUB1__", "#R#Ls______"}));
  EXPECT_EQ(bench.ErrorLines(), (Lines{"#F#MAIN.PLC"}));
}

// Each program of one-row rungs: the error file's and the listing's lines after the program's
// file line, and the program's rung count afterwards.
TEST(CompileProgram, ReportsAndWritesEachKindOfRung) {
  struct Case {
    Lines rows;
    Lines errors;
    Lines records;
    int rungs;
  };
  const Case cases[] = {
      // A blank name is error 35 and the rung is not counted.
      {{"23()", "29"}, {"#E#NERR=35#RUNG=1"}, {"#R#L2______"}, 1},
      {{"21()"}, {"#E#NERR=35#RUNG=1"}, {}, 0},
      {{"26", "25(S)", "42(B)", "43", "41", "29", "29"},
       {"#E#NERR=66#RUNG=1", "#E#NERR=28#RUNG=1", "#E#NERR=28#RUNG=1", "#E#NERR=38#RUNG=1",
        "#E#NERR=57#RUNG=1", "#E#NERR=32#RUNG=2"},
       {"#R#L2______"},
       1},
      {{"29", "24(S)", "25(S1)", "25(S2)", "26", "26"},
       {"#E#NERR=31#RUNG=2", "#E#NERR=60#RUNG=3", "#E#NERR=66#RUNG=4"},
       {"#R#L2______", "#R#LSS1____", "#R#Ls______"},
       3},
      // The block end inside the subroutine leaves too little depth for its end.
      {{"29", "25(S1)", "43", "26"},
       {"#E#NERR=38#RUNG=4"},
       {"#R#L2______", "#R#LSS1____", "#R#Li______"},
       3},
      {{"23(L1)", "23(l1)", "21(L1)"},
       {"#E#NERR=34#RUNG=2", "#E#NERR=37#RUNG=2"},
       {"#R#LlL1____"},
       1},
      {{"29", "25(S)", "26", "25(s)"},
       {"#E#NERR=59#RUNG=4"},
       {"#R#L2______", "#R#LSS_____", "#R#Ls______"},
       3},
      {{".x9", "29"}, {}, {"#R#L2______"}, 1},
      // Rungs of other kinds are validated; one that fails ends the program.
      {{". 2(X) .x7 3(Y)", "29"}, {"#E#NERR=1002#RUNG=1"}, {}, 0},
      {{"3(Y) 2(B) -x6 3(Z)", "29"}, {"#E#NERR=1002#RUNG=1"}, {}, 0},
      {{"3(Y) 2(B) -x5 3(Z) -", "29"}, {"#E#NERR=1003#RUNG=2"}, {}, 1},
      // A ladder rung that fails its validation is not counted; the reader's refusals end the
      // program.
      {{"1(A) 2(B) -x7", "29"}, {"#E#NERR=1013#RUNG=1"}, {"#R#L2______"}, 1},
      {{"2(A) -x8 3(Y)", "29"}, {"#E#NERR=1017#RUNG=1"}, {}, 0},
      {{"29", "1(A) 12 -x7 3(Y)", "29"}, {"#E#NERR=1018#RUNG=2"}, {"#R#L2______"}, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.rows[0]);
    Bench bench;
    EXPECT_EQ(bench.CompileProgram("MAIN.PLC", Rows(c.rows)), c.errors.empty() ? 1 : 2);
    EXPECT_EQ(bench.session().dispatch.program_rung_count, c.rungs);
    Lines errors = {"#F#MAIN.PLC"};
    errors.insert(errors.end(), c.errors.begin(), c.errors.end());
    Lines records = {"#F#MAIN.PLC"};
    records.insert(records.end(), c.records.begin(), c.records.end());
    EXPECT_EQ(bench.ErrorLines(), errors);
    EXPECT_EQ(bench.ListingLines(), records);
  }
}

TEST(CompileProgram, EndOfMainOpensTheSubroutineAreaForLaterPrograms) {
  Bench bench;
  EXPECT_EQ(bench.CompileProgram("MAIN.PLC", Rows({"29"})), 1);
  EXPECT_EQ(bench.CompileProgram("SUB.PLC", Rows({"24(S)", "25(S)", "26"})), 2);
  EXPECT_EQ(bench.ErrorLines(), (Lines{"#F#MAIN.PLC", "#F#SUB.PLC", "#E#NERR=31#RUNG=1"}));
  EXPECT_EQ(bench.ListingLines(),
            (Lines{"#F#MAIN.PLC", "#R#L2______", "#F#SUB.PLC", "#R#LSS_____", "#R#Ls______"}));
}

TEST(CompileProgram, MissingSourceCountsAnErrorWithoutRecord) {
  Bench bench;
  bench.session().driver.program_name.Set("NONE.PLC");
  EXPECT_EQ(CompileProgram(bench.session()), -1);
  EXPECT_EQ(bench.session().diag.error_count, 1);
  EXPECT_EQ(bench.session().diag.current_error, 51);
  EXPECT_EQ(bench.ErrorLines(), Lines{});
  EXPECT_EQ(bench.ListingLines(), Lines{});
}

TEST(CompileProgram, EscapeEndsTheProgramAndTheNextOneIsCompiled) {
  Bench bench;
  ScriptedKeyboard keyboard({{}, {27}});
  bench.session().keyboard = &keyboard;
  EXPECT_EQ(bench.CompileProgram("MAIN.PLC", Rows({"29", "42(B)", "43"})), 2);
  EXPECT_EQ(bench.CompileProgram("NEXT.PLC", Rows({"42(C)", "43"})), 2);
  EXPECT_EQ(bench.ErrorLines(), (Lines{"#F#MAIN.PLC", "#E#NERR=47#RUNG=2", "#F#NEXT.PLC"}));
  EXPECT_EQ(bench.ListingLines(),
            (Lines{"#F#MAIN.PLC", "#R#L2______", "#F#NEXT.PLC", "#R#LTK_0000", "#R#Li______"}));
}

TEST(CompileProgram, OtherKeysAreDroppedWithTheSecondCodeOfATwoCodeKey) {
  Bench bench;
  // A two-code key whose second code is 27, then a plain key: neither is Escape.
  ScriptedKeyboard keyboard({{0, 27}, {'a'}});
  bench.session().keyboard = &keyboard;
  EXPECT_EQ(bench.CompileProgram("MAIN.PLC", Rows({"29", "42(B)", "43"})), 1);
  EXPECT_EQ(keyboard.keys_read(), 3);
  EXPECT_EQ(bench.session().dispatch.program_rung_count, 3);
}

TEST(CompileProgram, LastRowDroppedIsNotedPerProgram) {
  Bench bench;
  bench.CompileProgram("CUT.PLC", Rows({"29", "42(B)"}), /*end_record=*/false);
  EXPECT_EQ(bench.session().reader.line_counter, 3);
  bench.CompileProgram("WHOLE.PLC", Rows({"42(B)"}));
  EXPECT_EQ(bench.session().reader.programs_missing_row_end, Lines{"CUT.PLC"});
  EXPECT_EQ(bench.ListingLines(),
            (Lines{"#F#CUT.PLC", "#R#L2______", "#F#WHOLE.PLC", "#R#LTK_0000"}));
}

TEST(CompileProgram, ConditionalEndClosesTheOpenBlock) {
  Bench bench;
  bench.Open(Rows({"41", "41"}));
  CompileSession& s = bench.session();
  ASSERT_EQ(bench.Read(), 0);
  s.dispatch.conditional_block = 1;
  EXPECT_EQ(DispatchRung(s, bench.kind()), RungOutcome::kNextRung);
  EXPECT_EQ(s.dispatch.conditional_block, 0);
  EXPECT_EQ(s.dispatch.instruction_counter, 1);
  EXPECT_EQ(s.dispatch.program_rung_count, 1);
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(DispatchRung(s, bench.kind()), RungOutcome::kNextRung);
  EXPECT_EQ(bench.ListingLines(), (Lines{"#R#j_______"}));
  EXPECT_EQ(bench.ErrorLines(), (Lines{"#E#NERR=57#RUNG=2"}));
}

// Opening and closing units of the record must match; the walk stops at the first empty unit.
TEST(CompileProgram, CheckRungBalance) {
  const std::pair<std::string, bool> cases[] = {
      {"", true},
      {"DX001.0 AX002.0 EX003.0 ", true},
      {"Y       d       F       F       ", true},
      {"A       " + std::string(8, '\0') + "D       ", true},
      {"DX001.0 AX002.0 ", false},
      {"E       ", false},
      {"d       e       ", false},  // a lower-case e is not closing
  };
  for (const auto& [units, balanced] : cases) {
    SCOPED_TRACE(units);
    Bench bench;
    CompileSession& s = bench.session();
    s.dispatch.record.Append(units);
    s.dispatch.program_rung_count = 3;
    s.diag.rung_error_latch = true;  // the direct record is not held back
    EXPECT_EQ(CheckRungBalance(s), balanced);
    EXPECT_EQ(s.dispatch.program_rung_count, 3);
    EXPECT_EQ(bench.ErrorLines(), balanced ? Lines{} : Lines{"#E#NERR=80#RUNG=3"});
  }
}

}  // namespace
}  // namespace rungc
