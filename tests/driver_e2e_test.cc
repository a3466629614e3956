// Whole compiles of small projects through the public session and the exported entry point: the
// result codes, the files written or removed, the checksum carried from compile to compile, and
// the sequencer's lines after the ladder records.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "common/session.h"
#include "rungc/session.h"
#include "support/bench.h"
#include "support/ladder_builder.h"
#include "support/seqmsg_fixtures.h"

namespace rungc {
namespace {

using testing::ChecksumTrailer;
using testing::ErrorFileText;
using testing::LadderSource;
using testing::Lines;
using testing::ListingSum;
using testing::SplitLines;
using testing::SummaryLines;
using testing::TempProject;

// The error file of a compile of MAIN.PLC without rungs.
const std::string kCleanErrorFile = ErrorFileText({"#F#MAIN.PLC"}, SummaryLines(1, 0, 0, 0, 0));

TEST(DriverEndToEnd, ACleanProjectGivesZeroAndItsFilesByteForByte) {
  TempProject p;
  p.WriteSimpleProject({{"MAIN.PLC", LadderSource()}});
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), kCompileOk);
  EXPECT_EQ(p.ReadFile("PLANT.LII"),
            testing::ListingText({"#F#MAIN.PLC", "#R#L2______", "#R#L3______"}, "#s#0A5D"));
  EXPECT_EQ(p.ReadFile("PLANT.ERR"), kCleanErrorFile);
  EXPECT_FALSE(p.Exists("PLANT.$$$"));
}

TEST(DriverEndToEnd, AProjectThatCannotBeUsedGives4097AndWritesNothing) {
  const std::pair<std::function<void(const TempProject&)>, int> cases[] = {
      {[](const TempProject& p) { std::filesystem::remove(p.dir() / "status.kpx"); }, 50},
      {[](const TempProject& p) { std::filesystem::create_directory(p.dir() / "PLANT.LII"); }, 51},
  };
  for (const auto& [spoil, error] : cases) {
    TempProject p;
    p.WriteSimpleProject({{"MAIN.PLC", LadderSource()}});
    spoil(p);
    Session session;
    EXPECT_EQ(session.Compile(p.dir()), kCompileUnusable);
    EXPECT_EQ(session.state().diag.current_error, error);
    EXPECT_FALSE(p.Exists("PLANT.ERR"));
  }
}

// The end records are written, the checksum line is not, and no object code.
TEST(DriverEndToEnd, AProgramListThatStopsGives4098WithTheSummaryButNoTrailer) {
  struct Case {
    Lines programs;  // the project file's program lines
    bool end_line;
    std::string error_file;
  };
  const Case cases[] = {
      {{"MAIN.PLC"}, false, kCleanErrorFile},
      {{"MAIN.PLC", ";NEXT.PLC", "NEXT.PLC"}, true, kCleanErrorFile},  // a name cut to nothing
      {{"WRONG.PLC", "MAIN.PLC"}, true, ErrorFileText({}, SummaryLines(0, 1, 0, 0, 0))},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.programs.back());
    TempProject p;
    p.WriteSimpleProject({{"MAIN.PLC", LadderSource()}, {"NEXT.PLC", LadderSource()}});
    p.WriteProject(c.programs, c.end_line);
    p.WriteFile("WRONG.PLC", "- KORVA   1994       PRO             ;");  // a source of another kind
    p.WriteMemoryMap(true, {"WX,WWWW,0,0,8,4"});
    Session session;
    EXPECT_EQ(session.Compile(p.dir()), kCompileFailed);
    EXPECT_EQ(p.ReadFile("PLANT.ERR"), c.error_file);
    const Lines listing = SplitLines(p.ReadFile("PLANT.LII"));
    EXPECT_EQ(Lines(listing.end() - 2, listing.end()), (Lines{"#R#L2______", "#R#L3______"}));
    EXPECT_FALSE(p.Exists("PLANT.cod"));
  }
}

TEST(DriverEndToEnd, TheOldObjectCodeIsDeletedAndNoneWrittenWithoutAMapThatAsks) {
  for (std::string_view map : {"", "#MEM#N\r\nWX,WWWW,0,0,8,4\r\n", "#MEM#\r\n"}) {
    SCOPED_TRACE(map);
    TempProject p;
    p.WriteSimpleProject({{"MAIN.PLC", LadderSource()}});
    if (!map.empty()) p.WriteFile("memory.ovl", map);
    p.WriteFile("PLANT.cod", "old object code");
    Session session;
    EXPECT_EQ(session.Compile(p.dir()), kCompileOk);
    EXPECT_FALSE(p.Exists("PLANT.cod"));
  }
}

TEST(DriverEndToEnd, TheStatusFileMayPlaceTheProjectAndItsSourcesInADirectory) {
  TempProject p;
  p.WriteStatus("plc\\line1");
  p.WriteProject({"MAIN.PLC"}, true, "plc/line1/PLANT.PRO");
  p.WriteLadder("plc/line1/MAIN.PLC", testing::Rows({"1(X0.1) -x7 3(Y0.1)"}));
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), kCompileOk);
  EXPECT_EQ(SplitLines(p.ReadFile("plc/line1/PLANT.LII"))[2], "#R#A_X_0001G_Y_0001");
}

