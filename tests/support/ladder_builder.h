// Test-only builders: ladder sources described as rows of cells, whole project directories, and
// the texts of the files a compile reads and writes. (Self-contained: the fuzzers link it too.)
//
// Row notation, one token per record, separated by blanks:
//   [^][!]CODE[xN][(FIELD,FIELD,...)]
//   ^      the link flag (a vertical connection up from the cell's left edge)
//   !      the variant flag (the negated form of a contact or coil)
//   CODE   the element code in decimal, or '-' for a line (4) and '.' for a blank (5)
//   xN     repeat count of a line or blank record: N more identical cells
//   FIELD  operand fields; each is padded with blanks to the element's field length
// Example: "1(X1.2) 2(R10.1) -x6 3(Y1.0)" is a contact, a contact, seven line cells and a coil.
// Fields that hold ',' or ')' (function-block lines) are given with the Cell form instead.
#pragma once

#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace rungc::testing {

// Operand field lengths of each element code, as the rung reader's element table gives them.
std::vector<int> ElementFieldLengths(int code);

struct Cell {
  int code = 0;
  bool link = false;
  bool variant = false;
  int repeat = 0;
  std::vector<std::string> fields;
  // The exact operand text, when set: used as it stands instead of the padded fields.
  std::string raw_operand;
  bool use_raw = false;

  Cell() = default;
  Cell(int c, std::vector<std::string> f = {}) : code(c), fields(std::move(f)) {}
  Cell Linked() const {
    Cell copy = *this;
    copy.link = true;
    return copy;
  }
  Cell Negated() const {
    Cell copy = *this;
    copy.variant = true;
    return copy;
  }
  Cell Times(int more) const {
    Cell copy = *this;
    copy.repeat = more;
    return copy;
  }
};

// The type byte and operand text of a cell as they stand in a source record.
std::string EncodeRecord(const Cell& cell, std::uint8_t row_byte);

enum class RowKind : std::uint8_t { kOrdinary = 0xC0, kSkipped = 0x80 };

class LadderSource {
 public:
  LadderSource& Row(std::string_view notation, RowKind kind = RowKind::kOrdinary);
  LadderSource& Row(const std::vector<Cell>& cells, RowKind kind = RowKind::kOrdinary);
  // Characters placed as they stand after the records so far (for malformed sources).
  LadderSource& Raw(std::string_view text);
  // The whole file: header, the records and, unless disabled, the row-end record "00FF00" after
  // the last row (none when there are no rows).
  std::string Text(bool end_record = true) const;
  // The records alone, without header and end record.
  const std::string& records() const { return records_; }

  static std::vector<Cell> ParseRow(std::string_view notation);

 private:
  std::string records_;
};

// A project directory in a fresh temporary folder, removed again by the destructor.
class TempProject {
 public:
  TempProject();
  ~TempProject();
  TempProject(const TempProject&) = delete;
  TempProject& operator=(const TempProject&) = delete;

  const std::filesystem::path& dir() const { return dir_; }

  void WriteFile(std::string_view name, std::string_view bytes) const;
  std::string ReadFile(std::string_view name) const;
  bool Exists(std::string_view name) const;

  // "status.kpx" naming the project directory (blank: this folder) and the project file.
  void WriteStatus(std::string_view project_dir = "",
                   std::string_view project_file = "PLANT.PRO") const;
  // The project file: header, one program per line, then (unless disabled) the end-of-list line.
  void WriteProject(const std::vector<std::string>& programs, bool end_line = true,
                    std::string_view name = "PLANT.PRO") const;
  void WriteLadder(std::string_view name, const LadderSource& source) const;
  // A memory map that asks for object code (or not), with the given area lines.
  void WriteMemoryMap(bool object_code, const std::vector<std::string>& area_lines) const;
  // A status file, a project of these programs and their sources, in one call.
  void WriteSimpleProject(const std::vector<std::pair<std::string, LadderSource>>& programs) const;

 private:
  std::filesystem::path dir_;
};

// The lines of a file's text split at CR LF (the CR LF not included).
std::vector<std::string> SplitLines(std::string_view text);

using Lines = std::vector<std::string>;

// A source of these rows in row notation, one rung row each.
LadderSource Rows(const Lines& rows);

// Adds a function-block rung: `before` (row notation) fills columns 0 to 2, the head cell
// (element 38) in column 3 holds the first two lines; each entry of `continuations` adds a row of
// three blanks and a continuation cell (element 10) with up to three lines under the head.
LadderSource& AddBoxRung(LadderSource& source, std::string_view before, const Lines& head,
                         const std::vector<Lines>& continuations = {});

// A box line as the rung reader hands it on and the error file carries it: padded with blanks to
// its 32-character field.
std::string BoxLine(std::string_view line);

// Project inputs beside the sources.
//
// A memory map with one area of every type, for operand tests:
//   R  SSWB base 0x200, stride 16, 4 groups, 8 elements (the worked examples)
//   WX WWWW 0x100, 32 elements;  WR SSWW 0x1000, stride 0x40, 4 groups, 32 elements
//   WM SSSW 0x2000, stride 0x20, 8 groups, 10 elements;  M WWWB 0x3000, 16 elements
//   Y  SWWB 0x4000, stride 0x100, 2 groups, 32 elements;  S BBBB
//   T  TTTT 0x6000, stride 4, 128 elements;  WT TTTT 0x7000, stride 2, 10 elements
//   WAX WWWW 0x800, 32 elements;  WZ WWWW 0x900, 16 elements;  WF SSWB 0xA00, stride 16
Lines SampleAreaLines();
// A text table file ("tmr" or "pds") with its header and these data lines, each ended by CR LF.
std::string ThermoregulationTable(const Lines& lines);
std::string PidTable(const Lines& lines);

// Expected outputs.
//
// The listing header the record writer puts first.
inline constexpr std::string_view kListingHeader = "- KORVA   1995 V2.0  LIS             ;";
// The lines, each ended by CR LF.
std::string CrLfText(const Lines& lines);
// What the record writer adds to the listing checksum for these lines: every byte taken as
// signed, plus 23 for each line end.
std::uint32_t ListingSum(const Lines& lines);
// The listing's checksum line for a sum that does not yet include "#s#".
std::string ChecksumTrailer(std::uint32_t sum_before_trailer);
// A whole listing: the header, the records and the checksum line summed over the records (or the
// given trailer line; none when it is empty).
std::string ListingText(const Lines& records);
std::string ListingText(const Lines& records, std::string_view trailer);
// The six summary lines that close the error file.
Lines SummaryLines(int rows, int errors, int warnings, int rungs, int main_total,
                   int sub_total = 0);
// A whole error file: the records, then the summary lines.
std::string ErrorFileText(const Lines& records, const Lines& summary);

}  // namespace rungc::testing
