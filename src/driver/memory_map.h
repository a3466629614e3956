// The target's memory areas, read from "memory.ovl": the object code writer turns operands into
// addresses through them, and the sequencer takes a few sizes from them.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "common/fixed_text.h"
#include "common/limits.h"

namespace rungc {

struct CompileSession;

struct MemoryArea {
  FixedText<7> name;      // upper case; a one-letter name carries a trailing blank
  std::int32_t kind = 0;  // from the area kind table, -1 when the kind word is unknown
  std::int32_t base = 0;
  std::int32_t group_size = 0;
  std::int32_t group_count = 0;    // the group part of an index stays below it (high limit)
  std::int32_t element_count = 0;  // the element part of an index stays below it (low limit)
};

// Sizes of areas that the sequencer checks operands against. They keep their values when no map
// could be loaded: the defaults until a map has been loaded in the session.
struct DerivedSizes {
  std::int32_t wx_groups = 8, wx_elements = 4;
  std::int32_t wy_groups = 8, wy_elements = 4;
  std::int32_t wax_groups = 4, wax_elements = 32;
  std::int32_t way_groups = 8, way_elements = 8;
  std::int32_t wr_elements = 1048;
  std::int32_t wm_elements = 256;
  std::int32_t wz_elements = 16;
  std::int32_t wf_elements = 128;
  std::int32_t ws_elements = 8;
  std::int32_t t_elements = 128;
  std::int32_t c_elements = 128;
};

struct MemoryMapState {
  std::array<MemoryArea, kMemoryAreaRows> areas;
  DerivedSizes sizes;
};

// Reads the memory map file: 0 loaded and object code wanted, 1 loaded without object code,
// -1 no usable map (rows filled before a failure stay).
int LoadMemoryMap(CompileSession& session, std::string_view file_name);
// Takes the sequencer's sizes from the loaded areas.
void DeriveAreaSizes(MemoryMapState& map);
// The first of rows 0 to 61 with this exact name, or null.
const MemoryArea* FindMemoryArea(const MemoryMapState& map, std::string_view name);

}  // namespace rungc
