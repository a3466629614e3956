// Object words of single units, whole code lines and the object code file.
#include "output/object_file.h"

#include <gtest/gtest.h>

#include <string>

#include "driver/compile_driver.h"
#include "support/bench.h"

namespace rungc {
namespace {

using testing::Bench;
using testing::HexBytes;
using testing::SampleAreaLines;

UnitText Unit(std::string_view text) {
  UnitText unit{};
  for (std::size_t i = 0; i < text.size() && i < unit.size(); ++i) unit[i] = text[i];
  return unit;
}

std::string Hex(const ObjectWord& word) {
  return HexBytes(std::string_view(reinterpret_cast<const char*>(word.data()), word.size()));
}

struct EncodeCase {
  const char* unit;
  int result;
  const char* word;  // opcode, access, address low, address high
};

// The sample map of the fixtures has one area of every type.
const EncodeCase kEncodeCases[] = {
    // SSWB "R ": base 0x200, stride 16, 4 groups of 8 elements.
    {"A_R_0123", 0, "02 08 14 02"},  // bit 3, element 2, group 1
    {"A_R_012B", 0, "02 08 15 02"},  // bit 11 lies in the high byte
    {"A_r_0123", 0, "02 08 14 02"},  // area letters are upper-cased
    {"A_R_0180", 3, nullptr},        // element 8
    {"A_R_0400", 4, nullptr},        // group 4
    // WWWW "WX": base 0x100, 32 elements.
    {"M_WX0005", 0, "00 FF 0A 01"},
    {"M_WX0020", 3, nullptr},
    {"M_WX00G1", 0, "00 FF 00 01"},  // the index ends at the first non-digit
    // SSWW "WR": base 0x1000, stride 0x40, 4 groups of 32 elements.
    {"M+WR0203", 0, "80 FF 86 10"},
    {"M_WR0400", 4, nullptr},
    // SSSW "WM": base 0x2000, stride 0x20, 8 groups of 10 elements.
    {"M_WM0035", 0, "00 FF 6A 20"},
    {"M_WM000A", 3, nullptr},
    {"M_WM0080", 4, nullptr},
    // WWWB "M ": base 0x3000, 16 elements.
    {"A_M_0012", 0, "02 04 02 30"},
    {"A_M_0100", 3, nullptr},
    // SWWB "Y ": base 0x4000, stride 0x100, 2 groups of 32 elements.
    {"Y_Y_1123", 0, "36 08 24 41"},
    {"Y_Y_2000", 4, nullptr},
    // BBBB "S ": no address.
    {"A_S_0123", 0, "02 00 00 00"},
    // TTTT "T ": base 0x6000, stride 4; "WT": base 0x7000, stride 2, read as words.
    {"T_T_0012", 0, "1C 01 48 60"},
    {"T_T_0080", 3, nullptr},
    {"M_WT0003", 0, "00 FF 06 70"},
    // Constants "K " and the blank area of the end records.
    {"LlK_0012", 0, "4A 00 12 00"},
    {"M_K_BEEF", 0, "00 00 EF BE"},
    {"L2______", 0, "44 00 00 00"},
    {"L3______", 0, "46 00 00 00"},
    // Analogue inputs are named AX in units and WAX in the map.
    {"M_AX0003", 0, "00 FF 06 08"},
    {"A_Q_0001", 2, nullptr},
    // Mnemonics compare exactly.
    {"a_R_0123", 0, "04 08 14 02"},
    {"l2______", -1, "00 00 00 00"},
    {"FF______", -1, "00 00 00 00"},  // the end row is no mnemonic
    // Resolved jumps and calls carry their displacement.
    {"LJK00010", 0, "64 00 10 00"},
    {"LjK12345", 0, "66 01 45 23"},
    {"LCK00008", 0, "70 00 08 00"},
    {"LcK0001C", 0, "72 00 1C 00"},
    {"LJKA0000", 2, nullptr},  // a value that begins with a letter is read as an operand
};

TEST(EncodeUnit, GivesTheObjectWordOfEveryAreaType) {
  Bench bench;
  bench.LoadMemoryMap(SampleAreaLines());
  for (const EncodeCase& c : kEncodeCases) {
    const UnitText unit = Unit(c.unit);
    const bool jump =
        unit[0] == 'L' && std::string_view("JjCc").find(unit[1]) != std::string_view::npos;
    ObjectWord word;
    EXPECT_EQ(EncodeUnit(bench.session().memory, unit, jump, &word), c.result) << c.unit;
    if (c.word != nullptr) {
      EXPECT_EQ(Hex(word), c.word) << c.unit;
    }
  }
}

TEST(EncodeUnit, AnAreaOfAnUnknownTypeGivesOne) {
  Bench bench;
  bench.LoadMemoryMap({"WX,WWWW,100H,0,8,20H"});
  bench.session().memory.areas[2].kind = 9;
  ObjectWord word;
  EXPECT_EQ(EncodeUnit(bench.session().memory, Unit("M_WX0001"), false, &word), 1);
}

TEST(ConvertCodeLine, ConvertsAtMost249UnitsOfALine) {
  Bench bench;
  bench.LoadMemoryMap(SampleAreaLines());
  std::array<ObjectWord, kMaxUnitsPerLine> words;
  std::size_t count = 0;
  std::string line = "#R#";
  for (int i = 0; i < 249; ++i) line += "A_R_0123";
  EXPECT_EQ(ConvertCodeLine(bench.session().memory, (line + "\n").c_str(), &words, &count), 0);
  EXPECT_EQ(count, 249u);
  // One unit more does not fit the buffers: the record is refused, not cut.
  line += "A_R_0123\n";
  EXPECT_EQ(ConvertCodeLine(bench.session().memory, line.c_str(), &words, &count), 5);

  // A unit cut short by the line end is read up to it.
  EXPECT_EQ(ConvertCodeLine(bench.session().memory, "#R#A_R_0123L2__\n", &words, &count), 0);
  EXPECT_EQ(count, 2u);
  EXPECT_EQ(Hex(words[1]), "44 00 00 00");

  // The first failing unit ends the line.
  EXPECT_EQ(
      ConvertCodeLine(bench.session().memory, "#R#A_R_0123A_Q_0001L2______\n", &words, &count), 2);
  EXPECT_EQ(count, 1u);
}

constexpr std::string_view kCodHeader = "- KORVA   1995 V2.0  COD             ;\r\n";

TEST(WriteObjectFile, AnEmptyProjectGivesFortyEightBytes) {
  Bench bench;
  bench.LoadMemoryMap(SampleAreaLines());
  bench.WriteListing({"#F#MAIN.PLC", "#R#L2______", "#R#L3______", "#s#0A1B"});
  EXPECT_EQ(WriteObjectFile(bench.session(), bench.listing_path()), 0);
  const std::string cod = bench.project().ReadFile("PLANT.cod");
  ASSERT_EQ(cod.size(), 48u);
  EXPECT_EQ(cod.substr(0, 40), kCodHeader);
  EXPECT_EQ(HexBytes(cod.substr(40)), "44 00 00 00 46 00 00 00");
  EXPECT_EQ(bench.project().ReadFile("PLANT.tmc"), "\x01\x01\x01\x01");
  EXPECT_EQ(bench.project().ReadFile("PLANT.pdc"), "\x01\x01\x01\x01");
}

TEST(WriteObjectFile, WritesOneWordPerUnitInFileOrder) {
  Bench bench;
  bench.LoadMemoryMap(SampleAreaLines());
  bench.project().WriteFile("PLANT.LII",
                            "- HALVERN 1992 RKX   LIS             ;\r\n#F#MAIN.PLC\r\n"
                            "#R#A_R_0123Y_Y_1123\r\n#R#LJK00008\r\n#R#LlK_0000\r\n#R#L3______\r\n");
  EXPECT_EQ(WriteObjectFile(bench.session(), bench.listing_path()), 0);
  EXPECT_EQ(HexBytes(bench.project().ReadFile("PLANT.cod").substr(40)),
            "02 08 14 02 36 08 24 41 64 00 08 00 4A 00 00 00 46 00 00 00");
}

TEST(WriteObjectFile, AMissingOrForeignListingGivesSix) {
  Bench missing;
  missing.session().diag.listing.Close();
  platform::RemoveFile(missing.session().diag.listing_path);
  EXPECT_EQ(WriteObjectFile(missing.session(), missing.listing_path()), 6);
  EXPECT_FALSE(missing.project().Exists("PLANT.cod"));

  Bench foreign;
  foreign.project().WriteFile("PLANT.LII", "- KORVA   1994       PRO             ;\r\n");
  EXPECT_EQ(WriteObjectFile(foreign.session(), foreign.listing_path()), 6);
  EXPECT_FALSE(foreign.project().Exists("PLANT.cod"));
}

TEST(WriteObjectFile, AFailedUnitDeletesTheObjectFileAndNamesItsLine) {
  struct Case {
    const char* unit;
    int code;
    const char* record;
  };
  const Case cases[] = {
      {"Zz______", -1, "#E#NERR=4999#RUNG=2"}, {"M_WX0001", 1, "#E#NERR=5001#RUNG=2"},
      {"A_Q_0001", 2, "#E#NERR=5002#RUNG=2"},  {"A_R_0180", 3, "#E#NERR=5003#RUNG=2"},
      {"A_R_0400", 4, "#E#NERR=5004#RUNG=2"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.unit);
    Bench bench;
    bench.LoadMemoryMap(SampleAreaLines());
    bench.session().memory.areas[3].kind = 9;  // WX: a type without conversion
    bench.WriteListing({"#F#MAIN.PLC", "#R#A_R_0123", "#R#A_R_0123", "#F#PUMP.PLC", "#R#A_R_0123",
                        std::string("#R#A_R_0123") + c.unit, "#R#L3______"});
    EXPECT_EQ(WriteObjectFile(bench.session(), bench.listing_path()), c.code);
    EXPECT_FALSE(bench.project().Exists("PLANT.cod"));
    EXPECT_FALSE(bench.project().Exists("PLANT.tmc"));
    ReportWriterFailure(bench.session(), c.code);
    EXPECT_EQ(bench.ErrorLines(), (std::vector<std::string>{"#F#PUMP.PLC", c.record}));
  }
}

}  // namespace
}  // namespace rungc
