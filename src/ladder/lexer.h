// The operand lexer of function-block lines: cuts one operand (token) from the front of a line
// and says how many characters it used, so that the caller can cut the next one from the rest.
// Names are upper-cased, numbers stay as written.
#pragma once

#include <string_view>

#include "common/fixed_text.h"
#include "common/limits.h"

namespace rungc {

using OperandText = FixedText<kOperandTextMax>;

// Results of `LexToken` besides a count of characters used.
inline constexpr int kLexNoToken = 0;        // an empty rest of line, or a ';' comment
inline constexpr int kLexUnclosed = -1;      // '(' not closed by ')' within the length
inline constexpr int kLexParenAfter = -2;    // a ')' right after an operand or name
inline constexpr int kLexBadCharacter = -3;  // "()" or a character that cannot end a token

// Cuts one token from `text`, looking at no more than `length` characters except the one just
// after a token. Characters past the end of `text` read as NUL, as in the NUL-padded line buffer
// the lines are copied into. The token holds the characters taken, also on a negative result.
// Gives the count of characters used (blanks before the token included), 0 or a negative result.
int LexToken(OperandText& token, std::string_view text, int length);

// The length of the area prefix the text begins with ("WAX", "WAY"; "WX", "WY", "WR", "WM", "WF",
// "WZ", "FX", "WT", "WC"; "X", "Y", "R", "F", "Z"; letters compared upper-cased), 0 for none.
int OperandPrefixLength(std::string_view text);

}  // namespace rungc
