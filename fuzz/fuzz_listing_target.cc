// The listing as the passes after the rung loop read it back: the label pass in check mode and
// in rewrite mode over the ".$$$" copy (restored when the rewrite fails), then the object writer
// and the side files. The input is the whole listing file, header included.
//
// Before the pass the label tables are filled from the input as the rung loop fills them: every
// label and subroutine unit defines its name, every jump and call unit refers to its name, in
// file order. After it, two promises of the outputs are checked: no ".$$$" copy is left, and a
// failed conversion leaves no object code file.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "common/session.h"
#include "fuzz_project.h"
#include "labels/resolve_labels.h"
#include "output/object_file.h"

namespace {

constexpr std::size_t kUnit = 8;
constexpr std::size_t kNameField = 6;

// The name field of a unit as the rung loop saw it: the listing writes blanks as '_'.
std::string NameField(std::string_view unit) {
  std::string field(unit.substr(2, kNameField));
  for (char& c : field) {
    if (c == '_') c = ' ';
  }
  return field;
}

void EnterNames(rungc::CompileSession& s, std::string_view listing) {
  while (!listing.empty()) {
    std::size_t end = listing.find('\n');
    std::string_view line = listing.substr(0, end);
    listing = end == std::string_view::npos ? std::string_view() : listing.substr(end + 1);
    if (line.substr(0, 3) != "#R#") continue;
    for (std::size_t at = 3; at + 2 <= line.size(); at += kUnit) {
      std::string_view unit = line.substr(at, kUnit);
      if (unit[0] != 'L') continue;
      const std::string field = NameField(unit);
      switch (unit[1]) {
        case 'l':
          s.labels.jumps.Define(field);
          break;
        case 'S':
          s.labels.subroutines.Define(field);
          break;
        case 'J':
        case 'j':
          s.labels.jumps.Reference(field);
          break;
        case 'C':
        case 'c':
          s.labels.subroutines.Reference(field);
          break;
        default:
          break;
      }
    }
  }
}

// The driver's label pass: check mode, then rewrite mode over the ".$$$" copy of the listing.
int RunLabelPass(rungc::CompileSession& s) {
  int result = rungc::ResolveLabels(s, 0);
  if (result != 0) return result;
  rungc::platform::RemoveFile(s.diag.temp_path);
  rungc::platform::RenameFile(s.diag.listing_path, s.diag.temp_path);
  result = rungc::ResolveLabels(s, 1);
  if (result != 0) {
    rungc::platform::RemoveFile(s.diag.listing_path);
    rungc::platform::RenameFile(s.diag.temp_path, s.diag.listing_path);
  }
  rungc::platform::RemoveFile(s.diag.temp_path);
  return result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  rungc::CompileSession& s = rungc::fuzz::PassSession();
  const std::string_view listing(reinterpret_cast<const char*>(data), size);
  s.labels.jumps.Empty();
  s.labels.subroutines.Empty();
  rungc::fuzz::ClearRungReports(s);
  EnterNames(s, listing);
  rungc::fuzz::Project().Write("PLANT.LII", listing);
  const std::string path = s.diag.listing_path.string();
  const std::string object_path = rungc::WithPathExtension(path, "cod");
  rungc::platform::RemoveFile(object_path);  // as the driver does at the start of a compile
  const int pass = RunLabelPass(s);
  if (rungc::platform::FileExists(s.diag.temp_path)) std::abort();
  if (pass != 0) return 0;
  s.object.line_counter = 0;
  const int result = rungc::WriteObjectFile(s, path);
  if (result != 0 && rungc::platform::FileExists(object_path)) std::abort();
  return 0;
}
