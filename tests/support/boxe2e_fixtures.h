// Test helpers for whole compiles of function blocks: box rungs in the builder's cell form, and
// the text of the files a compile writes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/ladder_builder.h"

namespace rungc::testing {

// Adds a function-block rung: `before` (row notation) fills columns 0 to 2, the head cell
// (element 38) in column 3 holds the first two lines; each entry of `continuations` adds a row of
// three blanks and a continuation cell (element 10) with up to three lines under the head. Lines
// are padded with blanks to their 32-character fields.
void AddBoxRung(LadderSource& source, std::string_view before, const std::vector<std::string>& head,
                const std::vector<std::vector<std::string>>& continuations = {});

// A box line as the error file carries it: padded with blanks to its 32-character field.
std::string BoxLine(std::string_view line);

// The lines, each ended by CR LF.
std::string CrLfText(const std::vector<std::string>& lines);

// The six summary lines of the error file.
std::vector<std::string> RunSummary(int rows, int errors, int warnings, int rungs, int main_total,
                                    int sub_total = 0);

// A listing record as the record writer wrote it, before the label pass: the distance fields of
// the IF and ELSE units ("Mj", "Mk") blank again.
std::string BeforeLabelPass(std::string_view record);

}  // namespace rungc::testing
