// Thermoregulation and PID side files: word names, table lines and whole tables.
#include "output/side_files.h"

#include <gtest/gtest.h>

#include <string>

#include "support/bench.h"

namespace rungc {
namespace {

using testing::Bench;
using testing::HexBytes;
using testing::PidTable;
using testing::SampleAreaLines;
using testing::ThermoregulationTable;

TEST(NormalizeWordName, GivesTheOperandFieldOfAUnit) {
  struct Case {
    const char* name;
    int result;
    const char* field;
  };
  const Case cases[] = {
      {"WR12", 0, "WR0012"}, {"wr1", 0, "WR0001"},   {"WR1234", 0, "WR1234"},
      {"WAX5", 0, "AX0005"}, {"WAX12", 0, "AX0012"}, {"wax123", 0, "AX0123"},
      {"WZ", 0, "WZ0000"},   {"XR12", 2, nullptr},   {"R12", 2, nullptr},
  };
  for (const Case& c : cases) {
    char name[8] = {};
    std::snprintf(name, sizeof name, "%s", c.name);
    EXPECT_EQ(NormalizeWordName(name), c.result) << c.name;
    if (c.field != nullptr) {
      EXPECT_EQ(std::string(name, 6), c.field) << c.name;
    }
  }
}

// A table line without its line end: positions 0-3 unused, 4 the record mark, 5-10 operand A,
// 11 a separator.
std::string TableLine(char mark, std::string_view a, std::string_view rest) {
  return "0001" + std::string(1, mark) + std::string(a) + " " + std::string(rest);
}

TEST(ConvertTableLine, BuildsFullAndEmptyRecords) {
  struct Case {
    const char* title;
    std::string line;
    int result;
    const char* record;
  };
  const Case cases[] = {
      {"full record with further values",
       TableLine(' ', "WR12  ", "100,200,-1,65536,0,7,WZ3   ,9,1,2,"), 0,
       "FF 24 10 64 00 C8 00 FF FF 00 00 00 00 07 00 FF 06 09 09 00 01 00 02 00"},
      {"no operands", TableLine(' ', "  NULL", "1,2,3,4,5,6,  NULL,7,"), 0,
       "00 00 00 01 00 02 00 03 00 04 00 05 00 06 00 00 00 00 07 00"},
      {"values with blanks and signs", TableLine(' ', "wax5  ", " 1,+2,-2,3,4,5,  NULL, 8,"), 0,
       "FF 0A 08 01 00 02 00 FE FF 03 00 04 00 05 00 00 00 00 08 00"},
      {"operand A may be a bit", TableLine(' ', "WF12  ", "1,2,3,4,5,6,  NULL,7,"), 0,
       "04 02 0A 01 00 02 00 03 00 04 00 05 00 06 00 00 00 00 07 00"},
      {"empty record", TableLine('N', "XXXXXX", "whatever"), 0, "55 55 55 55"},
      {"operand B must be a word", TableLine(' ', "  NULL", "1,2,3,4,5,6,WF12  ,7,"), 2, nullptr},
      {"operand A must be a word name", TableLine(' ', "XR12  ", "1,2,3,4,5,6,  NULL,7,"), 2,
       nullptr},
      {"operand of no area", TableLine(' ', "WQ1   ", "1,2,3,4,5,6,  NULL,7,"), 2, nullptr},
      {"element out of range", TableLine(' ', "  NULL", "1,2,3,4,5,6,WX40  ,7,"), 3, nullptr},
      {"group out of range", TableLine(' ', "WR400 ", "1,2,3,4,5,6,  NULL,7,"), 4, nullptr},
  };
  Bench bench;
  bench.LoadMemoryMap(SampleAreaLines());
  for (const Case& c : cases) {
    SCOPED_TRACE(c.title);
    TableRecord record;
    std::size_t length = 0;
    EXPECT_EQ(ConvertTableLine(bench.session().memory, c.line + "\n", &record, &length), c.result);
    if (c.record != nullptr) {
      EXPECT_EQ(HexBytes(std::string_view(reinterpret_cast<const char*>(record.data()), length)),
                c.record);
    }
  }
}

constexpr std::string_view kMarker = "\x01\x01\x01\x01";
const std::string kTmcStart =
    std::string("- KORVA   1994       TERMOCOD        ;\r\n") + "\x55\xAA\xAA\x55";
const std::string kPdcStart =
    std::string("- KORVA   1994       PIDCOD          ;\r\n") + "\x55\xAA\xAA\x55";

TEST(WriteSideFiles, WritesMarkersWithoutUsableTables) {
  struct Case {
    const char* title;
    std::vector<std::string> areas;
    std::string tmr_name;
    std::string tmr;
  };
  const std::string one_line = TableLine(' ', "  NULL", "1,2,3,4,5,6,  NULL,7,");
  const Case cases[] = {
      {"no tables", SampleAreaLines(), "", ""},
      {"another maker's header", SampleAreaLines(), "PLANT.tmr",
       "- HALVERN 1992       TERMO           ;\r\n" + one_line},
      {"no WZ area", {"WR,SSWW,1000H,40H,4,20H"}, "PLANT.tmr", ThermoregulationTable({one_line})},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.title);
    Bench bench;
    bench.LoadMemoryMap(c.areas);
    if (!c.tmr_name.empty()) bench.project().WriteFile(c.tmr_name, c.tmr);
    EXPECT_EQ(WriteSideFiles(bench.session(), bench.listing_path()), 0);
    EXPECT_EQ(bench.project().ReadFile("PLANT.tmc"), kMarker);
    EXPECT_EQ(bench.project().ReadFile("PLANT.pdc"), kMarker);
  }
}

TEST(WriteSideFiles, ConvertsBothTables) {
  Bench bench;
  bench.LoadMemoryMap(SampleAreaLines());
  // Table names are found whatever their case; a last line without its line end is not read.
  bench.project().WriteFile(
      "plant.TMR", ThermoregulationTable({TableLine(' ', "WZ1   ", "1,2,3,4,5,6,  NULL,7,"),
                                          TableLine('N', "", "")}) +
                       "0001 WZ2    1,2,3,4,5,6,  NULL,7,");
  bench.project().WriteFile("PLANT.pds", PidTable({}));
  EXPECT_EQ(WriteSideFiles(bench.session(), bench.listing_path()), 0);
  const std::string tmc = bench.project().ReadFile("PLANT.tmc");
  ASSERT_EQ(tmc.size(), 44u + 20 + 4);
  EXPECT_EQ(tmc.substr(0, 44), kTmcStart);
  EXPECT_EQ(HexBytes(tmc.substr(44)),
            "FF 02 09 01 00 02 00 03 00 04 00 05 00 06 00 00 00 00 07 00 55 55 55 55");
  EXPECT_EQ(bench.project().ReadFile("PLANT.pdc"), kPdcStart);
}

TEST(WriteSideFiles, AFailedLineDeletesItsFileAndKeepsTheFirstFailure) {
  const std::string good = TableLine(' ', "WZ1   ", "1,2,3,4,5,6,  NULL,7,");
  const std::string bad_area = TableLine(' ', "WQ1   ", "1,2,3,4,5,6,  NULL,7,");
  const std::string bad_group = TableLine(' ', "WR400 ", "1,2,3,4,5,6,  NULL,7,");
  struct Case {
    const char* title;
    std::vector<std::string> tmr;  // empty: no table
    std::vector<std::string> pds;
    int result;
    std::int32_t line_counter;
    bool tmc_kept;
    bool pdc_kept;
  };
  const Case cases[] = {
      {"third PID line", {}, {good, good, bad_area}, 2, 20003, true, false},
      {"thermoregulation fails, PID converts",
       {good, bad_group},
       {good, good, good},
       4,
       20002,
       false,
       true},
      {"both fail: the first is reported", {bad_group}, {good, bad_area}, 4, 20001, false, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.title);
    Bench bench;
    bench.LoadMemoryMap(SampleAreaLines());
    if (!c.tmr.empty()) bench.project().WriteFile("PLANT.tmr", ThermoregulationTable(c.tmr));
    bench.project().WriteFile("PLANT.pds", PidTable(c.pds));
    EXPECT_EQ(WriteSideFiles(bench.session(), bench.listing_path()), c.result);
    EXPECT_EQ(bench.session().object.line_counter, c.line_counter);
    EXPECT_EQ(bench.project().Exists("PLANT.tmc"), c.tmc_kept);
    EXPECT_EQ(bench.project().Exists("PLANT.pdc"), c.pdc_kept);
  }
}

}  // namespace
}  // namespace rungc
