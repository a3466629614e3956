// Test helpers for the ladder network compiler: grids filled from the builder's row notation the
// way the rung reader fills them, and a compact text form of code units.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/session.h"
#include "support/ladder_builder.h"

namespace rungc::testing {

// A fresh session on the heap (it is large).
std::unique_ptr<CompileSession> NewSession();

// Fills the session's grid and operand pool with the rows, each in the builder's row notation
// (or as cells), expanded as the rung reader expands records: lines and blanks by their repeat
// count, elements 10, 11 and 38 over 7 columns, element 49 over 2. Every row must expand to 10
// cells; an empty row follows the last. Also clears what the rung loop clears before a rung.
void LoadRung(CompileSession& session, const std::vector<std::string>& rows);
void LoadRungCells(CompileSession& session, const std::vector<std::vector<Cell>>& rows);

// Code units as text: each unit without its trailing blanks, blanks inside shown as '·', units
// separated by one blank. "DX001.2 " "M K_0064" gives "DX001.2 M·K_0064".
std::string DumpUnits(std::string_view code);
// The reverse: units from their dump, each padded with blanks to 8 characters.
std::string UnitsFromDump(std::string_view dump);

}  // namespace rungc::testing
