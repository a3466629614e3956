// The rung reader: turns the records of the open ladder source into one rung at a time.
//
// A rung is gathered row by row as raw text (the `RungText`), then expanded into the `RungGrid`
// of 10 columns, whose operand texts are copied into the `OperandPool`. A record is a type byte,
// a row byte and a repeat count (two hexadecimal digits each), then as many operand characters as
// the element table gives for the element code. A row begins with a record whose row byte has
// bit 7 set (the row header); a record with row byte 0xFF ends a row without beginning another.
#pragma once

#include <cstddef>
#include <string>

#include "common/cell.h"
#include "rungs/rung_state.h"

namespace rungc {

struct CompileSession;

// Results of the reader beyond 0 and -1: the rung begins with element 2 (17), or it cannot be
// read (18: an element code without an expansion, or a rung larger than the grid, the operand
// pool or the rung text).
inline constexpr int kRungStartsWithContact = 17;
inline constexpr int kRungUnreadable = 18;

// Fills the element table from its fixed list; codes not listed get all fields 0.
void RebuildElementTable(ElementTable& table);

// One row as `ReadRow` placed it.
struct RowRead {
  std::size_t length = 0;    // characters placed: 6 per record plus the operand texts
  bool fits = true;          // every character of the row found room in the rung text
  int header_row_byte = -1;  // row byte of the row's header; -1 when none was read
};

// Reads one row into the rung text at `place`: gives the row's continuation count (the records
// after the header that carry the link flag or are element 10 or 11), 0 for a row that must begin
// a rung, or -1 at the end of the file (what was read stays in place). The file is left at the
// first record after the row.
int ReadRow(CompileSession& session, std::size_t place, RowRead* row);

// Reads the rows of one rung into the rung text and counts them in the line counter: 0 read,
// -1 end of the file with nothing left, 18 a row that would be kept does not fit.
int ReadRungText(CompileSession& session);

// Reads the next rung into the grid and the pool, passing over skipped and comment rungs: 0 a
// rung (an empty grid with kind 0 at the end of the file), -1 end of the file, 17 or 18 the rung
// cannot be read. `kind` receives the element code of the rung's first record.
int ReadRung(CompileSession& session, RungGrid& grid, OperandPool& pool, int* kind);

// A compact text of the first `cells` cells of a grid, one line per row of 10: each cell is its
// type byte in hexadecimal, followed by its operand text (trailing blanks cut) in parentheses when
// it has one. Example: "01(X1.2) 04 04 04 04 04 04 04 04 03(Y1.0)".
std::string DumpGrid(const RungGrid& grid, std::size_t cells);

}  // namespace rungc
