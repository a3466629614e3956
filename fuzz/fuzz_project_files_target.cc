// The status file and the project file: the input is split at its first NUL into the two. The
// program they name, MAIN.PLC, and the memory map are written once per process.
//
// A status file names the directory the outputs are written to. Inputs whose status file holds a
// path separator or ".." are passed over, so the fuzzer never writes outside its own project
// directory; the hostile path tests cover those names.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz_project.h"

namespace {

bool NamesOtherDirectory(std::string_view status) {
  return status.find_first_of("/\\") != std::string_view::npos ||
         status.find("..") != std::string_view::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto [status, project] = rungc::fuzz::SplitAtNul(data, size);
  if (NamesOtherDirectory(status)) return -1;
  rungc::fuzz::FuzzProject& p = rungc::fuzz::Project();
  static const bool written = [&p] {
    p.WriteStandardProject();
    p.Write("MAIN.PLC", "- KORVA   1994       PLC             ;00FF00");
    return true;
  }();
  (void)written;
  p.Write("status.kpx", status);
  p.Write("PLANT.PRO", project);
  p.Compile();
  return 0;
}
