// A whole compile that runs the sequencer: its lines follow the ladder records and the checksum
// trailer covers them.
#include <gtest/gtest.h>

#include "rungc/session.h"
#include "support/ladder_builder.h"
#include "support/seqmsg_fixtures.h"

namespace rungc {
namespace {

using testing::LadderSource;
using testing::SequenceFile;
using testing::SequenceStep;
using testing::SplitLines;
using testing::TempProject;

CompileOptions WithSequences() {
  CompileOptions options;
  options.run_sequences = true;
  return options;
}

// The listing checksum as a reader recomputes it: every byte of every marked line but the
// trailer, line ends included, taken as signed, plus the characters of "#s#".
std::string ExpectedTrailer(const std::vector<std::string>& lines) {
  std::uint32_t sum = '#' + 's' + '#';
  for (const std::string& line : lines) {
    if (line.empty() || line[0] != '#' || line.rfind("#s#", 0) == 0) continue;
    for (char c : line + "\r\n") sum += static_cast<std::uint32_t>(static_cast<signed char>(c));
  }
  char text[24];
  std::snprintf(text, sizeof text, "#s#%04X", sum);
  return text;
}

TEST(SequencerEndToEnd, SequenceLinesComeBeforeTheTrailerThatCoversThem) {
  TempProject p;
  p.WriteSimpleProject({{"MAIN.PLC", LadderSource()}});
  SequenceFile file;
  file.Add("FILL", SequenceStep(5, {"WR1", "H10"}) + SequenceStep(14, {"X1.2"}) + SequenceStep(1));
  p.WriteFile("PLANT.VP", file.Bytes());
  Session session;
  ASSERT_EQ(session.Compile(p.dir(), WithSequences()), 0u);
  EXPECT_EQ(session.last_sequence_result(), 1);
  const std::vector<std::string> listing = SplitLines(p.ReadFile("PLANT.LII"));
  const std::vector<std::string> expected = {
      "- KORVA   1995 V2.0  LIS             ;",
      "#F#MAIN.PLC",
      "#R#L2______",
      "#R#L3______",
      "#S#SSFILL  ",
      "#S#S5WR0001S_______S_K 0010S_______",
      "#S#S>X_0012S_______S_______S_______",
      "#S#S1______S_______S_______S_______",
      "#S#Ss______",
      ExpectedTrailer(listing),
  };
  EXPECT_EQ(listing, expected);
}

TEST(SequencerEndToEnd, FailedSequenceFailsTheCompileWithoutTrailer) {
  TempProject p;
  p.WriteSimpleProject({{"MAIN.PLC", LadderSource()}});
  p.WriteFile("PLANT.VP", SequenceFile().Add("BAD", SequenceStep(12, {"X1.2"})).Bytes());
  Session session;
  EXPECT_EQ(session.Compile(p.dir()), 0u);  // without the option the file is not looked at
  EXPECT_EQ(session.last_sequence_result(), -1);
  EXPECT_EQ(SplitLines(p.ReadFile("PLANT.LII")).size(), 5u);

  EXPECT_EQ(session.Compile(p.dir(), WithSequences()), 4098u);
  EXPECT_EQ(session.last_sequence_result(), 2);
  const std::vector<std::string> listing = SplitLines(p.ReadFile("PLANT.LII"));
  ASSERT_FALSE(listing.empty());
  EXPECT_EQ(listing.back(), "#S#Ss______");
}

}  // namespace
}  // namespace rungc
