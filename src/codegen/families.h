// The instruction families of function-block lines. Each generator reads the classified operands
// of the current line and appends its unit groups to the rung's code text.
#pragma once

namespace rungc {

struct CompileSession;

void CompileWordInstruction(CompileSession& session);        // destination a word
void CompileBitInstruction(CompileSession& session);         // destination a bit
void CompileKeywordInstruction(CompileSession& session);     // an operator sign or keyword first
void CompileDoubleWordInstruction(CompileSession& session);  // destination a double word
void CompileFloatInstruction(CompileSession& session);       // destination a float register

}  // namespace rungc
