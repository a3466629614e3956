// The driver's part of a compile: the project as the status file names it and the totals that
// the summary lines print.
#pragma once

#include <cstdint>
#include <string>

#include "common/fixed_text.h"
#include "common/limits.h"
#include "platform/file_io.h"

namespace rungc {

struct DriverState {
  std::int32_t total_rungs = 0;
  std::int32_t main_instruction_total = 0;
  std::int32_t subroutine_instruction_total = 0;
  // Project directory as the status file gives it: empty, beginning with a blank (both mean the
  // current directory), or ending with a separator.
  FixedText<kProjectDirMax> project_directory;
  FixedText<263> project_file_name;
  std::string listing_name;          // project file name up to its first '.', then ".LII"
  FixedText<259> program_name;       // the program being compiled
  platform::InputFile project_file;  // open from the status read to the end of the compile
  std::string object_path;           // project directory + base + ".lii", for the object writer
  // What the program loop of the last compile gave: 1 end-of-list line reached, 2 the project
  // file ended without one, -1 an empty program name or a ladder source that cannot be opened,
  // 0 the loop did not run. Read by the command-line tool to explain a failed compile.
  std::int32_t program_list_result = 0;
};

}  // namespace rungc
