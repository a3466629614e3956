// The label pass over listings written directly: displacements, definition names, IF distances
// and the label-error records.
#include "labels/resolve_labels.h"

#include <gtest/gtest.h>

#include "support/bench.h"

namespace rungc {
namespace {

using testing::Bench;

// Enters names in the label tables as the compile of the rungs would: "j>N" a jump to N, "j=N"
// the label N, "s>N" a call of N, "s=N" the subroutine N.
void EnterNames(CompileSession& s, const std::vector<std::string>& names) {
  for (const std::string& entry : names) {
    LabelTable& table = entry[0] == 'j' ? s.labels.jumps : s.labels.subroutines;
    const std::string name = entry.substr(2);
    ASSERT_EQ(entry[1] == '>' ? table.Reference(name) : table.Define(name), 0) << entry;
  }
}

struct LabelPassCase {
  const char* title;
  std::vector<std::string> names;    // compile-time table entries, in order
  std::vector<std::string> listing;  // listing lines after the header
  int result;
  std::vector<std::string> rewritten;  // the listing afterwards (none: as it was)
  std::vector<std::string> errors;     // error-file lines
};

const std::vector<LabelPassCase>& LabelPassCases() {
  static const std::vector<LabelPassCase> cases = {
      {"jump forward over four units",
       {"j>LOOP1", "j=LOOP1"},
       {"#F#MAIN.PLC", "#R#A_X_0000B_X_0001Y_Y_0000", "#R#LJLOOP1_", "#R#A_X_0002B_X_0003Y_Y_0001",
        "#R#LlLOOP1_", "#R#L2______", "#R#L3______"},
       0,
       {"#F#MAIN.PLC", "#R#A_X_0000B_X_0001Y_Y_0000", "#R#LJK00010", "#R#A_X_0002B_X_0003Y_Y_0001",
        "#R#LlK_0000", "#R#L2______", "#R#L3______"},
       {}},
      {"jump element inside a rung, six-letter name",
       {"j>LOOP12", "j=LOOP12"},
       {"#R#A_X_0000LjLOOP12Y_Y_0000", "#R#LlLOOP12"},
       0,
       {"#R#A_X_0000LjK00008Y_Y_0000", "#R#LlK_0000"},
       {}},
      {"call and subroutine",
       {"s>PUMP", "s=PUMP"},
       {"#R#LCPUMP__", "#R#L2______", "#R#LSPUMP__", "#R#A_X_0000Y_Y_0000", "#R#Ls______",
        "#R#L3______"},
       0,
       {"#R#LCK00008", "#R#L2______", "#R#LSK_0000", "#R#A_X_0000Y_Y_0000", "#R#Ls______",
        "#R#L3______"},
       {}},
      {"the definition is named by its slot, names ignore case",
       {"j=L0", "j=L1", "j=L2", "j=L3", "j=L4", "j=L5", "j=L6", "j=L7", "j=L8", "j=L9", "j>TEN",
        "j=TEN"},
       {"#R#LJten___", "#R#LlTen___"},
       0,
       {"#R#LJK00004", "#R#LlK_000A"},
       {}},
      {"IF, ELSE two units later, ENDIF three after that",
       {},
       {"#R#A_F_0008m_______Mj______M+WR0001Mk______M-WR0001M_______Ml______"},
       0,
       {"#R#A_F_0008m_______MjK_0002M+WR0001MkK_0003M-WR0001M_______Ml______"},
       {}},
      {"nested IFs",
       {},
       {"#R#A_F_0008m_______Mj______Mj______Ml______Ml______"},
       0,
       {"#R#A_F_0008m_______MjK_0003MjK_0001Ml______Ml______"},
       {}},
      {"each function block is checked on its own",
       {},
       {"#R#A_F_0008m_______Mj______Ml______m_______Mj______Mk______Ml______"},
       0,
       {"#R#A_F_0008m_______MjK_0001Ml______m_______MjK_0001MkK_0001Ml______"},
       {}},
      {"the end of a conditional block ends the check",
       {},
       {"#R#A_F_0008MAK_0010Mj______Ml______Ma______Mj______Ml______"},
       0,
       {"#R#A_F_0008MAK_0010MjK_0001Ml______Ma______MjK_0001Ml______"},
       {}},
      {"jump to a label never defined",
       {"j>GONE"},
       {"#F#MAIN.PLC", "#R#A_X_0000LjGONE__Y_Y_0000"},
       -1,
       {},
       {"#F#MAIN.PLC", "#J#NERR=37#RUNG= 1 : GONE__Y_Y_0000"}},
      {"call of a subroutine never defined",
       {"s>MOTOR"},
       {"#F#PUMP.PLC", "#R#LCMOTOR_"},
       -1,
       {},
       {"#F#PUMP.PLC", "#J#NERR=58#RUNG= 0 : MOTOR_"}},
      {"label unit whose name is not in the table fails the check mode",
       {},
       {"#F#MAIN.PLC", "#R#LlLOST__"},
       -1,
       {},
       {"#F#MAIN.PLC", "#J#NERR=37#RUNG= 0 : LOST__"}},
      {"subroutine unit whose name is not in the table",
       {},
       {"#F#MAIN.PLC", "#R#LSLOST__"},
       -1,
       {},
       {"#F#MAIN.PLC", "#J#NERR=58#RUNG= 0 : LOST__"}},
      {"two ELSE under one IF",
       {},
       {"#F#MAIN.PLC", "#R#A_F_0008m_______Mj______Mk______Mk______Ml______"},
       -1,
       {},
       {"#F#MAIN.PLC", "#J#NERR=2#RUNG= 1 : many"}},
      {"IF without ENDIF in its line",
       {},
       {"#F#MAIN.PLC", "#R#A_F_0008m_______Mj______M+WR0001"},
       -1,
       {},
       {"#F#MAIN.PLC", "#J#NERR=1#RUNG= 1 : Error"}},
      {"ENDIF with no open IF",
       {},
       {"#F#MAIN.PLC", "#R#A_F_0008m_______Mj______Ml______Ml______"},
       -1,
       {},
       {"#F#MAIN.PLC", "#J#NERR=1#RUNG= 1 : Error"}},
      {"ELSE with no open IF",
       {},
       {"#F#MAIN.PLC", "#R#A_F_0008m_______Mj______Ml______Mk______"},
       -1,
       {},
       {"#F#MAIN.PLC", "#J#NERR=1#RUNG= 1 : Error"}},
      {"rungs that begin with a load count over all programs; every failed line is reported",
       {"j>GONE", "s>AWAY"},
       {"#F#A.PLC", "#R#A_X_0000Y_Y_0000", "#R#a_X_0001Y_Y_0001", "#R#m_______M+WR0001", "#F#B.PLC",
        "#R#A_X_0002LjGONE__", "#R#A_X_0003LcAWAY__"},
       -1,
       {},
       {"#F#B.PLC", "#J#NERR=37#RUNG= 3 : GONE__", "#F#B.PLC", "#J#NERR=58#RUNG= 4 : AWAY__"}},
  };
  return cases;
}

TEST(ResolveLabels, RewritesTheListingOrReportsEachFailure) {
  for (const LabelPassCase& c : LabelPassCases()) {
    SCOPED_TRACE(c.title);
    Bench bench;
    EnterNames(bench.session(), c.names);
    bench.WriteListing(c.listing);
    EXPECT_EQ(bench.RunLabelPass(), c.result);
    EXPECT_EQ(bench.ListingLines(), c.rewritten.empty() ? c.listing : c.rewritten);
    EXPECT_EQ(bench.ErrorLines(), c.errors);
    EXPECT_EQ(bench.session().diag.error_count, static_cast<int>(c.errors.size() / 2));
  }
}

// A function block with `depth` IFs nested in each other.
std::string NestedIfs(int depth) {
  std::string units = "#R#A_F_0008m_______";
  for (int i = 0; i < depth; ++i) units += "Mj______";
  for (int i = 0; i < depth; ++i) units += "Ml______";
  return units;
}

TEST(ResolveLabels, NestsFifteenIfsButNotSixteen) {
  Bench fifteen;
  fifteen.WriteListing({NestedIfs(15)});
  EXPECT_EQ(fifteen.RunLabelPass(), 0);
  // The outermost IF spans all 30 units of the structure, the innermost one unit.
  const std::string line = fifteen.ListingLines().at(0);
  EXPECT_EQ(line.substr(19, 8), "MjK_001D");
  EXPECT_EQ(line.substr(19 + 14 * 8, 8), "MjK_0001");

  Bench sixteen;
  sixteen.WriteListing({"#F#MAIN.PLC", NestedIfs(16)});
  EXPECT_EQ(sixteen.RunLabelPass(), -1);
  EXPECT_EQ(sixteen.ErrorLines(),
            (std::vector<std::string>{"#F#MAIN.PLC", "#J#NERR=2#RUNG= 1 : many"}));
}

TEST(ResolveLabels, ErrorsAreDroppedWhileTheRungLatchIsSet) {
  Bench bench;
  bench.session().diag.rung_error_latch = true;
  bench.WriteListing({"#F#MAIN.PLC", "#R#LlLOST__"});
  EXPECT_EQ(bench.RunLabelPass(), -1);
  EXPECT_TRUE(bench.ErrorLines().empty());
  EXPECT_EQ(bench.session().diag.error_count, 0);
}

TEST(ResolveLabels, RewriteModeWritesAFailedLineAsItsFileName) {
  Bench bench;
  EnterNames(bench.session(), {"j>GONE", "j>LOOP1", "j=LOOP1"});
  const std::vector<std::string> listing = {"#F#MAIN.PLC", "#R#LJLOOP1_", "#R#LjGONE__",
                                            "#R#LlLOOP1_"};
  bench.WriteListing(listing);
  ASSERT_EQ(ResolveLabels(bench.session(), 0), 0);
  platform::RenameFile(bench.session().diag.listing_path, bench.session().diag.temp_path);
  EXPECT_EQ(ResolveLabels(bench.session(), 1), -1);
  EXPECT_EQ(bench.project().ReadFile("PLANT.LII"),
            "- KORVA   1995 V2.0  LIS             ;\r\n#F#MAIN.PLC\r\n"
            "#R#LJK00008\r\nFile : MAIN.PLC\r\n#R#LlK_0001\r\n");
}

TEST(ResolveLabels, UnopenedFilesGiveSixWithoutReport) {
  Bench bench;
  bench.session().diag.listing.Close();
  platform::RemoveFile(bench.session().diag.listing_path);
  EXPECT_EQ(ResolveLabels(bench.session(), 0), 6);  // no listing
  EXPECT_EQ(ResolveLabels(bench.session(), 1), 6);  // no ".$$$" copy
  EXPECT_TRUE(bench.ErrorLines().empty());
}

}  // namespace
}  // namespace rungc
