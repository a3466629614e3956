#include "rungs/compile_program.h"

#include "common/session.h"
#include "diag/report.h"
#include "rungs/ladder_source.h"

namespace rungc {

int CompileProgram(CompileSession& session) {
  if (OpenLadderSource(session, session.driver.program_name.view()) != 0) {
    session.diag.current_error = 51;
    ++session.diag.error_count;
    return -1;
  }
  WriteRecord(session, 'F', session.driver.program_name.view());
  session.reader.line_counter = 1;
  session.dispatch.program_rung_count = 0;
  session.dispatch.conditional_block = 0;
  session.dispatch.subroutine_flag = 0;
  CloseLadderSource(session);
  return session.diag.error_count != 0 ? 2 : 1;
}

}  // namespace rungc
