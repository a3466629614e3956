// The object code file: the finished listing converted unit by unit into 4-byte object words.
#pragma once

#include <string>

namespace rungc {

struct CompileSession;

// Converts the listing at `listing_path` into the object file beside it (extension "cod") and
// then writes the side files. 0 on success, otherwise a failure code (-1, 1 to 6).
int WriteObjectFile(CompileSession& session, const std::string& listing_path);

}  // namespace rungc
