// End-to-end compiles of relay logic: the example project's programs and rungs that break one
// rule of the network compiler.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "rungc/session.h"
#include "support/ladder_builder.h"

namespace rungc {
namespace {

using testing::LadderSource;
using testing::SplitLines;
using testing::TempProject;

const std::filesystem::path kExampleDir =
    std::filesystem::path(RUNGC_SOURCE_DIR) / "examples" / "plant";

// The relay-logic programs of the example project, in the order of its project file.
std::vector<std::pair<std::string, LadderSource>> PlantPrograms() {
  LadderSource main;
  main.Row("1(X0.0) !2(X0.1) -x6 3(Y0.0)")  // start, seal-in, stop: the motor
      .Row("^2(Y0.0) ^. .x7")
      .Row("1(Y0.0) -x7 8(T1,50)")  // run timer
      .Row("1(T1) -x7 3(Y0.1)")     // timer done: lamp and relay in parallel
      .Row(".x8 ^3(R1.0)")
      .Row("1(X0.2) 17 -x6 9(C1,10)")  // count rising edges of X0.2
      .Row("1(C1) -x7 3(Y0.2)")
      .Row("1(X0.3) -x7 16(C1)")  // reset the counter
      .Row("1(X0.4) -x7 22(SKIP)")
      .Row("1(R1.0) 2(X0.5) -x6 6(Y0.3)")  // set, skipped while X0.4
      .Row("23(SKIP) -x8")
      .Row("1(X0.5) 18 -x6 7(Y0.3)")  // reset on the falling edge of X0.5
      .Row("1(X1.0) -x7 31(ALARM)");

  LadderSource pumps;
  pumps
      .Row("1(X1.1) 2(X1.2) 2(X1.3) -x5 3(Y1.0)")  // X1.2 or X1.4 between X1.1 and X1.3
      .Row(". ^2(X1.4) ^. .x6")
      .Row("1(Y1.0) -x7 44(T2,H1F)")
      .Row("1(X1.5) -x7 47(C2,WR10)")
      .Row("1(X2.0) 2(X2.1) -x6 3(Y1.2)")  // three contacts in parallel at the rail
      .Row("^2(X2.2) ^. .x7")
      .Row("^!2(X2.3) ^. .x7")
      .Row("1(X2.4) -x7 3(Y1.3)")  // two coils in parallel
      .Row(".x8 ^!3(Y1.4)");

  LadderSource alarms;
  alarms
      .Row("29 -x8")  // end of the main program
      .Row("25(ALARM) -x8")
      .Row("1(X3.0) !2(X3.1) -x6 3(Y2.0)")
      .Row("^2(Y2.0) ^. .x7")
      .Row("1(Y2.0) -x7 45(T3,20)")
      .Row("26 -x8");

  return {{"MAIN.PLC", main}, {"PUMPS.PLC", pumps}, {"ALARMS.PLC", alarms}};
}

std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The example sources are the builder's text of the programs above; regenerate them with
// --gtest_also_run_disabled_tests --gtest_filter='*WriteExampleSources'.
TEST(RelayEndToEnd, ExampleSourcesAreTheProgramsRows) {
  for (const auto& [name, source] : PlantPrograms()) {
    EXPECT_EQ(ReadBytes(kExampleDir / name), source.Text()) << name;
  }
}

TEST(RelayEndToEnd, DISABLED_WriteExampleSources) {
  for (const auto& [name, source] : PlantPrograms()) {
    std::ofstream out(kExampleDir / name, std::ios::binary | std::ios::trunc);
    out << source.Text();
  }
}

}  // namespace
}  // namespace rungc
