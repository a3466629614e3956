// The sequencer on sequence files built byte by byte: the lines it appends to the listing, the
// sequence errors, the file's count and text area rules and the listing checksum.
#include "sequencer/sequencer.h"

#include <gtest/gtest.h>

#include "common/session.h"
#include "sequencer/sequence_operands.h"
#include "support/ladder_builder.h"
#include "support/seqmsg_fixtures.h"

namespace rungc {
namespace {

using testing::SequenceFile;
using testing::SequenceStep;
using testing::SplitLines;
using testing::TempProject;
using Lines = std::vector<std::string>;

const std::string kEnd = SequenceStep(1);
const std::string kClosing = "#S#Ss______";
const std::string kEndLine = "#S#S1______S_______S_______S_______";

class SequencerTest : public ::testing::Test {
 protected:
  SequencerTest() {
    session_.work_dir = platform::WorkDir(project_.dir());
    session_.driver.listing_name = "PLANT.LII";
    session_.diag.listing_path = project_.dir() / "PLANT.LII";
    project_.WriteFile("PLANT.LII", "");
  }

  // Reads and compiles the file; gives CompileSequences' result.
  int Run(const std::string& bytes) {
    project_.WriteFile("PLANT.VP", bytes);
    read_result_ = ReadSequenceFile(session_);
    return CompileSequences(session_);
  }
  Lines Listing() const { return SplitLines(project_.ReadFile("PLANT.LII")); }

