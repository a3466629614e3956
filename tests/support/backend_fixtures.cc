#include "support/backend_fixtures.h"

#include <cstdio>

#include "driver/memory_map.h"
#include "labels/resolve_labels.h"

namespace rungc::testing {

std::vector<std::string> SampleAreaLines() {
  return {"R,SSWB,200H,16,4,8",     "WX,WWWW,100H,0,8,20H", "WR,SSWW,1000H,40H,4,20H",
          "WM,SSSW,2000H,20H,8,10", "M,WWWB,3000H,0,0,10H", "Y,SWWB,4000H,100H,2,20H",
          "S,BBBB,5000H,0,0,0",     "T,TTTT,6000H,4,0,80H", "WT,TTTT,7000H,2,0,10",
          "WAX,WWWW,800H,0,0,20H",  "WZ,WWWW,900H,0,0,10H", "WF,SSWB,0A00H,16,2,8"};
}

BackendBench::BackendBench() : session_(std::make_unique<CompileSession>()) {
  CompileSession& s = *session_;
  s.work_dir = platform::WorkDir(project_.dir());
  s.diag.listing_path = project_.dir() / "PLANT.LII";
  s.diag.temp_path = project_.dir() / "PLANT.$$$";
  s.diag.error_path = project_.dir() / "PLANT.ERR";
  s.diag.error_file.Create(s.diag.error_path);
}

void BackendBench::WriteListing(const std::vector<std::string>& lines) const {
  std::string text = std::string(kListingHeaderLine) + "\r\n";
  for (const std::string& line : lines) text += line + "\r\n";
  project_.WriteFile("PLANT.LII", text);
}

std::vector<std::string> BackendBench::ListingLines() const {
  std::vector<std::string> lines = SplitLines(project_.ReadFile("PLANT.LII"));
  if (!lines.empty()) lines.erase(lines.begin());
  return lines;
}

void BackendBench::LoadMemoryMap(const std::vector<std::string>& area_lines) {
  project_.WriteMemoryMap(true, area_lines);
  rungc::LoadMemoryMap(*session_, "memory.ovl");
}

int BackendBench::RunLabelPass() {
  CompileSession& s = *session_;
  int result = ResolveLabels(s, 0);
  if (result != 0) return result;
  platform::RemoveFile(s.diag.temp_path);
  platform::RenameFile(s.diag.listing_path, s.diag.temp_path);
  result = ResolveLabels(s, 1);
  if (result != 0) {
    platform::RemoveFile(s.diag.listing_path);
    platform::RenameFile(s.diag.temp_path, s.diag.listing_path);
  }
  platform::RemoveFile(s.diag.temp_path);
  return result;
}

std::vector<std::string> BackendBench::ErrorLines() {
  session_->diag.error_file.Close();
  return SplitLines(project_.ReadFile("PLANT.ERR"));
}

namespace {

std::string Table(std::string_view header, const std::vector<std::string>& lines) {
  std::string text = std::string(header) + "\r\n";
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

}  // namespace

std::string ThermoregulationTable(const std::vector<std::string>& lines) {
  return Table("- KORVA   1994       TERMO           ;", lines);
}

std::string PidTable(const std::vector<std::string>& lines) {
  return Table("- KORVA   1994       PID             ;", lines);
}

std::string HexBytes(std::string_view bytes) {
  std::string out;
  for (char c : bytes) {
    char hex[4];
    std::snprintf(hex, sizeof hex, "%02X", static_cast<unsigned char>(c));
    if (!out.empty()) out += ' ';
    out += hex;
  }
  return out;
}

}  // namespace rungc::testing
