// The message file reader's state: the open message file with the last line read, one list of
// owned texts per section of the suite's message file, and the languages found when no file
// could be opened.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "common/fixed_text.h"
#include "platform/file_io.h"

namespace rungc {

inline constexpr std::size_t kMessageSectionCount = 29;  // rows of the message section table
inline constexpr std::size_t kMessageLineMax = 127;      // characters read per message file line
inline constexpr std::size_t kMessageLanguageCount = 5;  // language codes the suite knows
inline constexpr std::size_t kMessageLanguageMax = 11;   // characters of one listed language

// The texts of one section: entry n at position n - 1; the size ends the list.
using MessageTable = std::vector<std::string>;

struct MessageState {
  platform::InputFile file;                      // open only while a key's sections are loaded
  std::array<char, kMessageLineMax + 1> line{};  // the last line read, NUL-terminated
  // One table per row of the message section table, in the same order.
  std::array<MessageTable, kMessageSectionCount> tables;
  std::array<FixedText<kMessageLanguageMax>, kMessageLanguageCount> languages;
  int language_count = 0;
};

}  // namespace rungc
