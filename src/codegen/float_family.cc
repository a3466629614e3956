// Floating-point instructions (an "FX" register first). Not yet generated: every such line is
// refused with error 16 (no item, the box line as text).
#include "codegen/families.h"
#include "codegen/line_operands.h"

namespace rungc {

void CompileFloatInstruction(CompileSession& session) {
  ReportNoForm(session);
}

}  // namespace rungc
