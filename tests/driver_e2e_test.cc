// End-to-end compiles of small projects through the C++ session and the exported entry point.
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

namespace rungc {
namespace {

using testing::ChecksumTrailer;
using testing::LadderSource;
using testing::ListingSum;
using testing::SplitLines;
using testing::TempProject;

constexpr std::string_view kListingHeader = "- KORVA   1995 V2.0  LIS             ;";

// The six summary lines, as the error file ends with them.
std::string Summary(int rows, int errors, int warnings = 0, int rungs = 0) {
  return "Riga N. = " + std::to_string(rows) + "\r\n#TERR=" + std::to_string(errors) +
         "\r\n#TWRN=" + std::to_string(warnings) + "\r\n#TOTRUNG=" + std::to_string(rungs) +
         "\r\n#TOTMAINISTR=0\r\n#TOTSUBMISTR=0\r\n";
}

// A status file, a project of these programs and an empty source for each.
void WriteEmptyPrograms(const TempProject& p, const std::vector<std::string>& programs) {
  p.WriteStatus();
  p.WriteProject(programs);
  for (const std::string& name : programs) p.WriteFile(name, LadderSource().Text());
}

TEST(DriverEndToEnd, ACleanProjectGivesZeroAndItsFilesByteForByte) {
  TempProject p;
  WriteEmptyPrograms(p, {"MAIN.PLC"});
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), 0u);
  EXPECT_EQ(p.ReadFile("PLANT.LII"), std::string(kListingHeader) +
                                         "\r\n#F#MAIN.PLC\r\n#R#L2______\r\n#R#L3______\r\n"
                                         "#s#0A5D\r\n");
  EXPECT_EQ(p.ReadFile("PLANT.ERR"), "#F#MAIN.PLC\r\n" + Summary(1, 0));
  EXPECT_FALSE(p.Exists("PLANT.$$$"));
}

TEST(DriverEndToEnd, EveryProgramOfTheListGetsAFileStartRecord) {
  TempProject p;
  WriteEmptyPrograms(p, {"A.PLC", "B.PLC"});
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), 0u);
  const std::vector<std::string> records = {"#F#A.PLC", "#F#B.PLC", "#R#L2______", "#R#L3______"};
  std::vector<std::string> expected = {std::string(kListingHeader)};
  expected.insert(expected.end(), records.begin(), records.end());
  expected.push_back(ChecksumTrailer(ListingSum(records)));
  EXPECT_EQ(SplitLines(p.ReadFile("PLANT.LII")), expected);
  EXPECT_EQ(p.ReadFile("PLANT.ERR"), "#F#A.PLC\r\n#F#B.PLC\r\n" + Summary(1, 0));
}

TEST(DriverEndToEnd, AProjectThatCannotBeUsedGives4097AndWritesNothing) {
  struct Case {
    std::string_view what;
    std::function<void(const TempProject&)> spoil;
    int error;
  };
  const Case cases[] = {
      {"no status file",
       [](const TempProject& p) { std::filesystem::remove(p.dir() / "status.kpx"); }, 50},
      {"status header",
       [](const TempProject& p) { p.WriteFile("status.kpx", "- KORVA   1995\r\n"); }, 53},
      {"no project file",
       [](const TempProject& p) { std::filesystem::remove(p.dir() / "PLANT.PRO"); }, 55},
      {"project header",
       [](const TempProject& p) {
         p.WriteFile("PLANT.PRO", "- KORVO   1994\r\nMAIN.PLC\r\n \r\n");
       },
       56},
      {"listing cannot be created",
       [](const TempProject& p) { std::filesystem::create_directory(p.dir() / "PLANT.LII"); }, 51},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    TempProject p;
    WriteEmptyPrograms(p, {"MAIN.PLC"});
    c.spoil(p);
    Session session;
    EXPECT_EQ(session.Compile(p.dir()), 4097u);
    EXPECT_EQ(session.state().diag.current_error, c.error);
    EXPECT_FALSE(p.Exists("PLANT.ERR"));
  }
}

TEST(DriverEndToEnd, AProgramListThatStopsGives4098WithTheSummaryButNoTrailer) {
  struct Case {
    std::string_view what;
    std::vector<std::string> lines;  // the project file's program lines
    bool end_line;
    std::vector<std::string> sources;  // the sources that exist (empty programs)
    std::string error_file;
  };
  const Case cases[] = {
      {"no end-of-list line", {"MAIN.PLC"}, false, {"MAIN.PLC"}, "#F#MAIN.PLC\r\n" + Summary(1, 0)},
      {"a name cut to nothing by ';'",
       {"MAIN.PLC", ";NEXT.PLC", "NEXT.PLC"},
       true,
       {"MAIN.PLC", "NEXT.PLC"},
       "#F#MAIN.PLC\r\n" + Summary(1, 0)},
      {"a bare line end",
       {"MAIN.PLC", "", "NEXT.PLC"},
       true,
       {"MAIN.PLC", "NEXT.PLC"},
       "#F#MAIN.PLC\r\n" + Summary(1, 0)},
      {"a missing source: counted, not written",
       {"MISSING.PLC", "NEXT.PLC"},
       true,
       {"NEXT.PLC"},
       Summary(0, 1)},
      {"a source of another kind", {"WRONG.PLC", "NEXT.PLC"}, true, {"NEXT.PLC"}, Summary(0, 1)},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    TempProject p;
    p.WriteStatus();
    p.WriteProject(c.lines, c.end_line);
    for (const std::string& name : c.sources) p.WriteFile(name, LadderSource().Text());
    p.WriteFile("WRONG.PLC", "- KORVA   1994       PRO             ;");
    p.WriteMemoryMap(true, {"WX,WWWW,0,0,8,4"});
    Session session;
    EXPECT_EQ(session.Compile(p.dir()), 4098u);
    EXPECT_EQ(p.ReadFile("PLANT.ERR"), c.error_file);
    const std::vector<std::string> listing = SplitLines(p.ReadFile("PLANT.LII"));
    ASSERT_GE(listing.size(), 3u);
    EXPECT_EQ(listing[listing.size() - 2], "#R#L2______");  // the end records are written
    EXPECT_EQ(listing.back(), "#R#L3______");               // and no checksum trailer
    EXPECT_FALSE(p.Exists("PLANT.cod"));
  }
}

