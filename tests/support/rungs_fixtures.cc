#include "support/rungs_fixtures.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <stdexcept>

#include "diag/report.h"
#include "rungs/compile_program.h"
#include "rungs/ladder_source.h"
#include "rungs/rung_reader.h"
#include "rungs/validate_rung.h"

namespace rungc::testing {

RungBench::RungBench() : session_(std::make_unique<CompileSession>()) {
  session_->work_dir = platform::WorkDir(project_.dir());
  if (OpenOutputFiles(*session_, "PLANT.LII", "") != 0) {
    throw std::runtime_error("cannot create the listing and error files");
  }
}

void RungBench::Open(const LadderSource& source, bool end_record) {
  OpenRaw(source.Text(end_record));
}

void RungBench::OpenRaw(std::string_view file_text) {
  project_.WriteFile("MAIN.PLC", file_text);
  RebuildElementTable(session_->reader.elements);
  session_->reader.line_counter = 1;
  if (OpenLadderSource(*session_, "MAIN.PLC") != 0) {
    throw std::runtime_error("cannot open the ladder source");
  }
}

int RungBench::Read() {
  return ReadRung(*session_, session_->reader.grid, session_->reader.pool, &kind_);
}

std::string RungBench::Dump() const {
  return DumpGrid(session_->reader.grid, session_->reader.cell_count);
}

int RungBench::CompileProgram(std::string_view name, const LadderSource& source, bool end_record) {
  project_.WriteFile(name, source.Text(end_record));
  session_->driver.program_name.Set(name);
  return rungc::CompileProgram(*session_);
}

void RungBench::CloseOutputs() {
  session_->diag.listing.Close();
  session_->diag.error_file.Close();
}

std::vector<std::string> RungBench::ErrorLines() {
  CloseOutputs();
  return SplitLines(project_.ReadFile("PLANT.ERR"));
}

std::vector<std::string> RungBench::ListingLines() {
  CloseOutputs();
  std::vector<std::string> lines = SplitLines(project_.ReadFile("PLANT.LII"));
  if (!lines.empty()) lines.erase(lines.begin());
  return lines;
}

int ValidateRows(const std::vector<std::string>& rows) {
  RungBench bench;
  LadderSource source;
  for (const std::string& row : rows) source.Row(row);
  bench.Open(source);
  const int read = bench.Read();
  if (read != 0) throw std::runtime_error("the rung cannot be read: " + std::to_string(read));
  return ValidateRung(bench.session().reader.grid);
}

bool ScriptedKeyboard::KeyWaiting() {
  if (waiting_.empty() && poll_ < presses_.size()) {
    waiting_ = presses_[poll_];
  }
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

std::string ListingChecksumLine(const std::vector<std::string>& lines) {
  std::uint32_t sum = 0;
  auto add = [&sum](std::string_view bytes) {
    for (char c : bytes)
      sum += static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<signed char>(c)));
  };
  for (std::size_t i = 1; i < lines.size(); ++i) {
    add(lines[i]);
    add("\r\n");
  }
  add("#s#");
  std::array<char, 24> line;
  std::snprintf(line.data(), line.size(), "#s#%04X", static_cast<unsigned>(sum));
  return line.data();
}

std::vector<std::string> SummaryLines(int riga, int errors, int warnings, int rungs, int main_total,
                                      int sub_total) {
  return {
      "Riga N. = " + std::to_string(riga),          "#TERR=" + std::to_string(errors),
      "#TWRN=" + std::to_string(warnings),          "#TOTRUNG=" + std::to_string(rungs),
      "#TOTMAINISTR=" + std::to_string(main_total), "#TOTSUBMISTR=" + std::to_string(sub_total)};
}

}  // namespace rungc::testing
