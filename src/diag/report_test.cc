// The report operations and the record writer, on files in a temporary directory.
#include "diag/report.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/session.h"
#include "support/bench.h"
#include "support/ladder_builder.h"

namespace rungc {
namespace {

using testing::SplitLines;
using testing::TempProject;

constexpr std::string_view kListingHeader = "- KORVA   1995 V2.0  LIS             ;";

class DiagReport : public ::testing::Test {
 protected:
  void SetUp() override {
    s_.work_dir = platform::WorkDir(project_.dir());
    ASSERT_EQ(OpenOutputFiles(s_, "PLANT.LII", ""), 0);
  }

  // Closes both files and gives their lines.
  std::vector<std::string> ErrorLines() {
    s_.diag.error_file.Close();
    return SplitLines(project_.ReadFile("PLANT.ERR"));
  }
  std::vector<std::string> ListingLines() {
    s_.diag.listing.Close();
    return SplitLines(project_.ReadFile("PLANT.LII"));
  }

  TempProject project_;
  CompileSession s_;
};

TEST(DiagOpenOutputFiles, PlacesTheFilesByDirectoryAndName) {
  struct Case {
    std::string_view directory, name, listing, error, temp;
  };
  const Case cases[] = {
      {"sub/", "PLANT.LII", "sub/PLANT.LII", "sub/PLANT.ERR", "sub/PLANT.$$$"},
      {" sub/", "PLANT.LII", "PLANT.LII", "PLANT.ERR", "PLANT.$$$"},
      {"", "A.B.LII", "A.B.LII", "A.ERR", "A.$$$"},  // the first '.' of the name
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.directory) + "|" + std::string(c.name));
    TempProject p;
    std::filesystem::create_directories(p.dir() / "sub");
    CompileSession s;
    s.work_dir = platform::WorkDir(p.dir());
    ASSERT_EQ(OpenOutputFiles(s, c.name, c.directory), 0);
    s.diag.listing.Close();
    s.diag.error_file.Close();
    EXPECT_EQ(s.diag.listing_path, p.dir() / c.listing);
    EXPECT_EQ(s.diag.error_path, p.dir() / c.error);
    EXPECT_EQ(s.diag.temp_path, p.dir() / c.temp);
    EXPECT_TRUE(p.Exists(c.listing));
    EXPECT_TRUE(p.Exists(c.error));
  }
}

TEST(DiagOpenOutputFiles, FailsWhenEitherFileCannotBeCreated) {
  for (std::string_view blocked : {"PLANT.LII", "PLANT.ERR"}) {
    SCOPED_TRACE(blocked);
    TempProject p;
    std::filesystem::create_directories(p.dir() / blocked);  // a directory in the file's place
    CompileSession s;
    s.work_dir = platform::WorkDir(p.dir());
    EXPECT_EQ(OpenOutputFiles(s, "PLANT.LII", ""), -1);
  }
}

TEST_F(DiagReport, OnlyTheFirstErrorOfARungIsWritten) {
  ReportError(s_, 9);
  ReportErrorText(s_, 16, "X1", "box line");
  ReportError(s_, 27);
  EXPECT_EQ(ErrorLines(), std::vector<std::string>{"#E#NERR=9#RUNG=1"});
  EXPECT_EQ(s_.diag.error_count, 1);
  EXPECT_EQ(s_.diag.current_error, 9);
}

TEST_F(DiagReport, WarningsAreNeverDroppedAndAnErrorAfterOneCarriesItsTexts) {
  s_.dispatch.program_rung_count = 3;  // the fourth rung of the program
  ReportWarning(s_, 1, "WX1", "WX1 = 5");
  ReportError(s_, 9);
  ReportWarning(s_, 1, "WX2", "WX2 = 6");
  EXPECT_EQ(ErrorLines(), (std::vector<std::string>{
                              "#W#NERR=1#RUNG=4#ITEM=WX1#STRG=WX1 = 5",
                              "#E#NERR=9#RUNG=4#ITEM=WX1#STRG=WX1 = 5",
                              "#W#NERR=1#RUNG=4#ITEM=WX2#STRG=WX2 = 6",
                          }));
  EXPECT_EQ(s_.diag.error_count, 1);
  EXPECT_EQ(s_.diag.warning_count, 2);
}

