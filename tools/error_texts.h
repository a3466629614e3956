// English texts for the numbers of the error file. The compiler writes numbers only; these texts
// are the command-line tool's own wording of what each number means.
#pragma once

#include <string_view>

namespace rungc::tool {

// The record a number stands in: the same number means different things in an error (#E#), a
// warning (#W#) and a label-pass error (#J#) record.
enum class RecordKind { kError, kWarning, kLabelError };

// What `number` means in a record of `kind`; empty when the compiler never reports it.
std::string_view ErrorText(RecordKind kind, int number);

// True for the numbers that report a failure of the object code writers (4999, 5001 to 5006):
// their "rung" is the ordinal of the code record the writer stopped at.
bool IsWriterFailure(int number);

}  // namespace rungc::tool
