#include "support/ladder_builder.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>

#include <unistd.h>

namespace rungc::testing {

std::vector<int> ElementFieldLengths(int code) {
  // Codes by their fields; elements not listed carry no operand text.
  static const std::map<int, std::vector<int>> kLengths = [] {
    std::map<int, std::vector<int>> lengths = {{10, {32, 32, 32}}, {14, {68, 68}},
                                               {30, {68, 68, 68}}, {38, {32, 32}},
                                               {49, {6, 6, 6}},    {50, {32}}};
    for (int one : {1, 2, 3, 6, 7, 16, 21, 22, 23, 24, 25, 31, 42}) lengths[one] = {6};
    for (int two : {8, 9, 44, 45, 46, 47, 48}) lengths[two] = {6, 6};
    return lengths;
  }();
  const auto found = kLengths.find(code);
  return found == kLengths.end() ? std::vector<int>{} : found->second;
}

std::string EncodeRecord(const Cell& cell, std::uint8_t row_byte) {
  const int type = (cell.link ? 0x80 : 0) | (cell.variant ? 0x40 : 0) | (cell.code & 0x3F);
  char head[7];
  std::snprintf(head, sizeof head, "%02X%02X%02X", type, row_byte, cell.repeat & 0xFF);
  std::string record(head);
  if (cell.use_raw) return record + cell.raw_operand;
  const std::vector<int> lengths = ElementFieldLengths(cell.code);
  for (std::size_t i = 0; i < lengths.size(); ++i) {
    std::string field = i < cell.fields.size() ? cell.fields[i] : std::string();
    if (field.size() > static_cast<std::size_t>(lengths[i])) {
      throw std::invalid_argument("operand field longer than its element allows: " + field);
    }
    field.resize(static_cast<std::size_t>(lengths[i]), ' ');
    record += field;
  }
  if (lengths.empty() && !cell.fields.empty()) {
    throw std::invalid_argument("element carries no operand text");
  }
  return record;
}

std::vector<Cell> LadderSource::ParseRow(std::string_view notation) {
  std::vector<Cell> cells;
  std::size_t i = 0;
  while (i < notation.size()) {
    if (notation[i] == ' ') {
      ++i;
      continue;
    }
    Cell cell;
    if (notation[i] == '^') {
      cell.link = true;
      ++i;
    }
    if (i < notation.size() && notation[i] == '!') {
      cell.variant = true;
      ++i;
    }
    if (i < notation.size() && (notation[i] == '-' || notation[i] == '.')) {
      cell.code = notation[i] == '-' ? 4 : 5;
      ++i;
    } else {
      std::size_t start = i;
      while (i < notation.size() && notation[i] >= '0' && notation[i] <= '9') ++i;
      if (start == i) throw std::invalid_argument("bad cell in row: " + std::string(notation));
      cell.code = std::stoi(std::string(notation.substr(start, i - start)));
    }
    if (i < notation.size() && notation[i] == 'x') {
      std::size_t start = ++i;
      while (i < notation.size() && notation[i] >= '0' && notation[i] <= '9') ++i;
      cell.repeat = std::stoi(std::string(notation.substr(start, i - start)));
    }
    if (i < notation.size() && notation[i] == '(') {
      std::size_t close = notation.find(')', i);
      if (close == std::string_view::npos) throw std::invalid_argument("unclosed operand");
      std::string_view inside = notation.substr(i + 1, close - i - 1);
      std::size_t from = 0;
      for (;;) {
        std::size_t comma = inside.find(',', from);
        cell.fields.emplace_back(inside.substr(from, comma - from));
        if (comma == std::string_view::npos) break;
        from = comma + 1;
      }
      i = close + 1;
    }
    cells.push_back(cell);
  }
  return cells;
}

LadderSource& LadderSource::Row(std::string_view notation, RowKind kind) {
  return Row(ParseRow(notation), kind);
}

LadderSource& LadderSource::Row(const std::vector<Cell>& cells, RowKind kind) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    records_ += EncodeRecord(cells[i], i == 0 ? static_cast<std::uint8_t>(kind) : 0);
  }
  return *this;
}

LadderSource& LadderSource::Raw(std::string_view text) {
  records_ += text;
  return *this;
}

std::string LadderSource::Text(bool end_record) const {
  std::string text = "- KORVA   1994       PLC             ;";
  text += records_;
  // A source without rows has no row-end record: read alone, it would be a rung of element 0.
  if (end_record && !records_.empty()) text += "00FF00";
  return text;
}

TempProject::TempProject() {
  static std::atomic<int> counter{0};
  std::filesystem::path base = std::filesystem::temp_directory_path();
  dir_ = base / ("rungc-test-" + std::to_string(::getpid()) + "-" + std::to_string(counter++));
  std::filesystem::remove_all(dir_);
  std::filesystem::create_directories(dir_);
}

TempProject::~TempProject() {
  std::error_code ec;
  std::filesystem::remove_all(dir_, ec);
}

