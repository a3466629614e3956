#include "support/boxlines_fixtures.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "common/session.h"
#include "diag/report.h"
#include "ladder/box_lines.h"

namespace rungc::testing {

namespace {

constexpr std::size_t kLineWidth = 32;
constexpr std::string_view kBlankMark = "\xC2\xB7";  // '·'

void SetElement(CompileSession& s, int code) {
  ElementDescriptor& d = s.reader.elements[static_cast<std::size_t>(code)];
  const std::vector<int> lengths = ElementFieldLengths(code);
  d.code = static_cast<std::uint8_t>(code);
  d.operands = static_cast<std::uint8_t>(lengths.size());
  for (std::size_t i = 0; i < lengths.size(); ++i)
    d.lengths[i] = static_cast<std::int8_t>(lengths[i]);
}

std::string Padded(std::string_view text, std::size_t width) {
  if (text.size() > width) throw std::invalid_argument("field too long: " + std::string(text));
  std::string padded(text);
  padded.resize(width, ' ');
  return padded;
}

}  // namespace

BoxBench::BoxBench() : session_(std::make_unique<CompileSession>()) {
  CompileSession& s = *session_;
  s.work_dir = platform::WorkDir(project_.dir());
  if (OpenOutputFiles(s, "BOX.LII", "") != 0) throw std::runtime_error("cannot open outputs");
  for (int code : {10, 38, 49}) SetElement(s, code);
}

BoxBench::~BoxBench() = default;

BoxResult BoxBench::CompileCell(const std::vector<std::string>& lines, int type) {
  const std::size_t count = type == 38 ? 2 : 3;
  if (lines.size() > count) throw std::invalid_argument("too many lines for the cell");
  cell_text_.clear();
  for (std::size_t i = 0; i < count; ++i) {
    cell_text_ += Padded(i < lines.size() ? lines[i] : "", kLineWidth);
  }
  CellRecord& cell = session_->reader.grid[0];
  cell.type = static_cast<std::uint8_t>(type);
  cell.length = static_cast<std::uint8_t>(cell_text_.size());
  cell.operand = cell_text_.c_str();
  CompileBoxCell(*session_, 0, type);
  return Finish();
}

BoxResult BoxBench::CompileComparison(std::string_view a, std::string_view op, std::string_view b) {
  cell_text_ = Padded(a, 6) + Padded(op, 6) + Padded(b, 6);
  CellRecord& cell = session_->reader.grid[0];
  cell.type = 49;
  cell.length = static_cast<std::uint8_t>(cell_text_.size());
  cell.operand = cell_text_.c_str();
  CompileComparisonContact(*session_, 0);
  return Finish();
}

BoxResult BoxBench::Finish() {
  session_->diag.error_file.Close();
  session_->diag.listing.Close();
  return {std::string(session_->ladder.code.view()), SplitLines(project_.ReadFile("BOX.ERR"))};
}

BoxResult CompileBoxLine(std::string_view line) {
  BoxBench bench;
  return bench.CompileCell({std::string(line)});
}

std::string Units(std::string_view notation) {
  std::string code;
  for (std::size_t i = 0; i < notation.size();) {
    if (notation.substr(i, kBlankMark.size()) == kBlankMark) {
      code += ' ';
      i += kBlankMark.size();
    } else {
      if (notation[i] != ' ') code += notation[i];
      ++i;
    }
  }
  return code;
}

std::string Record(std::string_view report, std::string_view text) {
  const std::size_t colon = report.find(':');
  std::string record = "#";
  record += report[0];
  record += "#NERR=";
  record += report.substr(1, colon == std::string_view::npos ? colon : colon - 1);
  record += "#RUNG=1";
  if (colon != std::string_view::npos && colon + 1 < report.size()) {
    record += "#ITEM=";
    record += report.substr(colon + 1);
  }
  if (!text.empty()) record += "#STRG=" + std::string(text);
  return record;
}

std::string PaddedLine(std::string_view line) {
  return Padded(line, kLineWidth);
}

void ExpectLine(const LineCase& row) {
  SCOPED_TRACE(std::string(row.line));
  const BoxResult result = CompileBoxLine(row.line);
  if (row.units != kAnyCode) {
    EXPECT_EQ(result.code, Units(row.units));
  }
  std::vector<std::string> expected;
  for (std::string_view report : row.reports)
    expected.push_back(Record(report, PaddedLine(row.line)));
  EXPECT_EQ(result.reports, expected);
}

}  // namespace rungc::testing
