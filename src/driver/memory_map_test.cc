// The memory map file: its first line, the area lines and the sizes derived for the sequencer.
#include "driver/memory_map.h"

#include <gtest/gtest.h>

#include <string>

#include "common/session.h"
#include "support/ladder_builder.h"

namespace rungc {
namespace {

using testing::TempProject;

struct MapLoad {
  TempProject project;
  CompileSession session;
  int result = 0;

  explicit MapLoad(std::string_view file_text, bool write = true) {
    if (write) project.WriteFile("memory.ovl", file_text);
    session.work_dir = platform::WorkDir(project.dir());
    result = LoadMemoryMap(session, "memory.ovl");
  }
  const MemoryArea& row(std::size_t i) const { return session.memory.areas[i]; }
};

TEST(MemoryMap, TheFirstLineSaysWhetherObjectCodeIsWanted) {
  struct Case {
    std::string_view text;
    int result;
  };
  const Case cases[] = {
      {"#MEM#Y\r\n", 0},  {"#MEM#y\r\n", 0}, {"#MEM#N\r\n", 1}, {"#MEM#\r\n", 1},   {"#MEM#Yes", 0},
      {"#MEM Y\r\n", -1}, {"MEM#Y\r\n", -1}, {"", -1},          {"#mem#Y\r\n", -1},
  };
  for (const Case& c : cases) {
    MapLoad load(c.text);
    EXPECT_EQ(load.result, c.result) << c.text;
  }
  EXPECT_EQ(MapLoad("", false).result, -1);  // no file at all
}

TEST(MemoryMap, AreaLinesFillTheRowsFromRowTwo) {
  MapLoad load(
      "#MEM#Y\r\n"
      "WX,WWWW,100H,0,8,20H\r\n"
      " WY,WWWW,1,1,1,1\r\n"  // ignored: a blank
      "1WY,WWWW,1,1,1,1\r\n"  // ignored: a digit
      ";WY,WWWW,1,1,1,1\r\n"  // ignored: a comment
      "#WY,WWWW,1,1,1,1\r\n"  // ignored: '#'
      "\r\n"                  // ignored: empty
      "wy,sswb,0ffh,2,4,10h\r\n"
      "T,TTTT,255,0FFH,1,128 timers\r\n"
      "C,COST,0,0,0,7\r\n"
      "WAX,SWWBX,1,2,3,4\n"  // the kind word is compared on 4 characters
      "LONGNAME9,BBBB,1,2,3,9H trailing\r\n");
  ASSERT_EQ(load.result, 0);
  struct Row {
    std::string_view name;
    int kind, base, group_size, group_count, element_count;
  };
  const Row rows[] = {
      {"WX", 1, 256, 0, 8, 32}, {"WY", 4, 255, 2, 4, 16}, {"T ", 8, 255, 255, 1, 128},
      {"C ", 0, 0, 0, 0, 7},    {"WAX", 6, 1, 2, 3, 4},   {"LONGNAM", 7, 1, 2, 3, 9},
  };
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    SCOPED_TRACE(rows[i].name);
    const MemoryArea& area = load.row(i + 2);
    EXPECT_EQ(area.name.view(), rows[i].name);
    EXPECT_EQ(area.kind, rows[i].kind);
    EXPECT_EQ(area.base, rows[i].base);
    EXPECT_EQ(area.group_size, rows[i].group_size);
    EXPECT_EQ(area.group_count, rows[i].group_count);
    EXPECT_EQ(area.element_count, rows[i].element_count);
  }
  EXPECT_TRUE(load.row(8).name.empty());
}

TEST(MemoryMap, MalformedAreaLinesFailTheWholeLoad) {
  struct Case {
    std::string_view line;
    int kind_of_row;  // the kind left in the failing row
  };
  const Case cases[] = {
      {"WZ,ABCD,0,0,1,1", -1},  // not in the kind table
      {"WZ,FFFF,0,0,1,1", -1},  // the end row of the kind table
      {"WZ,WW,0,0,1,1", -1},    // shorter than a kind word
      {"WZ,WWWW,0,0,1", -1},    // four commas
      {"WZ", -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.line);
    MapLoad load("#MEM#Y\r\nWX,WWWW,100H,0,8,20H\r\n" + std::string(c.line) +
                 "\r\nWY,WWWW,1,1,1,1\r\n");
    EXPECT_EQ(load.result, -1);
    EXPECT_EQ(load.row(2).name.view(), "WX");  // rows read before the failure stay
    EXPECT_EQ(load.row(3).kind, c.kind_of_row);
    EXPECT_TRUE(load.row(4).name.empty());  // nothing is read after it
  }
}

TEST(MemoryMap, SixtyOneAreaLinesFitAndAnyLineAfterThemFails) {
  std::string areas = "#MEM#N\r\n";
  for (int i = 0; i < 61; ++i) areas += "A" + std::to_string(i) + ",WWWW,0,0,1,1\r\n";
  struct Case {
    std::string_view after;
    int result;
  };
  const Case cases[] = {
      {"", 1},
      {"; an ignored line\r\n", -1},
      {"\r\n", -1},
      {"B,WWWW,0,0,1,1\r\n", -1},
      {"B,WWWW,0,0,1,1", 1},  // a last line without a line end is never read
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.after);
    MapLoad load(areas + std::string(c.after));
    EXPECT_EQ(load.result, c.result);
    EXPECT_EQ(load.row(62).name.view(), "A60");
  }
}

