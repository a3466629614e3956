// Test-only helpers for the reliability tests: snapshots of a directory tree (which files a
// compile created, changed or removed), status files written line by line, and allocation
// failures injected into the test process.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "support/ladder_builder.h"

namespace rungc::testing {

// Every regular file under a directory, by its path relative to it, with its content.
using TreeSnapshot = std::map<std::string, std::string>;
TreeSnapshot SnapshotTree(const std::filesystem::path& root);

// What changed between two snapshots, one entry per file in path order: "+name" created,
// "~name" changed, "-name" removed.
std::vector<std::string> TreeChanges(const TreeSnapshot& before, const TreeSnapshot& after);

// A status file from its four lines as they stand (each ended by CR LF): header, directory line,
// language line, project line.
std::string StatusText(std::string_view directory_line, std::string_view project_line);

// A conditional box rung behind three contacts, then a rung of a contact and a coil. Row 0 of
// the box holds two statement lines, each of its `rows` continuation rows three; every line is a
// 3-unit word move ("WY1 = WX2") except the very last one, `last_line`.
LadderSource BoxRung(int rows, std::string_view last_line);

// The status header and the header of a project file, for texts built by hand.
inline constexpr std::string_view kStatusHeaderLine = "- KORVA   1994       STA             ;";
inline constexpr std::string_view kProjectHeaderLine = "- KORVA   1994       PRO             ;";

// Allocation failures: once armed with n, the n + 1st allocation of the process from then on
// throws std::bad_alloc, and so does every allocation after it until the failure is disarmed.
// The test binary replaces the global operator new for this; disarmed it only counts.
class AllocationFailure {
 public:
  explicit AllocationFailure(long allowed);
  ~AllocationFailure();
  AllocationFailure(const AllocationFailure&) = delete;
  AllocationFailure& operator=(const AllocationFailure&) = delete;
  // True when an allocation was refused while armed.
  bool triggered() const;
};

// Allocations made by the process so far (counted while no failure is armed, too).
long AllocationCount();

}  // namespace rungc::testing
