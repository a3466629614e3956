// The status file and the project file, read from temporary directories.
#include "driver/project_files.h"

#include <gtest/gtest.h>

#include <string>

#include "common/session.h"
#include "support/ladder_builder.h"

namespace rungc {
namespace {

using testing::TempProject;

constexpr std::string_view kStatusHeader = "- KORVA   1994       STA             ;\r\n";
constexpr std::string_view kProjectHeader = "- KORVA   1994       PRO             ;\r\n";

// A status file with the given header, project directory line text and project file line text.
std::string StatusFile(std::string_view header, std::string_view directory_line,
                       std::string_view project_line) {
  return std::string(header) + std::string(directory_line) + "\r\nLANG=ING\r\n" +
         std::string(project_line) + "\r\n";
}

struct StatusRead {
  int result;
  int error;
  CompileSession session;
};

void CloseFiles(CompileSession& s) {
  s.driver.project_file.Close();
  s.diag.listing.Close();
  s.diag.error_file.Close();
}

void ReadStatus(const TempProject& p, StatusRead& read) {
  read.session.work_dir = platform::WorkDir(p.dir());
  read.result = ReadStatusAndProject(read.session);
  read.error = read.session.diag.current_error;
  CloseFiles(read.session);
}

TEST(ProjectFiles, HeadersAndMissingFilesGiveTheirErrorNumbers) {
  struct Case {
    std::string_view what;
    std::string_view status_header;  // empty: no status file
    std::string_view project_text;   // empty: no project file
    int result, error;
  };
  const std::string project = std::string(kProjectHeader) + " \r\n";
  const Case cases[] = {
      {"accepted", kStatusHeader, project, 0, 0},
      {"status kind word not compared", "- KORVA   1994XYZ\r\n", project, 0, 0},
      {"no status file", "", project, -1, 50},
      {"status header of another year", "- KORVA   1993       STA             ;\r\n", project, -1,
       53},
      {"empty status file", "\r\n", project, -1, 53},
      {"no project file", kStatusHeader, "", -1, 55},
      {"any project year of 19..", kStatusHeader, "- KORVA   1987 anything\r\n \r\n", 0, 0},
      {"project header of 20..", kStatusHeader, "- KORVA   2001       PRO             ;\r\n", -1,
       56},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    TempProject p;
    if (!c.status_header.empty()) {
      p.WriteFile("status.kpx", StatusFile(c.status_header, "PRJDIR=  ", "PROJ=PLANT.PRO "));
    }
    if (!c.project_text.empty()) p.WriteFile("PLANT.PRO", c.project_text);
    StatusRead read;
    ReadStatus(p, read);
    EXPECT_EQ(read.result, c.result);
    EXPECT_EQ(read.error, c.error);
    EXPECT_EQ(p.Exists("PLANT.LII"), c.result == 0);  // no output file on a failure
    EXPECT_EQ(p.Exists("PLANT.ERR"), c.result == 0);
  }
}

TEST(ProjectFiles, TheDirectoryLineNamesWhereTheProjectLies) {
  struct Case {
    std::string_view line;       // status line 2
    std::string_view directory;  // the project directory kept
    std::string_view project;    // where the project file and the outputs lie
  };
  const Case cases[] = {
      {"PRJDIR= sub", "sub/", "sub/"},
      {"PRJDIR= sub\\", "sub/", "sub/"},
      {"PRJDIR= sub\\deep\\", "sub/deep/", "sub/deep/"},
      {"PRJDIR=  ", " ", ""},        // a blank: the current directory
      {"PRJDIR=  sub", " sub", ""},  // beginning with a blank: the current directory too
      {"PRJDIR= ", "", ""},          // nothing after position 8
      {"SHORT", "", ""},             // a line shorter than 8 characters
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.line);
    TempProject p;
    std::filesystem::create_directories(p.dir() / "sub/deep");
    p.WriteFile("status.kpx", StatusFile(kStatusHeader, c.line, "PROJ=PLANT.PRO "));
    p.WriteFile(std::string(c.project) + "PLANT.PRO", std::string(kProjectHeader) + " \r\n");
    StatusRead read;
    ReadStatus(p, read);
    ASSERT_EQ(read.result, 0);
    EXPECT_EQ(read.session.driver.project_directory.view(), c.directory);
    EXPECT_TRUE(p.Exists(std::string(c.project) + "PLANT.LII"));
    EXPECT_TRUE(p.Exists(std::string(c.project) + "PLANT.ERR"));
  }
}

TEST(ProjectFiles, TheProjectLineNamesTheProjectAndItsListing) {
  struct Case {
    std::string_view line;  // status line 4: its last two characters are dropped
    std::string_view file, listing;
  };
  const Case cases[] = {
      {"PROJ=PLANT.PRO ", "PLANT.PRO", "PLANT.LII"},
      {"PROJ=PLANT.PROX", "PLANT.PRO", "PLANT.LII"},
      {"PROJ=PLANT ", "PLANT", "PLANT.LII"},  // no '.': the whole name is the base
      {"PROJ=A.B.PRO ", "A.B.PRO", "A.LII"},  // cut at the first '.'
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.line);
    TempProject p;
    p.WriteFile("status.kpx", StatusFile(kStatusHeader, "PRJDIR=  ", c.line));
    p.WriteFile(c.file, std::string(kProjectHeader) + " \r\n");
    StatusRead read;
    ReadStatus(p, read);
    ASSERT_EQ(read.result, 0);
    EXPECT_EQ(read.session.driver.project_file_name.view(), c.file);
    EXPECT_EQ(read.session.driver.listing_name, c.listing);
    EXPECT_TRUE(p.Exists(c.listing));
  }
}

