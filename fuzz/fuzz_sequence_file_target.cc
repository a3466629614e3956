// The sequence file "PLANT.VP": read, then compiled into sequence lines appended to the listing
// (the null device here, so that millions of runs leave no file behind).
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/session.h"
#include "fuzz_project.h"
#include "sequencer/sequencer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static rungc::CompileSession& s = []() -> rungc::CompileSession& {
    rungc::CompileSession& session = rungc::fuzz::PassSession();
    session.diag.listing_path = "/dev/null";
    return session;
  }();
  rungc::fuzz::Project().Write("PLANT.VP",
                               std::string_view(reinterpret_cast<const char*>(data), size));
  rungc::ReadSequenceFile(s);
  rungc::CompileSequences(s);
  return 0;
}
