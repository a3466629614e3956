// The element table of the network walk: which code unit each cell of a rung becomes, with the
// placement checks of outputs, timers, counters and edges.
#pragma once

#include <cstdint>

namespace rungc {

struct CompileSession;

// The letter of an element code: the low byte of the code, its second byte the second letter of
// an "L" unit ('j' or 'c').
constexpr char CodeLetter(std::int32_t code) {
  return static_cast<char>(code & 0xFF);
}
constexpr char CodeSecondLetter(std::int32_t code) {
  return static_cast<char>((code >> 8) & 0xFF);
}
// The letter of an element that writes no unit.
inline constexpr char kNoUnit = 'Z';

// Decodes the cell at `index` (its type without the link flag) into its element code and runs the
// element's checks. May report errors 2, 3, 16, 18, 20, 21, 24, 25, 26 and change the walk state
// (stopped, or at a jump, call or function block).
std::int32_t DecodeElement(CompileSession& session, int index);

}  // namespace rungc
