// The rung loop of one program: reads the program's source rung by rung and routes each rung by
// its kind.
#pragma once

namespace rungc {

struct CompileSession;

// Compiles the program named by the driver's program name: 1 done and no error counted in the
// whole compile so far, 2 done with errors counted, -1 the source could not be opened (one error
// is counted, no record written).
int CompileProgram(CompileSession& session);

}  // namespace rungc
