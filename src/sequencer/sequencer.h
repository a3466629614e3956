// The sequencer: compiles the project's sequence file into "#S#" lines appended to the listing.
#pragma once

namespace rungc {

struct CompileSession;

// 1 the sequence file was read, -1 it is missing or its header is not accepted.
int ReadSequenceFile(CompileSession& session);
// 0 no sequence file was read, 1 compiled, 2 a sequence error number was set.
int CompileSequences(CompileSession& session);

}  // namespace rungc
