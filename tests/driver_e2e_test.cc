// End-to-end compiles of small projects through the C++ session.
#include <gtest/gtest.h>

#include "rungc/session.h"
#include "support/ladder_builder.h"

namespace rungc {
namespace {

using testing::LadderSource;
using testing::SplitLines;
using testing::TempProject;

TEST(DriverEndToEnd, EmptyProgramCompilesToZero) {
  TempProject p;
  p.WriteSimpleProject({{"MAIN.PLC", LadderSource()}});
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), 0u);
  std::vector<std::string> listing = SplitLines(p.ReadFile("PLANT.LII"));
  ASSERT_EQ(listing.size(), 5u);
  EXPECT_EQ(listing[0], "- KORVA   1995 V2.0  LIS             ;");
  EXPECT_EQ(listing[1], "#F#MAIN.PLC");
  EXPECT_EQ(listing[2], "#R#L2______");
  EXPECT_EQ(listing[3], "#R#L3______");
  EXPECT_EQ(listing[4].substr(0, 3), "#s#");
}

TEST(DriverEndToEnd, MissingStatusFileGives4097) {
  TempProject p;
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), 4097u);
}

}  // namespace
}  // namespace rungc
