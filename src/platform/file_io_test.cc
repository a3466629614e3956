#include "platform/file_io.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "support/ladder_builder.h"

namespace rungc::platform {
namespace {

using testing::TempProject;

// Text mode drops a CR only before a LF; lines are cut as fgets cuts them; a read at the end
// leaves the buffer as it was.
TEST(InputFile, ReadsLinesAsTheSuitesHostDoes) {
  TempProject p;
  p.WriteFile("t.txt", "ab\r\ncd\re\r\nlonger line\nlast");
  InputFile f;
  ASSERT_TRUE(f.Open(p.dir() / "t.txt", OpenMode::kText));
  std::array<char, 16> line{};
  const std::array<std::string, 6> expected = {"ab\n",     "cd\re\n", "longe",
                                               "r line\n", "last",    "last"};
  for (std::size_t i = 0; i < 5; ++i) {
    ASSERT_TRUE(f.ReadLine(line.data(), i == 2 ? 5 : 15));
    EXPECT_EQ(line.data(), expected[i]);
  }
  EXPECT_TRUE(f.eof());  // the last line ended at the end of the file
  EXPECT_FALSE(f.ReadLine(line.data(), 15));
  EXPECT_EQ(line.data(), expected[5]);

  InputFile binary;
  ASSERT_TRUE(binary.Open(p.dir() / "t.txt", OpenMode::kBinary));
  ASSERT_TRUE(binary.ReadLine(line.data(), 15));
  EXPECT_EQ(std::string(line.data()), "ab\r\n");
  EXPECT_FALSE(binary.eof());
}

// Inputs are found by their exact name first, then by the one name that differs only in case.
TEST(WorkDir, FindsInputsWhateverTheirCase) {
  TempProject p;
  WorkDir dir(p.dir());
  p.WriteFile("PLANT.TMR", "x");
  EXPECT_EQ(dir.ResolveInput("plant.tmr"), p.dir() / "PLANT.TMR");
  p.WriteFile("plant.tmr", "y");
  EXPECT_EQ(dir.ResolveInput("plant.tmr"), p.dir() / "plant.tmr");
  EXPECT_EQ(dir.ResolveInput("Plant.Tmr"), p.dir() / "Plant.Tmr");  // two matches: none chosen
  EXPECT_EQ(dir.Resolve("SUB\\A.PLC"), p.dir() / "SUB/A.PLC");
}

}  // namespace
}  // namespace rungc::platform