TEST(DriverEndToEnd, CompilesOfOneSessionCarryTheChecksumOnAndResetTheCounts) {
  TempProject p;
  p.WriteSimpleProject({{"MISSING.PLC", LadderSource()}});
  std::filesystem::remove(p.dir() / "MISSING.PLC");
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), kCompileFailed);  // a failed compile adds its records too
  p.WriteSimpleProject({{"MAIN.PLC", LadderSource()}});
  EXPECT_EQ(session.Compile(p.dir()), kCompileOk);
  EXPECT_EQ(p.ReadFile("PLANT.ERR"), kCleanErrorFile);
  const std::uint32_t failed = ListingSum({"#R#L2______", "#R#L3______"});
  const std::uint32_t clean = ListingSum({"#F#MAIN.PLC", "#R#L2______", "#R#L3______"});
  EXPECT_EQ(SplitLines(p.ReadFile("PLANT.LII")).back(), ChecksumTrailer(failed + clean));

  Session fresh;  // a new session starts from 0
  EXPECT_EQ(fresh.Compile(p.dir()), kCompileOk);
  EXPECT_EQ(SplitLines(p.ReadFile("PLANT.LII")).back(), "#s#0A5D");
}

// The exported entry point compiles in the current directory and keeps its checksum for the life
// of the loaded module.
TEST(ExportedEntryPoint, TwoCallsInOneLoadedModule) {
  void* module = dlopen(RUNGC_SHARED_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(module, nullptr) << dlerror();
  using Entry = std::uint32_t (*)(std::uint32_t);
  auto compile = reinterpret_cast<Entry>(dlsym(module, "Compilatore32"));
  ASSERT_NE(compile, nullptr);

  TempProject p;
  p.WriteSimpleProject({{"MAIN.PLC", LadderSource()}});
  const std::filesystem::path back = std::filesystem::current_path();
  std::filesystem::current_path(p.dir());
  const std::uint32_t first = compile(0);
  const std::uint32_t second = compile(0x1234);
  const std::string second_trailer = SplitLines(p.ReadFile("PLANT.LII")).back();
  std::filesystem::remove(p.dir() / "status.kpx");
  const std::uint32_t third = compile(0);
  std::filesystem::current_path(back);
  dlclose(module);

  EXPECT_EQ(first, kCompileOk);
  EXPECT_EQ(second, kCompileOk);
  EXPECT_EQ(third, kCompileUnusable);
  EXPECT_EQ(p.ReadFile("PLANT.ERR"), kCleanErrorFile);
  const std::uint32_t per_call = ListingSum({"#F#MAIN.PLC", "#R#L2______", "#R#L3______"}) + 185;
  EXPECT_EQ(second_trailer, ChecksumTrailer(2 * per_call - 185));
}

// The sequencer runs only when asked; its lines follow the ladder records and the checksum line
// covers them. A failed sequence fails the compile and leaves no checksum line.
TEST(SequencerEndToEnd, SequenceLinesComeBeforeTheTrailerThatCoversThem) {
  using testing::SequenceStep;
  TempProject p;
  p.WriteSimpleProject({{"MAIN.PLC", LadderSource()}});
  testing::SequenceFile file;
  file.Add("FILL", SequenceStep(5, {"WR1", "H10"}) + SequenceStep(14, {"X1.2"}) + SequenceStep(1));
  p.WriteFile("PLANT.VP", file.Bytes());
  CompileOptions with_sequences;
  with_sequences.run_sequences = true;
  Session plain;
  ASSERT_EQ(plain.Compile(p.dir()), kCompileOk);
  EXPECT_EQ(plain.last_sequence_result(), -1);
  Session session;
  ASSERT_EQ(session.Compile(p.dir(), with_sequences), kCompileOk);
  EXPECT_EQ(session.last_sequence_result(), 1);
  const Lines records = {"#F#MAIN.PLC",
                         "#R#L2______",
                         "#R#L3______",
                         "#S#SSFILL  ",
                         "#S#S5WR0001S_______S_K 0010S_______",
                         "#S#S>X_0012S_______S_______S_______",
                         "#S#S1______S_______S_______S_______",
                         "#S#Ss______"};
  EXPECT_EQ(p.ReadFile("PLANT.LII"), testing::ListingText(records));

  Session failing;
  p.WriteFile("PLANT.VP", testing::SequenceFile().Add("BAD", SequenceStep(12, {"X1.2"})).Bytes());
  EXPECT_EQ(failing.Compile(p.dir(), with_sequences), kCompileFailed);
  EXPECT_EQ(failing.last_sequence_result(), 2);
  EXPECT_EQ(SplitLines(p.ReadFile("PLANT.LII")).back(), "#S#Ss______");
}

}  // namespace
}  // namespace rungc
