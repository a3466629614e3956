// The status file and the project file: the input is split at the first NUL into the two.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz_project.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t split = input.find('\0');
  rungc::fuzz::FuzzProject& p = rungc::fuzz::Project();
  p.WriteStandardProject();
  p.Write("MAIN.PLC", "- KORVA   1994       PLC             ;00FF00");
  p.Write("status.kpx", input.substr(0, split));
  if (split != std::string_view::npos) p.Write("PLANT.PRO", input.substr(split + 1));
  p.Compile();
  return 0;
}
