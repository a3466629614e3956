// Whole compiles whose memory map asks for object code: the object code file, the side files and
// the checksum line of the listing.
#include <gtest/gtest.h>

#include <filesystem>

#include "rungc/session.h"
#include "support/backend_fixtures.h"
#include "support/ladder_builder.h"

namespace rungc {
namespace {

using testing::HexBytes;
using testing::LadderSource;
using testing::PidTable;
using testing::SampleAreaLines;
using testing::SplitLines;
using testing::TempProject;

constexpr std::string_view kCodHeader = "- KORVA   1995 V2.0  COD             ;\r\n";
constexpr std::string_view kMarker = "\x01\x01\x01\x01";

TEST(BackendEndToEnd, AnEmptyProjectWritesItsObjectCodeAndChecksum) {
  TempProject p;
  p.WriteSimpleProject({{"MAIN.PLC", LadderSource()}});
  p.WriteMemoryMap(true, SampleAreaLines());
  Session session;
  ASSERT_EQ(session.Compile(p.dir()), kCompileOk);
  const std::string cod = p.ReadFile("PLANT.cod");
  EXPECT_EQ(cod.substr(0, 40), kCodHeader);
  EXPECT_EQ(HexBytes(cod.substr(40)), "44 00 00 00 46 00 00 00");
  EXPECT_EQ(p.ReadFile("PLANT.tmc"), kMarker);
  EXPECT_EQ(p.ReadFile("PLANT.pdc"), kMarker);
  EXPECT_EQ(SplitLines(p.ReadFile("PLANT.LII")),
            (std::vector<std::string>{"- KORVA   1995 V2.0  LIS             ;", "#F#MAIN.PLC",
                                      "#R#L2______", "#R#L3______", "#s#0A5D"}));
  EXPECT_FALSE(p.Exists("PLANT.$$$"));
}

TEST(BackendEndToEnd, AFailedTableLineFailsTheCompileWithItsLine) {
  TempProject p;
  p.WriteSimpleProject({{"MAIN.PLC", LadderSource()}});
  p.WriteMemoryMap(true, SampleAreaLines());
  p.WriteFile("PLANT.pds",
              PidTable({"0001 WZ1    1,2,3,4,5,6,  NULL,7,", "0002 WZ2    1,2,3,4,5,6,  NULL,7,",
                        "0003 WQ1    1,2,3,4,5,6,  NULL,7,"}));
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), kCompileFailed);
  const std::vector<std::string> errors = SplitLines(p.ReadFile("PLANT.ERR"));
  ASSERT_GE(errors.size(), 5u);
  EXPECT_EQ(errors[1], "#F#MAIN.PLC");
  EXPECT_EQ(errors[2], "#E#NERR=5002#RUNG=20003");
  EXPECT_EQ(errors[4], "#TERR=1");
  EXPECT_FALSE(p.Exists("PLANT.pdc"));
  EXPECT_EQ(p.ReadFile("PLANT.tmc"), kMarker);
  EXPECT_EQ(SplitLines(p.ReadFile("PLANT.LII")).back(), "#R#L3______");
}

// The example project: its memory map asks for object code and it carries both tables.
TEST(BackendEndToEnd, TheExampleProjectWritesItsSideFiles) {
  TempProject p;
  std::filesystem::copy(std::filesystem::path(RUNGC_SOURCE_DIR) / "examples" / "plant", p.dir(),
                        std::filesystem::copy_options::recursive);
  Session session;
  ASSERT_EQ(session.Compile(p.dir()), kCompileOk);
  const std::string cod = p.ReadFile("PLANT.cod");
  EXPECT_EQ(cod.substr(0, 40), kCodHeader);
  EXPECT_EQ(cod.size() % 4, 0u);
  EXPECT_EQ(HexBytes(cod.substr(cod.size() - 4)), "46 00 00 00");
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
  EXPECT_EQ(SplitLines(p.ReadFile("PLANT.LII")).back().substr(0, 3), "#s#");
}

}  // namespace
}  // namespace rungc
