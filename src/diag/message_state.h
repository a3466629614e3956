// The message file reader's tables: one list of owned texts per section of the suite's message
// file, and the languages found when no file could be opened.
#pragma once

namespace rungc {

struct MessageState {};

}  // namespace rungc
