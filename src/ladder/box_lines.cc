#include "ladder/box_lines.h"

#include "common/session.h"
#include "diag/report.h"
#include "ladder/emit.h"

namespace rungc {

void CompileBoxCell(CompileSession& session, int index, int type) {
  (void)session;
  (void)index;
  (void)type;
}

void DispatchBoxLine(CompileSession& session) {
  ReportErrorText(session, 16, "", session.ladder.box_line.view());
}

void CompileComparisonContact(CompileSession& session, int index) {
  (void)index;
  EmitCode(session, "       ");
}

}  // namespace rungc
