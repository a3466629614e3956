#include "driver/memory_map.h"

#include <array>
#include <cctype>
#include <cstdlib>
#include <cstring>

#include "common/session.h"
#include "labels/label_table.h"

namespace rungc {

namespace {

struct AreaKind {
  const char* word;
  std::int32_t number;
};

// Kind words of the area lines and their numbers; "FFFF" ends the table.
constexpr std::array<AreaKind, 10> kAreaKindTable = {{{"COST", 0},
                                                      {"WWWW", 1},
                                                      {"SSWW", 2},
                                                      {"SSSW", 3},
                                                      {"SSWB", 4},
                                                      {"WWWB", 5},
                                                      {"SWWB", 6},
                                                      {"BBBB", 7},
                                                      {"TTTT", 8},
                                                      {"FFFF", -1}}};

std::int32_t LookUpAreaKind(const char* word) {
  for (const AreaKind& kind : kAreaKindTable) {
    if (kind.number < 0) return -1;
    if (std::strncmp(word, kind.word, 4) == 0) return kind.number;
  }
  return -1;
}

// A number field: hexadecimal when it ends in 'H', decimal otherwise.
std::int32_t ReadAreaNumber(std::string_view field) {
  std::string digits(field);
  int base = 10;
  if (!digits.empty() && digits.back() == 'H') {
    digits.pop_back();
    base = 16;
  }
  // Read wide and kept to 32 bits, as "%x" and "%d" give them on any host.
  return static_cast<std::int32_t>(
      static_cast<std::uint32_t>(std::strtoull(digits.c_str(), nullptr, base)));
}

// Splits an upper-cased area line into its six fields and stores them in `area`. False when the
// line has fewer than five commas or its kind word is unknown (the kind is then -1).
bool ReadAreaLine(const char* line, MemoryArea& area) {
  std::array<std::string_view, 5> fields;
  const char* at = line;
  for (std::string_view& field : fields) {
    const char* comma = std::strchr(at, ',');
    if (comma == nullptr) return false;
    field = std::string_view(at, static_cast<std::size_t>(comma - at));
    at = comma + 1;
  }
  std::string name(fields[0].substr(0, 7));
  if (name.size() == 1) name += ' ';
  area.name.Set(name);
  std::string kind_word(fields[1]);
  area.kind = LookUpAreaKind(kind_word.c_str());
  if (area.kind < 0) return false;
  area.base = ReadAreaNumber(fields[2]);
  area.group_size = ReadAreaNumber(fields[3]);
  area.group_count = ReadAreaNumber(fields[4]);
  std::size_t end = std::strcspn(at, " H\r\n");
  area.element_count = ReadAreaNumber(std::string_view(at, end + (at[end] == 'H' ? 1 : 0)));
  return true;
}

void PresetRows(MemoryMapState& map) {
  map.areas[0].name.Set("  ");
  map.areas[0].kind = 20;
  map.areas[1].name.Set("K ");
  map.areas[1].kind = 0;
}

}  // namespace

int LoadMemoryMap(CompileSession& session, std::string_view file_name) {
  MemoryMapState& map = session.memory;
  platform::InputFile file;
  if (!file.Open(session.work_dir.ResolveInput(file_name), platform::OpenMode::kText)) return -1;
  std::array<char, 260> line{};
  file.ReadLine(line.data(), 79);
  if (std::strncmp(line.data(), "#MEM#", 5) != 0) return -1;
  const int result = (line[5] == 'Y' || line[5] == 'y') ? 0 : 1;
  PresetRows(map);
  std::size_t next = 2;
  for (;;) {
    // A read that meets the end of the file ends the map: a last line without its line end is
    // not used.
    file.ReadLine(line.data(), 259);
    if (file.eof()) return result;
    if (next >= kMemoryAreaRows) return -1;
    if (!std::isalpha(static_cast<unsigned char>(line[0]))) continue;
    for (char* c = line.data(); *c != '\0'; ++c) {
      *c = static_cast<char>(std::toupper(static_cast<unsigned char>(*c)));
    }
    if (!ReadAreaLine(line.data(), map.areas[next])) {
      map.areas[next].kind = -1;
      return -1;
    }
    ++next;
  }
}

const MemoryArea* FindMemoryArea(const MemoryMapState& map, std::string_view name) {
  for (std::size_t i = 0; i + 1 < kMemoryAreaRows; ++i) {
    if (map.areas[i].name.view() == name) return &map.areas[i];
  }
  return nullptr;
}

void DeriveAreaSizes(MemoryMapState& map) {
  // The first of rows 0 to 61 whose name equals the wanted one: names of two letters are
  // compared on two characters, longer ones whole.
  auto find = [&map](std::string_view wanted) -> const MemoryArea* {
    const std::size_t limit = wanted.size() == 2 ? 2 : 256;
    for (std::size_t i = 0; i + 1 < kMemoryAreaRows; ++i) {
      if (NamesEqual(map.areas[i].name.view(), wanted, limit)) return &map.areas[i];
    }
    return nullptr;
  };
  auto groups_and_elements = [&find](std::string_view name, std::int32_t& groups,
                                     std::int32_t& elements) {
    const MemoryArea* a = find(name);
    groups = a != nullptr ? a->group_count : 0;
    elements = a != nullptr ? a->element_count : 0;
  };
  auto elements = [&find](std::string_view name, std::int32_t& count) {
    const MemoryArea* a = find(name);
    count = a != nullptr ? a->element_count : 0;
  };
  DerivedSizes& z = map.sizes;
  groups_and_elements("WX", z.wx_groups, z.wx_elements);
  groups_and_elements("WY", z.wy_groups, z.wy_elements);
  groups_and_elements("WAX", z.wax_groups, z.wax_elements);
  groups_and_elements("WAY", z.way_groups, z.way_elements);
  elements("WR", z.wr_elements);
  elements("WM", z.wm_elements);
  elements("WZ", z.wz_elements);
  elements("WF", z.wf_elements);
  elements("WS", z.ws_elements);
  elements("T ", z.t_elements);
  elements("C ", z.c_elements);
}

}  // namespace rungc
