// The operand encoders of function-block instructions: each writes one 6-character operand field
// of a code unit for an operand of the current line. A malformed operand is error 9 with the
// operand's text as item and the box line as text; the encoder stops where it is (what it wrote
// stays, the rung is dropped for the error) and the generator goes on with its other units.
//
// Operand field forms:
//   area operand   area prefix and 4 hex digits      WX12 -> WX0012, WAY7 -> AY0007
//   constant       "K_" and 4 hex digits             100 -> K_0064, H1F -> K_001F
//   bit operand    letter, "_", 3 hex digits of the word address, the bit   X12.3 -> X_0123
//   float register 2 lower-case hex digits of the number after "FX"         FX10 -> 0a
#pragma once

namespace rungc {

struct CompileSession;

// A word, double word, "WAX"/"WAY" word or parenthesised word (parentheses dropped).
void EncodeAreaOperand(CompileSession& session, int k);
// A decimal constant (its low 16 bits) or a hex constant of at most 4 significant digits.
void EncodeWordConstant(CompileSession& session, int k);
// Fills the long constant text (8 upper-case hex digits) from a decimal constant (its 32-bit
// two's complement) or a hex constant of at most 8 significant digits; writes no code.
void EncodeLongConstant(CompileSession& session, int k);
// A bit: area letter, word address of at most 3 hex digits, '.', one hex bit digit.
void EncodeBitOperand(CompileSession& session, int k);
// The number of an "FX" register: "FX" and 1 to 3 decimal digits of a value up to 255, written
// as 2 lower-case hex digits; anything else writes no digits.
void EncodeFloatRegister(CompileSession& session, int k);

}  // namespace rungc
