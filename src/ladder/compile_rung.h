// The ladder network compiler: one validated rung of the grid into the dispatcher's code record.
#pragma once

namespace rungc {

struct CompileSession;

// Compiles the current grid into the code record. Afterwards the current error number is above
// 0 when the rung failed, and the code record then holds no code.
void CompileLadderRung(CompileSession& session);

// The first half of `CompileLadderRung`: walks the grid into the raw code text, with the frame
// and the lines of a function block, without folding it into the code record.
void CompileRawRungCode(CompileSession& session);

}  // namespace rungc
