#include "ladder/emit.h"

#include "common/session.h"
#include "diag/report.h"

namespace rungc {

bool EmitCode(CompileSession& session, std::string_view chars) {
  if (session.ladder.code.Append(chars)) return true;
  ReportErrorText(session, 16, "", "");
  session.ladder.walk_state = kWalkStopped;
  return false;
}

}  // namespace rungc
