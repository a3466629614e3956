#include "explain.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "common/session.h"
#include "driver/project_files.h"
#include "rungc/session.h"

namespace rungc::tool {

namespace {

constexpr std::string_view kNoText = "(no description for this number)";

bool StartsWith(std::string_view s, std::string_view prefix) {
  return s.substr(0, prefix.size()) == prefix;
}

// A decimal number at the start of `s` (after "NERR=", "#TERR=" and the like); 0 when none.
long LeadingNumber(std::string_view s) {
  const std::string digits(s.substr(0, 24));
  return std::strtol(digits.c_str(), nullptr, 10);
}

std::string_view Trim(std::string_view s) {
  const std::size_t first = s.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return s.substr(first, s.find_last_not_of(' ') - first + 1);
}

// "NERR=<n>#RUNG=<r>[#ITEM=<item>][#STRG=<text>]" of an error or warning line. The item runs to
// the last "#STRG=", so an item that holds '#' stays whole.
ErrorRecord ParseNumberedRecord(RecordKind kind, std::string_view body, const std::string& file) {
  ErrorRecord record;
  record.kind = kind;
  record.file = file;
  if (!StartsWith(body, "NERR=")) return record;
  record.number = static_cast<int>(LeadingNumber(body.substr(5)));
  const std::size_t rung = body.find("#RUNG=");
  if (rung == std::string_view::npos) return record;
  std::string_view rest = body.substr(rung + 6);
  const std::size_t item = rest.find("#ITEM=");
  const std::size_t text = rest.rfind("#STRG=");
  record.rung = std::string(rest.substr(0, std::min(item, text)));
  if (item != std::string_view::npos) {
    const std::size_t end = text != std::string_view::npos && text > item ? text : rest.size();
    record.item = std::string(rest.substr(item + 6, end - item - 6));
  }
  if (text != std::string_view::npos) record.text = std::string(rest.substr(text + 6));
  return record;
}

// "NERR=<n>#RUNG=<rung text> : <name>" of a label-pass error line.
ErrorRecord ParseLabelRecord(std::string_view body, const std::string& file) {
  ErrorRecord record;
  record.kind = RecordKind::kLabelError;
  record.file = file;
  if (!StartsWith(body, "NERR=")) return record;
  record.number = static_cast<int>(LeadingNumber(body.substr(5)));
  const std::size_t rung = body.find("#RUNG=");
  if (rung == std::string_view::npos) return record;
  std::string_view rest = body.substr(rung + 6);
  const std::size_t colon = rest.find(" : ");
  record.rung = std::string(Trim(rest.substr(0, colon)));
  if (colon != std::string_view::npos) record.item = std::string(rest.substr(colon + 3));
  return record;
}

// A summary line: true when `line` is one of the six, with its value stored.
bool ParseSummaryLine(std::string_view line, RunSummary& summary) {
  struct Field {
    std::string_view prefix;
    long RunSummary::*value;
  };
  static constexpr Field kFields[] = {
      {"Riga N. = ", &RunSummary::rows_read},     {"#TERR=", &RunSummary::errors},
      {"#TWRN=", &RunSummary::warnings},          {"#TOTRUNG=", &RunSummary::rungs},
      {"#TOTMAINISTR=", &RunSummary::main_units}, {"#TOTSUBMISTR=", &RunSummary::subroutine_units},
  };
  for (const Field& field : kFields) {
    if (!StartsWith(line, field.prefix)) continue;
    summary.*field.value = LeadingNumber(line.substr(field.prefix.size()));
    summary.present = true;
    return true;
  }
  return false;
}

void AddFile(ErrorFileReport& report, const std::string& file) {
  for (const std::string& known : report.files) {
    if (known == file) return;
  }
  report.files.push_back(file);
}

std::string Plural(long count, std::string_view one, std::string_view many) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

std::string ReadWholeFile(const std::filesystem::path& path, bool& ok) {
  std::ifstream in(path, std::ios::binary);
  ok = static_cast<bool>(in);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void PrintLine(std::FILE* err, const std::string& line) {
  std::fprintf(err, "%s\n", line.c_str());
}

// Why the project could not be compiled at all (result 4097): the status reader's error number
// names the file.
void ExplainUnusableProject(CompileSession& s, std::FILE* err) {
  const int number = s.diag.current_error;
  const std::string status = s.work_dir.ResolveInput("status.kpx").string();
  const std::string project =
      s.work_dir.ResolveInput(ProjectPath(s, s.driver.project_file_name.view())).string();
  std::string why;
  switch (number) {
    case 50:
      why = "cannot open the status file " + status;
      break;
    case 53:
      why = "the status file " + status + " does not begin with a status header";
      break;
    case 55:
      why = "cannot open the project file " + project + " that the status file names";
      break;
    case 56:
      why = "the project file " + project + " does not begin with a project header";
      break;
    case 51:
      why = "cannot create the listing " +
            s.work_dir.Resolve(ProjectPath(s, s.driver.listing_name)).string() +
            " or the error file beside it";
      break;
    default:
      why = std::string(ErrorText(RecordKind::kError, number));
      break;
  }
  PrintLine(err, "rungc: error " + std::to_string(number) + ": " + why);
}

// What stopped the program list without an error record: the driver keeps the loop's result.
void ExplainStoppedList(CompileSession& s, std::FILE* err) {
  const std::string project =
      s.work_dir.ResolveInput(ProjectPath(s, s.driver.project_file_name.view())).string();
  if (s.driver.program_list_result == 2) {
    PrintLine(err, "rungc: the project file " + project +
                       " ends without its end-of-list line (a line that begins with a blank); "
                       "labels were not resolved and no object code was written");
  } else if (s.driver.program_list_result == -1 && s.driver.program_name.empty()) {
    PrintLine(err, "rungc: a line of the project file " + project +
                       " names no program (it begins with a line end or ';'); the compile "
                       "stopped there");
  } else if (s.driver.program_list_result == -1) {
    const std::string name(s.driver.program_name.view());
    const std::filesystem::path source = s.work_dir.ResolveInput(ProjectPath(s, name));
    const bool exists = platform::FileExists(source);
    PrintLine(err, name + ": error 51: " +
                       (exists ? "the file does not begin with a ladder source header"
                               : "the ladder source cannot be opened") +
                       "; the compile stopped there (counted, not in the error file)");
  }
}

// The rung reader notes every program whose source lacks its closing row-end record: such a
// source loses its last row, which a person should hear about (the error file cannot say it).
void WarnDroppedRows(CompileSession& s, std::FILE* err) {
  for (const std::string& file : s.reader.programs_missing_row_end) {
    PrintLine(err, "rungc: warning: " + file +
                       ": the source does not end with a row-end record, so its last row "
                       "was not compiled");
  }
}

std::string ResultLine(CompileSession& s, std::uint32_t result) {
  if (result == kCompileOk) {
    std::string line = "rungc: result 0: compiled; listing " + s.diag.listing_path.string();
    std::string object = s.diag.listing_path.string();
    object.replace(object.size() - 3, 3, "cod");
    if (platform::FileExists(object)) {
      line += ", object code " + object;
    } else {
      line += ", no object code (the memory map is missing or does not ask for it)";
    }
    return line;
  }
  if (result == kCompileFailed) return "rungc: result 4098: the compile failed";
  return "rungc: result " + std::to_string(result) + ": the project could not be compiled";
}

}  // namespace

ErrorFileReport ParseErrorFile(std::string_view text) {
  ErrorFileReport report;
  std::string file;
  while (!text.empty()) {
    std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (StartsWith(line, "#F#")) {
      file = std::string(line.substr(3));
      AddFile(report, file);
    } else if (StartsWith(line, "#E#")) {
      report.records.push_back(ParseNumberedRecord(RecordKind::kError, line.substr(3), file));
    } else if (StartsWith(line, "#W#")) {
      report.records.push_back(ParseNumberedRecord(RecordKind::kWarning, line.substr(3), file));
    } else if (StartsWith(line, "#J#")) {
      report.records.push_back(ParseLabelRecord(line.substr(3), file));
    } else {
      ParseSummaryLine(line, report.summary);
    }
  }
  return report;
}

std::string FormatRecord(const ErrorRecord& record) {
  std::string line = record.file.empty() ? std::string("(no file)") : record.file;
  const bool writer = record.kind == RecordKind::kError && IsWriterFailure(record.number);
  if (record.kind == RecordKind::kLabelError) {
    line += ", label pass, rung " + record.rung + " of the project";
  } else if (writer) {
    line += ", object code, code record " + record.rung;
  } else {
    line += ", rung " + record.rung;
  }
  line += record.kind == RecordKind::kWarning ? ": warning " : ": error ";
  line += std::to_string(record.number) + ": ";
  const std::string_view meaning = ErrorText(record.kind, record.number);
  line += meaning.empty() ? kNoText : meaning;
  if (record.kind == RecordKind::kLabelError) {
    // The IF structure check names no label; its "name" is a word of its message.
    if (record.number != 1 && record.number != 2 && !record.item.empty()) {
      line += "; name \"" + record.item + "\"";
    }
    return line;
  }
  if (!record.item.empty()) line += "; item \"" + record.item + "\"";
  if (!record.text.empty()) line += "; text \"" + record.text + "\"";
  return line;
}

std::string FormatTotals(const RunSummary& summary) {
  return Plural(summary.errors, "error", "errors") + ", " +
         Plural(summary.warnings, "warning", "warnings") + ", " +
         Plural(summary.rungs, "rung", "rungs") + " (main program " +
         Plural(summary.main_units, "unit", "units") + ", subroutine area " +
         Plural(summary.subroutine_units, "unit", "units") + ")";
}

void ExplainCompile(Session& session, std::uint32_t result, bool ran_sequences, std::FILE* err) {
  CompileSession& s = session.state();
  if (result == kCompileUnusable) {
    ExplainUnusableProject(s, err);
    PrintLine(err, ResultLine(s, result));
    return;
  }
  bool readable = false;
  const std::string text = ReadWholeFile(s.diag.error_path, readable);
  if (!readable) PrintLine(err, "rungc: cannot read the error file " + s.diag.error_path.string());
  const ErrorFileReport report = ParseErrorFile(text);
  for (const ErrorRecord& record : report.records) PrintLine(err, FormatRecord(record));
  if (result == kCompileFailed) ExplainStoppedList(s, err);
  if (ran_sequences && session.last_sequence_result() == 2) {
    PrintLine(err,
              "rungc: a sequence of the sequence file failed to compile; the listing holds "
              "no lines of it");
  }
  WarnDroppedRows(s, err);
  RunSummary totals = report.summary;
  if (!totals.present) {
    totals.errors = s.diag.error_count;
    totals.warnings = s.diag.warning_count;
    totals.rungs = s.driver.total_rungs;
    totals.main_units = s.driver.main_instruction_total;
    totals.subroutine_units = s.driver.subroutine_instruction_total;
  }
  PrintLine(err, "rungc: " + FormatTotals(totals));
  PrintLine(err, ResultLine(s, result));
}

}  // namespace rungc::tool