  TempProject project_;
  CompileSession session_;
  int read_result_ = 0;
};

TEST_F(SequencerTest, OnlyEndStepsGiveTheHeadAndOneLinePerStep) {
  ASSERT_EQ(Run(SequenceFile().Add("ONE", kEnd + SequenceStep(2) + SequenceStep(10)).Bytes()), 1);
  EXPECT_EQ(read_result_, 1);
  EXPECT_EQ(Listing(), (Lines{"#S#SSONE   ", kEndLine, "#S#S2______S_______S_______S_______",
                              "#S#S:______S_______S_______S_______", kClosing}));
}

TEST_F(SequencerTest, EveryStepTypeWritesItsLine) {
  const std::pair<std::string, std::string> cases[] = {
      {SequenceStep(3, {"WR10"}), "#S#S3______S_______S_WR0010S_______"},
      {SequenceStep(4, {"WR1", "255", "H10"}), "#S#S4______S_WR0001S_K 00FFS_K 0010"},
      {SequenceStep(5, {"WM2", "3"}), "#S#S5WM0002S_______S_K 0003S_______"},
      {SequenceStep(6, {"WX1", "WAX2"}), "#S#S6WX0001S_______S_AX0002S_______"},
      {SequenceStep(7, {"WR1", "WM2", "WF3", "7"}), "#S#S7WR0001S_WM0002S_WF0003S_K 0007"},
      {SequenceStep(8, {"WAX1", "WAY2", "WS3", "WT4"}), "#S#S8AX0001S_AY0002S_WS0003S_WT0004"},
      {SequenceStep(9, {"WC1", "WY2", "H0", "0"}), "#S#S9WC0001S_WY0002S_K 0000S_K 0000"},
      {SequenceStep(12, {"M1.2"}), "#S#S<______S_M_0012S_______S_______"},
      {SequenceStep(13, {"Y1.2"}), "#S#S=______S_Y_0012S_______S_______"},
      {SequenceStep(14, {"X1.2"}), "#S#S>X_0012S_______S_______S_______"},
      {SequenceStep(15, {"R1.2"}), "#S#S?R_0012S_______S_______S_______"},
      {SequenceStep(127, {"WR5"}), "#S#S_______S_WR0005S_______S_______"},
      {SequenceStep(11), ""},
      {SequenceStep(128), ""},
      {SequenceStep(16) + std::string(40, 'x'), ""},
  };
  for (const auto& [step, line] : cases) {
    ASSERT_EQ(Run(SequenceFile().Add("S", step + kEnd).Bytes()), 1) << line;
    Lines expected{"#S#SSS     "};
    if (!line.empty()) expected.push_back(line);
    expected.push_back(kEndLine);
    expected.push_back(kClosing);
    EXPECT_EQ(Listing(), expected) << line;
    project_.WriteFile("PLANT.LII", "");
  }
}

TEST_F(SequencerTest, SequenceErrorsDropTheLinesAndStopTheRun) {
  struct Case {
    std::string text;
    int error;
  };
  const Case cases[] = {
      {SequenceStep(3, {"WR10"}), kSequenceNoEndStep},
      {SequenceStep(12, {"X1.2"}) + kEnd, kSequenceInputRefused},
      {SequenceStep(4, {"WX1", "1", "1"}) + kEnd, kSequenceInputRefused},
      {SequenceStep(7, {"WR1", "WAX1", "1", "1"}) + kEnd, kSequenceInputRefused},
      {SequenceStep(127, {"WX1"}) + kEnd, kSequenceInputRefused},
      {SequenceStep(14, {"WR1"}) + kEnd, kSequenceWrongFamily},
      {SequenceStep(5, {"5", "5"}) + kEnd, kSequenceConstantRefused},
      {SequenceStep(3, {"70000"}) + kEnd, kSequenceBadOperand},
      {kEnd + SequenceStep(3, {"WQ1"}), kSequenceBadOperand},
  };
  for (const Case& c : cases) {
    SequenceFile file;
    file.Add("GOOD", kEnd).Add("BAD", c.text).Add("NEXT", kEnd);
    ASSERT_EQ(Run(file.Bytes()), 2) << c.error;
    EXPECT_EQ(session_.sequencer.error_number, c.error);
    EXPECT_EQ(session_.sequencer.failed_sequence, 1);
    EXPECT_EQ(Listing(), (Lines{"#S#SSGOOD  ", kEndLine, kClosing})) << c.error;
    project_.WriteFile("PLANT.LII", "");
  }
}

TEST_F(SequencerTest, StrayBytesAndUnknownTypesEndASequenceWithoutAnErrorNumber) {
  const std::string cases[] = {kEnd + "?" + kEnd, kEnd + SequenceStep(17) + kEnd};
  for (const std::string& text : cases) {
    ASSERT_EQ(Run(SequenceFile().Add("A", text).Add("B", kEnd).Bytes()), 1);
    EXPECT_EQ(session_.sequencer.error_number, 0);
    EXPECT_EQ(Listing(), Lines{kClosing});
    project_.WriteFile("PLANT.LII", "");
  }
  // Before any step, a stray byte is a sequence of no steps that succeeds.
  ASSERT_EQ(Run(SequenceFile().Add("A", "?").Add("B", kEnd).Bytes()), 1);
  EXPECT_EQ(Listing(), (Lines{"#S#SSA     ", "#S#SSB     ", kEndLine, kClosing}));
}

TEST_F(SequencerTest, EmptySequenceFailsOnlyWhenItIsTheLast) {
  // An empty sequence has no end step (61) but reads no step, so its head line is kept; the
  // next sequence clears the number again.
  ASSERT_EQ(Run(SequenceFile().Add("E", "").Add("B", kEnd).Bytes()), 1);
  ASSERT_EQ(Run(SequenceFile().Add("B", kEnd).Add("E", "").Bytes()), 2);
  EXPECT_EQ(session_.sequencer.error_number, kSequenceNoEndStep);
}

TEST_F(SequencerTest, CountAbove26CompilesOneLess) {
  for (const auto& [count, compiled] : {std::pair{26, 26}, std::pair{27, 26}, std::pair{28, 27}}) {
    SequenceFile file;
    for (int i = 0; i < count; ++i) file.Add("Q" + std::to_string(i), kEnd);
    ASSERT_EQ(Run(file.Bytes()), 1);
    EXPECT_EQ(Listing().size(), static_cast<std::size_t>(2 * compiled + 1)) << count;
    project_.WriteFile("PLANT.LII", "");
  }
}

TEST_F(SequencerTest, HeaderDecidesWhetherTheFileIsRead) {
  const std::pair<std::string, int> cases[] = {
      {std::string(testing::kOlderSequenceFileHeader), 1},
      {"- KORVA   1994       SYM             ;", 1},  // the first word alone is compared
      {"SEQ", -1},
      {"", -1},
  };
  for (const auto& [header, result] : cases) {
    const int compiled = Run(SequenceFile().Header(header).Add("A", kEnd).Bytes());
    EXPECT_EQ(read_result_, result) << header;
    EXPECT_EQ(compiled, result == 1 ? 1 : 0) << header;
  }
  project_.WriteFile("PLANT.LII", "");
  std::filesystem::remove(project_.dir() / "PLANT.VP");
  EXPECT_EQ(ReadSequenceFile(session_), -1);
  EXPECT_EQ(CompileSequences(session_), 0);
  EXPECT_EQ(Listing(), Lines{});
}

TEST_F(SequencerTest, TextAreaRules) {
  // A carriage return before a line feed is dropped, so "\r\n" is one byte of sequence A.
  ASSERT_EQ(Run(SequenceFile().RawText("\r\n").Record("A", 1).Add("B", kEnd).Bytes()), 1);
  EXPECT_EQ(Listing(), (Lines{"#S#SSA     ", "#S#SSB     ", kEndLine, kClosing}));

  project_.WriteFile("PLANT.LII", "");
  std::string longest = kEnd + std::string(kSequenceTextMax - kEnd.size(), 'x');
  EXPECT_EQ(Run(SequenceFile().Add("A", longest).Bytes()), 1);
  EXPECT_EQ(Run(SequenceFile().Add("A", longest + "x").Bytes()), 0);
  EXPECT_EQ(read_result_, 1);
  std::string cut = SequenceFile().Add("A", kEnd).Bytes();
  EXPECT_EQ(Run(cut.substr(0, cut.size() - 1)), 0);
}

TEST_F(SequencerTest, HostileLengthsAndLongSequencesStayInTheirBuffers) {
  SequenceFile file;
  file.Add("A", kEnd).Record("NEG", -100).Record("HUGE", 0x7FFFFFFF).Record("FAR", 5);
  // Slices are cut to the text area: NEG and FAR read no byte (an empty sequence keeps its head
  // line), HUGE starts before the area and reads all of it; FAR, the last, leaves 61 standing.
  EXPECT_EQ(Run(file.Bytes()), 2);
  EXPECT_EQ(Listing(), (Lines{"#S#SSA     ", kEndLine, "#S#SSNEG   ", "#S#SSHUGE  ", kEndLine,
                              "#S#SSFAR   ", kClosing}));
  std::string many;
  for (int i = 0; i < 300; ++i) many += kEnd;
  EXPECT_EQ(Run(SequenceFile().Add("LONG", many).Bytes()), 2);
  EXPECT_EQ(session_.sequencer.error_number, kSequenceTooLong);
  EXPECT_EQ(Run(SequenceFile().Add("A", kEnd).Count(-5).Bytes()), 1);
}

TEST_F(SequencerTest, AppendedBytesJoinTheListingChecksum) {
  session_.diag.listing_checksum = 1000;
  const std::string name = "\xE9T";  // a byte above 127 counts negative
  ASSERT_EQ(Run(SequenceFile().Add(name, kEnd).Bytes()), 1);
  const std::string text = project_.ReadFile("PLANT.LII");
  std::uint32_t sum = 1000;
  for (char c : text) sum += static_cast<std::uint32_t>(static_cast<signed char>(c));
  EXPECT_EQ(text.substr(0, 5 + name.size()), "#S#SS" + name);
  EXPECT_EQ(session_.diag.listing_checksum, sum);
}

}  // namespace
}  // namespace rungc
