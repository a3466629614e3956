#include "support/relay_fixtures.h"

#include <stdexcept>

#include "rungs/ladder_source.h"
#include "rungs/rung_reader.h"

namespace rungc::testing {

namespace {

constexpr std::string_view kMiddleDot = "\xC2\xB7";

// Writes the source to a file of its own and reads its first rung.
void LoadRungSource(CompileSession& s, const LadderSource& source, std::size_t rows) {
  TempProject project;
  project.WriteLadder("RUNG.PLC", source);
  s.work_dir = platform::WorkDir(project.dir());
  RebuildElementTable(s.reader.elements);
  if (OpenLadderSource(s, "RUNG.PLC") != 0) throw std::runtime_error("cannot open the source");
  int kind = 0;
  const int read = ReadRung(s, s.reader.grid, s.reader.pool, &kind);
  CloseLadderSource(s);
  if (read != 0) throw std::runtime_error("the rung cannot be read: " + std::to_string(read));
  if (s.reader.cell_count != rows * kGridColumns) {
    throw std::invalid_argument("the rows are not read as one rung of 10 cells a row: " +
                                std::to_string(s.reader.cell_count) + " cells");
  }
  s.diag.current_error = 0;
  s.diag.item.Clear();
  s.diag.text.Clear();
  s.diag.rung_error_latch = false;
  s.dispatch.record.Clear();
}

}  // namespace

std::unique_ptr<CompileSession> NewSession() {
  return std::make_unique<CompileSession>();
}

void LoadRungCells(CompileSession& s, const std::vector<std::vector<Cell>>& rows) {
  LadderSource source;
  for (const std::vector<Cell>& row : rows) source.Row(row);
  LoadRungSource(s, source, rows.size());
}

void LoadRung(CompileSession& s, const std::vector<std::string>& rows) {
  LadderSource source;
  for (const std::string& row : rows) source.Row(row);
  LoadRungSource(s, source, rows.size());
}

std::string DumpUnits(std::string_view code) {
  std::string dump;
  for (std::size_t at = 0; at < code.size(); at += kUnitSize) {
    std::string_view unit = code.substr(at, kUnitSize);
    std::size_t end = unit.find_last_not_of(' ');
    unit = end == std::string_view::npos ? std::string_view() : unit.substr(0, end + 1);
    if (!dump.empty()) dump += ' ';
    for (char c : unit) {
      if (c == ' ') {
        dump += kMiddleDot;
      } else {
        dump += c == '\0' ? '~' : c;
      }
    }
  }
  return dump;
}

std::string UnitsFromDump(std::string_view dump) {
  std::string code;
  std::size_t from = 0;
  while (from < dump.size()) {
    std::size_t end = dump.find(' ', from);
    if (end == std::string_view::npos) end = dump.size();
    std::string unit;
    for (std::size_t i = from; i < end; ++i) {
      if (dump.substr(i, kMiddleDot.size()) == kMiddleDot) {
        unit += ' ';
        i += kMiddleDot.size() - 1;
      } else {
        unit += dump[i];
      }
    }
    if (unit.size() > kUnitSize) throw std::invalid_argument("unit longer than 8: " + unit);
    unit.resize(kUnitSize, ' ');
    code += unit;
    from = end + 1;
  }
  return code;
}

}  // namespace rungc::testing
