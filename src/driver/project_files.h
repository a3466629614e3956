// The status file and the project file: where the project lies, what its outputs are called,
// and which programs it holds.
#pragma once

#include <string>
#include <string_view>

namespace rungc {

struct CompileSession;

// Reads "status.kpx", opens the project file and has the listing and error files created.
// 0 on success; -1 with the current error number set to 50, 53, 55, 56 or 51.
int ReadStatusAndProject(CompileSession& session);

// Reads the next program name: 0 a name was read, -1 end of the project file, -2 the line begins
// with a blank or a NUL (end of the program list).
int ReadProgramName(CompileSession& session);

// A file of the project: the name alone when the project directory is empty or begins with a
// blank, otherwise appended to the directory. The result is a path of the host.
std::string ProjectPath(const CompileSession& session, std::string_view file_name);

}  // namespace rungc
