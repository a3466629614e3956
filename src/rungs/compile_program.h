// The rung loop of one program: reads the program's source rung by rung and routes each rung by
// its kind.
#pragma once

namespace rungc {

struct CompileSession;

// Compiles the program named by the driver's program name: 1 done and no error counted in the
// whole compile so far, 2 done with errors counted, -1 the source could not be opened (one error
// is counted, no record written).
int CompileProgram(CompileSession& session);

// What the rung loop does after a rung.
enum class RungOutcome { kNextRung, kEndProgram };

// Handles the rung in the grid by its kind (the element code of its first record): ladder
// networks are validated and compiled, structural rungs become one-unit code records and enter
// their names in the label tables, and the counters of the program and the areas move on.
RungOutcome DispatchRung(CompileSession& session, int kind);

// The balance check of the code record just written: its D, Y and d units must match its E and
// F units. Otherwise the error record 80 is written directly (the rung error latch does not hold
// it back) with the number of the rung just counted, and false is given: the program ends.
bool CheckRungBalance(CompileSession& session);

}  // namespace rungc
