#include "ladder/compile_rung.h"

#include "common/session.h"

namespace rungc {

void CompileLadderRung(CompileSession& session) {
  session.ladder.code.Clear();
  session.dispatch.record.Clear();
}

}  // namespace rungc
