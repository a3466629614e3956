#include "codegen/line_operands.h"

#include "common/session.h"
#include "diag/report.h"

namespace rungc {

LineOperands::LineOperands(const CompileSession& session) : ops_(session.ladder.operands) {}

void ReportNoForm(CompileSession& session) {
  ReportErrorText(session, 16, "", session.ladder.box_line.view());
}

void WarnInputDestination(CompileSession& session, std::uint32_t input_flags) {
  const OperandTable& ops = session.ladder.operands;
  if ((ops.type[0] & input_flags) == 0) return;
  ReportWarning(session, 1, ops.text[0].view(), session.ladder.box_line.view());
}

}  // namespace rungc
