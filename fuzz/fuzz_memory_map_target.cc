// The memory map, read for a small clean project that asks for object code.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz_project.h"
#include "support/ladder_builder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  rungc::fuzz::FuzzProject& p = rungc::fuzz::Project();
  static const bool written = (p.WriteStandardProject(), true);
  (void)written;
  static const std::string kSource =
      rungc::testing::LadderSource().Row("1(X1.2) 2(R10.1) -x6 3(Y1.0)").Text();
  p.Write("MAIN.PLC", kSource);
  p.Write("memory.ovl", std::string_view(reinterpret_cast<const char*>(data), size));
  p.Compile();
  return 0;
}
