// End-to-end compiles of projects made of structural rungs: the listing and the error file are
// compared byte for byte.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "common/session.h"
#include "rungc/session.h"
#include "support/bench.h"
#include "support/ladder_builder.h"

namespace rungc {
namespace {

using testing::LadderSource;
using testing::SummaryLines;
using testing::TempProject;
using Lines = std::vector<std::string>;

const std::string kListingHeader = "- KORVA   1995 V2.0  LIS             ;";

LadderSource Rungs(const Lines& rows) {
  LadderSource source;
  for (const std::string& row : rows) source.Row(row);
  return source;
}

std::string FileText(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

Lines Concat(Lines a, const Lines& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

// The listing of a compile without errors: header, records, checksum line.
std::string SuccessfulListing(const Lines& records) {
  return testing::ListingText(records);
}

TEST(RungsEndToEnd, BlocksAfterTheEndOfMain) {
  TempProject p;
  p.WriteSimpleProject({{"MAIN.PLC", Rungs({"29", "42(BLK1)", "43", ".x9", "42()", "43"})}});
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), kCompileOk);
  EXPECT_EQ(p.ReadFile("PLANT.LII"),
            SuccessfulListing({"#F#MAIN.PLC", "#R#L2______", "#R#LTK_0000", "#R#Li______",
                               "#R#LTK_0000", "#R#Li______", "#R#L3______"}));
  EXPECT_EQ(p.ReadFile("PLANT.ERR"),
            FileText(Concat({"#F#MAIN.PLC"}, SummaryLines(8, 0, 0, 5, 1, 4))));
}

TEST(RungsEndToEnd, StructuralErrorsOverSeveralPrograms) {
  TempProject p;
  p.WriteSimpleProject({
      {"MAIN.PLC", Rungs({"25(SUB1)", "26", "43", "41", "23()", "29", "29", "24(SUB1)",
                          ". 2(X) .x7 3(Y)", "29"})},
      {"SECOND.PLC", Rungs({"2(A) -x8 3(Y)"})},
      {"THIRD.PLC", Rungs({"42(B)", "1(A) 12 -x7 3(Y)", "43"})},
      {"FOURTH.PLC", Rungs({"3(Y) 2(B) -x5 3(Z) -"})},
      {"LAST.PLC", Rungs({"43", "26"})},
  });
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), kCompileFailed);
  EXPECT_EQ(
      p.ReadFile("PLANT.ERR"),
      FileText(Concat({"#F#MAIN.PLC", "#E#NERR=28#RUNG=1", "#E#NERR=66#RUNG=1", "#E#NERR=38#RUNG=1",
                       "#E#NERR=57#RUNG=1", "#E#NERR=35#RUNG=1", "#E#NERR=32#RUNG=2",
                       "#E#NERR=31#RUNG=2", "#E#NERR=1002#RUNG=2", "#F#SECOND.PLC",
                       "#E#NERR=1017#RUNG=1", "#F#THIRD.PLC", "#E#NERR=1018#RUNG=2",
                       "#F#FOURTH.PLC", "#E#NERR=1003#RUNG=2", "#F#LAST.PLC", "#E#NERR=66#RUNG=2"},
                      SummaryLines(4, 12, 0, 4, 1, 2))));
  EXPECT_EQ(
      p.ReadFile("PLANT.LII"),
      FileText({kListingHeader, "#F#MAIN.PLC", "#R#L2______", "#F#SECOND.PLC", "#F#THIRD.PLC",
                "#R#LTK_0000", "#F#FOURTH.PLC", "#F#LAST.PLC", "#R#Li______", "#R#L3______"}));
}