TEST_F(DiagReport, EmptyTextsLeaveTheirFieldsOut) {
  ReportErrorText(s_, 22, "", "T1 K");
  s_.diag.rung_error_latch = false;
  ReportErrorText(s_, 18, "T1", "");
  s_.diag.rung_error_latch = false;
  ReportErrorText(s_, 16, "", "");
  EXPECT_EQ(ErrorLines(), (std::vector<std::string>{
                              "#E#NERR=22#RUNG=1#STRG=T1 K",
                              "#E#NERR=18#RUNG=1#ITEM=T1",
                              "#E#NERR=16#RUNG=1",
                          }));
}

TEST_F(DiagReport, LabelErrorsWriteAFileLineAndALabelLine) {
  struct Case {
    int number;
    std::string_view item, text, file_line, label_line;
  };
  const Case cases[] = {
      {37, "File : MAIN.PLC\n", "LABEL K_0001 Err at Rung 12", "#F#MAIN.PLC",
       "#J#NERR=37#RUNG= 12 : K_0001"},
      {58, "File :   PUMP.PLC\n", "CALL SUB1__ Err at Rung 3", "#F#PUMP.PLC",
       "#J#NERR=58#RUNG= 3 : SUB1__"},
      {1, "MAIN.PLC\n", "IF/ENDIF Error at Rung 7", "#F#NoName", "#J#NERR=1#RUNG= 7 : Error"},
      {2, "", "", "#F#NoName", "#J#NERR=2#RUNG=1 : "},
      {37, "File : A.PLC\n", "RUNG=5", "#F#A.PLC", "#J#NERR=37#RUNG==5 : "},
      {37, "File : A.PLC\n", "SOLID", "#F#A.PLC", "#J#NERR=37#RUNG=SOLID : "},
  };
  std::vector<std::string> expected;
  for (const Case& c : cases) {
    ReportLabelError(s_, c.number, c.item, c.text);
    expected.emplace_back(c.file_line);
    expected.emplace_back(c.label_line);
  }
  EXPECT_EQ(ErrorLines(), expected);
  EXPECT_EQ(s_.diag.error_count, static_cast<int>(std::size(cases)));
  EXPECT_FALSE(s_.diag.rung_error_latch);  // a label error does not latch
}

TEST_F(DiagReport, TheLatchHoldsBackLabelErrors) {
  ReportError(s_, 80);
  ReportLabelError(s_, 37, "File : MAIN.PLC\n", "LABEL K_0001 Err at Rung 12");
  EXPECT_EQ(ErrorLines(), std::vector<std::string>{"#E#NERR=80#RUNG=1"});
  EXPECT_EQ(s_.diag.error_count, 1);
}

TEST_F(DiagReport, FileStartGoesToBothFilesAndRungRecordsToTheListingOnly) {
  WriteRecord(s_, 'F', "MAIN.PLC");
  std::array<char, 17> rung{"L2      L3      "};
  WriteRecord(s_, 'R', rung.data());
  WriteRecord(s_, 0, "plain line");
  EXPECT_EQ(ErrorLines(), std::vector<std::string>{"#F#MAIN.PLC"});
  EXPECT_EQ(ListingLines(), (std::vector<std::string>{std::string(kListingHeader), "#F#MAIN.PLC",
                                                      "#R#L2______L3______", "plain line"}));
  EXPECT_EQ(std::string(rung.data()), "L2______L3______");  // rewritten in place
}

TEST_F(DiagReport, TheChecksumSumsSignedBytesOfMarkedLinesOnly) {
  s_.diag.listing_checksum = 1000;  // it carries on from earlier compiles
  WriteRecord(s_, 'F', "\xE9X");    // 0xE9 counts as -23
  WriteRecord(s_, 0, "not counted");
  ReportError(s_, 9);
  ReportWarning(s_, 1, "A", "B");
  ReportLabelError(s_, 37, "File : X\n", "LABEL A Err at Rung 1");
  const std::uint32_t expected = 1000u + ('#' + 'F' + '#') - 23 + 'X' + 23;
  EXPECT_EQ(s_.diag.listing_checksum, expected);
  EXPECT_EQ(testing::ListingSum({"#F#\xE9X"}), expected - 1000u);
}

}  // namespace
}  // namespace rungc
