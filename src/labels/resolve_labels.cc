#include "labels/resolve_labels.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "common/session.h"
#include "diag/report.h"

namespace rungc {

namespace {

// Listing lines are read up to this many characters. The buffer holds one unit more, always NUL,
// so the last unit of a full line can be looked at whole.
constexpr std::size_t kLabelLineMax = 4093;
constexpr std::size_t kLabelLineBuffer = kLabelLineMax + 1 + kUnitSize;
constexpr std::size_t kRecordStart = 3;  // units start after "#R#"
constexpr int kMaxIfDepth = 15;

// The counters of one run of the pass; they run over the whole listing, not per program.
struct LabelPass {
  LabelPass(CompileSession& s, int m) : session(s), mode(m) {}

  CompileSession& session;
  int mode;
  std::uint32_t unit_index = 0;  // code position of the unit being handled
  std::int32_t rung_number = 0;  // units that begin a ladder rung ('A', 'a') met so far
  bool structure_flag = false;   // an IF structure of the current function block was checked
  std::string file_name;         // text of the last "#F" line from position 3, with its line end
  int result = 0;
};

bool EndsRecord(const char* unit) {
  return unit[0] == '\0' || unit[0] == '\n';
}

bool Is(const char* unit, char first, char second) {
  return unit[0] == first && unit[1] == second;
}

// Writes "K_%04X" over the 6 name characters of a unit; the character after them is kept.
void WriteDistance(char* unit, int distance) {
  std::array<char, 16> text;
  std::snprintf(text.data(), text.size(), "K_%04X", static_cast<unsigned>(distance));
  std::memcpy(unit + 2, text.data(), 6);
}

// The IF structure check of one function block, from its first IF ("Mj") to the end of the
// line or the block's end unit ("Ma"): every ELSE ("Mk") and ENDIF ("Ml") writes its distance in
// units into the unit it closes. 0; 1 an IF left open or an ELSE or ENDIF without IF; 2 a second
// ELSE of one IF or IFs nested deeper than 15.
int CheckIfStructure(char* start) {
  struct OpenUnit {
    char* unit;
    int position;
    int else_count;
  };
  std::array<OpenUnit, kMaxIfDepth> open{};
  int depth = 0;
  for (int position = 0;; ++position) {
    char* unit = start + static_cast<std::size_t>(position) * kUnitSize;
    if (EndsRecord(unit) || Is(unit, 'M', 'a')) break;
    if (Is(unit, 'M', 'j')) {
      if (depth == kMaxIfDepth) return 2;
      open[static_cast<std::size_t>(depth++)] = {unit, position, 0};
    } else if (Is(unit, 'M', 'k') || Is(unit, 'M', 'l')) {
      if (depth == 0) return 1;
      OpenUnit& top = open[static_cast<std::size_t>(depth - 1)];
      if (unit[1] == 'k') {
        if (top.else_count != 0) return 2;
        WriteDistance(top.unit, position - top.position);
        top = {unit, position, 1};
      } else {
        WriteDistance(top.unit, position - top.position);
        --depth;
      }
    }
  }
  return depth == 0 ? 0 : 1;
}

// Reports a failed unit through the label-error record: the message names the rest of the line
// from the unit's name field (when the format has a "%s") and the rung number; the line itself
// becomes "File : <file name>", which mode 1 writes in its place.
void ReportPassFailure(LabelPass& pass, char* line, const char* unit, const char* format,
                       int number) {
  std::string_view name(unit + 2);
  name = name.substr(0, name.find('\n'));
  std::array<char, kReportTextMax + 1> message;
  if (std::strstr(format, "%s") != nullptr) {
    // The name is cut so that the rung number at the end of the message still fits.
    const int fixed = std::snprintf(nullptr, 0, format, "", static_cast<int>(pass.rung_number));
    const int room = static_cast<int>(kReportTextMax) - fixed;
    std::string name_text(name.substr(0, room > 0 ? static_cast<std::size_t>(room) : 0));
    std::snprintf(message.data(), message.size(), format, name_text.c_str(),
                  static_cast<int>(pass.rung_number));
  } else {
    std::snprintf(message.data(), message.size(), format, static_cast<int>(pass.rung_number));
  }
  std::snprintf(line, kLabelLineMax + 1, "File : %s", pass.file_name.c_str());
  ReportLabelError(pass.session, number, line, message.data());
  pass.result = -1;
}

// Acts on one unit of a code record; false when it failed (and was reported).
bool HandleUnit(LabelPass& pass, char* line, char* unit) {
  LabelState& labels = pass.session.labels;
  char* field = unit + 2;
  if (unit[0] == 'A' || unit[0] == 'a') ++pass.rung_number;
  int code = 0;
  const char* format = nullptr;
  if (Is(unit, 'L', 'l')) {
    code = labels.jumps.Assign(field, 6, pass.unit_index);
    format = "LABEL %s Err at Rung %d";
  } else if (Is(unit, 'L', 'S')) {
    code = labels.subroutines.Assign(field, 6, pass.unit_index);
    format = "SUB %s Err at Rung %d";
  } else if (pass.mode == 0) {
    return true;
  } else if (Is(unit, 'L', 'j') || Is(unit, 'L', 'J')) {
    code = labels.jumps.Resolve(field, 6, pass.unit_index);
    format = "JUMP %s Err at Rung %d";
  } else if (Is(unit, 'L', 'c') || Is(unit, 'L', 'C')) {
    code = labels.subroutines.Resolve(field, 6, pass.unit_index);
    format = "CALL %s Err at Rung %d";
  } else if (unit[0] == 'm' || Is(unit, 'M', 'A') || Is(unit, 'M', 'a')) {
    pass.structure_flag = false;
  } else if (Is(unit, 'M', 'j') && !pass.structure_flag) {
    pass.structure_flag = true;
    code = CheckIfStructure(unit);
    format = code == 2 ? "Too many ELSE Error at Rung %d" : "IF/ENDIF Error at Rung %d";
  }
  if (code == 0) return true;
  ReportPassFailure(pass, line, unit, format, code);
  return false;
}

// Walks the units of a "#R#" line; a failed unit leaves the rest of the line as it is.
void WalkRecord(LabelPass& pass, char* line) {
  for (char* unit = line + kRecordStart; !EndsRecord(unit); unit += kUnitSize) {
    if (!HandleUnit(pass, line, unit)) return;
    ++pass.unit_index;
  }
}

// Writes a line of the rewritten listing; its line end is written as carriage return and line
// feed, as in every listing line.
bool WriteListingLine(platform::OutputFile& out, std::string_view line) {
  if (!line.empty() && line.back() == '\n') {
    line.remove_suffix(1);
    return out.WriteLine(line);
  }
  return out.Write(line);
}

}  // namespace

int ResolveLabels(CompileSession& session, int mode) {
  platform::InputFile in;
  platform::OutputFile out;
  if (mode == 0) {
    if (!in.Open(session.diag.listing_path, platform::OpenMode::kText)) return 6;
  } else {
    if (!out.Create(session.diag.listing_path)) return 6;
    if (!in.Open(session.diag.temp_path, platform::OpenMode::kText)) return 6;
  }
  LabelPass pass(session, mode);
  std::array<char, kLabelLineBuffer> line;
  for (;;) {
    line.fill('\0');
    if (!in.ReadLine(line.data(), kLabelLineMax)) break;
    if (line[0] == '#' && line[1] == 'F') pass.file_name = line.data() + 3;
    if (std::strncmp(line.data(), "#R#", 3) == 0) WalkRecord(pass, line.data());
    if (mode == 1 && !WriteListingLine(out, line.data())) {
      pass.result = 6;
      break;
    }
  }
  return pass.result;
}

}  // namespace rungc