TEST(RungsEndToEnd, JumpsLabelsCallsAndSubroutines) {
  TempProject p;
  p.WriteSimpleProject({{"MAIN.PLC", Rungs({"24(SUB1)", "21(  AB  )", "23(AB)", "29", "25(SUB1)",
                                            "25(SUB2)", "26"})}});
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), kCompileFailed);
  EXPECT_EQ(p.ReadFile("PLANT.ERR"),
            FileText(Concat({"#F#MAIN.PLC", "#E#NERR=60#RUNG=6"}, SummaryLines(9, 1, 0, 6, 4, 2))));
  // The label pass gives the call and the jump their forward displacements in bytes (call at
  // unit 0 to the subroutine at unit 4, jump at unit 1 to the label at unit 2) and the
  // definitions their slot names.
  EXPECT_EQ(p.ReadFile("PLANT.LII"),
            FileText({kListingHeader, "#F#MAIN.PLC", "#R#LCK00010", "#R#LJK00004", "#R#LlK_0000",
                      "#R#L2______", "#R#LSK_0000", "#R#Ls______", "#R#L3______"}));
}

TEST(RungsEndToEnd, EscapeEndsOneProgramAndTheNextIsCompiled) {
  TempProject p;
  p.WriteSimpleProject(
      {{"MAIN.PLC", Rungs({"29", "42(B)", "43"})}, {"NEXT.PLC", Rungs({"42(C)", "43"})}});
  Session session;
  CompileOptions options;
  int polls = 0;
  options.escape_requested = [&polls] { return ++polls == 2; };
  EXPECT_EQ(session.Compile(p.dir(), options), kCompileFailed);
  EXPECT_EQ(p.ReadFile("PLANT.ERR"),
            FileText(Concat({"#F#MAIN.PLC", "#E#NERR=47#RUNG=2", "#F#NEXT.PLC"},
                            SummaryLines(4, 1, 0, 3, 1, 2))));
  EXPECT_EQ(p.ReadFile("PLANT.LII"),
            FileText({kListingHeader, "#F#MAIN.PLC", "#R#L2______", "#F#NEXT.PLC", "#R#LTK_0000",
                      "#R#Li______", "#R#L3______"}));
}

// The element checks after the last program are held back only when that program ended on an
// error of the rung loop itself.
TEST(RungsEndToEnd, ElementChecksFollowTheLastProgramsEnd) {
  const LadderSource block_in_network = Rungs({"1(A) 42(B) -x7"});
  const LadderSource ended_by_reader = Rungs({"1(A) 42(B) -x7", "2(A) -x8 3(Y)"});
  struct Case {
    LadderSource source;
    Lines errors;
    int riga;
  };
  for (const Case& c : {Case{block_in_network, {"#E#NERR=1007#RUNG=1", "#E#NERR=68#RUNG=1"}, 3},
                        Case{ended_by_reader, {"#E#NERR=1007#RUNG=1", "#E#NERR=1017#RUNG=1"}, 3}}) {
    TempProject p;
    p.WriteSimpleProject({{"MAIN.PLC", c.source}});
    Session session;
    EXPECT_EQ(session.Compile(p.dir()), kCompileFailed);
    EXPECT_EQ(p.ReadFile("PLANT.ERR"), FileText(Concat(Concat({"#F#MAIN.PLC"}, c.errors),
                                                       SummaryLines(c.riga, 2, 0, 0, 0, 0))));
  }
}

TEST(RungsEndToEnd, SourceWithoutRowEndRecordLosesItsLastRow) {
  TempProject p;
  p.WriteStatus();
  p.WriteProject({"MAIN.PLC"});
  p.WriteFile("MAIN.PLC", Rungs({"29", "42(B)", "43"}).Text(/*end_record=*/false));
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), kCompileFailed);
  // The block end was never read: the end-of-compile check misses element 43.
  EXPECT_EQ(p.ReadFile("PLANT.ERR"),
            FileText(Concat({"#F#MAIN.PLC", "#E#NERR=69#RUNG=3"}, SummaryLines(4, 1, 0, 2, 1, 1))));
  EXPECT_EQ(session.state().reader.programs_missing_row_end, Lines{"MAIN.PLC"});
}

}  // namespace
}  // namespace rungc
