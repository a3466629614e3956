#include "ladder/network_walk.h"

#include <cstdint>
#include <string_view>

#include "common/session.h"
#include "diag/report.h"
#include "ladder/element_operands.h"
#include "ladder/element_table.h"
#include "ladder/emit.h"
#include "ladder/grid_cells.h"

namespace rungc {

namespace {

// Small tests of the walk: still walking, an error recorded, a cell index at a row start.
bool WalkRunning(const CompileSession& s) {
  return s.ladder.walk_state == kWalkRunning;
}
bool ErrorStands(const CompileSession& s) {
  return s.diag.current_error > 0;
}
bool EndsRow(int index) {
  return index % static_cast<int>(kGridColumns) == 0;
}

// Elements that may end a row of a series in column 9: outputs, timers, counters, element 16,
// jumps, calls and the conditional-block element.
bool MayEndRow(int code) {
  return OneOf(code, {3, 6, 7, 8, 9, 16, 22, 31, 40, 44, 45, 46, 47, 48});
}

// Elements whose right edge can carry a branch from below back up into the row above.
bool EndsBranchFromBelow(int code) {
  return OneOf(code, {1, 2, 3, 4, 8, 9, 16, 17, 18, 22, 31, 44, 45, 46, 47, 48});
}

// A compiled series head reads as a blank from then on; its link flag stays.
void MarkCompiled(CompileSession& s, int index) {
  if (index < 0 || index >= static_cast<int>(kGridCells)) return;
  CellRecord& cell = s.reader.grid[static_cast<std::size_t>(index)];
  cell.type = static_cast<std::uint8_t>((cell.type & kLinkFlag) | 5);
}

// The element's letter, then its operand (unless the walk stopped at a function block).
void EmitElementUnit(CompileSession& s, int index, std::int32_t code) {
  if (s.ladder.walk_state == kWalkStoppedAtBox) return;
  const char letter = CodeLetter(code);
  if (EmitCode(s, std::string_view(&letter, 1))) EncodeElementOperand(s, index, code);
}

}  // namespace

// "E" joins a closed branch in series, "F" a lower branch in parallel, "Y" starts a series that
// does not begin with a contact.
void EmitBlockUnit(CompileSession& session, char letter) {
  char unit[] = {letter, ' ', ' ', ' ', ' ', ' ', ' ', ' '};
  EmitCode(session, std::string_view(unit, sizeof unit));
}

// The head of a series is a load: a contact's 'B'/'b' becomes 'D'/'d'; an element without a unit
// gives "Y", and edges and comparison contacts are preceded by one.
void EmitSeriesHead(CompileSession& session, int index) {
  std::int32_t code = DecodeElement(session, index);
  char letter = CodeLetter(code);
  if (letter == 'B' || letter == 'b') {
    letter = letter == 'B' ? 'D' : 'd';
    code = (code & ~0xFF) | letter;
  }
  if (letter == kNoUnit) {
    EmitBlockUnit(session, 'Y');
    return;
  }
  if (letter == 'e' || letter == 'N' || letter == 'n') EmitBlockUnit(session, 'Y');
  EmitElementUnit(session, index, code);
}

// A further element of a series: its letter and operand, unless it writes no unit.
void EmitSeriesElement(CompileSession& session, int index) {
  const std::int32_t code = DecodeElement(session, index);
  if (CodeLetter(code) != kNoUnit) EmitElementUnit(session, index, code);
}

// Looks at the left edge of the cell: past column 9 the row must end at an output (16, else error
// 4); otherwise the links of the cell and of the column below it say whether a branch from below
// merges here and whether the cell itself hangs from the row above.
int ClassifyJunction(CompileSession& session, int index) {
  const CompileSession& s = session;
  if (EndsRow(index)) {
    if (MayEndRow(GridCell(s, index - 1).element())) return kJunctionRowEnd;
    ReportError(session, 4);
    return kJunctionNone;
  }
  const bool linked = IsLinked(GridCell(s, index));
  if (!linked && !IsLinked(GridCell(s, index + 10))) return kJunctionNone;
  bool merge = false;
  for (int k = index; k < kWalkCells && IsLinked(GridCell(s, k + 10)); k += 10) {
    if (EndsBranchFromBelow(GridCell(s, k + 9).element())) merge = true;
  }
  if (merge) return linked ? kJunctionMergeLinked : kJunctionMerge;
  return linked ? kJunctionLinked : kJunctionSplit;
}

// Goes down from the cell below `index` over linked blanks (bare vertical connections).
int FindBranchBelow(const CompileSession& session, int index) {
  for (int k = index + 10;; k += 10) {
    const CellRecord& cell = GridCell(session, k);
    if (!IsLinked(cell)) return index;
    if (cell.type_value() != 5) return k;
  }
}

// Goes up the linked cells from `index`; stops at the first unlinked one, or at the row under
// `origin`.
int FindUpperEnd(const CompileSession& session, int index, int origin) {
  int k = index;
  do {
    if (!IsLinked(GridCell(session, k))) return k;
    k -= 10;
  } while (k > origin + 10);
  return k;
}

// The head, then elements until a junction; the junction kind is left for the caller. The head
// cell then reads as a blank, so that later searches pass over it.
int CompileSeries(CompileSession& session, int start) {
  CompileSession& s = session;
  EmitSeriesHead(s, start);
  if (!WalkRunning(s)) return start + 1;
  int j = start + 1;
  for (;;) {
    s.ladder.junction_kind = ClassifyJunction(s, j);
    if (!WalkRunning(s) || s.ladder.junction_kind != kJunctionNone) break;
    EmitSeriesElement(s, j);
    ++j;
  }
  MarkCompiled(s, start);
  return j;
}

// Compiles the series at `origin`, then acts on the junction where it stopped: branches from
// below are compiled and joined with "F" (kinds 1 and 2), a branch that leaves downwards or a cell
// hanging from above continues the series as a nested branch (kinds 3 and 4), and the row end
// (16) either ends the walk or goes on with the branch below. Each round acts on the junction
// kind as the nested calls left it.
int CompileBranch(CompileSession& session, int origin, int close) {
  CompileSession& s = session;
  int& kind = s.ladder.junction_kind;
  // Writes the "E" that closes a branch entered as the continuation of a series.
  auto close_branch = [&s, &close] {
    if (close == 1) EmitBlockUnit(s, 'E');
  };
  int cur = origin;
  int next = CompileSeries(s, origin);
  if (kind == kJunctionLinked) {
    close_branch();
    return next;
  }
  for (;;) {
    if (!WalkRunning(s)) return next;
    if (ErrorStands(s)) return 10;
    switch (kind) {
      case kJunctionMergeLinked:
        if (origin >= 10 && IsStronglyLinked(GridCell(s, origin)) &&
            IsStronglyLinked(GridCell(s, next))) {
          close_branch();
          do {
            origin -= 10;
            next -= 10;
          } while (IsStronglyLinked(GridCell(s, origin)) && IsStronglyLinked(GridCell(s, next)));
          return next;
        }
        [[fallthrough]];
      case kJunctionMerge: {
        const int low = FindBranchBelow(s, cur);
        if (low == cur) {
          close_branch();
          return next;
        }
        cur = low;
        next = CompileBranch(s, low, 0);
        if (!WalkRunning(s)) return next;
        EmitBlockUnit(s, 'F');
        break;
      }
      case kJunctionSplit:
        if (!IsLinked(GridCell(s, origin)) && FindBranchBelow(s, origin) == origin) {
          close_branch();
          return next;
        }
        next = CompileBranch(s, next, 1);
        break;
      case kJunctionLinked: {
        const int up = FindUpperEnd(s, next, origin);
        if (up < origin || IsLinked(GridCell(s, up))) {
          close_branch();
          return next;
        }
        next = up;
        kind = kJunctionSplit;
        if (FindBranchBelow(s, cur) != cur) {
          next = CompileBranch(s, next, 1);
        } else if (!IsLinked(GridCell(s, origin))) {
          close_branch();
          return next;
        } else {
          close_branch();
          close = 0;
          next = CompileBranch(s, next, 1);
        }
        break;
      }
      case kJunctionRowEnd:
        kind = kJunctionMerge;
        if (FindBranchBelow(s, origin) == origin) {
          s.ladder.walk_state = kWalkStopped;
          return next;
        }
        break;
      default:  // a series only stops without a junction when the walk stopped
        return next;
    }
  }
}

// The first branch, then the branches that continue it until the walk ends at a row end, stops,
// or meets an error.
int CompileNetwork(CompileSession& session, int start) {
  int i = CompileBranch(session, start, 0);
  if (ErrorStands(session)) return -1;
  if (EndsRow(i) || !WalkRunning(session)) return i;
  do {
    i = CompileBranch(session, i, 1);
  } while (!EndsRow(i) && WalkRunning(session) && !ErrorStands(session));
  return i;
}

}  // namespace rungc
