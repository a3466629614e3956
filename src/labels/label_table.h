// The two fixed tables of names that jumps, labels, calls and subroutines refer to. Names are
// entered while rungs are compiled; the label pass gives each definition its code position and
// rewrites references into forward displacements.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/fixed_text.h"
#include "common/limits.h"

namespace rungc {

// The name comparison used across the compiler: leading blanks skipped, a name ends at NUL,
// blank, line feed or tab, letters compare without case, a '_' against an ended name matches,
// and once `limit` characters matched the names are equal.
bool NamesEqual(std::string_view a, std::string_view b, std::size_t limit = 256);

// Error numbers of one table: jump labels and subroutines differ only in these.
struct LabelErrors {
  int defined_twice;  // 34 / 59
  int table_full;     // 33 / 59
  int not_found;      // 37 / 58: reference after the definition, or undefined at the label pass
};

inline constexpr LabelErrors kJumpLabelErrors{34, 33, 37};
inline constexpr LabelErrors kSubroutineErrors{59, 59, 58};
inline constexpr int kBlankNameError = 35;

class LabelTable {
 public:
  struct Slot {
    FixedText<7> name;
    std::int32_t state = 0;     // 0 free; n > 0 referred to n times; -1 defined
    std::uint32_t address = 0;  // code-unit index of the definition
  };

  explicit LabelTable(LabelErrors errors) : errors_(errors) {}

  // Every state and address 0, every name cleared.
  void Empty();
  // Operations on a name field (up to 8 characters are looked at for leading blanks); each gives
  // 0 or an error number.
  int Define(std::string_view field);
  int Reference(std::string_view field);
  // Finds the defined slot of the name in `field` and writes "K_%04X" (assign) or "K%05X" (resolve)
  // over the 6 characters at the name's first non-blank character. The field must have room for
  // them.
  int Assign(char* field, std::size_t field_length, std::uint32_t unit_index);
  int Resolve(char* field, std::size_t field_length, std::uint32_t unit_index);

  const Slot& slot(std::size_t i) const { return slots_[i]; }

 private:
  LabelErrors errors_;
  std::array<Slot, kLabelSlots> slots_{};
};

struct LabelState {
  LabelTable jumps{kJumpLabelErrors};         // JumpLabelTable
  LabelTable subroutines{kSubroutineErrors};  // SubroutineTable
};

}  // namespace rungc