TEST(DriverEndToEnd, TheEndOfListLineMayHoldAnythingAfterItsBlank) {
  TempProject p;
  WriteEmptyPrograms(p, {"MAIN.PLC"});
  p.WriteFile("PLANT.PRO", "- KORVA   1994       PRO             ;\r\nMAIN.PLC\r\n  end\r\n");
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), 0u);
}

TEST(DriverEndToEnd, TheOldObjectCodeIsDeletedAndNoneWrittenWithoutAMapThatAsks) {
  for (std::string_view map : {"", "#MEM#N\r\nWX,WWWW,0,0,8,4\r\n", "#MEM#\r\n"}) {
    SCOPED_TRACE(map);
    TempProject p;
    WriteEmptyPrograms(p, {"MAIN.PLC"});
    if (!map.empty()) p.WriteFile("memory.ovl", map);
    p.WriteFile("PLANT.cod", "old object code");
    Session session;
    EXPECT_EQ(session.Compile(p.dir()), 0u);
    EXPECT_FALSE(p.Exists("PLANT.cod"));
    EXPECT_TRUE(p.Exists("PLANT.LII"));
  }
}

TEST(DriverEndToEnd, TheStatusFileMayPlaceTheProjectInADirectory) {
  for (std::string_view directory : {"plc\\line1", "plc\\line1\\", "plc/line1"}) {
    SCOPED_TRACE(directory);
    TempProject p;
    p.WriteStatus(directory);
    p.WriteProject({"MAIN.PLC"}, true, "plc/line1/PLANT.PRO");
    p.WriteFile("plc/line1/MAIN.PLC", LadderSource().Text());
    Session session;
    EXPECT_EQ(session.Compile(p.dir()), 0u);
    EXPECT_TRUE(p.Exists("plc/line1/PLANT.LII"));
    EXPECT_EQ(p.ReadFile("plc/line1/PLANT.ERR"), "#F#MAIN.PLC\r\n" + Summary(1, 0));
  }
}

TEST(DriverEndToEnd, CompilesOfOneSessionCarryTheChecksumOnAndResetTheCounts) {
  TempProject p;
  WriteEmptyPrograms(p, {"MISSING.PLC"});
  std::filesystem::remove(p.dir() / "MISSING.PLC");
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), 4098u);  // a failed compile adds its records too
  WriteEmptyPrograms(p, {"MAIN.PLC"});
  EXPECT_EQ(session.Compile(p.dir()), 0u);
  EXPECT_EQ(p.ReadFile("PLANT.ERR"), "#F#MAIN.PLC\r\n" + Summary(1, 0));
  const std::uint32_t failed = ListingSum({"#R#L2______", "#R#L3______"});
  const std::uint32_t clean = ListingSum({"#F#MAIN.PLC", "#R#L2______", "#R#L3______"});
  EXPECT_EQ(SplitLines(p.ReadFile("PLANT.LII")).back(), ChecksumTrailer(failed + clean));

  Session fresh;  // a new session starts from 0
  EXPECT_EQ(fresh.Compile(p.dir()), 0u);
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
  WriteEmptyPrograms(p, {"MAIN.PLC"});
  const std::filesystem::path back = std::filesystem::current_path();
  std::filesystem::current_path(p.dir());
  const std::uint32_t first = compile(0);
  const std::string first_trailer = SplitLines(p.ReadFile("PLANT.LII")).back();
  const std::uint32_t second = compile(0x1234);
  const std::string second_trailer = SplitLines(p.ReadFile("PLANT.LII")).back();
  std::filesystem::remove(p.dir() / "status.kpx");
  const std::uint32_t third = compile(0);
  std::filesystem::current_path(back);
  dlclose(module);

  EXPECT_EQ(first, 0u);
  EXPECT_EQ(second, 0u);
  EXPECT_EQ(third, 4097u);
  EXPECT_EQ(p.ReadFile("PLANT.ERR"), "#F#MAIN.PLC\r\n" + Summary(1, 0));
  // Each call adds the same lines and "#s#": the second sum is the first plus that much again.
  const std::uint32_t per_call = ListingSum({"#F#MAIN.PLC", "#R#L2______", "#R#L3______"}) + 185;
  const std::uint32_t first_sum =
      static_cast<std::uint32_t>(std::stoul(first_trailer.substr(3), nullptr, 16));
  EXPECT_EQ(second_trailer, ChecksumTrailer(first_sum + per_call - 185));
}

}  // namespace
}  // namespace rungc
