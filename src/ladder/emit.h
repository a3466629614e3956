// Appending to the rung's raw code text. Every writer of code units goes through here, so a rung
// whose code would not fit in the 2,240-character code text fails in one place.
#pragma once

#include <string_view>

namespace rungc {

struct CompileSession;

// Appends the characters at the code write position. When they do not fit, nothing is written,
// the rung fails with error 16 (item and text empty), the walk stops and false is given.
bool EmitCode(CompileSession& session, std::string_view chars);

}  // namespace rungc
