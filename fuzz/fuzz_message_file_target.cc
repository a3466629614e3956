// The message file: byte 0 chooses the module key (bits 0-3; 9 and above name no key) and the
// language (bits 4-6; only "ING" has a file, the others take the path that lists the languages);
// the rest is the file "MESSAG.ING". The compiler's tables are released after every load.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/session.h"
#include "diag/messages.h"
#include "fuzz_project.h"

namespace {

constexpr std::array<std::string_view, 10> kKeys = {"NARO", "EDMON", "SIMB",  "COMP",  "TRASF",
                                                    "STA",  "DUMP",  "CROSS", "TERMO", "NONE"};
constexpr std::array<std::string_view, 6> kLanguages = {"ING", "ITA", "DEU", "FRA", "SPA", "XX"};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return -1;
  rungc::CompileSession& s = rungc::fuzz::PassSession();
  const std::string_view key = kKeys[(data[0] & 0x0F) % kKeys.size()];
  const std::string_view language = kLanguages[((data[0] >> 4) & 0x07) % kLanguages.size()];
  rungc::fuzz::Project().Write("MESSAG.ING",
                               std::string_view(reinterpret_cast<const char*>(data + 1), size - 1));
  s.messages.line.fill('\0');
  rungc::LoadModuleMessages(s, key, language);
  rungc::ReleaseMessageTables(s);
  // The tables of the other keys are kept by the loader; empty them so that runs stay independent.
  for (rungc::MessageTable& table : s.messages.tables) rungc::MessageTable().swap(table);
  return 0;
}
