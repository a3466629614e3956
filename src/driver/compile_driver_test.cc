// The closing steps of the driver: summary lines, checksum trailer, writer failures.
#include "driver/compile_driver.h"

#include <gtest/gtest.h>

#include "common/session.h"
#include "diag/report.h"
#include "support/ladder_builder.h"

namespace rungc {
namespace {

using testing::SplitLines;
using testing::TempProject;

class DriverClosing : public ::testing::Test {
 protected:
  void SetUp() override {
    s_.work_dir = platform::WorkDir(project_.dir());
    ASSERT_EQ(OpenOutputFiles(s_, "PLANT.LII", ""), 0);
  }
  TempProject project_;
  CompileSession s_;
};

TEST_F(DriverClosing, TheSummaryClosesTheErrorFileWithSixLines) {
  s_.reader.line_counter = 7;
  s_.diag.error_count = 2;
  s_.diag.warning_count = 1;
  s_.driver.total_rungs = 14;
  s_.driver.main_instruction_total = 57;
  s_.driver.subroutine_instruction_total = -1;
  WriteRunSummary(s_);
  EXPECT_FALSE(s_.diag.error_file.is_open());
  EXPECT_EQ(project_.ReadFile("PLANT.ERR"),
            "Riga N. = 7\r\n#TERR=2\r\n#TWRN=1\r\n#TOTRUNG=14\r\n#TOTMAINISTR=57\r\n"
            "#TOTSUBMISTR=-1\r\n");
}

TEST_F(DriverClosing, TheChecksumTrailerIsUpperCaseHexOfAtLeastFourDigits) {
  s_.diag.listing.Close();
  struct Case {
    std::uint32_t before;  // the checksum before "#s#" is added
    std::string_view line;
  };
  const Case cases[] = {
      {0x3A7 - 185, "#s#03A7"},
      {0, "#s#00B9"},
      {0x12345 - 185, "#s#12345"},
      {0xFFFFFFFFu, "#s#00B8"},  // wraps as the module's 32-bit sum does
  };
  std::string expected = std::string("- KORVA   1995 V2.0  LIS             ;\r\n");
  for (const Case& c : cases) {
    s_.diag.listing_checksum = c.before;
    AppendListingChecksum(s_);
    EXPECT_EQ(s_.diag.listing_checksum, c.before + 185u);
    expected += std::string(c.line) + "\r\n";
  }
  EXPECT_EQ(project_.ReadFile("PLANT.LII"), expected);
}

TEST_F(DriverClosing, AWriterFailureNamesTheFileAndRecordTheWriterStoppedAt) {
  s_.object.current_file_name = "PUMP.PLC\n";
  s_.object.line_counter = 17;
  ReportWriterFailure(s_, 3);
  s_.object.current_file_name = "";
  s_.object.line_counter = 0;
  ReportWriterFailure(s_, -1);
  s_.diag.error_file.Close();
  EXPECT_EQ(SplitLines(project_.ReadFile("PLANT.ERR")),
            (std::vector<std::string>{"#F#PUMP.PLC", "#E#NERR=5003#RUNG=17", "#F#",
                                      "#E#NERR=4999#RUNG=0"}));
  EXPECT_EQ(s_.diag.error_count, 2);
}

TEST_F(DriverClosing, EndRecordsCloseTheMainProgramUnlessItWasClosed) {
  WriteEndRecords(s_);
  s_.dispatch.sub_area_depth = 1;
  ASSERT_TRUE(s_.diag.listing.OpenAppend(s_.diag.listing_path));
  WriteEndRecords(s_);
  EXPECT_FALSE(s_.diag.listing.is_open());
  EXPECT_EQ(SplitLines(project_.ReadFile("PLANT.LII")),
            (std::vector<std::string>{"- KORVA   1995 V2.0  LIS             ;", "#R#L2______",
                                      "#R#L3______", "#R#L3______"}));
}

}  // namespace
}  // namespace rungc
