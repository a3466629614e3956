// Keyword instructions (a keyword or operator sign first). Not yet generated: every such line is
// refused with error 16 (no item, the box line as text).
#include "codegen/families.h"
#include "codegen/line_operands.h"

namespace rungc {

void CompileKeywordInstruction(CompileSession& session) {
  ReportNoForm(session);
}

}  // namespace rungc
