#include "ladder/optimise_rung_code.h"

#include <cstring>
#include <string_view>

#include "common/session.h"
#include "diag/report.h"
#include "ladder/grid_cells.h"

namespace rungc {

namespace {

constexpr int kUnit = static_cast<int>(kUnitSize);

// The units of the raw code text up to the first unit that begins with NUL; a unit past them
// reads as beginning with NUL.
class RawUnits {
 public:
  explicit RawUnits(CodeText& code) : text_(code.data()) {
    const int capacity = static_cast<int>(CodeText::capacity()) / kUnit;
    while (count_ < capacity && text_[count_ * kUnit] != '\0') ++count_;
  }
  int count() const { return count_; }
  char* unit(int k) { return text_ + k * kUnit; }
  char letter(int k) const { return k >= 0 && k < count_ ? text_[k * kUnit] : '\0'; }
  // Replaces unit k by "Z" and 7 blanks: a removed unit.
  void Remove(int k) { std::memcpy(unit(k), "Z       ", kUnitSize); }

 private:
  char* text_;
  int count_ = 0;
};

// Pass 1: a series that began without a contact ("Y") and goes on with one starts with that
// contact as its load.
void FoldSeriesStarts(RawUnits& units) {
  for (int k = 0; k + 1 < units.count(); ++k) {
    const char next = units.letter(k + 1);
    if (units.letter(k) != 'Y' || (next != 'B' && next != 'b')) continue;
    units.unit(k)[0] = 'Z';
    units.unit(k + 1)[0] = next == 'B' ? 'D' : 'd';
  }
}

// Pass 2: a branch closed by "E" that holds no parallel join is a plain continuation of its
// series: its load becomes an and (a "Y" start is removed) and the "E" is removed.
void FoldClosedBranches(RawUnits& units) {
  for (int e = 0; e < units.count(); ++e) {
    if (units.letter(e) != 'E' || units.letter(e - 1) == 'F') continue;
    for (int m = e - 1; m > 0; --m) {
      const char c = units.letter(m);
      if (c == 'H' || c == 'h' || c == 'F') break;
      if (c == 'D' || c == 'd' || c == 'Y') {
        if (c == 'Y') {
          units.Remove(m);
        } else {
          units.unit(m)[0] = c == 'D' ? 'B' : 'b';
        }
        units.Remove(e);
        break;
      }
    }
  }
}

// The state of pass 3.
struct FoldState {
  bool or_folding = true;  // false from the first "Y" handled as a load
  bool first_unit = true;  // true until the first unit has been handled
};

// The pseudo-contact "*" stands only in the first unit (error 39), followed by the start of an
// unconditional box "m_______" (error 40).
void CheckPseudoContact(CompileSession& s, const RawUnits& units, int k, const FoldState& state) {
  if (!state.first_unit) {
    ReportError(s, 39);
  } else if (units.letter(k + 1) != 'm') {
    ReportError(s, 40);
  }
}

// A load (the last unit written) that is followed by an output element is an and.
void MakePreviousAnd(CodeRecord& record) {
  if (record.position() < kUnitSize) return;
  char& letter = record.data()[record.position() - kUnitSize];
  if (letter == 'D') letter = 'B';
  if (letter == 'd') letter = 'b';
}

// Units a load may lead straight to: outputs, timers, counters, jumps, calls, conditional boxes.
bool LeadsToOutput(const char* unit) {
  if (unit[0] == 'M') return unit[1] == 'A';
  return OneOf(unit[0], {'G', 'g', 'I', 'i', 'J', 'T', 'P', 'Q', 'O', 'C', 'c', 'o', 'p', 'L'});
}

// Load handling of unit k with letter `l` ('D', 'd' or 'Y'). Gives false when the unit is dropped.
bool HandleLoad(CompileSession& s, RawUnits& units, int k, char l, const FoldState& state) {
  char* u = units.unit(k);
  if (u[1] == '*') {
    CheckPseudoContact(s, units, k, state);
    if (s.diag.current_error > 0) return true;
  }
  const char next = units.letter(k + 1);
  if (next == 'F') {
    if (state.or_folding) {
      u[0] = l == 'D' ? 'H' : 'h';
      units.unit(k + 1)[0] = '*';
    }
    return true;
  }
  if (next == 'E') {
    u[0] = l == 'D' ? 'B' : 'b';
    units.unit(k + 1)[0] = '*';
    return true;
  }
  for (int f = k + 1;; ++f) {
    const char c = units.letter(f);
    if (c != '\0' && LeadsToOutput(units.unit(f))) {
      if (l == 'Y') return false;
      u[0] = l == 'D' ? 'B' : 'b';
      return true;
    }
    if (c == 'm') {
      u[0] = 'B';
    } else if (c == '+' || c == '-' || c == 'F' || c == 'E' || c == '\0') {
      return true;
    }
  }
}

// Pass 3: copies the units into the record, folding loads; ends at the first error.
void CopyFoldedUnits(CompileSession& s, RawUnits& units, CodeRecord& record) {
  FoldState state;
  for (int k = 0; k < units.count(); ++k) {
    char* u = units.unit(k);
    bool copy = true;
    bool handled = true;
    switch (u[0]) {
      case '*':
      case 'Z':
        copy = false;
        break;
      case 'B':
      case 'b':
        if (u[1] == '*') CheckPseudoContact(s, units, k, state);
        break;
      case 'C':
      case 'M':
      case 'O':
      case 'P':
      case 'Q':
      case 'T':
      case 'm':
      case 'o':
      case 'p':
        MakePreviousAnd(record);
        break;
      case 'L':
        if (u[1] == 'j' || u[1] == 'c') {
          MakePreviousAnd(record);
        } else {
          ReportError(s, 41);
        }
        break;
      case 'D':
      case 'd':
        copy = HandleLoad(s, units, k, u[0], state);
        break;
      case 'Y':
        if (units.letter(k - 1) == '*') {
          copy = false;
          handled = false;
        } else {
          state.or_folding = false;
          copy = HandleLoad(s, units, k, 'Y', state);
        }
        break;
      default:
        break;
    }
    if (handled) state.first_unit = false;
    if (s.diag.current_error > 0) return;
    if (copy) record.Append(std::string_view(u, kUnitSize));
  }
}

// The record's units go to the InstructionCounter; its first unit becomes the rung's first load,
// and the pseudo-contact "*" of an unconditional box is removed from its head.
void FinishRecord(CompileSession& s, CodeRecord& record) {
  char* text = record.data();
  std::size_t units = 0;
  while (units * kUnitSize < record.position() && text[units * kUnitSize] != '\0') ++units;
  record.Truncate(units * kUnitSize);
  s.dispatch.instruction_counter += static_cast<std::int32_t>(units);
  switch (text[0]) {
    case 'D':
    case 'B':
      text[0] = 'A';
      break;
    case 'd':
    case 'b':
      text[0] = 'a';
      break;
    default:
      ReportError(s, 15);
      break;
  }
  if (text[1] == '*') {
    const std::size_t size = record.position();
    std::memmove(text, text + kUnitSize, size - kUnitSize);
    record.Truncate(size - kUnitSize);
    --s.dispatch.instruction_counter;
  }
}

}  // namespace

// Two passes in place over the raw code, one copying pass, then the record's final steps.
void OptimiseRungCode(CompileSession& session, CodeText& code, CodeRecord& record) {
  RawUnits units(code);
  FoldSeriesStarts(units);
  FoldClosedBranches(units);
  CopyFoldedUnits(session, units, record);
  FinishRecord(session, record);
}

}  // namespace rungc
