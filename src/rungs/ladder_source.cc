#include "rungs/ladder_source.h"

#include <array>
#include <cstring>

#include "common/session.h"
#include "driver/project_files.h"

namespace rungc {

namespace {

constexpr std::string_view kNewerHeader = "- KORVA   1994       PLC             ;";
constexpr std::string_view kOlderHeader = "- HALVERN 1992 RKX                   ;";

}  // namespace

int OpenLadderSource(CompileSession& session, std::string_view program_name) {
  platform::InputFile& source = session.reader.source;
  if (program_name.empty()) return -1;
  std::string path = ProjectPath(session, program_name);
  if (!source.Open(session.work_dir.ResolveInput(path), platform::OpenMode::kBinary)) return -1;
  // The header is compared on everything before its last ';' within the first 39 characters.
  std::array<char, 40> line{};
  source.ReadLine(line.data(), 39);
  const char* semicolon = std::strrchr(line.data(), ';');
  const std::size_t n =
      semicolon == nullptr ? 0 : static_cast<std::size_t>(semicolon - line.data());
  if (semicolon == nullptr || (std::strncmp(line.data(), kNewerHeader.data(), n) != 0 &&
                               std::strncmp(line.data(), kOlderHeader.data(), n) != 0)) {
    source.Close();
    return -2;
  }
  source.Seek(static_cast<long>(n) + 1);
  return 0;
}

void CloseLadderSource(CompileSession& session) {
  session.reader.source.Close();
}

}  // namespace rungc
