// The walk of a ladder network: series of elements become load and and units, parallel branches
// are joined with block units. Cells are addressed by index, row * 10 + column. Every operation
// works on the current grid and appends to the rung's raw code text.
#pragma once

namespace rungc {

struct CompileSession;

// Junction kinds: what lies at the left edge of the cell where a series would continue.
inline constexpr int kJunctionNone = 0;         // the series goes on
inline constexpr int kJunctionMerge = 1;        // a branch from below ends here
inline constexpr int kJunctionMergeLinked = 2;  // as 1, and the cell itself hangs from above
inline constexpr int kJunctionSplit = 3;        // a branch leaves downwards here
inline constexpr int kJunctionLinked = 4;       // the cell hangs from the row above
inline constexpr int kJunctionRowEnd = 16;      // the series ended at an output in column 9

// Compiles the network from `start`; the cell where the walk ended, -1 after an error.
int CompileNetwork(CompileSession& session, int start);
// Compiles the branch at `origin` with what hangs below it and continues after it, up to where it
// rejoins an upper row; `close` 1 closes it with an "E" unit. Gives the cell where it ended.
int CompileBranch(CompileSession& session, int origin, int close);
// Compiles one series from `start` until a junction; gives the cell where it stopped.
int CompileSeries(CompileSession& session, int start);
// The junction kind at the left edge of cell `index` (error 4 at a row end that may not end).
int ClassifyJunction(CompileSession& session, int index);
// The first non-blank linked cell under `index`, or `index` when none hangs there.
int FindBranchBelow(const CompileSession& session, int index);
// Going up from `index`, the first cell that is not linked, at most up to the row under `origin`.
int FindUpperEnd(const CompileSession& session, int index, int origin);
// The first element of a series: contacts become loads, others start with a "Y" unit.
void EmitSeriesHead(CompileSession& session, int index);
// A further element of a series.
void EmitSeriesElement(CompileSession& session, int index);
// A unit of one letter and 7 blanks ("E", "F", "Y").
void EmitBlockUnit(CompileSession& session, char letter);

}  // namespace rungc
