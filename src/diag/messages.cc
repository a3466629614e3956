#include "diag/messages.h"

#include "common/session.h"

namespace rungc {

void ReleaseMessageTables(CompileSession& session) {
  (void)session;
}

}  // namespace rungc
