// What a compile leaves in the project directory when it fails, when memory runs out under it,
// and when it runs twice in one loaded module.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "common/session.h"
#include "driver/compile_driver.h"
#include "rungc/session.h"
#include "support/bench.h"
#include "support/ladder_builder.h"
#include "support/reliability_fixtures.h"

namespace rungc {
namespace {

using testing::LadderSource;
using testing::SplitLines;
using testing::TempProject;
using Names = std::vector<std::string>;

constexpr std::string_view kCheckOnlyMap = "#MEM#N";

// A project of one program (contacts and coils, a jump and its label, a function block) whose
// memory map asks for object code, with both tables.
void WriteCleanProject(const TempProject& p) {
  p.WriteSimpleProject({{"MAIN.PLC", LadderSource()
                                         .Row("1(R1.2) 2(R1.3) -x6 3(Y1.0)")
                                         .Row("1(R1.0) -x7 22(LOOP1)")
                                         .Row("1(R1.0) - - 38(WR1 = WR2,Y1.1 = 1)")
                                         .Row("23(LOOP1)")}});
  p.WriteMemoryMap(true, testing::SampleAreaLines());
  p.WriteFile("PLANT.tmr", testing::ThermoregulationTable({"0001 WZ1    1,2,3,4,5,6,  NULL,7,"}));
  p.WriteFile("PLANT.pds", testing::PidTable({"0001 WZ2    1,2,3,4,5,6,  NULL,7,"}));
}

// The output files of the project that exist, in a fixed order.
Names OutputsPresent(const TempProject& p) {
  Names present;
  for (const char* name :
       {"PLANT.LII", "PLANT.ERR", "PLANT.$$$", "PLANT.cod", "PLANT.tmc", "PLANT.pdc"}) {
    if (p.Exists(name)) present.emplace_back(name);
  }
  return present;
}

// After a clean compile that wrote everything, a second compile of the same project fails (or
// asks for no object code). Which of the first compile's outputs exist afterwards.
struct SecondCompile {
  const char* what;
  void (*spoil)(const TempProject&);
  std::uint32_t result;
  Names outputs;  // the output files present after the second compile
};

const std::vector<SecondCompile>& SecondCompiles() {
  static const std::vector<SecondCompile> cases = {
      {"missing program",
       [](const TempProject& p) { p.WriteProject({"GONE.PLC"}); },
       kCompileFailed,
       {"PLANT.LII", "PLANT.ERR"}},
      {"no end of the program list",
       [](const TempProject& p) { p.WriteProject({"MAIN.PLC"}, false); },
       kCompileFailed,
       {"PLANT.LII", "PLANT.ERR"}},
      {"check-only memory map",
       [](const TempProject& p) { p.WriteFile("memory.ovl", kCheckOnlyMap); },
       kCompileOk,
       {"PLANT.LII", "PLANT.ERR"}},
      // A failed table deletes its own side file; the object code of this compile is whole.
      {"failed table line",
       [](const TempProject& p) {
         p.WriteFile("PLANT.pds", testing::PidTable({"0001 WQ1    1,2,3,4,5,6,  NULL,7,"}));
       },
       kCompileFailed,
       {"PLANT.LII", "PLANT.ERR", "PLANT.cod", "PLANT.tmc"}},
  };
  return cases;
}

// Runs the clean compile, then the second one; gives the outputs present afterwards.
Names OutputsAfterSecondCompile(const SecondCompile& c) {
  TempProject p;
  WriteCleanProject(p);
  EXPECT_EQ(Session().Compile(p.dir()), kCompileOk) << c.what;
  EXPECT_EQ(OutputsPresent(p),
            (Names{"PLANT.LII", "PLANT.ERR", "PLANT.cod", "PLANT.tmc", "PLANT.pdc"}));
  c.spoil(p);
  EXPECT_EQ(Session().Compile(p.dir()), c.result) << c.what;
  return OutputsPresent(p);
}

// The object code and side files of an earlier compile go when a later one fails or asks for no
// object code; the listing and error file are always written, the ".$$$" copy never left.
TEST(Outputs, AFailedCompileLeavesNoEarlierObjectCodeOrSideFile) {
  for (const SecondCompile& c : SecondCompiles()) {
    EXPECT_EQ(OutputsAfterSecondCompile(c), c.outputs) << c.what;
  }
}

// A ".$$$" copy left by an interrupted compile is removed by the next label pass.
TEST(Outputs, NoTemporaryCopyIsLeft) {
  TempProject p;
  WriteCleanProject(p);
  p.WriteFile("PLANT.$$$", "left over");
  EXPECT_EQ(Session().Compile(p.dir()), kCompileOk);
  EXPECT_FALSE(p.Exists("PLANT.$$$"));
}

// Every allocation of a compile of this project fails in turn: the compile then returns 4097 or
// 4098 instead of throwing, leaves no ".$$$" copy and no file open, and the next compile of the
// same session gives the result and listing of an undisturbed one.
void SweepAllocationFailures(const TempProject& p) {
  CompileSession reference;
  reference.work_dir = platform::WorkDir(p.dir());
  const long before = testing::AllocationCount();
  ASSERT_EQ(CompileEntry(reference), kCompileOk);
  const long allocations = testing::AllocationCount() - before;
  const std::string listing = p.ReadFile("PLANT.LII");
  ASSERT_GT(allocations, 0);

  for (long allowed = 0; allowed < allocations; ++allowed) {
    CompileSession s;
    s.work_dir = platform::WorkDir(p.dir());
    std::uint32_t result = 0;
    bool triggered = false;
    {
      testing::AllocationFailure failure(allowed);
      EXPECT_NO_THROW(result = CompileEntry(s)) << allowed;
      triggered = failure.triggered();
    }
    if (!triggered) continue;
    EXPECT_TRUE(result == kCompileUnusable || result == kCompileFailed) << allowed;
    EXPECT_FALSE(p.Exists("PLANT.$$$")) << allowed;
    EXPECT_FALSE(s.diag.listing.is_open() || s.diag.error_file.is_open() ||
                 s.driver.project_file.is_open() || s.reader.source.is_open())
        << allowed;
    s.diag.listing_checksum = 0;
    EXPECT_EQ(CompileEntry(s), kCompileOk) << allowed;
    EXPECT_EQ(p.ReadFile("PLANT.LII"), listing) << allowed;
  }
}

TEST(Outputs, AllocationFailuresNeverEscapeTheEntry) {
  TempProject p;
  WriteCleanProject(p);
  SweepAllocationFailures(p);
}

// A failure that interrupts the rewrite of the label pass (a program name too long for a short
// text makes the pass allocate after the listing was renamed) puts the listing back.
TEST(Outputs, AnAllocationFailureInTheLabelPassKeepsTheListing) {
  TempProject p;
  WriteCleanProject(p);
  p.WriteLadder("A_LONGER_PROGRAM_NAME.PLC", LadderSource());
  p.WriteProject({"MAIN.PLC", "A_LONGER_PROGRAM_NAME.PLC"});
  SweepAllocationFailures(p);
}

// The element flags live as long as the module: a block start without a block end passes the
// end-of-compile checks after a compile that had one, and fails them (error 69) in a fresh
// module.
TEST(Outputs, ElementFlagsCarryOverToTheNextCompile) {
  TempProject earlier;
  earlier.WriteSimpleProject(
      {{"MAIN.PLC",
        LadderSource().Row("1(R1.0) 2(R1.1) -x6 3(Y1.0)").Row("29").Row("42(BLOCK1)").Row("43")}});
  earlier.WriteMemoryMap(false, {});
  TempProject later;
  later.WriteSimpleProject({{"MAIN.PLC", LadderSource().Row("29").Row("42(BLOCK1)")}});
  later.WriteMemoryMap(false, {});

  Session carried;
  ASSERT_EQ(carried.Compile(earlier.dir()), kCompileOk);
  EXPECT_EQ(carried.Compile(later.dir()), kCompileOk);
  Session fresh;
  EXPECT_EQ(fresh.Compile(later.dir()), kCompileFailed);
  EXPECT_EQ(SplitLines(later.ReadFile("PLANT.ERR"))[1].substr(0, 10), "#E#NERR=69");
}

// A rung whose code is longer than a line the object writer reads (249 units, 1,999 characters)
// never leaves an object code file that lacks some of its units.
TEST(Outputs, ARungLongerThanAnObjectLineIsNotCutSilently) {
  TempProject p;
  p.WriteSimpleProject({{"MAIN.PLC", testing::BoxRung(28, "WY1 = WX2")}});
  p.WriteMemoryMap(
      true, {"X,SSWB,0,16,8,8", "Y,SSWB,100H,16,8,8", "WX,SSWW,0,16,8,8", "WY,SSWW,100H,16,8,8"});
  const std::uint32_t result = Session().Compile(p.dir());
  std::size_t units = 0;
  for (const std::string& line : SplitLines(p.ReadFile("PLANT.LII"))) {
    if (line.rfind("#R#", 0) == 0) units += (line.size() - 3) / 8;
  }
  ASSERT_GT(units, 249u);
  if (result == kCompileOk) {
    EXPECT_EQ(p.ReadFile("PLANT.cod").size(), 40 + 4 * units);
  } else {
    EXPECT_FALSE(p.Exists("PLANT.cod"));
  }
}

}  // namespace
}  // namespace rungc
