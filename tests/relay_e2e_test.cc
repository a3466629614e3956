// End-to-end compiles of relay logic: the example project's programs and rungs that break one
// rule of the network compiler.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "rungc/session.h"
#include "support/bench.h"
#include "support/ladder_builder.h"

namespace rungc {
namespace {

using testing::AddBoxRung;
using testing::LadderSource;
using testing::SplitLines;
using testing::TempProject;

const std::filesystem::path kExampleDir =
    std::filesystem::path(RUNGC_SOURCE_DIR) / "examples" / "plant";

// The programs of the example project, in the order of its project file: relay logic, then
// function blocks, then the subroutine area.
std::vector<std::pair<std::string, LadderSource>> PlantPrograms() {
  LadderSource main;
  main.Row("1(X0.0) !2(X0.1) -x6 3(Y0.0)")  // start, seal-in, stop: the motor
      .Row("^2(Y0.0) ^. .x7")
      .Row("1(Y0.0) -x7 8(T1,50)")  // run timer
      .Row("1(T1) -x7 3(Y0.1)")     // timer done: lamp and relay in parallel
      .Row(".x8 ^3(R1.0)")
      .Row("1(X0.2) 17 -x6 9(C1,10)")  // count rising edges of X0.2
      .Row("1(C1) -x7 3(Y0.2)")
      .Row("1(X0.3) -x7 16(C1)")  // reset the counter
      .Row("1(X0.4) -x7 22(SKIP)")
      .Row("1(R1.0) 2(X0.5) -x6 6(Y0.3)")  // set, skipped while X0.4
      .Row("23(SKIP) -x8")
      .Row("1(X0.5) 18 -x6 7(Y0.3)")  // reset on the falling edge of X0.5
      .Row("1(X1.0) -x7 31(ALARM)");

  LadderSource pumps;
  pumps
      .Row("1(X1.1) 2(X1.2) 2(X1.3) -x5 3(Y1.0)")  // X1.2 or X1.4 between X1.1 and X1.3
      .Row(". ^2(X1.4) ^. .x6")
      .Row("1(Y1.0) -x7 44(T2,H1F)")
      .Row("1(X1.5) -x7 47(C2,WR10)")
      .Row("1(X2.0) 2(X2.1) -x6 3(Y1.2)")  // three contacts in parallel at the rail
      .Row("^2(X2.2) ^. .x7")
      .Row("^!2(X2.3) ^. .x7")
      .Row("1(X2.4) -x7 3(Y1.3)")  // two coils in parallel
      .Row(".x8 ^!3(Y1.4)");

  LadderSource blocks;
  // Tank level from analogue input 1, scaled; high-level output with an IF/ELSE; the flow total
  // and the level as a float.
  AddBoxRung(blocks, "1(X0.6) -x1", {"WR20 = WAX1 * 10", "IF WR20 > 800"},
             {{"Y2.1 = 1", "ELSE", "Y2.1 = 0"}, {"ENDIF", "DR4 = DR4 + DR6", "FX1 = WR20"}});
  blocks.Row("1(X0.7) 49(WR20,>=,500) -x5 3(Y2.2)");  // level alarm lamp
  // Every scan: a pulse count, a shift register, the display word, an offset, the mean level.
  AddBoxRung(blocks, "1(*) -x1", {"INC WR21", "SFL WR22 1 16"},
             {{"WY3 = WR21 AND HFF", "DR8 = -5", "FX2 = FX1 / FX3"}, {"WR23 = FX2"}});

  LadderSource alarms;
  alarms
      .Row("29 -x8")  // end of the main program
      .Row("25(ALARM) -x8")
      .Row("1(X3.0) !2(X3.1) -x6 3(Y2.0)")
      .Row("^2(Y2.0) ^. .x7")
      .Row("1(Y2.0) -x7 45(T3,20)")
      .Row("26 -x8");

  return {{"MAIN.PLC", main}, {"PUMPS.PLC", pumps}, {"BLOCKS.PLC", blocks}, {"ALARMS.PLC", alarms}};
}

std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The example sources are the builder's text of the programs above; regenerate them with
// --gtest_also_run_disabled_tests --gtest_filter='*WriteExampleSources'.
TEST(RelayEndToEnd, ExampleSourcesAreTheProgramsRows) {
  for (const auto& [name, source] : PlantPrograms()) {
    EXPECT_EQ(ReadBytes(kExampleDir / name), source.Text()) << name;
  }
}

TEST(RelayEndToEnd, DISABLED_WriteExampleSources) {
  for (const auto& [name, source] : PlantPrograms()) {
    std::ofstream out(kExampleDir / name, std::ios::binary | std::ios::trunc);
    out << source.Text();
  }
}

// The whole listing of the example project: every rung of relay logic folded, the function
// blocks framed, the jump, the call and the IF structure resolved by the label pass, the checksum
// line last (summed over the records as written, before the label pass).
TEST(RelayEndToEnd, ExampleProjectCompilesToItsListing) {
  TempProject p;
  std::filesystem::copy(kExampleDir, p.dir(), std::filesystem::copy_options::recursive);
  Session session;
  ASSERT_EQ(session.Compile(p.dir()), kCompileOk);
  const std::vector<std::string> listing = {
      "- KORVA   1995 V2.0  LIS             ;",
      "#F#MAIN.PLC",
      "#R#A_X_0000H_Y_0000b_X_0001G_Y_0000",
      "#R#A_Y_0000T_T_0001M_K_0032",
      "#R#A_T_0001G_Y_0001G_R_0010",
      "#R#A_X_0002N_______C_C_0001M_K_000A",
      "#R#A_C_0001G_Y_0002",
      "#R#A_X_0003c_C_0001",
      "#R#A_X_0004LjK00010",
      "#R#A_R_0010B_X_0005I_Y_0003",
      "#R#LlK_0000",
      "#R#A_X_0005n_______i_Y_0003",
      "#R#A_X_0010LcK00114",
      "#F#PUMPS.PLC",
      "#R#A_X_0011D_X_0012H_X_0014E_______B_X_0013G_Y_0010",
      "#R#A_Y_0010O_T_0002M_K_001F",
      "#R#A_X_0015o_C_0002M_WR0010",
      "#R#A_X_0020H_X_0022h_X_0023B_X_0021G_Y_0012",
      "#R#A_X_0024G_Y_0013g_Y_0014",
      "#F#BLOCKS.PLC",
      "#R#A_X_0006MAK_0058M*AX0001M_K_000AM_WR0020M>WR0020M_K_0320M_F_0008MjK_0003MOY_0021"
      "M_K_0001MkK_0003MOY_0021M_K_0000Ml______ML______M+DR0004M_DR0006M_DR0004MxK_0010"
      "M_K_0001M_WR0020Ma______",
      "#R#A_X_0007e_______M]WR0020M_K_01F4M_F_0008G_Y_0022",
      "#R#m_______MIWR0021MtWR0022M_K_0001M_K_0010M&WR0021M_K_00FFM_WY0003ML______MdK_FFFB"
      "M_K_FFFFM_DR0008MxK_0016M_K_0102M_K_0003MxK_0020M_K_0002M_WR0023",
      "#F#ALARMS.PLC",
      "#R#L2______",
      "#R#LSK_0000",
      "#R#A_X_0030H_Y_0020b_X_0031G_Y_0020",
      "#R#A_Y_0020P_T_0003M_K_0014",
      "#R#Ls______",
      "#R#L3______",
      "#s#10DD3",
  };
  std::string text;
  for (const std::string& line : listing) text += line + "\r\n";
  EXPECT_EQ(p.ReadFile("PLANT.LII"), text);
  const std::vector<std::string> errors = SplitLines(p.ReadFile("PLANT.ERR"));
  const std::vector<std::string> summary(errors.end() - 5, errors.end());
  EXPECT_EQ(summary, (std::vector<std::string>{"#TERR=0", "#TWRN=0", "#TOTRUNG=24",
                                               "#TOTMAINISTR=97", "#TOTSUBMISTR=9"}));
}

struct FailingProgram {
  const char* name;
  std::vector<std::string> rows;
  const char* error_line;
};

class RelayRungFails : public ::testing::TestWithParam<FailingProgram> {};

// A program whose rung breaks one rule of the network compiler: one error line, no code record
// for the rung, and the compile fails.
TEST_P(RelayRungFails, WithOneErrorLine) {
  const FailingProgram& c = GetParam();
  LadderSource source;
  for (const std::string& row : c.rows) source.Row(row);
  TempProject p;
  p.WriteSimpleProject({{"MAIN.PLC", source}});
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), kCompileFailed);
  const std::vector<std::string> errors = SplitLines(p.ReadFile("PLANT.ERR"));
  ASSERT_GE(errors.size(), 3u);
  EXPECT_EQ(errors[0], "#F#MAIN.PLC");
  EXPECT_EQ(errors[1], c.error_line);
  EXPECT_EQ(errors[3], "#TERR=1");
}

