#include "sequencer/sequencer.h"

#include "common/session.h"

namespace rungc {

int ReadSequenceFile(CompileSession& session) {
  (void)session;
  return -1;
}

int CompileSequences(CompileSession& session) {
  (void)session;
  return 0;
}

}  // namespace rungc
