// Project directories, project file names and program names with "..", absolute paths, very long
// names and odd bytes. Whatever the status and project files name, a compile writes only its own
// outputs, in the project directory the status file gives (the current directory when that is
// blank), and nothing anywhere else.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "common/session.h"
#include "rungc/session.h"
#include "support/bench.h"
#include "support/ladder_builder.h"
#include "support/reliability_fixtures.h"

namespace rungc {
namespace {

using testing::LadderSource;
using testing::TempProject;
using Changes = std::vector<std::string>;

// A world of directories around the compile: the current directory "cwd" with the status file
// and the memory map, a project directory "prj" beside it, and a program "OTHER.PLC" above both.
class HostilePaths : public ::testing::Test {
 protected:
  HostilePaths() {
    for (const char* dir : {"cwd/", "prj/"}) {
      world_.WriteFile(std::string(dir) + "PLANT.PRO", ProjectFile({"MAIN.PLC"}));
      world_.WriteLadder(std::string(dir) + "MAIN.PLC", LadderSource());
    }
    world_.WriteLadder("OTHER.PLC", LadderSource());
    world_.WriteFile("cwd/memory.ovl", MemoryMap());
  }

  static std::string ProjectFile(const std::vector<std::string>& programs) {
    std::string text(testing::kProjectHeaderLine);
    text += "\r\n";
    for (const std::string& program : programs) text += program + "\r\n";
    return text + " \r\n";
  }
  static std::string MemoryMap() {
    std::string text = "#MEM#Y\r\n";
    for (const std::string& line : testing::SampleAreaLines()) text += line + "\r\n";
    return text;
  }
  // The outputs of a compile that wrote object code, as changes under `prefix`.
  static Changes AllOutputs(const std::string& prefix, const std::string& base = "PLANT") {
    Changes changes;
    for (const char* extension : {".ERR", ".LII", ".cod", ".pdc", ".tmc"}) {
      changes.push_back("+" + prefix + base + extension);
    }
    return changes;
  }

  // Compiles with this status file; gives the compile's result and fills the changes under the
  // world (the status file itself excluded).
  std::uint32_t Compile(std::string_view directory, std::string_view project_file) {
    world_.WriteFile("cwd/status.kpx",
                     testing::StatusText(std::string("PRJDIR= ") + std::string(directory),
                                         "PROJ=" + std::string(project_file) + " "));
    const testing::TreeSnapshot before = testing::SnapshotTree(world_.dir());
    Session session;
    const std::uint32_t result = session.Compile(world_.dir() / "cwd");
    error_ = session.state().diag.current_error;
    changes_ = testing::TreeChanges(before, testing::SnapshotTree(world_.dir()));
    std::sort(changes_.begin(), changes_.end());
    return result;
  }

  std::string Absolute(std::string_view relative) const {
    return (world_.dir() / std::string(relative)).string();
  }

  TempProject world_;
  Changes changes_;
  int error_ = 0;
};

TEST_F(HostilePaths, DirectoriesOutsideTheCurrentOneReceiveTheOutputs) {
  struct Case {
    std::string directory;
    std::string project_file;
    Changes changes;
  };
  const Case cases[] = {
      {"", "PLANT.PRO", AllOutputs("cwd/")},
      {"..\\prj\\", "PLANT.PRO", AllOutputs("prj/")},
      {"..\\prj", "PLANT.PRO", AllOutputs("prj/")},
      {"..\\cwd\\..\\prj\\", "PLANT.PRO", AllOutputs("prj/")},
      {Absolute("prj") + "/", "PLANT.PRO", AllOutputs("prj/")},
      // A blank directory puts the project file name alone: it may climb itself. The listing
      // name ends at the first '.', which here is the one of "..".
      {"", "..\\prj\\PLANT.PRO", AllOutputs("cwd/", "")},
      {"", Absolute("prj/PLANT.PRO"), AllOutputs("prj/")},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Compile(c.directory, c.project_file), kCompileOk) << c.directory << c.project_file;
    EXPECT_EQ(changes_, c.changes) << c.directory << c.project_file;
    for (const std::string& change : changes_) {
      std::filesystem::remove(world_.dir() / change.substr(1));
    }
  }
}

// Names that cannot be used end the compile before any output is created.
TEST_F(HostilePaths, UnusableProjectNamesCreateNothing) {
  struct Case {
    std::string directory;
    std::string project_file;
    int error;
  };
  const Case cases[] = {
      {"..\\prj\\", Absolute("prj/PLANT.PRO"), 55},  // directory and absolute name joined
      {"", std::string(250, 'P') + ".PRO", 55},      // longer than a file name may be
      {std::string(200, 'd') + "\\" + std::string(60, 'd'), "PLANT.PRO", 55},
      {"", "PLA\tNT.PRO", 55},
      {"", std::string("PLA\0NT.PRO", 10), 55},  // the name ends at the NUL: "PLA" less 2
      {"..\\missing\\", "PLANT.PRO", 55},
      {"", "", 55},
      {"", "..\\cwd", 55},  // a directory is no project file
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Compile(c.directory, c.project_file), kCompileUnusable) << c.project_file;
    EXPECT_EQ(error_, c.error) << c.project_file;
    EXPECT_EQ(changes_, Changes{}) << c.project_file;
  }
}

// Program names are only read: climbing, absolute, very long, odd or directory names compile
// what they find or count error 51, and only the project's outputs are written.
TEST_F(HostilePaths, ProgramNamesAreOnlyRead) {
  struct Case {
    std::string program;
    std::uint32_t result;
  };
  const Case cases[] = {
      {"..\\OTHER.PLC", kCompileOk},
      {Absolute("OTHER.PLC"), kCompileOk},
      {Absolute("cwd/PLANT.PRO"), kCompileFailed},  // a file without a ladder header
      {std::string(258, 'M'), kCompileFailed},
      {"MA\xC8\x01N.PLC", kCompileFailed},
      {"..", kCompileFailed},
      {Absolute(""), kCompileFailed},
  };
  for (const Case& c : cases) {
    world_.WriteFile("cwd/PLANT.PRO", ProjectFile({c.program}));
    EXPECT_EQ(Compile("", "PLANT.PRO"), c.result) << c.program;
    Changes expected =
        c.result == kCompileOk ? AllOutputs("cwd/") : Changes{"+cwd/PLANT.ERR", "+cwd/PLANT.LII"};
    EXPECT_EQ(changes_, expected) << c.program;
    for (const std::string& change : changes_) {
      std::filesystem::remove(world_.dir() / change.substr(1));
    }
  }
}

// A project file name with odd bytes names outputs with the same bytes, beside it.
TEST_F(HostilePaths, OddBytesInNamesStayInTheNames) {
  const std::string name = "PL\xC8NT~1";
  world_.WriteFile("cwd/" + name + ".PRO", ProjectFile({"MAIN.PLC"}));
  EXPECT_EQ(Compile("", name + ".PRO"), kCompileOk);
  EXPECT_EQ(changes_, AllOutputs("cwd/", name));
}

}  // namespace
}  // namespace rungc
