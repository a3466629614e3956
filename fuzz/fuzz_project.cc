#include "fuzz_project.h"

#include <fstream>
#include <memory>
#include <string>

#include <unistd.h>

#include "common/session.h"
#include "diag/report.h"
#include "driver/memory_map.h"
#include "rungc/session.h"

namespace rungc::fuzz {

const std::string_view kStandardMemoryMap =
    "#MEM#Y\r\n"
    "X,SSWB,0,16,8,8\r\n"
    "Y,SSWB,100H,16,8,8\r\n"
    "R,SSWB,200H,16,64,8\r\n"
    "M,SSWB,600H,16,16,8\r\n"
    "F,WWWB,800H,0,0,16\r\n"
    "Z,WWWB,900H,0,0,16\r\n"
    "WX,SSWW,0,16,8,8\r\n"
    "WY,SSWW,100H,16,8,8\r\n"
    "WR,WWWW,200H,0,0,1048\r\n"
    "WM,WWWW,600H,0,0,256\r\n"
    "WF,WWWW,800H,0,0,128\r\n"
    "WZ,WWWW,900H,0,0,16\r\n"
    "WAX,SSWW,A00H,16,4,32\r\n"
    "WAY,SSWW,B00H,16,8,8\r\n"
    "T,TTTT,C00H,4,0,128\r\n"
    "C,TTTT,E00H,4,0,128\r\n"
    "WT,TTTT,C00H,4,0,128\r\n"
    "WC,TTTT,E00H,4,0,128\r\n"
    "DR,WWWW,200H,0,0,1048\r\n";

namespace {

constexpr std::string_view kListingName = "PLANT.LII";
constexpr const char* kNullDevice = "/dev/null";

}  // namespace

FuzzProject::FuzzProject() {
  dir_ = std::filesystem::temp_directory_path() / ("rungc-fuzz-" + std::to_string(::getpid()));
  std::filesystem::create_directories(dir_);
}

FuzzProject::~FuzzProject() {
  std::error_code ec;
  std::filesystem::remove_all(dir_, ec);
}

void FuzzProject::Write(std::string_view name, std::string_view bytes) const {
  std::ofstream out(dir_ / std::string(name), std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void FuzzProject::Remove(std::string_view name) const {
  std::error_code ec;
  std::filesystem::remove(dir_ / std::string(name), ec);
}

void FuzzProject::WriteStandardProject() const {
  Write("status.kpx",
        "- KORVA   1994       STA             ;\r\nPRJDIR=  \r\nLANG=ING\r\nPROJ=PLANT.PRO \r\n");
  Write("PLANT.PRO", "- KORVA   1994       PRO             ;\r\nMAIN.PLC\r\n \r\n");
  Write("memory.ovl", kStandardMemoryMap);
}

std::uint32_t FuzzProject::Compile() const {
  Session session;
  const std::uint32_t result = session.Compile(dir_);
  RemoveForeignOutputs(session.state());
  return result;
}

void FuzzProject::RemoveForeignOutputs(const CompileSession& session) const {
  const std::filesystem::path& listing = session.diag.listing_path;
  if (listing.empty() || listing == dir_ / kListingName) return;
  std::error_code ec;
  std::string base = listing.string();
  base.resize(base.size() >= 3 ? base.size() - 3 : 0);
  for (const std::filesystem::path& path :
       {listing, session.diag.error_path, session.diag.temp_path,
        std::filesystem::path(base + "cod"), std::filesystem::path(base + "tmc"),
        std::filesystem::path(base + "pdc")}) {
    if (!path.empty()) std::filesystem::remove(path, ec);
  }
}

FuzzProject& Project() {
  static FuzzProject project;
  return project;
}

CompileSession& PassSession() {
  static std::unique_ptr<CompileSession> session = [] {
    FuzzProject& project = Project();
    project.WriteStandardProject();
    auto s = std::make_unique<CompileSession>();
    s->work_dir = platform::WorkDir(project.dir());
    s->driver.listing_name = kListingName;
    s->diag.listing_path = project.dir() / "PLANT.LII";
    s->diag.temp_path = project.dir() / "PLANT.$$$";
    s->diag.error_path = kNullDevice;
    s->diag.error_file.Create(kNullDevice);
    if (LoadMemoryMap(*s, "memory.ovl") != -1) DeriveAreaSizes(s->memory);
    return s;
  }();
  return *session;
}

void ClearRungReports(CompileSession& session) {
  session.diag.current_error = 0;
  session.diag.current_warning = 0;
  session.diag.item.Clear();
  session.diag.text.Clear();
  session.diag.rung_error_latch = false;
}

std::pair<std::string_view, std::string_view> SplitAtNul(const std::uint8_t* data,
                                                         std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t split = input.find('\0');
  if (split == std::string_view::npos) return {input, {}};
  return {input.substr(0, split), input.substr(split + 1)};
}

}  // namespace rungc::fuzz
