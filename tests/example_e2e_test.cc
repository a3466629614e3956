// The bundled example project compiled whole: its sources are the rows below, and its listing,
// error file, object code and side files are compared byte for byte.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "rungc/session.h"
#include "support/bench.h"
#include "support/ladder_builder.h"

namespace rungc {
namespace {

using testing::AddBoxRung;
using testing::ExampleDir;
using testing::HexBytes;
using testing::LadderSource;
using testing::Lines;
using testing::SplitLines;
using testing::TempProject;

const std::filesystem::path kExpectedObjectWords = ExampleDir() / "expected" / "PLANT.cod.txt";

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

// The example sources are the builder's text of the programs above; regenerate them with
// --gtest_also_run_disabled_tests --gtest_filter='*WriteExampleSources'.
TEST(ExampleProject, SourcesAreTheProgramsRows) {
  for (const auto& [name, source] : PlantPrograms()) {
    std::ifstream in(ExampleDir() / name, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), source.Text()) << name;
  }
}

TEST(ExampleProject, DISABLED_WriteExampleSources) {
  for (const auto& [name, source] : PlantPrograms()) {
    std::ofstream(ExampleDir() / name, std::ios::binary | std::ios::trunc) << source.Text();
  }
}

// Every code unit of the listing's "#R#" lines, in file order.
Lines ListingUnits(const Lines& listing) {
  Lines units;
  for (const std::string& line : listing) {
    if (line.compare(0, 3, "#R#") != 0) continue;
    for (std::size_t at = 3; at + 8 <= line.size(); at += 8) units.push_back(line.substr(at, 8));
  }
  return units;
}

// The expected object words: one line per unit, "unit opcode access low high" and an optional
// note; '#' lines are comments and program names.
Lines ExpectedObjectWords() {
  Lines words;
  std::ifstream in(kExpectedObjectWords);
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line[0] != '#') words.push_back(line);
  }
  return words;
}

// The listing: every rung of relay logic folded, the function blocks framed, the jump, the call
// and the IF structure resolved by the label pass, the checksum line last (summed over the
// records as written, before the label pass). The object words follow the expected file; the
// side files come from both tables.
TEST(ExampleProject, CompilesToItsFilesByteForByte) {
  TempProject p;
  testing::CopyExample(p);
  Session session;
  ASSERT_EQ(session.Compile(p.dir()), kCompileOk);
  const Lines listing = {
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
  };
  EXPECT_EQ(p.ReadFile("PLANT.LII"), testing::ListingText(listing, "#s#10DD3"));
  EXPECT_EQ(
      p.ReadFile("PLANT.ERR"),
      testing::ErrorFileText({"#F#MAIN.PLC", "#F#PUMPS.PLC", "#F#BLOCKS.PLC", "#F#ALARMS.PLC"},
                             testing::SummaryLines(8, 0, 0, 24, 97, 9)));

  const Lines expected = ExpectedObjectWords();
  const Lines units = ListingUnits(listing);
  const std::string cod = p.ReadFile("PLANT.cod");
  EXPECT_EQ(cod.substr(0, 40), "- KORVA   1995 V2.0  COD             ;\r\n");
  ASSERT_EQ(units.size(), expected.size()) << "regenerate " << kExpectedObjectWords;
  ASSERT_EQ(cod.size(), 40 + 4 * expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(units[i] + " " + HexBytes(cod.substr(40 + 4 * i, 4)), expected[i].substr(0, 20))
        << expected[i];
  }

  const std::string tmc = p.ReadFile("PLANT.tmc");
  EXPECT_EQ(tmc.substr(0, 40), "- KORVA   1994       TERMOCOD        ;\r\n");
  EXPECT_EQ(HexBytes(tmc.substr(40)),
            "55 AA AA 55 "
            "FF 82 00 52 03 14 00 05 00 2C 01 00 00 01 00 FF 82 01 0A 00 00 00 00 00 "
            "FF 84 00 84 03 19 00 05 00 2C 01 00 00 01 00 FF 84 01 0A 00 00 00 00 00 "
            "55 55 55 55 "
            "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
  const std::string pdc = p.ReadFile("PLANT.pdc");
  EXPECT_EQ(pdc.substr(0, 40), "- KORVA   1994       PIDCOD          ;\r\n");
  EXPECT_EQ(HexBytes(pdc.substr(40)),
            "55 AA AA 55 "
            "FF 86 00 B0 04 32 00 0A 00 02 00 E8 03 00 00 FF 86 01 05 00 64 00 9C FF "
            "FF 40 10 D8 FF 08 00 04 00 00 00 F4 01 01 00 FF 42 10 03 00");
  EXPECT_FALSE(p.Exists("PLANT.$$$"));
}

// Rewrites the expected object words from a compile of the example, keeping the comments and the
// notes of lines that stay the same. Check every new or changed word by hand before committing:
// --gtest_also_run_disabled_tests --gtest_filter='*WriteExpectedObjectCode'.
TEST(ExampleProject, DISABLED_WriteExpectedObjectCode) {
  TempProject p;
  testing::CopyExample(p);
  Session session;
  ASSERT_EQ(session.Compile(p.dir()), kCompileOk);
  std::map<std::string, std::string> kept;  // "unit bytes" -> the line with its note
  std::string comments;
  std::ifstream in(kExpectedObjectWords);
  for (std::string line; std::getline(in, line);) {
    if (line.compare(0, 3, "#F#") == 0) continue;
    if (!line.empty() && line[0] == '#') {
      comments += line + "\n";
    } else if (line.size() > 20) {
      kept.emplace(line.substr(0, 20), line);
    }
  }
  const std::string cod = p.ReadFile("PLANT.cod");
  std::ostringstream out;
  out << comments;
  std::size_t word = 0;
  for (const std::string& line : SplitLines(p.ReadFile("PLANT.LII"))) {
    if (line.compare(0, 3, "#F#") == 0) out << line << "\n";
    for (const std::string& unit : ListingUnits({line})) {
      const std::string plain = unit + " " + HexBytes(cod.substr(40 + 4 * word++, 4));
      const auto note = kept.find(plain);
      out << (note != kept.end() ? note->second : plain) << "\n";
      if (note != kept.end()) kept.erase(note);
    }
  }
  std::ofstream(kExpectedObjectWords, std::ios::binary | std::ios::trunc) << out.str();
}

}  // namespace
}  // namespace rungc
