// Test-only helpers for the back end: a compile session whose listing and error file lie in a
// temporary project, so the label pass, the object writer and the side files can run on listings
// and tables written directly, without compiling rungs.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/session.h"
#include "support/ladder_builder.h"

namespace rungc::testing {

// The listing header the record writer puts first.
inline constexpr std::string_view kListingHeaderLine = "- KORVA   1995 V2.0  LIS             ;";

// A memory map with one area of every type, for operand tests:
//   R  SSWB base 0x200, stride 16, 4 groups, 8 elements (the worked examples)
//   WX WWWW 0x100, 32 elements;  WR SSWW 0x1000, stride 0x40, 4 groups, 32 elements
//   WM SSSW 0x2000, stride 0x20, 8 groups, 10 elements;  M WWWB 0x3000, 16 elements
//   Y  SWWB 0x4000, stride 0x100, 2 groups, 32 elements;  S BBBB
//   T  TTTT 0x6000, stride 4, 128 elements;  WT TTTT 0x7000, stride 2, 10 elements
//   WAX WWWW 0x800, 32 elements;  WZ WWWW 0x900, 16 elements;  WF SSWB 0xA00, stride 16
std::vector<std::string> SampleAreaLines();

class BackendBench {
 public:
  // A session working in a fresh project directory, its listing "PLANT.LII" and error file
  // "PLANT.ERR" named as the compile names them; the error file is open.
  BackendBench();

  TempProject& project() { return project_; }
  CompileSession& session() { return *session_; }

  // The listing file: the header, then these lines, each ended by CR LF.
  void WriteListing(const std::vector<std::string>& lines) const;
  // The listing's lines after the header.
  std::vector<std::string> ListingLines() const;
  // Writes "memory.ovl" (asking for object code) with these area lines and loads it.
  void LoadMemoryMap(const std::vector<std::string>& area_lines);
  // Runs the label pass as the compile does: check mode, then rewrite mode over the ".$$$" copy,
  // which is restored when the rewrite fails. Gives the last mode's result.
  int RunLabelPass();
  // Closes the error file and gives its lines.
  std::vector<std::string> ErrorLines();
  // The listing path as the driver hands it to the object writer.
  std::string listing_path() const { return session_->diag.listing_path.string(); }

 private:
  TempProject project_;
  std::unique_ptr<CompileSession> session_;
};

// A text table file ("tmr" or "pds") with its header and these data lines, each ended by CR LF.
std::string ThermoregulationTable(const std::vector<std::string>& lines);
std::string PidTable(const std::vector<std::string>& lines);

// Bytes as a compact hexadecimal dump, "02 08 14 02".
std::string HexBytes(std::string_view bytes);

}  // namespace rungc::testing
