// Reading the message file: opening it by language, finding section markers, reading entries.
#include <array>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>

#include "common/session.h"
#include "diag/messages.h"

namespace rungc {

namespace {

constexpr std::size_t kMessageHeaderLength = 35;  // characters of line 1 compared
constexpr std::string_view kMessageHeader = "- KORVA   1994       MSG            ";
constexpr std::string_view kOlderMessageHeader = "- HALVERN 1992 RKX   MSG            ";
constexpr std::string_view kMissingEntry = "*****";

bool IsLanguageCode(std::string_view language) {
  for (std::string_view code : MessageLanguageCodes()) {
    if (code == language) return true;
  }
  return false;
}

std::string MessageFileName(std::string_view language) {
  return "MESSAG." + std::string(language);
}

bool HasMessageHeader(const char* line) {
  return std::strncmp(line, kMessageHeader.data(), kMessageHeaderLength) == 0 ||
         std::strncmp(line, kOlderMessageHeader.data(), kMessageHeaderLength) == 0;
}

// Reads the next line into the line buffer; false at the end of the file.
bool ReadMessageLine(MessageState& m) {
  return m.file.ReadLine(m.line.data(), kMessageLineMax);
}

// A failed search leaves the file where a new search finds every section again: after line 1.
int RestartMessageFile(MessageState& m) {
  m.file.Rewind();
  ReadMessageLine(m);
  return -1;
}

bool IsMarkerLine(const MessageState& m, std::string_view marker) {
  return std::strncmp(m.line.data(), marker.data(), 4) == 0;
}

// The entry number of a line: a decimal integer read from character 0, as atoi reads it (blanks
// skipped, a sign allowed, no digits giving 0); values beyond the int range are clamped.
int EntryNumber(const char* line) {
  const long number = std::strtol(line, nullptr, 10);
  if (number > INT_MAX) return INT_MAX;
  if (number < INT_MIN) return INT_MIN;
  return static_cast<int>(number);
}

// The text of an entry line: from character 3 to the line end, the line feed excluded.
std::string EntryText(const char* line) {
  std::size_t length = std::strlen(line);
  if (length > 0 && line[length - 1] == '\n') --length;
  return length > 3 ? std::string(line + 3, length - 3) : std::string();
}

}  // namespace

int OpenMessageFile(CompileSession& session, std::string_view language) {
  MessageState& m = session.messages;
  if (!IsLanguageCode(language)) return -1;
  if (!m.file.Open(session.work_dir.ResolveInput(MessageFileName(language)),
                   platform::OpenMode::kText)) {
    return -1;
  }
  ReadMessageLine(m);
  if (HasMessageHeader(m.line.data())) return 0;
  m.file.Close();
  return -1;
}

int FindSection(CompileSession& session, std::string_view marker, int scan_limit) {
  MessageState& m = session.messages;
  int counter = 1;
  // The marker that ended the previous section's entries is still in the buffer.
  if (m.line[0] == '#') {
    if (IsMarkerLine(m, marker)) return 0;
    if (++counter > scan_limit) return RestartMessageFile(m);
  }
  while (ReadMessageLine(m)) {
    if (m.line[0] != '#') continue;
    if (IsMarkerLine(m, marker)) return 0;
    if (++counter > scan_limit) return -1;
  }
  return RestartMessageFile(m);
}

void ReadSection(CompileSession& session, MessageTable& table) {
  MessageState& m = session.messages;
  table.clear();
  int expected = 1;
  while (ReadMessageLine(m) && m.line[0] != '#') {
    const int number = EntryNumber(m.line.data());
    if (number < expected) break;
    // A gap is bridged by one "*****" entry; the line's text becomes the entry after it.
    if (number > expected) {
      table.emplace_back(kMissingEntry);
      ++expected;
    }
    table.push_back(EntryText(m.line.data()));
    ++expected;
  }
}

void FillMissingSection(MessageTable& table, int entries) {
  table.assign(entries > 0 ? static_cast<std::size_t>(entries) : 0, std::string(kMissingEntry));
}

int ListMessageLanguages(CompileSession& session) {
  MessageState& m = session.messages;
  m.language_count = 0;
  for (std::string_view code : MessageLanguageCodes()) {
    platform::InputFile file;
    if (!file.Open(session.work_dir.ResolveInput(MessageFileName(code)),
                   platform::OpenMode::kText)) {
      continue;
    }
    std::array<char, kMessageLineMax + 1> line{};
    file.ReadLine(line.data(), kMessageLineMax);
    if (!HasMessageHeader(line.data())) continue;
    m.languages[static_cast<std::size_t>(m.language_count)].Set(code);
    ++m.language_count;
  }
  return m.language_count;
}

}  // namespace rungc
