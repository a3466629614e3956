#include "support/ladder_builder.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include <unistd.h>

namespace rungc::testing {

std::vector<int> ElementFieldLengths(int code) {
  switch (code) {
    case 1:
    case 2:
    case 3:
    case 6:
    case 7:
    case 16:
    case 21:
    case 22:
    case 23:
    case 24:
    case 25:
    case 31:
    case 42:
      return {6};
    case 8:
    case 9:
    case 44:
    case 45:
    case 46:
    case 47:
    case 48:
      return {6, 6};
    case 10:
      return {32, 32, 32};
    case 14:
      return {68, 68};
    case 30:
      return {68, 68, 68};
    case 38:
      return {32, 32};
    case 49:
      return {6, 6, 6};
    case 50:
      return {32};
    default:
      return {};
  }
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

}  // namespace rungc::testing