TEST(ProjectFiles, InputsDifferingOnlyInCaseAreFound) {
  TempProject p;
  p.WriteFile("STATUS.KPX", StatusFile(kStatusHeader, "PRJDIR=  ", "PROJ=PLANT.PRO "));
  p.WriteFile("plant.pro", std::string(kProjectHeader) + " \r\n");
  StatusRead read;
  ReadStatus(p, read);
  EXPECT_EQ(read.result, 0);
  EXPECT_TRUE(p.Exists("PLANT.LII"));  // outputs keep the name as the status file gives it
}

TEST(ProjectFiles, ProgramNamesAreCutFromTheirLines) {
  struct Case {
    std::string_view line;  // the project file's second line, as it stands in the file
    int result;
    std::string_view name;
  };
  const Case cases[] = {
      {"PUMP.PLC   ; the pump\r\n", 0, "PUMP.PLC"},
      {"PUMP.PLC\r\n", 0, "PUMP.PLC"},
      {"PUMP.PLC\n", 0, "PUMP.PLC"},
      {"PUMP.PLC\rX\r\n", 0, "PUMP.PLC"},
      {"PUMP.PLC", 0, "PUMP.PLC"},  // the last line without a line end
      {"; comment\r\n", 0, ""},     // an empty name: the driver stops on it
      {"\r\n", 0, ""},
      {"  \r\n", -2, ""},  // the end-of-list line
      {" PUMP.PLC\r\n", -2, ""},
      {std::string_view("\0PUMP\r\n", 7), -2, ""},
      {"", -1, ""},  // the end of the file
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.line));
    TempProject p;
    p.WriteStatus();
    p.WriteFile("PLANT.PRO", std::string(kProjectHeader) + std::string(c.line));
    StatusRead read;
    read.session.work_dir = platform::WorkDir(p.dir());
    ASSERT_EQ(ReadStatusAndProject(read.session), 0);
    EXPECT_EQ(ReadProgramName(read.session), c.result);
    EXPECT_EQ(read.session.driver.program_name.view(), c.name);
    CloseFiles(read.session);
  }
}

TEST(ProjectFiles, ProjectPathAppendsTheNameUnlessTheDirectoryIsBlank) {
  struct Case {
    std::string_view directory, name, path;
  };
  const Case cases[] = {
      {"", "MAIN.PLC", "MAIN.PLC"},
      {" ", "MAIN.PLC", "MAIN.PLC"},
      {" D/", "MAIN.PLC", "MAIN.PLC"},
      {"D/", "MAIN.PLC", "D/MAIN.PLC"},
      {"D/", "SUB\\MAIN.PLC", "D/SUB/MAIN.PLC"},
  };
  for (const Case& c : cases) {
    CompileSession s;
    s.driver.project_directory.Set(c.directory);
    EXPECT_EQ(ProjectPath(s, c.name), c.path) << c.directory << "|" << c.name;
  }
}

}  // namespace
}  // namespace rungc
