// The thermoregulation and PID side files: each parameter table of the project ("tmr", "pds")
// becomes a binary file ("tmc", "pdc") beside the object code.
//
// Table line (positions from 0): 4 'N' for an empty record; 5-10 operand A, a word name or
// "  NULL"; 12 on value 1, values 2 to 6 each after the next ','; after the sixth ',' operand B
// (6 characters), value 7 seven characters after it, further values each after the next ','; the
// line ends with ',' and the line end.
//
// Side file: the side-file header, CR LF, 0x55 0xAA 0xAA 0x55, then per table line either
// 0x55 x 4 ('N') or A (access, address low, high), values 1-6 (16-bit little-endian), B,
// value 7 and the further values. Without a usable table: only 0x01 x 4.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/file_io.h"

namespace rungc {

struct CompileSession;
struct MemoryMapState;

enum class ParameterTable { kThermoregulation, kPid };

// Bytes of one side-file record at most.
inline constexpr std::size_t kTableRecordSize = 1000;
using TableRecord = std::array<std::uint8_t, kTableRecordSize>;

// Writes both side files beside the listing. Gives the first non-zero conversion code; the
// object writer's line counter then stays at that failure (a later conversion does not move it).
int WriteSideFiles(CompileSession& session, const std::string& listing_path);

// Converts one table into the open side file at `side_path`: the marker when the table is
// missing, has another header or the memory map has no "WZ" area. A failed line deletes the
// side file and gives its code; the line counter counts the table's lines from 20001.
int ConvertTableFile(CompileSession& session, const std::string& listing_path,
                     platform::OutputFile& side, const std::filesystem::path& side_path,
                     ParameterTable table);

// One table line into its record; `length` is the number of bytes stored. 0, or 1 to 4 from
// the operand conversion, 2 for a name that is no word name or an operand B that is no word.
int ConvertTableLine(const MemoryMapState& map, std::string_view line, TableRecord* record,
                     std::size_t* length);

// Turns a word name of 1 to 6 characters (NUL-terminated in a buffer of at least 7) into the
// 6-character operand field of a unit: WR12 gives WR0012, WAX12 gives AX0012. 0, or 2 when the
// name does not begin with 'W' or 'w'.
int NormalizeWordName(char* name);

}  // namespace rungc
