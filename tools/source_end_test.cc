// Which ladder sources lose their last row to the rung reader.
#include "source_end.h"

#include <gtest/gtest.h>

#include <string>

#include "support/ladder_builder.h"

namespace rungc::tool {
namespace {

using testing::Cell;
using testing::LadderSource;

TEST(SourceEnd, OnlyASourceOfTwoRowsOrMoreWithoutItsEndRecordLosesARow) {
  LadderSource one;
  one.Row("1 2(X1.0) -x6 3(Y1.0)");
  LadderSource two = one;
  two.Row("^- 2(X1.1) -x6 ^-");
  // A function block whose operand text holds what looks like a row-end record.
  LadderSource box;
  box.Row({Cell(1), Cell(10, {"00FF00", "WR1 = 00FF00", ""}), Cell(4).Times(1)});
  box.Row("1 2(X1.0) -x6 3(Y1.0)");
  const std::string cut = two.Text(false);
  struct Case {
    std::string_view what;
    std::string source;
    bool dropped;
  };
  const Case cases[] = {
      {"no rows", LadderSource().Text(false), false},
      {"a lone end record", LadderSource().Text(), false},
      {"one row without end record", one.Text(false), false},  // the first row is always kept
      {"one row with end record", one.Text(), false},
      {"two rows with end record", two.Text(), false},
      {"two rows without end record", two.Text(false), true},
      {"the last record cut short", cut.substr(0, cut.size() - 3), true},
      {"the second row's header cut", one.Text(false) + "C0C", false},
      {"operands that look like end records", box.Text(false), true},
      {"and with the end record", box.Text(), false},
      {"lower-case digits", two.Text(false) + "00ff00", false},
      {"not a ladder source", "no header here", false},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(LastRowDropped(std::string_view(c.source)), c.dropped) << c.what;
  }
}

TEST(SourceEnd, AFileThatCannotBeReadLosesNothing) {
  EXPECT_FALSE(LastRowDropped(std::filesystem::path("/nonexistent/MAIN.PLC")));
}

}  // namespace
}  // namespace rungc::tool
