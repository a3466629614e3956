#include "fuzz_project.h"

#include <cstdlib>
#include <fstream>
#include <string>

#include <unistd.h>

#include "rungc/session.h"

namespace rungc::fuzz {

namespace {

constexpr std::string_view kMemoryMap =
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
  Write("memory.ovl", kMemoryMap);
}

std::uint32_t FuzzProject::Compile() const {
  Session session;
  return session.Compile(dir_);
}

FuzzProject& Project() {
  static FuzzProject project;
  return project;
}

}  // namespace rungc::fuzz
