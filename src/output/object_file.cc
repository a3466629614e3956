#include "output/object_file.h"

#include "common/session.h"

namespace rungc {

int WriteObjectFile(CompileSession& session, const std::string& listing_path) {
  (void)session;
  (void)listing_path;
  return 0;
}

}  // namespace rungc
