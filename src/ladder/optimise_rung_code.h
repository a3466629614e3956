// The rung code peephole pass: folds the raw code of the network walk into the rung's code record.
// Loads joined at once by a parallel join become or-units ('H', 'h'), loads that lead straight to
// an output become and-units, redundant starts and joins disappear and the first unit becomes the
// rung's first load ('A', 'a').
#pragma once

#include "ladder/ladder_state.h"
#include "rungs/rung_state.h"

namespace rungc {

struct CompileSession;

// Folds `code` (changed in place) into `record` (empty on entry), checks the pseudo-contact "*"
// of unconditional boxes (errors 15, 39, 40, 41) and adds the record's units to the
// InstructionCounter.
void OptimiseRungCode(CompileSession& session, CodeText& code, CodeRecord& record);

}  // namespace rungc
