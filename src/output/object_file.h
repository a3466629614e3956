// The object code file: the finished listing converted unit by unit into 4-byte object words.
//
// File layout: the 38-character header "- KORVA   1995 V2.0  COD             ;", carriage return
// and line feed, then one object word per code unit of every "#R#" line of the listing, in file
// order, with nothing between or after them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "output/resolve_operand.h"

namespace rungc {

struct CompileSession;
struct MemoryMapState;

// Opcode byte, access byte, address low byte, address high byte. A resolved jump or call carries
// its displacement in the last three bytes instead (bits 16-23, 0-7, 8-15).
using ObjectWord = std::array<std::uint8_t, 4>;

// Units of one listing line that are converted; a line read whole holds no more.
inline constexpr std::size_t kMaxUnitsPerLine = 249;

// One unit's object word. 0, -1 for a mnemonic that is not in the opcode table (the word is then
// all zeros), or a failure of `ResolveOperand`. `jump` marks the units whose operand may be a
// resolved displacement (LJ, Lj, LC, Lc).
int EncodeUnit(const MemoryMapState& map, const UnitText& unit, bool jump, ObjectWord* word);

// Converts the units of a "#R#" line (from position 3 to the line end, at most 249) into
// `words`; `count` is the number converted. 0, or the failure code of the first unit that fails.
int ConvertCodeLine(const MemoryMapState& map, const char* line,
                    std::array<ObjectWord, kMaxUnitsPerLine>* words, std::size_t* count);

// Converts the listing at `listing_path` into the object file beside it (extension "cod") and
// then writes the side files. 0 on success, otherwise a failure code (-1, 1 to 6); after a
// failed conversion no object file is left. The line counter and the current file name of
// `session.object` tell the driver where it failed.
int WriteObjectFile(CompileSession& session, const std::string& listing_path);

// The listing path with its last three characters (the extension) replaced.
std::string WithPathExtension(const std::string& listing_path, const char* extension);
// An input beside the listing: the exact name, else the one name that differs only in case. The
// listing path is already a host path (resolved against the work directory), so it is not
// resolved again.
std::filesystem::path FindBesideListing(const std::string& path);

}  // namespace rungc
