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

void EmitBlockUnit(CompileSession& session, char letter) {
  char unit[] = {letter, ' ', ' ', ' ', ' ', ' ', ' ', ' '};
  EmitCode(session, std::string_view(unit, sizeof unit));
}

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

void EmitSeriesElement(CompileSession& session, int index) {
  const std::int32_t code = DecodeElement(session, index);
  if (CodeLetter(code) != kNoUnit) EmitElementUnit(session, index, code);
}

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

int FindBranchBelow(const CompileSession& session, int index) {
  for (int k = index + 10;; k += 10) {
    const CellRecord& cell = GridCell(session, k);
    if (!IsLinked(cell)) return index;
    if (cell.type_value() != 5) return k;
  }
}

int FindUpperEnd(const CompileSession& session, int index, int origin) {
  int k = index;
  do {
    if (!IsLinked(GridCell(session, k))) return k;
    k -= 10;
  } while (k > origin + 10);
  return k;
}

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
