#include "diag/messages.h"

#include <array>

#include "common/session.h"

namespace rungc {

namespace {

// The sections of the message file: name, marker, scan limit, entries of a missing section.
// The tables of `MessageState` follow this order row for row.
constexpr std::array<MessageSection, kMessageSectionCount> kMessageSectionTable = {{
    {"TITOLI", "#B01", 1, 1},      {"SCELTA", "#B02", 2, 5},       {"MENU0", "#B03", 3, 7},
    {"MENU1", "#B04", 4, 3},       {"MENU2", "#B05", 5, 2},        {"MENU3", "#B06", 6, 5},
    {"MENU4", "#B07", 7, 9},       {"MAIN_AVVISO", "#B08", 8, 54}, {"STAMPA", "#B09", 9, 32},
    {"MSG_BLOC", "#B10", 10, 18},  {"MSG_ER", "#B11", 11, 11},     {"OPZION", "#B12", 12, 6},
    {"AVVISO", "#B13", 13, 28},    {"MSG_EDT", "#B14", 14, 5},     {"MSG_DISC", "#B15", 15, 19},
    {"MSG_VP", "#B16", 16, 12},    {"MSG_MON", "#B17", 17, 6},     {"MSG_SIM", "#B18", 18, 19},
    {"MSG_STA", "#B19", 19, 13},   {"ERRPLC", "#B20", 20, 10},     {"MSG_TRA", "#B21", 21, 14},
    {"MSG_DU", "#B22", 22, 12},    {"MESSAG", "#B23", 23, 16},     {"WCMP_WARN", "#B24", 24, 2},
    {"WANA_ERRS", "#B25", 25, 33}, {"WCMP_ERRS", "#B26", 26, 72},  {"MSG_CROSS", "#B27", 27, 11},
    {"MSG_MES", "#B28", 28, 48},   {"GRAFICA", "#B29", 20, 20},
}};

constexpr std::array<std::string_view, 11> kNaroSections = {
    "TITOLI", "SCELTA",      "MENU0",  "MENU1",  "MENU2",  "MENU3",
    "MENU4",  "MAIN_AVVISO", "STAMPA", "AVVISO", "MSG_MES"};
constexpr std::array<std::string_view, 9> kEdmonSections = {"MSG_BLOC", "MSG_ER",  "OPZION",
                                                            "AVVISO",   "MSG_EDT", "MSG_DISC",
                                                            "MSG_MON",  "MSG_STA", "GRAFICA"};
constexpr std::array<std::string_view, 4> kSimbSections = {"MSG_BLOC", "AVVISO", "MSG_DISC",
                                                           "MSG_SIM"};
constexpr std::array<std::string_view, 5> kCompSections = {"MSG_TRA", "MESSAG", "WCMP_WARN",
                                                           "WANA_ERRS", "WCMP_ERRS"};
constexpr std::array<std::string_view, 2> kTrasfSections = {"AVVISO", "MSG_TRA"};
constexpr std::array<std::string_view, 2> kStaSections = {"MSG_STA", "ERRPLC"};
constexpr std::array<std::string_view, 3> kDumpSections = {"AVVISO", "MSG_STA", "MSG_DU"};
constexpr std::array<std::string_view, 2> kCrossSections = {"MSG_CROSS", "MSG_MES"};
constexpr std::array<std::string_view, 1> kTermoSections = {"TITOLI"};

// The suite's programs by module key, with the sections each loads.
constexpr std::array<ModuleKey, 9> kModuleKeyTable = {{
    {"NARO", kNaroSections},
    {"EDMON", kEdmonSections},
    {"SIMB", kSimbSections},
    {"COMP", kCompSections},
    {"TRASF", kTrasfSections},
    {"STA", kStaSections},
    {"DUMP", kDumpSections},
    {"CROSS", kCrossSections},
    {"TERMO", kTermoSections},
}};

constexpr std::array<std::string_view, kMessageLanguageCount> kLanguageCodes = {"ITA", "DEU", "FRA",
                                                                                "ING", "SPA"};

constexpr int SectionRow(std::string_view name) {
  for (std::size_t i = 0; i < kMessageSectionTable.size(); ++i) {
    if (kMessageSectionTable[i].name == name) return static_cast<int>(i);
  }
  return -1;
}

// Every section a key names is a row of the section table.
constexpr bool KeySectionsKnown() {
  for (const ModuleKey& key : kModuleKeyTable) {
    for (std::string_view name : key.sections) {
      if (SectionRow(name) < 0) return false;
    }
  }
  return true;
}
static_assert(KeySectionsKnown(), "a module key names a section missing from the section table");

// Loads one section into its table: read when its marker is found, "*****" entries otherwise.
// False for a name that has no table, which ends the loading of the key.
bool LoadMessageSection(CompileSession& session, std::string_view name) {
  const int row = FindMessageSection(name);
  if (row < 0) return false;
  const MessageSection& section = kMessageSectionTable[static_cast<std::size_t>(row)];
  MessageTable& table = session.messages.tables[static_cast<std::size_t>(row)];
  if (FindSection(session, section.marker, section.scan_limit) == 0) {
    ReadSection(session, table);
  } else {
    FillMissingSection(table, section.entries);
  }
  return true;
}

}  // namespace

std::span<const MessageSection> MessageSectionTable() {
  return kMessageSectionTable;
}
std::span<const ModuleKey> ModuleKeyTable() {
  return kModuleKeyTable;
}
std::span<const std::string_view> MessageLanguageCodes() {
  return kLanguageCodes;
}

int FindMessageSection(std::string_view name) {
  return SectionRow(name);
}

const ModuleKey* FindModuleKey(std::string_view key) {
  for (const ModuleKey& row : kModuleKeyTable) {
    if (row.key == key) return &row;
  }
  return nullptr;
}

const MessageTable* FindMessageTable(const CompileSession& session, std::string_view name) {
  const int row = FindMessageSection(name);
  return row < 0 ? nullptr : &session.messages.tables[static_cast<std::size_t>(row)];
}

int LoadModuleMessages(CompileSession& session, std::string_view key, std::string_view language) {
  if (OpenMessageFile(session, language) == 0) {
    const ModuleKey* module = FindModuleKey(key);
    if (module != nullptr) {
      for (std::string_view name : module->sections) {
        if (!LoadMessageSection(session, name)) break;
      }
    }
    session.messages.file.Close();
    return module != nullptr ? 0 : -1;
  }
  if (key == "NARO") {
    const int count = ListMessageLanguages(session);
    if (count > 0) return count;
  }
  return -1;
}

void ReleaseMessageTables(CompileSession& session) {
  auto release = [&session](std::string_view name) {
    MessageTable& table = session.messages.tables[static_cast<std::size_t>(SectionRow(name))];
    MessageTable().swap(table);
  };
  for (std::string_view name : kCompSections) release(name);
  release("MSG_DU");
}

}  // namespace rungc
