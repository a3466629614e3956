#include "rungs/compile_program.h"

#include <cstring>
#include <string>
#include <string_view>

#include "common/session.h"
#include "diag/report.h"
#include "ladder/compile_rung.h"
#include "rungs/ladder_source.h"
#include "rungs/rung_reader.h"
#include "rungs/validate_rung.h"

namespace rungc {

namespace {

constexpr int kEscapeKey = 27;

// Reads the key that is waiting: true for Escape. A 0 announces a two-code key whose second code
// is read and dropped; other keys are dropped.
bool ReadEscapeKey(platform::Keyboard& keyboard) {
  const int key = keyboard.ReadKey();
  if (key == kEscapeKey) return true;
  if (key == 0) keyboard.ReadKey();
  return false;
}

// Reports an error of a rung handler: its code record is dropped.
void FailRung(CompileSession& s, int error) {
  ReportError(s, error);
  s.dispatch.record.Clear();
}

// The operand text of cell 0 (the name field of a structural rung); empty when it has none.
std::string_view NameField(const CompileSession& s) {
  const char* operand = s.reader.grid[0].operand;
  return operand == nullptr ? std::string_view() : std::string_view(operand);
}

// Writes the code record of a compiled rung and checks its balance.
RungOutcome WriteRungRecord(CompileSession& s) {
  WriteRecord(s, 'R', s.dispatch.record.data());
  return CheckRungBalance(s) ? RungOutcome::kNextRung : RungOutcome::kEndProgram;
}

// Finishes the one-unit record of a structural rung whose two letters are in the record: the
// name from cell 0 without its leading blanks (the first `name_length` characters; none for
// kinds without a name), blanks up to 8 characters, then the rung is counted and written.
RungOutcome WriteNameTail(CompileSession& s, int name_length) {
  CodeRecord& record = s.dispatch.record;
  if (name_length >= 1) {
    const std::string_view field = NameField(s);
    const std::size_t n = static_cast<std::size_t>(name_length);
    std::size_t first = 0;
    while (first < n && first < field.size() && field[first] == ' ') ++first;
    if (first == n) {
      FailRung(s, 35);
      return RungOutcome::kNextRung;
    }
    const std::size_t end = field.size() < n ? field.size() : n;
    if (first < end) record.Append(field.substr(first, end - first));
  }
  while (record.position() < kUnitSize) record.Append(" ");
  ++s.dispatch.instruction_counter;
  ++s.dispatch.program_rung_count;
  return WriteRungRecord(s);
}

// The length of operand 1 of the rung kind's element: how much of cell 0 is the name.
int NameLength(const CompileSession& s, int kind) {
  return s.reader.elements[static_cast<std::size_t>(kind)].lengths[0];
}

// Makes the one-unit record of a structural rung: a failure of its label-table operation
// (`table_result`; 0 when it passed or the kind has none) is reported, otherwise the record gets
// the two letters and the name tail.
RungOutcome NamedUnit(CompileSession& s, int kind, std::string_view letters, int table_result) {
  if (table_result != 0) {
    FailRung(s, table_result);
    return RungOutcome::kNextRung;
  }
  s.dispatch.record.Clear();
  s.dispatch.record.Append(letters);
  return WriteNameTail(s, NameLength(s, kind));
}

// Kind 1: a ladder network is validated and compiled; a rung that fails validation is not
// counted.
RungOutcome CompileLadderNetwork(CompileSession& s) {
  const int code = ValidateRung(s.reader.grid);
  if (code != 0) {
    FailRung(s, 1000 + code);
    return RungOutcome::kNextRung;
  }
  CompileLadderRung(s);
  ++s.dispatch.program_rung_count;
  if (s.diag.current_error != 0) {
    FailRung(s, s.diag.current_error);
    return RungOutcome::kNextRung;
  }
  return WriteRungRecord(s);
}

// Kind 5: a rung of blanks only is empty and passes; anything else in it ends the program.
RungOutcome CompileBlankRung(CompileSession& s) {
  const RungGrid& grid = s.reader.grid;
  std::size_t i = 0;
  while (i < grid.size() && grid[i].element() == 5) ++i;
  if (i < grid.size() && grid[i].type == 0) return RungOutcome::kNextRung;
  ReportError(s, 1002);
  return RungOutcome::kEndProgram;
}

// Kind 41: closes the conditional block that the network compiler opened.
RungOutcome CompileConditionalEnd(CompileSession& s) {
  DispatchState& d = s.dispatch;
  if (d.conditional_block != 1) {
    FailRung(s, 57);
    return RungOutcome::kNextRung;
  }
  d.conditional_block = 0;
  d.record.Clear();
  d.record.Append("j       ");
  WriteRecord(s, 'R', d.record.data());
  ++d.instruction_counter;
  ++d.program_rung_count;
  return CheckRungBalance(s) ? RungOutcome::kNextRung : RungOutcome::kEndProgram;
}

// Kind 24: a call; only in the main program, before the end-of-main rung.
RungOutcome CompileCall(CompileSession& s) {
  if (s.dispatch.sub_area_depth != 0) {
    FailRung(s, 31);
    return RungOutcome::kNextRung;
  }
  return NamedUnit(s, 24, "LC", s.labels.subroutines.Reference(NameField(s)));
}

// Kind 25: a subroutine starts; only after the end-of-main rung and not inside another one.
RungOutcome CompileSubroutineStart(CompileSession& s) {
  DispatchState& d = s.dispatch;
  if (d.sub_area_depth == 0) {
    FailRung(s, 28);
    return RungOutcome::kNextRung;
  }
  if (d.subroutine_flag != 0) {
    FailRung(s, 60);
    return RungOutcome::kNextRung;
  }
  d.subroutine_flag = 1;
  ++d.sub_area_depth;
  return NamedUnit(s, 25, "LS", s.labels.subroutines.Define(NameField(s)));
}

// Kind 26: the open subroutine ends.
RungOutcome CompileSubroutineEnd(CompileSession& s) {
  DispatchState& d = s.dispatch;
  if (d.subroutine_flag != 1) {
    FailRung(s, 66);
    return RungOutcome::kNextRung;
  }
  d.subroutine_flag = 0;
  if (d.sub_area_depth < 2) {
    FailRung(s, 38);
    return RungOutcome::kNextRung;
  }
  --d.sub_area_depth;
  return NamedUnit(s, 26, "Ls", 0);
}

// Kind 29: the main program ends; its instruction total is kept and the subroutine area opens
// for this and every later program.
RungOutcome CompileEndOfMain(CompileSession& s) {
  DispatchState& d = s.dispatch;
  if (d.sub_area_depth != 0) {
    FailRung(s, 32);
    return RungOutcome::kNextRung;
  }
  s.driver.main_instruction_total = d.instruction_counter + 1;
  s.driver.subroutine_instruction_total = 0;
  d.instruction_counter = -1;
  d.sub_area_depth = 1;
  return NamedUnit(s, 29, "L2", 0);
}

// Kind 42: a block starts; its name field becomes "K_0000".
RungOutcome CompileBlockStart(CompileSession& s) {
  DispatchState& d = s.dispatch;
  if (d.sub_area_depth == 0) {
    FailRung(s, 28);
    return RungOutcome::kNextRung;
  }
  ++d.sub_area_depth;
  const CellRecord& cell = s.reader.grid[0];
  if (cell.operand != nullptr && cell.length >= 6) {
    const std::size_t at = static_cast<std::size_t>(cell.operand - s.reader.pool.data());
    std::memcpy(s.reader.pool.data() + at, "K_0000", 6);
  }
  return NamedUnit(s, 42, "LT", 0);
}

// Kind 43: the open block ends.
RungOutcome CompileBlockEnd(CompileSession& s) {
  DispatchState& d = s.dispatch;
  if (d.sub_area_depth < 2) {
    FailRung(s, 38);
    return RungOutcome::kNextRung;
  }
  --d.sub_area_depth;
  return NamedUnit(s, 43, "Li", 0);
}

// Any other kind cannot stand first in a rung: the rung is reported by its validation code (and
// counted) or as error 1002, and the program ends.
RungOutcome CompileOtherRung(CompileSession& s) {
  const int code = ValidateRung(s.reader.grid);
  if (code != 0) {
    ++s.dispatch.program_rung_count;
    ReportError(s, 1000 + code);
  } else {
    ReportError(s, 1002);
  }
  return RungOutcome::kEndProgram;
}

// One pass of the rung loop: the per-rung resets, the Escape check, then one rung read and
// handled.
RungOutcome CompileNextRung(CompileSession& s) {
  s.diag.current_error = 0;
  const bool key_waiting = s.keyboard != nullptr && s.keyboard->KeyWaiting();
  s.diag.item.Clear();
  s.diag.text.Clear();
  s.dispatch.record.Clear();
  s.diag.rung_error_latch = false;
  if (key_waiting && ReadEscapeKey(*s.keyboard)) {
    ReportError(s, 47);
    return RungOutcome::kEndProgram;
  }
  int kind = 0;
  const int read = ReadRung(s, s.reader.grid, s.reader.pool, &kind);
  if (read == -1 || read == -2) return RungOutcome::kEndProgram;
  if (read != 0) {
    ReportError(s, 1000 + read);
    return RungOutcome::kEndProgram;
  }
  return DispatchRung(s, kind);
}

}  // namespace

RungOutcome DispatchRung(CompileSession& s, int kind) {
  switch (kind) {
    case 0:
      return RungOutcome::kEndProgram;
    case 1:
      return CompileLadderNetwork(s);
    case 5:
      return CompileBlankRung(s);
    case 21:
      return NamedUnit(s, 21, "LJ", s.labels.jumps.Reference(NameField(s)));
    case 23:
      return NamedUnit(s, 23, "Ll", s.labels.jumps.Define(NameField(s)));
    case 24:
      return CompileCall(s);
    case 25:
      return CompileSubroutineStart(s);
    case 26:
      return CompileSubroutineEnd(s);
    case 29:
      return CompileEndOfMain(s);
    case 41:
      return CompileConditionalEnd(s);
    case 42:
      return CompileBlockStart(s);
    case 43:
      return CompileBlockEnd(s);
    default:
      return CompileOtherRung(s);
  }
}

bool CheckRungBalance(CompileSession& s) {
  const char* text = s.dispatch.record.data();
  int sum = 0;
  for (std::size_t at = 0; at + kUnitSize <= kCodeRecordSize && text[at] != '\0'; at += kUnitSize) {
    const char letter = text[at];
    if (letter == 'D' || letter == 'Y' || letter == 'd') ++sum;
    if (letter == 'E' || letter == 'F') --sum;
  }
  if (sum == 0) return true;
  s.diag.current_error = 80;
  // The record writer numbers an error with the rung count plus 1; this one names the rung that
  // was just counted.
  --s.dispatch.program_rung_count;
  WriteRecord(s, 'E', std::string_view());
  ++s.dispatch.program_rung_count;
  return false;
}

int CompileProgram(CompileSession& session) {
  RebuildElementTable(session.reader.elements);
  const std::string_view name = session.driver.program_name.view();
  if (OpenLadderSource(session, name) != 0) {
    session.diag.current_error = 51;
    ++session.diag.error_count;
    return -1;
  }
  WriteRecord(session, 'F', name);
  session.reader.line_counter = 1;
  session.reader.last_row_dropped = false;
  session.dispatch.program_rung_count = 0;
  session.dispatch.conditional_block = 0;
  session.dispatch.subroutine_flag = 0;
  while (CompileNextRung(session) == RungOutcome::kNextRung) {
  }
  CloseLadderSource(session);
  if (session.reader.last_row_dropped) {
    session.reader.programs_missing_row_end.emplace_back(name);
  }
  return session.diag.error_count != 0 ? 2 : 1;
}

}  // namespace rungc
