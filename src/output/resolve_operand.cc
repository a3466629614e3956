#include "output/resolve_operand.h"

#include <cctype>
#include <string_view>

#include "driver/memory_map.h"

namespace rungc {

namespace {

// Area types, by their words in the memory map: S is a hexadecimal digit of the group, W of the
// element (word), B of the bit.
enum AreaType : std::int32_t {
  kConstant = 0,       // COST: the index is the value
  kWords = 1,          // WWWW
  kGroupWords = 2,     // SSWW
  kGroupWord = 3,      // SSSW
  kGroupBits = 4,      // SSWB
  kWordBits = 5,       // WWWB
  kGroupWordBits = 6,  // SWWB
  kBits = 7,           // BBBB: no address
  kTimers = 8,         // TTTT
  kNoOperand = 20,     // row 0, the blank area name
};

// The area name of characters 2 and 3: letters upper-cased, '_' read as a blank; the input
// registers "AX" and "AY" lie in the areas "WAX" and "WAY".
std::string_view AreaName(const UnitText& unit, char (&name)[3]) {
  for (int i = 0; i < 2; ++i) {
    char c = unit[static_cast<std::size_t>(2 + i)];
    if (c == '_') c = ' ';
    name[i] = c == ' ' ? c : static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  }
  name[2] = '\0';
  std::string_view view(name, 2);
  if (view == "AX") return "WAX";
  if (view == "AY") return "WAY";
  return view;
}

// Characters 4 to 7 as a hexadecimal number, up to the first character that is no digit.
std::uint32_t OperandIndex(const UnitText& unit) {
  std::uint32_t index = 0;
  for (std::size_t i = 4; i < kUnitSize; ++i) {
    const unsigned char c = static_cast<unsigned char>(unit[i]);
    if (!std::isxdigit(c)) break;
    const int digit = std::isdigit(c) ? c - '0' : std::toupper(c) - 'A' + 10;
    index = index * 16 + static_cast<std::uint32_t>(digit);
  }
  return index;
}

void SetAddress(std::uint32_t address, OperandAddress* out) {
  out->low = static_cast<std::uint8_t>(address & 0xFF);
  out->high = static_cast<std::uint8_t>((address >> 8) & 0xFF);
}

// A bit operand addresses the byte of its word that holds the bit: bits 8 to 15 lie in the high
// byte, one address above the word.
void SetBitAddress(std::uint32_t word_address, std::uint32_t bit, OperandAddress* out) {
  const std::uint32_t mask = 1u << bit;
  if (mask < 256) {
    out->access = static_cast<std::uint8_t>(mask);
    SetAddress(word_address, out);
  } else {
    out->access = static_cast<std::uint8_t>(mask >> 8);
    SetAddress(word_address + 1, out);
  }
}

bool Below(std::uint32_t value, std::int32_t limit) {
  return static_cast<std::int64_t>(value) < static_cast<std::int64_t>(limit);
}

// The checks of the grouped types: the element first (3), then the group (4).
int CheckGroupAndElement(const MemoryArea& area, std::uint32_t group, std::uint32_t element) {
  if (!Below(element, area.element_count)) return kElementOutOfRange;
  if (!Below(group, area.group_count)) return kGroupOutOfRange;
  return 0;
}

std::uint32_t GroupAddress(const MemoryArea& area, std::uint32_t group, std::uint32_t element) {
  return static_cast<std::uint32_t>(area.base) +
         group * static_cast<std::uint32_t>(area.group_size) + 2 * element;
}

}  // namespace

int ResolveOperand(const MemoryMapState& map, const UnitText& unit, OperandAddress* out) {
  *out = OperandAddress{};
  char name_chars[3];
  const MemoryArea* area = FindMemoryArea(map, AreaName(unit, name_chars));
  if (area == nullptr) return kNoSuchArea;
  const std::uint32_t index = OperandIndex(unit);
  const std::uint32_t bit = index & 0xF;
  const std::uint32_t base = static_cast<std::uint32_t>(area->base);
  switch (area->kind) {
    case kConstant:
      SetAddress(index, out);
      return 0;
    case kWords: {
      if (!Below(index, area->element_count)) return kElementOutOfRange;
      out->access = 255;
      SetAddress(base + 2 * index, out);
      return 0;
    }
    case kGroupWords:
    case kGroupWord: {
      const std::uint32_t shift = area->kind == kGroupWords ? 8 : 4;
      const std::uint32_t element = index & ((1u << shift) - 1);
      const std::uint32_t group = index >> shift;
      if (int r = CheckGroupAndElement(*area, group, element); r != 0) return r;
      out->access = 255;
      SetAddress(GroupAddress(*area, group, element), out);
      return 0;
    }
    case kGroupBits:
    case kGroupWordBits: {
      const bool small = area->kind == kGroupBits;
      const std::uint32_t element = (index >> 4) & (small ? 0xFu : 0xFFu);
      const std::uint32_t group = index >> (small ? 8 : 12);
      if (int r = CheckGroupAndElement(*area, group, element); r != 0) return r;
      SetBitAddress(GroupAddress(*area, group, element), bit, out);
      return 0;
    }
    case kWordBits: {
      const std::uint32_t element = index >> 4;
      if (!Below(element, area->element_count)) return kElementOutOfRange;
      SetBitAddress(base + 2 * element, bit, out);
      return 0;
    }
    case kBits:
    case kNoOperand:
      return 0;
    case kTimers: {
      if (!Below(index, area->element_count)) return kElementOutOfRange;
      out->access = unit[2] == 'W' ? 255 : 1;
      SetAddress(base + index * static_cast<std::uint32_t>(area->group_size), out);
      return 0;
    }
    default:
      return kUnknownAreaType;
  }
}

}  // namespace rungc
