// Element operands: the rest of an element's code unit after its letter, written from the cell's
// operand text. Contact and coil addresses are checked and zero-padded, timers and counters get
// their number and a second unit with the preset, jumps and calls enter their label.
#pragma once

#include <cstdint>
#include <span>

#include "ladder/ladder_state.h"

namespace rungc {

struct CompileSession;

// Operand classes of `CheckContactOperand`.
inline constexpr int kOperandBit = 1;         // bit of area R, F or Z
inline constexpr int kOperandOutputBit = 2;   // bit of area Y
inline constexpr int kOperandInputBit = 3;    // bit of area X
inline constexpr int kOperandNumbered = 4;    // timer or counter, no bit
inline constexpr int kOperandPseudo = 5;      // "*", the pseudo-contact of an unconditional box
inline constexpr int kOperandMalformed = -1;  // error 27 reported

// Writes the 7 operand characters of the unit whose letter the walk just wrote, and for timers
// and counters the preset unit. `code` is the element code of `DecodeElement`.
void EncodeElementOperand(CompileSession& session, int index, std::int32_t code);

// Classifies a contact or coil operand (upper case, in a buffer it may rewrite): the address is
// zero-padded in place, "*" is cut after the '*'. Malformed: error 27, -1.
int CheckContactOperand(CompileSession& session, std::span<char> text);

// Checks the address at the start of `text` (NUL-terminated inside the span) and rewrites it
// zero-padded to `width`: 1 a word address, 0 a bit address ("12.3"), -1 malformed. The leading
// zeros and the digits together may not pass `width`; the padding is `width` less that count.
int NormaliseAddress(std::span<char> text, int width);

// Puts the first operand of a preset field of `length` characters into `out`, upper case. A
// field that begins with blanks is moved left over them in place first.
void SplitPresetField(std::span<char> field, OperandBuffer& out);

// A decimal or 'H' hexadecimal preset becomes "K_" and 4 hexadecimal digits: 1. Not a constant:
// 0. A bad hexadecimal digit: error 27, -1.
int ConstantToKWord(CompileSession& session, OperandBuffer& text);

// A word operand, its address zero-padded in place: 1 a word of area R, M, F or Z, 2 Y, 3 X, 4 C
// or T, 6 AX, 7 AY, 0 not a word; a malformed word is error 27, -1. A word in parentheses must be
// of area R or M and gets a lower-case 'w'.
int CheckWordOperand(CompileSession& session, OperandBuffer& text);

}  // namespace rungc
