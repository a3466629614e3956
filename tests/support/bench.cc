#include "support/bench.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "diag/report.h"
#include "driver/memory_map.h"
#include "labels/resolve_labels.h"
#include "ladder/box_lines.h"
#include "rungc/session.h"
#include "rungs/compile_program.h"
#include "rungs/ladder_source.h"
#include "rungs/rung_reader.h"

namespace rungc::testing {

namespace {

constexpr std::string_view kMiddleDot = "\xC2\xB7";

std::string Padded(std::string_view text, std::size_t width) {
  if (text.size() > width) throw std::invalid_argument("field too long: " + std::string(text));
  std::string padded(text);
  padded.resize(width, ' ');
  return padded;
}

// A shell word: the text in single quotes, each quote written as '\''.
std::string Quoted(std::string_view text) {
  std::string word = "'";
  for (char c : text) word += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return word + "'";
}

}  // namespace

Bench::Bench() : session_(std::make_unique<CompileSession>()) {
  session_->work_dir = platform::WorkDir(project_.dir());
  if (OpenOutputFiles(*session_, "PLANT.LII", "") != 0) {
    throw std::runtime_error("cannot create the listing and error files");
  }
  RebuildElementTable(session_->reader.elements);
}

Bench::~Bench() = default;

Lines Bench::ErrorLines() {
  session_->diag.error_file.Close();
  return SplitLines(project_.ReadFile("PLANT.ERR"));
}

Lines Bench::ListingLines() {
  session_->diag.listing.Close();
  Lines lines = SplitLines(project_.ReadFile("PLANT.LII"));
  if (!lines.empty()) lines.erase(lines.begin());
  return lines;
}

void Bench::Open(const LadderSource& source, bool end_record) {
  OpenRaw(source.Text(end_record));
}

void Bench::OpenRaw(std::string_view file_text) {
  CloseLadderSource(*session_);
  project_.WriteFile("MAIN.PLC", file_text);
  session_->reader.line_counter = 1;
  if (OpenLadderSource(*session_, "MAIN.PLC") != 0) {
    throw std::runtime_error("cannot open the ladder source");
  }
}

int Bench::Read() {
  return ReadRung(*session_, session_->reader.grid, session_->reader.pool, &kind_);
}

std::string Bench::Dump() const {
  return DumpGrid(session_->reader.grid, session_->reader.cell_count);
}

void Bench::ReadRungOf(const LadderSource& source, std::size_t rows) {
  CompileSession& s = *session_;
  Open(source);
  const int read = Read();
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

void Bench::LoadRung(const Lines& rows) {
  ReadRungOf(Rows(rows), rows.size());
}

void Bench::LoadRung(const std::vector<std::vector<Cell>>& rows) {
  LadderSource source;
  for (const std::vector<Cell>& row : rows) source.Row(row);
  ReadRungOf(source, rows.size());
}

int Bench::CompileProgram(std::string_view name, const LadderSource& source, bool end_record) {
  project_.WriteFile(name, source.Text(end_record));
  session_->driver.program_name.Set(name);
  return rungc::CompileProgram(*session_);
}

BoxResult Bench::CompileCell(const Lines& lines, int type) {
  const std::size_t count = type == 38 ? 2 : 3;
  if (lines.size() > count) throw std::invalid_argument("too many lines for the cell");
  cell_text_.clear();
  for (std::size_t i = 0; i < count; ++i) cell_text_ += BoxLine(i < lines.size() ? lines[i] : "");
  CellRecord& cell = session_->reader.grid[0];
  cell.type = static_cast<std::uint8_t>(type);
  cell.length = static_cast<std::uint8_t>(cell_text_.size());
  cell.operand = cell_text_.c_str();
  CompileBoxCell(*session_, 0, type);
  return FinishBox();
}

BoxResult Bench::CompileComparison(std::string_view a, std::string_view op, std::string_view b) {
  cell_text_ = Padded(a, 6) + Padded(op, 6) + Padded(b, 6);
  CellRecord& cell = session_->reader.grid[0];
  cell.type = 49;
  cell.length = static_cast<std::uint8_t>(cell_text_.size());
  cell.operand = cell_text_.c_str();
  session_->ladder.code.Append("e");  // the walk's first character of the comparison unit
  CompileComparisonContact(*session_, 0);
  return FinishBox();
}

BoxResult Bench::FinishBox() {
  session_->diag.listing.Close();
  return {std::string(session_->ladder.code.view()), ErrorLines()};
}

void Bench::WriteListing(const Lines& lines) {
  session_->diag.listing.Close();
  project_.WriteFile("PLANT.LII", std::string(kListingHeader) + "\r\n" + CrLfText(lines));
}

void Bench::LoadMemoryMap(const Lines& area_lines) {
  project_.WriteMemoryMap(true, area_lines);
  rungc::LoadMemoryMap(*session_, "memory.ovl");
}

int Bench::RunLabelPass() {
  CompileSession& s = *session_;
  s.diag.listing.Close();
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

BoxResult CompileBoxLine(std::string_view line) {
  Bench bench;
  return bench.CompileCell({std::string(line)});
}

std::string Record(std::string_view report, std::string_view text) {
  const std::size_t colon = report.find(':');
  std::string record = "#" + std::string(1, report[0]) + "#NERR=";
  record += report.substr(1, colon == std::string_view::npos ? colon : colon - 1);
  record += "#RUNG=1";
  if (colon != std::string_view::npos && colon + 1 < report.size()) {
    record += "#ITEM=" + std::string(report.substr(colon + 1));
  }
  if (!text.empty()) record += "#STRG=" + std::string(text);
  return record;
}

void ExpectLine(const LineCase& row) {
  SCOPED_TRACE(std::string(row.line));
  const BoxResult result = CompileBoxLine(row.line);
  if (row.units != kAnyCode) {
    EXPECT_EQ(DumpUnits(result.code), row.units);
  }
  Lines expected;
  for (std::string_view report : row.reports) expected.push_back(Record(report, BoxLine(row.line)));
  EXPECT_EQ(result.reports, expected);
}

std::string DumpUnits(std::string_view code) {
  std::string dump;
  for (std::size_t at = 0; at < code.size(); at += kUnitSize) {
    std::string_view unit = code.substr(at, kUnitSize);
    std::size_t end = unit.find_last_not_of(' ');
    unit = end == std::string_view::npos ? std::string_view() : unit.substr(0, end + 1);
    if (at != 0) dump += ' ';
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
    code += Padded(unit, kUnitSize);
    from = end + 1;
  }
  return code;
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

bool ScriptedKeyboard::KeyWaiting() {
  if (waiting_.empty() && poll_ < presses_.size()) waiting_ = presses_[poll_];
  ++poll_;
  return !waiting_.empty();
}

int ScriptedKeyboard::ReadKey() {
  ++keys_read_;
  if (waiting_.empty()) return -1;
  const int key = waiting_.front();
  waiting_.erase(waiting_.begin());
  return key;
}

std::uint32_t CompileMain(const TempProject& p, const LadderSource& source) {
  p.WriteSimpleProject({{"MAIN.PLC", source}});
  Session session;
  return session.Compile(p.dir());
}

std::filesystem::path ExampleDir() {
  return std::filesystem::path(RUNGC_SOURCE_DIR) / "examples" / "plant";
}

void CopyExample(const TempProject& p) {
  std::filesystem::copy(ExampleDir(), p.dir(), std::filesystem::copy_options::recursive);
}

ToolRun RunTool(const Lines& args, const std::filesystem::path& cwd) {
  const std::filesystem::path out = cwd / ".tool-stdout";
  const std::filesystem::path err = cwd / ".tool-stderr";
  std::string command = "cd " + Quoted(cwd.string()) + " && " + Quoted(RUNGC_TOOL);
  for (const std::string& arg : args) command += " " + Quoted(arg);
  command += " >" + Quoted(out.string()) + " 2>" + Quoted(err.string());
  const int wait_status = std::system(command.c_str());
  ToolRun run;
  if (wait_status != -1 && WIFEXITED(wait_status)) run.status = WEXITSTATUS(wait_status);
  for (auto [path, text] : {std::pair{out, &run.out}, std::pair{err, &run.err}}) {
    std::ifstream in(path, std::ios::binary);
    text->assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    std::filesystem::remove(path);
  }
  return run;
}

}  // namespace rungc::testing
