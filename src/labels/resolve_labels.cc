#include "labels/resolve_labels.h"

#include <array>

#include "common/session.h"

namespace rungc {

// Interim pass: names are not resolved yet; mode 1 writes the listing anew from its copy.
int ResolveLabels(CompileSession& session, int mode) {
  if (mode == 0) return 0;
  platform::OutputFile listing;
  platform::InputFile copy;
  if (!listing.Create(session.diag.listing_path)) return 6;
  if (!copy.Open(session.diag.temp_path, platform::OpenMode::kBinary)) return 6;
  std::array<char, 4094> line{};
  while (copy.ReadLine(line.data(), 4093)) listing.Write(line.data());
  return 0;
}

}  // namespace rungc
