// The thermoregulation and PID tables: the input is split at its first NUL into the "tmr" and
// the "pds" table, which the side-file step converts beside the listing with the standard memory
// map. A side file whose conversion failed must be gone afterwards.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "common/session.h"
#include "fuzz_project.h"
#include "output/object_file.h"
#include "output/side_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  rungc::CompileSession& s = rungc::fuzz::PassSession();
  const auto [thermoregulation, pid] = rungc::fuzz::SplitAtNul(data, size);
  rungc::fuzz::FuzzProject& p = rungc::fuzz::Project();
  p.Write("PLANT.tmr", thermoregulation);
  p.Write("PLANT.pds", pid);
  const std::string listing = s.diag.listing_path.string();
  s.object.line_counter = 0;
  const int result = rungc::WriteSideFiles(s, listing);
  // A failure deletes the side file it was writing; at least one of the two is then missing.
  if (result != 0 && rungc::platform::FileExists(rungc::WithPathExtension(listing, "tmc")) &&
      rungc::platform::FileExists(rungc::WithPathExtension(listing, "pdc"))) {
    std::abort();
  }
  return 0;
}
