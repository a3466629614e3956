// The module's one export. The session behind it lives as long as the module is loaded, so what
// the module keeps between calls (the listing checksum, the element flags, the memory map sizes)
// carries over from one compile to the next.
#include "rungc/rungc.h"

#include "common/session.h"
#include "driver/compile_driver.h"

namespace {

rungc::CompileSession& ModuleSession() {
  static rungc::CompileSession session;
  return session;
}

}  // namespace

extern "C" RUNGC_EXPORT uint32_t RUNGC_CALL Compilatore32(uint32_t flag) {
  (void)flag;  // the compile does not depend on it
  try {
    return rungc::CompileEntry(ModuleSession());
  } catch (...) {
    return 4098;
  }
}
