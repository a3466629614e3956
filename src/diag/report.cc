#include "diag/report.h"

#include <array>
#include <cstdio>
#include <string>

#include "common/session.h"
#include "output/listing_form.h"

namespace rungc {

namespace {

constexpr std::string_view kListingHeader = "- KORVA   1995 V2.0  LIS             ;";

// The listing path with the extension of its name part (from the first '.') replaced.
std::filesystem::path WithExtension(const std::string& listing_path, std::size_t name_start,
                                    std::string_view extension) {
  std::size_t dot = listing_path.find('.', name_start);
  std::string path = listing_path.substr(0, dot);
  path += extension;
  return path;
}

std::string FormatNumber(const char* format, std::int32_t value) {
  std::array<char, 32> buf;
  std::snprintf(buf.data(), buf.size(), format, static_cast<int>(value));
  return buf.data();
}

// "#E#NERR=%d#RUNG=%d" with the optional item and text, for errors and warnings.
void WriteNumberedLine(CompileSession& s, char kind, std::int32_t number) {
  std::string line = "#";
  line += kind;
  line += '#';
  line += FormatNumber("NERR=%d", number);
  line += FormatNumber("#RUNG=%d", s.dispatch.program_rung_count + 1);
  if (!s.diag.item.empty()) line.append("#ITEM=").append(s.diag.item.view());
  if (!s.diag.text.empty()) line.append("#STRG=").append(s.diag.text.view());
  s.diag.error_file.WriteLine(line);
}

// The file name of a label error's file line: the report item carries "File : <name>" and its
// line end.
std::string LabelErrorFileName(CompileSession& s) {
  std::string_view item = s.diag.item.view();
  if (item.empty()) return "NoName";
  item.remove_suffix(1);
  std::size_t colon = item.find(':');
  if (colon == std::string_view::npos) {
    s.diag.item.Set("NoName");
    return "NoName";
  }
  std::size_t start = item.find_first_not_of(' ', colon + 1);
  return start == std::string_view::npos ? std::string() : std::string(item.substr(start));
}

// The rung text of a label line: the report text from its last blank or '=' on, else all of it.
std::string_view LabelRungText(std::string_view text) {
  if (text.empty()) return "1";
  for (std::size_t i = text.size() - 1; i > 0; --i) {
    if (text[i] == ' ' || text[i] == '=') return text.substr(i);
  }
  return text;
}

// The second blank-delimited word of the report text: the name the label error is about.
std::string_view LabelNameWord(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && text[i] != ' ') ++i;
  while (i < text.size() && text[i] == ' ') ++i;
  std::size_t end = i;
  while (end < text.size() && text[end] != ' ') ++end;
  return text.substr(i, end - i);
}

void WriteLabelErrorLines(CompileSession& s) {
  ++s.diag.error_count;
  s.diag.error_file.WriteLine("#F#" + LabelErrorFileName(s));
  std::string line = "#J#" + FormatNumber("NERR=%d", s.diag.current_error) + "#RUNG=";
  std::string_view text = s.diag.text.view();
  line.append(LabelRungText(text)).append(" : ").append(LabelNameWord(text));
  s.diag.error_file.WriteLine(line);
}

}  // namespace

void AddToListingChecksum(CompileSession& session, std::string_view bytes) {
  std::uint32_t sum = session.diag.listing_checksum;
  for (char c : bytes)
    sum += static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<signed char>(c)));
  session.diag.listing_checksum = sum;
}

int OpenOutputFiles(CompileSession& session, std::string_view name, std::string_view directory) {
  DiagState& d = session.diag;
  std::string path;
  if (!directory.empty() && directory[0] != ' ') path = directory;
  const std::size_t name_start = path.size();
  path += name;
  std::filesystem::path listing = session.work_dir.Resolve(path);
  if (!d.listing.Create(listing)) return -1;
  d.listing_path = listing;
  d.temp_path = session.work_dir.Resolve(WithExtension(path, name_start, ".$$$").string());
  d.error_path = session.work_dir.Resolve(WithExtension(path, name_start, ".ERR").string());
  if (!d.error_file.Create(d.error_path)) return -1;
  WriteRecord(session, 0, kListingHeader);
  return 0;
}

void ReportError(CompileSession& session, std::int32_t number) {
  if (session.diag.rung_error_latch) return;
  session.diag.current_error = number;
  WriteRecord(session, 'E', std::string_view());
  session.diag.rung_error_latch = true;
}

void ReportErrorText(CompileSession& session, std::int32_t number, std::string_view item,
                     std::string_view text) {
  if (session.diag.rung_error_latch) return;
  session.diag.current_error = number;
  session.diag.item.Set(item);
  session.diag.text.Set(text);
  WriteRecord(session, 'E', std::string_view());
  session.diag.rung_error_latch = true;
}

void ReportWarning(CompileSession& session, std::int32_t number, std::string_view item,
                   std::string_view text) {
  session.diag.current_warning = number;
  session.diag.item.Set(item);
  session.diag.text.Set(text);
  WriteRecord(session, 'W', std::string_view());
}

void ReportLabelError(CompileSession& session, std::int32_t number, std::string_view item,
                      std::string_view text) {
  if (session.diag.rung_error_latch) return;
  session.diag.current_error = number;
  session.diag.item.Set(item);
  session.diag.text.Set(text);
  WriteRecord(session, 'J', std::string_view());
}

int WriteRecord(CompileSession& session, char kind, char* text) {
  DiagState& d = session.diag;
  switch (kind) {
    case 'E':
      ++d.error_count;
      WriteNumberedLine(session, kind, d.current_error);
      return 0;
    case 'W':
      ++d.warning_count;
      WriteNumberedLine(session, kind, d.current_warning);
      return 0;
    case 'J':
      WriteLabelErrorLines(session);
      return 0;
    case 0:
      d.listing.WriteLine(text);
      return 0;
    default:
      break;
  }
  const char mark[3] = {'#', kind, '#'};
  AddToListingChecksum(session, std::string_view(mark, 3));
  d.listing.Write(mark, 3);
  if (kind == 'R') {
    // A unit may hold NULs inside it; the text runs to the end of its last unit.
    std::size_t length = std::char_traits<char>::length(text);
    ListingUnitForm(text, (length + kUnitSize - 1) / kUnitSize * kUnitSize);
  }
  std::string_view body(text);
  AddToListingChecksum(session, body);
  AddToListingChecksum(session, "\r\n");
  if (kind == 'F') {
    d.error_file.Write(mark, 3);
    d.error_file.WriteLine(body);
  }
  d.listing.WriteLine(body);
  return 0;
}

int WriteRecord(CompileSession& session, char kind, std::string_view text) {
  std::string copy(text);
  copy.resize((copy.size() + kUnitSize - 1) / kUnitSize * kUnitSize, '\0');
  return WriteRecord(session, kind, copy.data());
}

}  // namespace rungc
