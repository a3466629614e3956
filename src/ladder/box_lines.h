// Function-block lines: the statement lines of a box cell, cut into operands, classified and
// handed to the instruction family that operand 0 selects.
#pragma once

namespace rungc {

struct CompileSession;

// Compiles every line of a function-block cell of type 38 (head) or 10 (continuation).
void CompileBoxCell(CompileSession& session, int index, int type);
// Hands the classified operands of the current line to their instruction family.
void DispatchBoxLine(CompileSession& session);
// The comparison contact (element 49) at a cell: "e" is already written; writes its 7 blanks and
// the comparison's code into flag bit F0.8.
void CompileComparisonContact(CompileSession& session, int index);

}  // namespace rungc
