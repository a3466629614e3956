// The spine of one compile: the order of the passes and the closing steps that decide and record
// the result.
#pragma once

#include <cstdint>

namespace rungc {

struct CompileSession;

// One complete compile in the session, as the exported entry point runs it: resets the
// per-compile counters and the label tables, then runs the driver. Never throws.
std::uint32_t CompileEntry(CompileSession& session);

std::uint32_t CompileDriver(CompileSession& session);
// The loop over the project's programs: 1 end-of-list line reached, 2 end of the project file
// without one, below 1 stopped by a fatal condition.
int CompileProgramList(CompileSession& session);
void WriteEndRecords(CompileSession& session);
void WriteRunSummary(CompileSession& session);
void AppendListingChecksum(CompileSession& session);
void ReportWriterFailure(CompileSession& session, int code);
void ReleaseTables(CompileSession& session);

}  // namespace rungc
