// A check the tool makes on a ladder source after a compile: the rung reader drops the last row of
// a source that does not end with a row-end record, and a person should hear about it.
#pragma once

#include <filesystem>
#include <string_view>

namespace rungc::tool {

// True when the rung reader dropped the source's last row: the records after the header (up to
// its last ';') hold at least two rows, and the last record is not a row-end record
// (row byte FF) or is cut short. The first row of a source is never dropped.
bool LastRowDropped(std::string_view source);

// The same for a file; false when it cannot be read.
bool LastRowDropped(const std::filesystem::path& path);

}  // namespace rungc::tool
