// The reader of the suite's message file "MESSAG." + language code: each program of the suite
// loads the sections it needs, by a module key, into tables of texts. A compile never loads
// them; the command-line tool does, and the driver's release step frees the compiler's tables.
//
// Message file (text, lines of at most 127 characters):
//   line 1    header; its first 35 characters are "- KORVA   1994       MSG" or the older
//             "- HALVERN 1992 RKX   MSG", padded with blanks
//   #Bnn...   a section marker (section number in two digits; the line may go on)
//   nn text   an entry: characters 0-2 hold the entry number and a separator, the text runs
//             from character 3 to the line end; entries count from 1
// A section ends at the next line that begins with '#', or at the end of the file.
#pragma once

#include <span>
#include <string_view>

#include "diag/message_state.h"

namespace rungc {

struct CompileSession;

// One row of the message section table.
struct MessageSection {
  std::string_view name;    // e.g. "WCMP_ERRS"
  std::string_view marker;  // e.g. "#B26"; compared on its 4 characters
  int scan_limit;           // section markers a search may pass over, counting from 1
  int entries;              // entries a missing section is filled with
};

// One row of the module key table: the sections a suite program loads, in loading order.
struct ModuleKey {
  std::string_view key;
  std::span<const std::string_view> sections;
};

// The 29 sections, the 9 module keys and the 5 language codes, in the suite's order.
std::span<const MessageSection> MessageSectionTable();
std::span<const ModuleKey> ModuleKeyTable();
std::span<const std::string_view> MessageLanguageCodes();

// Row of a section name in the section table (exact compare), or -1.
int FindMessageSection(std::string_view name);
// The row of a key (exact compare), or null.
const ModuleKey* FindModuleKey(std::string_view key);
// The table a section name loads into, or null for a name not in the section table.
const MessageTable* FindMessageTable(const CompileSession& session, std::string_view name);

// Opens "MESSAG." + language in the work directory and checks its header: 0 open (line 1 in the
// line buffer), -1 for an unknown language code, a missing file or a wrong header.
int OpenMessageFile(CompileSession& session, std::string_view language);
// Loads every section of `key` from the message file of `language`: 0 loaded; when the file
// cannot be opened and the key is "NARO", the number of languages available (if any); else -1.
// The console key wait of the suite's console programs returns at once here.
int LoadModuleMessages(CompileSession& session, std::string_view key, std::string_view language);
// Searches forward for a section marker: 0 found (the file stands after the marker line), -1
// not found within the scan limit or before the end of the file.
int FindSection(CompileSession& session, std::string_view marker, int scan_limit);
// Reads the entries after a found marker into `table`, replacing what it held.
void ReadSection(CompileSession& session, MessageTable& table);
// Fills `table` with `entries` texts "*****": the section is missing from the file.
void FillMissingSection(MessageTable& table, int entries);
// Lists the languages whose message file exists with a good header; gives their count.
int ListMessageLanguages(CompileSession& session);

// Frees the texts of the compiler's message tables (the five "COMP" tables and "MSG_DU").
void ReleaseMessageTables(CompileSession& session);

}  // namespace rungc
