// Test-only benches for function-block lines: compile box lines and comparison contacts through
// the real lexer, classifier, dispatcher and generators, and look at the raw code and the error
// file's records they leave.
//
// Unit notation of the expectations: units separated by blanks, '·' for a blank inside a unit,
// as in "MDWX0002 M······· M·WY0001". Report notation: "E9", "E16:HX", "W1:WX1" (kind, number and
// item); the text of the record is the box line as the rung reader gives it, padded to 32.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "support/ladder_builder.h"

namespace rungc {
struct CompileSession;
}

namespace rungc::testing {

struct BoxResult {
  std::string code;                  // the raw code text
  std::vector<std::string> reports;  // the lines of the error file
};

// A compile session with the listing and error files open in a temporary project and the
// element table of the rung reader set. One bench compiles one cell, then its files are read.
class BoxBench {
 public:
  BoxBench();
  ~BoxBench();
  BoxBench(const BoxBench&) = delete;
  BoxBench& operator=(const BoxBench&) = delete;

  CompileSession& session() { return *session_; }

  // Compiles a cell of type 38 (head, 2 lines) or 10 (continuation, 3 lines) holding `lines`,
  // each padded with blanks to 32 characters.
  BoxResult CompileCell(const std::vector<std::string>& lines, int type = 38);
  // Compiles a comparison contact with the fields a, op and b (6 characters each).
  BoxResult CompileComparison(std::string_view a, std::string_view op, std::string_view b);

 private:
  BoxResult Finish();

  TempProject project_;
  std::unique_ptr<CompileSession> session_;
  std::string cell_text_;
};

// One line compiled alone in the head cell of a fresh bench.
BoxResult CompileBoxLine(std::string_view line);

// The raw code text of a unit notation.
std::string Units(std::string_view notation);
// The error-file record of a report notation, with `text` as its text.
std::string Record(std::string_view report, std::string_view text);
// The box line text of a source line: padded with blanks to 32 characters.
std::string PaddedLine(std::string_view line);

// One row of a family table: a source line, the raw code it gives and the reports it makes, in
// order. `units` is kAnyCode where an error leaves a partly written code text that the rung
// compiler drops anyway.
inline constexpr std::string_view kAnyCode = "?";
struct LineCase {
  std::string_view line;
  std::string_view units;
  std::vector<std::string_view> reports;
};
// Compiles the row's line alone and checks its code and its error-file records.
void ExpectLine(const LineCase& row);

}  // namespace rungc::testing