TEST(MemoryMap, FindMemoryAreaGivesTheFirstRowOfAName) {
  MapLoad load("#MEM#Y\r\nWX,WWWW,1,0,8,4\r\nWX,WWWW,2,0,8,4\r\nWXA,WWWW,3,0,8,4\r\n");
  ASSERT_EQ(load.result, 0);
  const MemoryArea* wx = FindMemoryArea(load.session.memory, "WX");
  ASSERT_NE(wx, nullptr);
  EXPECT_EQ(wx->base, 1);
  EXPECT_EQ(FindMemoryArea(load.session.memory, "WXA")->base, 3);
  EXPECT_EQ(FindMemoryArea(load.session.memory, "W"), nullptr);
  EXPECT_EQ(FindMemoryArea(load.session.memory, "K ")->kind, 0);
}

TEST(MemoryMap, DerivedSizesComeFromTheNamedRowsOrAreZero) {
  CompileSession fresh;
  const DerivedSizes defaults;
  EXPECT_EQ(fresh.memory.sizes.wr_elements, 1048);  // the defaults until a map was loaded
  EXPECT_EQ(fresh.memory.sizes.t_elements, defaults.t_elements);

  MapLoad load(
      "#MEM#Y\r\n"
      "WX,WWWW,0,0,6,3\r\n"
      "WX,WWWW,0,0,99,99\r\n"
      "WAXE,WWWW,0,0,7,7\r\n"  // three-letter names are compared whole
      "WAX,WWWW,0,0,2,16\r\n"
      "WRX,WWWW,0,0,1,2000\r\n"  // two-letter names on two characters
      "WR,WWWW,0,0,1,3000\r\n"
      "T,TTTT,0,0,1,64\r\n"
      "BIG,WWWW,80000000H,0,0,1\r\n");
  ASSERT_EQ(load.result, 0);
  DeriveAreaSizes(load.session.memory);
  const DerivedSizes& z = load.session.memory.sizes;
  EXPECT_EQ(z.wx_groups, 6);  // the first WX row
  EXPECT_EQ(z.wx_elements, 3);
  EXPECT_EQ(z.wax_groups, 2);
  EXPECT_EQ(z.wax_elements, 16);
  EXPECT_EQ(z.wr_elements, 2000);
  EXPECT_EQ(z.t_elements, 64);
  EXPECT_EQ(FindMemoryArea(load.session.memory, "BIG")->base, INT32_MIN);  // kept to 32 bits
  EXPECT_EQ(z.wy_groups, 0);                                               // no row of that name
  EXPECT_EQ(z.wy_elements, 0);
  EXPECT_EQ(z.way_elements, 0);
  EXPECT_EQ(z.c_elements, 0);
  EXPECT_EQ(z.wm_elements, 0);
}

}  // namespace
}  // namespace rungc
