#include "labels/label_table.h"

#include <array>
#include <cctype>
#include <cstdio>
#include <cstring>

#include "common/chars.h"

namespace rungc {

namespace {

bool EndsName(char c) {
  return c == '\0' || c == ' ' || c == '\n' || c == '\t';
}

std::size_t SkipBlanks(std::string_view s) {
  std::size_t i = 0;
  while (i < s.size() && s[i] == ' ') ++i;
  return i;
}

// The name in a name field: up to 8 leading blanks are skipped, the name runs to the next blank,
// NUL or the end of the field, at most 7 characters less the blanks skipped. Empty when blank.
std::string_view NameInField(std::string_view field, std::size_t* skipped) {
  std::size_t i = 0;
  while (i < 8 && i < field.size() && field[i] == ' ') ++i;
  *skipped = i;
  if (i == 8) return {};
  std::size_t end = i;
  while (end < field.size() && !EndsName(field[end]) && end - i < 7 - (i < 7 ? i : 7)) ++end;
  return field.substr(i, end - i);
}

}  // namespace

bool NamesEqual(std::string_view a, std::string_view b, std::size_t limit) {
  a.remove_prefix(SkipBlanks(a));
  b.remove_prefix(SkipBlanks(b));
  for (std::size_t i = 0;; ++i) {
    if (i >= limit) return true;
    const char ca = At(a, i);
    const char cb = At(b, i);
    const bool a_ended = EndsName(ca);
    const bool b_ended = EndsName(cb);
    if (a_ended && b_ended) return true;
    if ((a_ended && cb == '_') || (b_ended && ca == '_')) return true;
    if (a_ended || b_ended) return false;
    if (std::toupper(static_cast<unsigned char>(ca)) !=
        std::toupper(static_cast<unsigned char>(cb)))
      return false;
  }
}

void LabelTable::Empty() {
  for (Slot& slot : slots_) slot = Slot{};
}

int LabelTable::Define(std::string_view field) {
  std::size_t skipped = 0;
  std::string_view name = NameInField(field, &skipped);
  if (name.empty()) return kBlankNameError;
  for (Slot& slot : slots_) {
    if (slot.state == 0) {
      slot.name.Set(name);
      slot.state = -1;
      return 0;
    }
    if (NamesEqual(slot.name.view(), name)) {
      if (slot.state < 0) return errors_.defined_twice;
      slot.state = -1;
      return 0;
    }
  }
  return errors_.table_full;
}

int LabelTable::Reference(std::string_view field) {
  std::size_t skipped = 0;
  std::string_view name = NameInField(field, &skipped);
  if (name.empty()) return kBlankNameError;
  for (Slot& slot : slots_) {
    if (slot.state == 0) {
      slot.name.Set(name);
      slot.state = 1;
      return 0;
    }
    if (NamesEqual(slot.name.view(), name)) {
      if (slot.state < 0) return errors_.not_found;
      ++slot.state;
      return 0;
    }
  }
  return errors_.table_full;
}

namespace {

// The defined slot whose name equals the name at `field`, or -1. Slots referred to but never
// defined are passed over; a free slot ends the search.
template <typename Slots>
int FindDefined(const Slots& slots, std::string_view name) {
  for (std::size_t i = 0; i < slots.size(); ++i) {
    if (slots[i].state == 0) return -1;
    if (slots[i].state < 0 && NamesEqual(slots[i].name.view(), name)) return static_cast<int>(i);
  }
  return -1;
}

// Writes the first 6 characters of `text` at the name's first non-blank character, as far as the
// field reaches.
void WriteNameField(char* field, std::size_t field_length, std::size_t at, const char* text) {
  for (std::size_t k = 0; k < 6 && at + k < field_length && text[k] != '\0'; ++k) {
    field[at + k] = text[k];
  }
}

}  // namespace

int LabelTable::Assign(char* field, std::size_t field_length, std::uint32_t unit_index) {
  std::string_view view(field, field_length);
  std::size_t skipped = 0;
  if (NameInField(view, &skipped).empty()) return kBlankNameError;
  int slot = FindDefined(slots_, view.substr(skipped));
  if (slot < 0) return errors_.not_found;
  slots_[static_cast<std::size_t>(slot)].address = unit_index;
  std::array<char, 16> text;
  std::snprintf(text.data(), text.size(), "K_%04X", static_cast<unsigned>(slot));
  WriteNameField(field, field_length, skipped, text.data());
  return 0;
}

int LabelTable::Resolve(char* field, std::size_t field_length, std::uint32_t unit_index) {
  std::string_view view(field, field_length);
  std::size_t skipped = 0;
  if (NameInField(view, &skipped).empty()) return kBlankNameError;
  int slot = FindDefined(slots_, view.substr(skipped));
  if (slot < 0) return errors_.not_found;
  const std::uint32_t displacement =
      (slots_[static_cast<std::size_t>(slot)].address - unit_index) * 4u;
  std::array<char, 16> text;
  std::snprintf(text.data(), text.size(), "K%05X", static_cast<unsigned>(displacement));
  WriteNameField(field, field_length, skipped, text.data());
  return 0;
}

}  // namespace rungc
