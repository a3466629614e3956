// Turns the error file of a compile into lines a person can read: every error and warning with
// its program file, rung, number and meaning, then the totals and the result.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "error_texts.h"

namespace rungc {
class Session;
}

namespace rungc::tool {

// One error, warning or label-pass error record of the error file.
struct ErrorRecord {
  RecordKind kind = RecordKind::kError;
  std::string file;  // the program file of the "#F#" line before the record
  int number = 0;
  std::string rung;  // as written; a label-pass error counts the rungs of the whole project
  std::string item;  // the report item; for a label-pass error the name it is about
  std::string text;  // the report text
};

// The six summary lines the driver closes the error file with.
struct RunSummary {
  bool present = false;
  long rows_read = 0;  // rows read from the last program's source, plus 1
  long errors = 0;
  long warnings = 0;
  long rungs = 0;
  long main_units = 0;
  long subroutine_units = 0;
};

struct ErrorFileReport {
  std::vector<ErrorRecord> records;
  std::vector<std::string> files;  // every file named by a "#F#" line, once, in order
  RunSummary summary;
};

// Reads the lines of an error file (each ended by carriage return and line feed).
ErrorFileReport ParseErrorFile(std::string_view text);

// One record as a line for a person, without the line end.
std::string FormatRecord(const ErrorRecord& record);

// "2 errors, 1 warning, 14 rungs (...)": the totals of the summary lines.
std::string FormatTotals(const RunSummary& summary);

// Explains the compile that `session` just ran with the result `result` on `err`: the records
// of its error file, what the file cannot say (why a compile stopped without a record, a last
// row the reader dropped, a failed sequence), then the totals and the result.
void ExplainCompile(Session& session, std::uint32_t result, bool ran_sequences, std::FILE* err);

}  // namespace rungc::tool
