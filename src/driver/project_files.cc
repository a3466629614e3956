#include "driver/project_files.h"

#include <array>
#include <cstring>

#include "common/session.h"
#include "diag/report.h"

namespace rungc {

namespace {

constexpr std::string_view kStatusHeader = "- KORVA   1994";  // first 14 characters compared
constexpr std::string_view kProjectHeader = "- KORVA   19";   // first 12 characters compared
// The separator appended to a project directory that does not end in one.
#ifdef _WIN32
constexpr char kSeparator = '\\';
#else
constexpr char kSeparator = '/';
#endif

// Compares the first characters of a line with a header prefix, as strncmp does.
bool BeginsWith(const char* line, std::string_view prefix) {
  return std::strncmp(line, prefix.data(), prefix.size()) == 0;
}

// The text of a line from a position on, after its last `drop` characters are cut off.
std::string_view LineTail(const char* line, std::size_t drop, std::size_t from) {
  std::size_t length = std::strlen(line);
  length = length > drop ? length - drop : 0;
  return from < length ? std::string_view(line + from, length - from) : std::string_view();
}

// Line 2 of the status file: the project directory from position 8, with the host's separators,
// ending in a separator unless it is empty or begins with a blank.
void TakeProjectDirectory(DriverState& d, const char* line) {
  std::string dir = platform::HostPath(LineTail(line, 1, 8));
  if (!dir.empty() && dir[0] != ' ' && dir.back() != kSeparator && dir.back() != '\\') {
    dir += kSeparator;
  }
  d.project_directory.Set(dir);
}

// The listing name: the project file name up to its first '.', then ".LII".
void TakeListingName(DriverState& d) {
  std::string_view name = d.project_file_name.view();
  d.listing_name = std::string(name.substr(0, name.find('.'))) + ".LII";
}

int Fail(CompileSession& s, int error_number) {
  s.diag.current_error = error_number;
  return -1;
}

}  // namespace

std::string ProjectPath(const CompileSession& session, std::string_view file_name) {
  std::string_view dir = session.driver.project_directory.view();
  std::string path;
  if (!dir.empty() && dir[0] != ' ') path = dir;
  path += platform::HostPath(file_name);
  return path;
}

int ReadStatusAndProject(CompileSession& session) {
  DriverState& d = session.driver;
  platform::InputFile status;
  if (!status.Open(session.work_dir.ResolveInput("status.kpx"), platform::OpenMode::kText)) {
    return Fail(session, 50);
  }
  std::array<char, 280> line{};
  status.ReadLine(line.data(), 99);
  if (!BeginsWith(line.data(), kStatusHeader)) return Fail(session, 53);
  status.ReadLine(line.data(), 279);
  TakeProjectDirectory(d, line.data());
  status.ReadLine(line.data(), 264);
  status.ReadLine(line.data(), 259);
  d.project_file_name.Set(LineTail(line.data(), 2, 5));
  TakeListingName(d);
  status.Close();

  if (!d.project_file.Open(
          session.work_dir.ResolveInput(ProjectPath(session, d.project_file_name.view())),
          platform::OpenMode::kText)) {
    return Fail(session, 55);
  }
  d.project_file.ReadLine(line.data(), 99);
  if (!BeginsWith(line.data(), kProjectHeader)) {
    d.project_file.Close();
    return Fail(session, 56);
  }
  if (OpenOutputFiles(session, d.listing_name, d.project_directory.view()) != 0) {
    return Fail(session, 51);
  }
  return 0;
}

int ReadProgramName(CompileSession& session) {
  std::array<char, 260> line{};
  if (!session.driver.project_file.ReadLine(line.data(), 259)) return -1;
  if (line[0] == '\0' || line[0] == ' ') return -2;
  std::size_t end = std::strcspn(line.data(), " \n\r;");
  session.driver.program_name.Set(std::string_view(line.data(), end));
  return 0;
}

}  // namespace rungc
