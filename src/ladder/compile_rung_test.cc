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

// A function-block rung: a contact on `head` before the box in column 0, lines in columns 1
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

// The walk's raw code and the record after the peephole pass, the units counted.
TEST(CompileLadderRung, GivesRawCodeAndRecord) {
  struct Case {
    std::vector<std::vector<Cell>> rung;
    const char* raw;
    const char* record;
    int counted;
  };
  auto rows = [](std::vector<std::string> notation) {
    std::vector<std::vector<Cell>> rung;
    for (const std::string& row : notation) rung.push_back(LadderSource::ParseRow(row));
    return rung;
  };
  const Case cases[] = {
      {rows({"1(X0.1) 2(X0.2) -x6 3(Y0.1)"}), "DX000.1 BX000.2 GY000.1", "AX000.1 BX000.2 GY000.1",
       3},
      {rows({"1(X0.1) 2(X0.2) -x6 3(Y0.1)", "^2(X0.3) ^. .x7"}),
       "DX000.1 DX000.3 F DX000.2 GY000.1", "AX000.1 HX000.3 BX000.2 GY000.1", 4},
      {rows({"1(X0.1) 2(X0.2) 2(X0.3) -x5 3(Y0.1)", ". ^2(X0.4) ^. .x6"}),
       "DX000.1 DX000.2 DX000.4 F E DX000.3 GY000.1", "AX000.1 DX000.2 HX000.4 E BX000.3 GY000.1",
       6},
      {rows({"1(X0.1) -x7 3(Y0.1)", ".x8 ^3(Y0.2)"}), "DX000.1 GY000.1 GY000.2",
       "AX000.1 GY000.1 GY000.2", 3},
      {rows({"1(X0.1) 2(X0.2) 2(X0.3) -x5 3(Y0.1)", ". ^- 2(X0.4) ^. .x5"}),
       "DX000.1 DX000.2 BX000.3 Y BX000.4 F E Y GY000.1",
       "AX000.1 DX000.2 BX000.3 HX000.4 E GY000.1", 6},
      {rows({"1(X0.1) 17 -x6 3(Y0.1)", "^2(X0.3) ^. .x7"}), "DX000.1 DX000.3 F Y N GY000.1",
       "AX000.1 HX000.3 N GY000.1", 4},
      {rows({"1(X0.1) 2(X0.2) 18 -x5 3(Y0.1)"}), "DX000.1 BX000.2 n GY000.1",
       "AX000.1 BX000.2 n GY000.1", 4},
      {rows({"1(X0.1) 17 18 -x5 3(Y0.1)"}), "DX000.1 N n GY000.1", "AX000.1 N n GY000.1", 4},
      {rows({"!1(x0.1) !2(r1.0) -x6 !3(y0.1)"}), "dX000.1 bR001.0 gY000.1",
       "aX000.1 bR001.0 gY000.1", 3},
      {rows({"1(X0.1) -x7 8(T1A,100)"}), "DX000.1 T0001A M·K_0064", "AX000.1 T0001A M·K_0064", 3},
      {rows({"1(X0.1) -x7 44(T3,H1F)", ".x8 ^45(T4,1)", ".x8 ^46(T5,WM2)"}),
       "DX000.1 O00003 M·K_001F P00004 M·K_0001 Q00005 M·WM0002",
       "AX000.1 O00003 M·K_001F P00004 M·K_0001 Q00005 M·WM0002", 7},
      {rows({"1(X0.1) -x7 47(C6,10)", ".x8 ^48(C7,WZ3)"}),
       "DX000.1 o00006 M·K_000A p00007 M·WZ0003", "AX000.1 o00006 M·K_000A p00007 M·WZ0003", 5},
      {rows({"1(X0.1) -x7 40"}), "DX000.1 J", "AX000.1 J", 2},
      {rows({"1(X0.1) 49(WX1,>=,100) -x5 3(Y0.1)", "^2(X0.3) ^. .x7"}),
       "DX000.1 DX000.3 F Y e M]WX0001 M·K_0064 M·F_0008 GY000.1",
       "AX000.1 HX000.3 e M]WX0001 M·K_0064 M·F_0008 GY000.1", 7},
      // A conditional box skips 4 for each unit from "MA" to "Ma".
      {BoxRung("X0.1", {"F0.8 : WX1 >= 100"}), "DX000.1 MAK_0014 M]WX0001 M·K_0064 M·F_0008 Ma",
       "AX000.1 MAK_0014 M]WX0001 M·K_0064 M·F_0008 Ma", 6},
      {BoxRung("X0.1", {"Y1.0 = X2.3", "; a comment"}, {{"", "Y1.1 = 1"}, {"Y1.2 = 0"}}),
       "DX000.1 MAK_0020 MOY_0010 M·X_0023 MOY_0011 M·K_0001 MOY_0012 M·K_0000 Ma",
       "AX000.1 MAK_0020 MOY_0010 M·X_0023 MOY_0011 M·K_0001 MOY_0012 M·K_0000 Ma", 9},
      // The pseudo-contact of an unconditional box is neither kept nor counted.
      {BoxRung("*", {"Y1.0 = X2.3"}), "D* m_______ MOY_0010 M·X_0023", "m_______ MOY_0010 M·X_0023",
       3},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.raw);
    testing::Bench bench;
    CompileSession& s = bench.session();
    bench.LoadRung(c.rung);
    CompileRawRungCode(s);
    EXPECT_EQ(s.diag.current_error, 0);
    EXPECT_EQ(DumpUnits(s.ladder.code.view()), c.raw);
    bench.LoadRung(c.rung);
    s.dispatch.conditional_block = 0;
    s.dispatch.instruction_counter = 10;
    CompileLadderRung(s);
    EXPECT_EQ(s.diag.current_error, 0);
    EXPECT_EQ(DumpUnits(s.dispatch.record.view()), c.record);
    EXPECT_EQ(s.dispatch.instruction_counter, 10 + c.counted);
  }
}

