// Whole compiles that fail after the rungs: in the label pass, the object writer or the side
// files, as the error file reports them, with the files each failure leaves or removes.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "rungc/session.h"
#include "support/bench.h"
#include "support/ladder_builder.h"

namespace rungc {
namespace {

using testing::ErrorFileText;
using testing::LadderSource;
using testing::Lines;
using testing::Rows;
using testing::SplitLines;
using testing::SummaryLines;
using testing::TempProject;

// Names that were referred to but never defined fail only in the rewrite of the label pass: one
// pair of lines per failure in the error file, the rung number counting the rungs of every
// program so far. The listing is the copy from before the rewrite, so even the jump that did
// resolve keeps its name, and no object code is written.
TEST(BackendEndToEnd, UndefinedNamesFailTheLabelPass) {
  TempProject p;
  p.WriteSimpleProject({{"FIRST.PLC", Rows({"1(X0.1) -x7 22(HERE)", "23(HERE) -x8"})},
                        {"SECOND.PLC", Rows({"1(X0.2) -x7 3(Y0.2)", "1(X0.3) -x7 22(GHOST)",
                                             "1(X0.4) -x7 31(NOSUB)"})}});
  p.WriteMemoryMap(true, {"X,SSWB,100H,10H,4,4", "Y,WWWB,200H,0,0,8"});
  Session session;
  ASSERT_EQ(session.Compile(p.dir()), kCompileFailed);
  EXPECT_EQ(p.ReadFile("PLANT.LII"),
            testing::ListingText({"#F#FIRST.PLC", "#R#A_X_0001LjHERE__", "#R#LlHERE__",
                                  "#F#SECOND.PLC", "#R#A_X_0002G_Y_0002", "#R#A_X_0003LjGHOST_",
                                  "#R#A_X_0004LcNOSUB_", "#R#L2______", "#R#L3______"},
                                 ""));
  EXPECT_EQ(p.ReadFile("PLANT.ERR"), ErrorFileText({"#F#FIRST.PLC", "#F#SECOND.PLC",
                                                    "#F#SECOND.PLC", "#J#NERR=37#RUNG= 3 : GHOST_",
                                                    "#F#SECOND.PLC", "#J#NERR=58#RUNG= 4 : NOSUB_"},
                                                   SummaryLines(5, 2, 0, 5, 3, 9)));
  EXPECT_FALSE(p.Exists("PLANT.$$$"));
  EXPECT_FALSE(p.Exists("PLANT.cod"));
  EXPECT_FALSE(p.Exists("PLANT.tmc"));
}

// A unit the memory map cannot place, or a table line, fails the compile after a clean label
// pass: the file and the ordinal of its line within that file (table lines count from 20001),
// the object file deleted (an old one is gone too), no side file of the failed table, and no
// checksum line.
TEST(BackendEndToEnd, ObjectWriterAndSideFileFailuresNameTheirLine) {
  struct Case {
    Lines areas;
    std::string pds;  // the PID table, or none
    Lines failure;    // the lines of the failure in the error file
  };
  const std::string wz1 = "0001 WZ1    1,2,3,4,5,6,  NULL,7,";
  const Case cases[] = {
      // A_X_0010, word 1 of X: one word per group.
      {{"X,SSWB,0,8,8,1", "Y,SSWB,40H,8,8,4"}, "", {"#F#SECOND.PLC", "#E#NERR=5003#RUNG=2"}},
      {{"X,SSWB,0,8,8,4", "Y,SSWB,40H,8,8,4", "WZ,WWWW,900H,0,0,10H"},
       testing::PidTable({wz1, wz1, "0003 WQ1    1,2,3,4,5,6,  NULL,7,"}),
       {"#F#SECOND.PLC", "#E#NERR=5002#RUNG=20003"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.failure.back());
    TempProject p;
    p.WriteSimpleProject({{"FIRST.PLC", Rows({"1(X0.1) -x7 3(Y0.1)"})},
                          {"SECOND.PLC", Rows({"1(X0.2) -x7 3(Y0.2)", "1(X1.0) -x7 3(Y1.0)"})}});
    p.WriteMemoryMap(true, c.areas);
    if (!c.pds.empty()) p.WriteFile("PLANT.pds", c.pds);
    p.WriteFile("PLANT.cod", "an old object file");
    Session session;
    ASSERT_EQ(session.Compile(p.dir()), kCompileFailed);
    Lines records = {"#F#FIRST.PLC", "#F#SECOND.PLC"};
    records.insert(records.end(), c.failure.begin(), c.failure.end());
    EXPECT_EQ(p.ReadFile("PLANT.ERR"), ErrorFileText(records, SummaryLines(4, 1, 0, 3, 2, 6)));
    EXPECT_EQ(p.Exists("PLANT.cod"), !c.pds.empty());
    EXPECT_FALSE(p.Exists("PLANT.pdc"));
    EXPECT_EQ(SplitLines(p.ReadFile("PLANT.LII")).back(), "#R#L3______");
  }
}

}  // namespace
}  // namespace rungc
