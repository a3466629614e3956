// The reader of the suite's message file.
#pragma once

namespace rungc {

struct CompileSession;

// Frees the texts of the compiler's message tables (the five "COMP" tables and "MSG_DU").
void ReleaseMessageTables(CompileSession& session);

}  // namespace rungc
