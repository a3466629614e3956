#include "ladder/compile_rung.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "common/session.h"
#include "diag/report.h"
#include "ladder/box_lines.h"
#include "ladder/emit.h"
#include "ladder/grid_cells.h"
#include "ladder/network_walk.h"
#include "ladder/optimise_rung_code.h"

namespace rungc {

namespace {

constexpr std::uint8_t kBoxHeadType = 38;
constexpr std::uint8_t kBoxRowType = 10;
constexpr std::uint8_t kLineType = 4;

// An error has been recorded for the rung.
bool ErrorStands(const CompileSession& s) {
  return s.diag.current_error > 0;
}

// An unconditional box: '*' heads the operand of cell 0.
bool IsUnconditionalBox(const CompileSession& s) {
  std::string_view text = CellOperand(GridCell(s, 0));
  return !text.empty() && text[0] == '*';
}

// Compiles the head cell `head` (element 38) and the continuation cells (element 10) under it,
// stopping at the first error. Error 26 when the head is not a plain element 38.
void CompileBoxCells(CompileSession& s, int head) {
  if (GridCell(s, head).type != kBoxHeadType) {
    ReportError(s, 26);
    return;
  }
  CompileBoxCell(s, head, kBoxHeadType);
  if (ErrorStands(s)) return;
  for (int b = head + 10; GridCell(s, b).type_value() == kBoxRowType; b += 10) {
    CompileBoxCell(s, b, kBoxRowType);
    if (ErrorStands(s)) return;
  }
}

// A function block after the walk stopped at its head, cell `i` - 1. An unconditional box
// ("*" in cell 0, plain lines in cells 1 and 2, no link under them) starts with "m_______"; a
// conditional one is framed by "MA" with the skip distance and "Ma": 4 for each unit from the
// "MA" unit to the "Ma" unit, both counted.
void CompileFunctionBlock(CompileSession& s, int i) {
  if (i < 1) {
    ReportError(s, 1);
    return;
  }
  const int head = i - 1;
  const bool unconditional = IsUnconditionalBox(s);
  std::size_t skip_unit = 0;
  if (unconditional) {
    if (GridCell(s, 1).type != kLineType || GridCell(s, 2).type != kLineType ||
        IsLinked(GridCell(s, 11)) || IsLinked(GridCell(s, 12))) {
      ReportError(s, 23);
      return;
    }
    if (!EmitCode(s, "m_______")) return;
  } else {
    skip_unit = s.ladder.code.position();
    if (!EmitCode(s, "MA      ")) return;
  }
  CompileBoxCells(s, head);
  if (ErrorStands(s) || unconditional) return;
  const std::size_t end_unit = s.ladder.code.position();
  if (!EmitCode(s, "Ma      ")) return;
  std::array<char, 8> distance;
  std::snprintf(distance.data(), distance.size(), "K_%04X",
                static_cast<unsigned>((end_unit - skip_unit) / 2 + 4));
  std::memcpy(s.ladder.code.data() + skip_unit + 2, distance.data(), 6);
}

}  // namespace

// A fresh code text and walk, the network from cell 0, and the function block where the walk
// stopped at one.
void CompileRawRungCode(CompileSession& session) {
  session.ladder.code.Clear();
  session.ladder.walk_state = kWalkRunning;
  session.diag.current_error = 0;
  session.diag.current_warning = 0;
  const int i = CompileNetwork(session, 0);
  if (session.ladder.walk_state == kWalkStoppedAtBox) CompileFunctionBlock(session, i);
}

// The raw code is folded into the record only when the walk recorded no error; a record the
// peephole pass refused is emptied again, so a failed rung never leaves code behind.
void CompileLadderRung(CompileSession& session) {
  CompileRawRungCode(session);
  session.dispatch.record.Clear();
  if (ErrorStands(session)) return;
  OptimiseRungCode(session, session.ladder.code, session.dispatch.record);
  if (ErrorStands(session)) session.dispatch.record.Clear();
}

}  // namespace rungc
