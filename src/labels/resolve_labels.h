// The label pass over the finished listing: mode 0 gives every label and subroutine its code
// position, mode 1 rewrites the listing from its ".$$$" copy with displacements and IF distances.
#pragma once

namespace rungc {

struct CompileSession;

// 0 no error, -1 at least one error was reported, 6 a file could not be opened.
int ResolveLabels(CompileSession& session, int mode);

}  // namespace rungc
