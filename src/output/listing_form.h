// The listing form of code units: what the record writer turns every compiled rung into.
#pragma once

#include <cstddef>

namespace rungc {

// Rewrites the 8-character units of `text`, up to the first unit that begins with NUL, into their
// listing form: operand fields rearranged into area and index (DX012.3 becomes D_X_0123), then
// every blank and NUL inside a unit written as '_'. Units of function blocks ('M', 'm') only have
// their blanks replaced. `size` bounds the text; a last partial unit is left as it is.
void ListingUnitForm(char* text, std::size_t size);

}  // namespace rungc
