// Test-only builders: ladder sources described as rows of cells, and whole project directories.
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

}  // namespace rungc::testing
