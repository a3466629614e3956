// Test helpers for the ladder network compiler: grids read from rows in the builder's notation,
// and a compact text form of code units.
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

// Reads one rung of these rows (the builder's row notation, or cells) into the session's grid
// with the rung reader, as the rung loop does, without validating it; the rows must make one
// rung of 10 cells a row. Also clears what the rung loop clears before a rung. The session's
// work directory is left pointing at a removed folder.
void LoadRung(CompileSession& session, const std::vector<std::string>& rows);
void LoadRungCells(CompileSession& session, const std::vector<std::vector<Cell>>& rows);

// Code units as text: each unit without its trailing blanks, blanks inside shown as '·', units
// separated by one blank. "DX001.2 " "M K_0064" gives "DX001.2 M·K_0064".
std::string DumpUnits(std::string_view code);
// The reverse: units from their dump, each padded with blanks to 8 characters.
std::string UnitsFromDump(std::string_view dump);

}  // namespace rungc::testing