// Each rung breaks one rule; its first error is recorded and the record stays empty.
TEST(CompileLadderRung, RefusesARungWithItsError) {
  struct Case {
    std::vector<std::string> rows;
    int error;
    const char* item;  // also the report text where the error carries one
  };
  const Case cases[] = {
      {{"1(X0.1) -x2 1(X0.2) -x3 3(Y0.1)"}, 2, ""},  // a contact element outside column 0
      {{"1(X0.1) -x6 3(Y0.1) -"}, 3, ""},            // a coil outside column 9
      {{"1(X0.1) -x5 8(T1,5) -x1"}, 3, ""},
      {{"1(X0.1) -x7 2(X0.2)"}, 4, ""},          // a contact ending the row
      {{"1(X0.1) 21(L1) -x6 3(Y0.1)"}, 16, ""},  // an element the walk does not know
      {{"1(X0.1) -x7 8(TX,100)"}, 18, "TX    100   "},
      {{"1(X0.1) -x7 3(I0.1)"}, 21, ""},
      {{"1(*) 2(X0.1) - 38"}, 23, ""},  // an unconditional box without lines
      {{"1(*) -x1 38", ". ^2(X0.2) ^. .x6"}, 23, ""},
      {{"1(X0.1) -x7 47(T1,100)"}, 24, "T1    100   "},
      {{"1(X0.1) -x7 16(X5)"}, 24, "X5    "},
      {{"1(X0.1) ^17 -x6 3(Y0.1)"}, 25, ""},  // an edge with a link in the way
      {{"1(X0.1) - 17 -x5 3(Y0.1)", ". ^2(X0.2) ^2(X0.3) ^. .x5"}, 25, ""},
      {{"1(X0.1) -x1 10"}, 26, ""},    // a box continuation met by the walk
      {{"1(X0.1) -x1 ^38"}, 26, ""},   // a linked box head
      {{"1(*) -x7 3(Y0.1)"}, 40, ""},  // a pseudo-contact without a box
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.rows[0]);
    testing::Bench bench;
    CompileSession& s = bench.session();
    bench.LoadRung(c.rows);
    CompileLadderRung(s);
    EXPECT_EQ(s.diag.current_error, c.error);
    EXPECT_EQ(s.diag.item.view(), c.item);
    EXPECT_EQ(s.diag.text.view(), c.item);
    EXPECT_EQ(s.dispatch.record.view(), "");
  }
}

TEST(CompileLadderRung, ASecondConditionalBlockBeforeItsEndIsError20) {
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