void TempProject::WriteFile(std::string_view name, std::string_view bytes) const {
  std::filesystem::path path = dir_ / std::string(name);
  std::filesystem::create_directories(path.parent_path());
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string TempProject::ReadFile(std::string_view name) const {
  std::ifstream in(dir_ / std::string(name), std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

bool TempProject::Exists(std::string_view name) const {
  return std::filesystem::exists(dir_ / std::string(name));
}

void TempProject::WriteStatus(std::string_view project_dir, std::string_view project_file) const {
  std::string text = "- KORVA   1994       STA             ;\r\n";
  text += "PRJDIR= " + std::string(project_dir.empty() ? " " : project_dir) + "\r\n";
  text += "LANG=ING\r\n";
  text += "PROJ=" + std::string(project_file) + " \r\n";
  WriteFile("status.kpx", text);
}

void TempProject::WriteProject(const std::vector<std::string>& programs, bool end_line,
                               std::string_view name) const {
  std::string text = "- KORVA   1994       PRO             ;\r\n";
  for (const std::string& program : programs) text += program + "\r\n";
  if (end_line) text += " \r\n";
  WriteFile(name, text);
}

void TempProject::WriteLadder(std::string_view name, const LadderSource& source) const {
  WriteFile(name, source.Text());
}

void TempProject::WriteMemoryMap(bool object_code,
                                 const std::vector<std::string>& area_lines) const {
  std::string text = object_code ? "#MEM#Y\r\n" : "#MEM#N\r\n";
  for (const std::string& line : area_lines) text += line + "\r\n";
  WriteFile("memory.ovl", text);
}

void TempProject::WriteSimpleProject(
    const std::vector<std::pair<std::string, LadderSource>>& programs) const {
  WriteStatus();
  std::vector<std::string> names;
  for (const auto& [name, source] : programs) {
    names.push_back(name);
    WriteLadder(name, source);
  }
  WriteProject(names);
}

std::vector<std::string> SplitLines(std::string_view text) {
  std::vector<std::string> lines;
  std::size_t from = 0;
  while (from < text.size()) {
    std::size_t end = text.find("\r\n", from);
    if (end == std::string_view::npos) {
      lines.emplace_back(text.substr(from));
      break;
    }
    lines.emplace_back(text.substr(from, end - from));
    from = end + 2;
  }
  return lines;
}

LadderSource Rows(const Lines& rows) {
  LadderSource source;
  for (const std::string& row : rows) source.Row(row);
  return source;
}

LadderSource& AddBoxRung(LadderSource& source, std::string_view before, const Lines& head,
                         const std::vector<Lines>& continuations) {
  std::vector<Cell> row = LadderSource::ParseRow(before);
  row.push_back(Cell(38, head));
  source.Row(row);
  for (const Lines& lines : continuations) {
    std::vector<Cell> below = LadderSource::ParseRow(".x2");
    below.push_back(Cell(10, lines));
    source.Row(below);
  }
  return source;
}

std::string BoxLine(std::string_view line) {
  if (line.size() > 32)
    throw std::invalid_argument("box line longer than 32: " + std::string(line));
  std::string text(line);
  text.resize(32, ' ');
  return text;
}

Lines SampleAreaLines() {
  return {"R,SSWB,200H,16,4,8",     "WX,WWWW,100H,0,8,20H", "WR,SSWW,1000H,40H,4,20H",
          "WM,SSSW,2000H,20H,8,10", "M,WWWB,3000H,0,0,10H", "Y,SWWB,4000H,100H,2,20H",
          "S,BBBB,5000H,0,0,0",     "T,TTTT,6000H,4,0,80H", "WT,TTTT,7000H,2,0,10",
          "WAX,WWWW,800H,0,0,20H",  "WZ,WWWW,900H,0,0,10H", "WF,SSWB,0A00H,16,2,8"};
}

std::string ThermoregulationTable(const Lines& lines) {
  return CrLfText(lines).insert(0, "- KORVA   1994       TERMO           ;\r\n");
}

std::string PidTable(const Lines& lines) {
  return CrLfText(lines).insert(0, "- KORVA   1994       PID             ;\r\n");
}

std::string CrLfText(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

std::uint32_t ListingSum(const Lines& lines) {
  std::uint32_t sum = 0;
  for (const std::string& line : lines) {
    for (char c : line) sum += static_cast<std::uint32_t>(static_cast<signed char>(c));
    sum += '\r' + '\n';
  }
  return sum;
}

std::string ChecksumTrailer(std::uint32_t sum_before_trailer) {
  char line[24];
  std::snprintf(line, sizeof line, "#s#%04X", sum_before_trailer + '#' + 's' + '#');
  return line;
}

std::string ListingText(const Lines& records) {
  return ListingText(records, ChecksumTrailer(ListingSum(records)));
}

std::string ListingText(const Lines& records, std::string_view trailer) {
  std::string text = std::string(kListingHeader) + "\r\n" + CrLfText(records);
  if (!trailer.empty()) text += std::string(trailer) + "\r\n";
  return text;
}

Lines SummaryLines(int rows, int errors, int warnings, int rungs, int main_total, int sub_total) {
  return {
      "Riga N. = " + std::to_string(rows),          "#TERR=" + std::to_string(errors),
      "#TWRN=" + std::to_string(warnings),          "#TOTRUNG=" + std::to_string(rungs),
      "#TOTMAINISTR=" + std::to_string(main_total), "#TOTSUBMISTR=" + std::to_string(sub_total)};
}

std::string ErrorFileText(const Lines& records, const Lines& summary) {
  return CrLfText(records) + CrLfText(summary);
}

}  // namespace rungc::testing