// 28 rows of 9 contacts in parallel, with a timer: one unit more than the code text holds.
std::vector<std::string> OverlongRung() {
  std::string first = "1(R0.0)";
  for (int c = 1; c <= 8; ++c) first += " 2(R0." + std::to_string(c) + ")";
  std::vector<std::string> rows{first + " 8(T1,5)"};
  for (int r = 1; r <= 27; ++r) {
    std::string row = "^2(R" + std::to_string(r) + ".0)";
    for (int c = 1; c <= 8; ++c) row += " 2(R" + std::to_string(r) + "." + std::to_string(c) + ")";
    rows.push_back(row + " ^.");
  }
  return rows;
}

INSTANTIATE_TEST_SUITE_P(
    Programs, RelayRungFails,
    ::testing::Values(FailingProgram{"MalformedContact",
                                     {"1(X0.1) -x7 3(Y0.1)", "1(Q0.1) -x7 3(Y0.1)"},
                                     "#E#NERR=27#RUNG=2#ITEM=Q0.1  #STRG=Q0.1  "},
                      FailingProgram{"TimerOnACounter",
                                     {"1(X0.1) -x7 8(C1,100)"},
                                     "#E#NERR=24#RUNG=1#ITEM=C1    100   #STRG=C1    100   "},
                      FailingProgram{"PresetOfAreaY",
                                     {"1(X0.1) -x7 9(C1,WY10)"},
                                     "#E#NERR=22#RUNG=1#ITEM=WY10  #STRG=WY10  "},
                      FailingProgram{"TimerCounterBitNotANumber",
                                     {"1(X0.1) -x7 16(T1Z)"},
                                     "#E#NERR=19#RUNG=1#ITEM=1Z   #STRG=1Z   "},
                      FailingProgram{"SecondConditionalBlock",
                                     {"1(X0.1) -x7 40", "1(X0.2) -x7 40"},
                                     "#E#NERR=20#RUNG=2"},
                      FailingProgram{"CallOfASubroutineDefinedEarlier",
                                     {"29 -x8", "25(SUB1) -x8", "1(X0.1) -x7 31(SUB1)", "26 -x8"},
                                     "#E#NERR=58#RUNG=3#ITEM=SUB1  #STRG=SUB1  "},
                      FailingProgram{"CodeTextOverflow", OverlongRung(), "#E#NERR=16#RUNG=1"}),
    [](const ::testing::TestParamInfo<FailingProgram>& info) {
      return std::string(info.param.name);
    });

}  // namespace
}  // namespace rungc
