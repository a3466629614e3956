// Operands of sequence steps: 6 characters each, checked against the target's memory areas and
// rewritten into the normalised form that the sequence lines carry.
//
//   M12.3   bit operand (F, M, R, X, Y): word digits, '.', bit digit   -> M_0123
//   WR10    word operand (WF, WM, WR, WS, WC, WT, WX, WY, WAX, WAY)    -> WR0010
//   WAX5    input/output area word                                      -> AX0005
//   255     constant, decimal up to 65535 or 'H' and 4 hex digits      -> K 00FF
#pragma once

#include <array>

namespace rungc {

struct DerivedSizes;

using SequenceOperand = std::array<char, 6>;

// What a step accepts in an operand position.
enum SequenceOperandMode {
  kSequenceWord = 1,            // a word operand
  kSequenceWordOrConstant = 2,  // a word operand or a constant
  kSequenceBit = 3,             // a bit operand
};

// Sequence error numbers.
inline constexpr int kSequenceNoEndStep = 61;
inline constexpr int kSequenceWrongFamily = 62;
inline constexpr int kSequenceInputRefused = 63;
inline constexpr int kSequenceConstantRefused = 64;
inline constexpr int kSequenceBadOperand = 65;
// A sequence whose lines do not fit the 9,900-byte output buffer.
inline constexpr int kSequenceTooLong = 67;

// Encodes an operand for a step: 0 with `operand` in its normalised form, or the error number
// 62 (family not allowed by the mode), 63 (input refused), 64 (constant refused), 65 (bad).
int EncodeSequenceOperand(const DerivedSizes& sizes, SequenceOperand& operand, int mode,
                          bool no_input);
// Upper-cases and checks a bit or word operand against the area sizes, then normalises and
// right-aligns it: 0 on success, -1 when it is malformed or out of its area.
int CheckSequenceOperand(const DerivedSizes& sizes, SequenceOperand& operand);
// "WA" words lose their 'W' and gain a '0'; bit operands trade the '.' for a '_' after the letter.
void NormalizeSequenceOperand(SequenceOperand& operand);
// A decimal (at most 65535) or 'H'-prefixed hexadecimal constant becomes "K " and four
// hexadecimal digits: 0 on success, -1 otherwise.
int EncodeSequenceConstant(SequenceOperand& operand);

}  // namespace rungc
