// The ladder source file of one program: a header line ending in ';', then the records of every
// rung, each a 6-character head and its operand text, with no line breaks.
#pragma once

#include <string_view>

namespace rungc {

struct CompileSession;

// Opens the program's source and checks its header: 0 positioned at the first record, -1 the
// file cannot be opened (or no name), -2 the header does not match (the file is closed).
int OpenLadderSource(CompileSession& session, std::string_view program_name);
void CloseLadderSource(CompileSession& session);

}  // namespace rungc
