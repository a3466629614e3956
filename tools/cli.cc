#include "cli.h"

#include <array>
#include <cctype>

#include "common/session.h"
#include "diag/messages.h"
#include "explain.h"
#include "rungc/session.h"

#ifndef RUNGC_VERSION
#error "RUNGC_VERSION must be defined by the build"
#endif

namespace rungc::tool {

namespace {

constexpr std::string_view kUsage =
    "usage: rungc compile [--sequences] [DIR]\n"
    "       rungc messages [--lang CODE] [KEY]\n"
    "       rungc --help | --version\n";

constexpr std::string_view kHelp =
    "rungc compiles the ladder-diagram programs of a PLC project into a listing, an error file\n"
    "and object code, and explains the errors it finds.\n"
    "\n"
    "usage: rungc compile [--sequences] [DIR]\n"
    "       rungc messages [--lang CODE] [KEY]\n"
    "       rungc --help | --version\n"
    "\n"
    "compile     Runs one compile in DIR (default: the current directory), which holds\n"
    "            status.kpx (naming the project directory and the project file) and\n"
    "            memory.ovl. The listing (.LII), the error file (.ERR) and the object code\n"
    "            (.cod) are written beside the project file. Every error and warning of the\n"
    "            error file is then explained on standard error.\n"
    "            --sequences  also compile the project's sequence file into the listing\n"
    "            Ctrl-C stops the program being compiled (error 47), as the Escape key does.\n"
    "messages    Shows the texts of the suite's message file for a module.\n"
    "            --lang CODE  the language: ITA, DEU, FRA, ING or SPA (default: the\n"
    "                         language of the status file)\n"
    "            KEY          NARO, EDMON, SIMB, COMP, TRASF, STA, DUMP, CROSS or TERMO\n"
    "                         (default: COMP, the compiler's own texts)\n"
    "\n"
    "exit status: 0 compiled, 1 the compile failed (result 4098), 2 the project could not be\n"
    "used (result 4097: status, project, listing or error file), 64 a wrong command line.\n";

constexpr std::array<std::string_view, 5> kLanguages = {"ITA", "DEU", "FRA", "ING", "SPA"};
constexpr std::array<std::string_view, 9> kModuleKeys = {"NARO", "EDMON", "SIMB",  "COMP", "TRASF",
                                                         "STA",  "DUMP",  "CROSS", "TERMO"};

template <std::size_t N>
bool OneOf(const std::array<std::string_view, N>& names, std::string_view name) {
  for (std::string_view known : names) {
    if (known == name) return true;
  }
  return false;
}

CommandLine UsageError(std::string problem) {
  CommandLine line;
  line.command = Command::kUsageError;
  line.problem = std::move(problem);
  return line;
}

bool IsHelp(std::string_view arg) {
  return arg == "--help" || arg == "-h";
}

// compile [--sequences] [DIR]; options may stand before or after DIR, "--" ends them.
CommandLine ParseCompile(const std::vector<std::string_view>& args) {
  CommandLine line;
  line.command = Command::kCompile;
  bool have_directory = false;
  bool options_end = false;
  for (std::size_t i = 1; i < args.size(); ++i) {
    const std::string_view arg = args[i];
    if (!options_end && arg == "--") {
      options_end = true;
    } else if (!options_end && IsHelp(arg)) {
      line.command = Command::kHelp;
      return line;
    } else if (!options_end && arg == "--sequences") {
      line.run_sequences = true;
    } else if (!options_end && arg.size() > 1 && arg[0] == '-') {
      return UsageError("compile: unknown option " + std::string(arg));
    } else if (have_directory) {
      return UsageError("compile: more than one directory given");
    } else {
      line.directory = std::string(arg);
      have_directory = true;
    }
  }
  return line;
}

// messages [--lang CODE] [KEY]
CommandLine ParseMessages(const std::vector<std::string_view>& args) {
  CommandLine line;
  line.command = Command::kMessages;
  for (std::size_t i = 1; i < args.size(); ++i) {
    const std::string_view arg = args[i];
    if (IsHelp(arg)) {
      line.command = Command::kHelp;
      return line;
    }
    if (arg == "--lang" || arg.substr(0, 7) == "--lang=") {
      std::string code;
      if (arg == "--lang") {
        if (++i == args.size()) return UsageError("messages: --lang needs a language code");
        code = std::string(args[i]);
      } else {
        code = std::string(arg.substr(7));
      }
      for (char& c : code) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
      if (!OneOf(kLanguages, code)) {
        return UsageError("messages: unknown language " + code + " (ITA, DEU, FRA, ING or SPA)");
      }
      line.language = code;
    } else if (arg.size() > 1 && arg[0] == '-') {
      return UsageError("messages: unknown option " + std::string(arg));
    } else if (!line.key.empty()) {
      return UsageError("messages: more than one key given");
    } else if (!OneOf(kModuleKeys, arg)) {
      return UsageError("messages: unknown key " + std::string(arg));
    } else {
      line.key = std::string(arg);
    }
  }
  return line;
}

int RunCompile(const CommandLine& command_line, std::FILE* err,
               const std::function<bool()>& escape_requested) {
  Session session;
  CompileOptions options;
  options.run_sequences = command_line.run_sequences;
  options.escape_requested = escape_requested;
  const std::uint32_t result = session.Compile(command_line.directory, options);
  ExplainCompile(session, result, command_line.run_sequences, err);
  return ExitStatusForResult(result);
}

// Prints every section of a loaded module key: its marker and name, then one line per entry.
void PrintModuleMessages(const CompileSession& session, const ModuleKey& key, std::FILE* out) {
  for (std::string_view name : key.sections) {
    const int row = FindMessageSection(name);
    const MessageTable* table = FindMessageTable(session, name);
    if (row < 0 || table == nullptr) continue;
    const MessageSection& section = MessageSectionTable()[static_cast<std::size_t>(row)];
    std::fprintf(out, "%.*s %.*s\n", static_cast<int>(section.marker.size()), section.marker.data(),
                 static_cast<int>(name.size()), name.data());
    for (std::size_t i = 0; i < table->size(); ++i) {
      std::fprintf(out, "%4zu  %s\n", i + 1, (*table)[i].c_str());
    }
  }
}

// The languages whose message file is in the current directory, as one line of text.
std::string AvailableLanguages(CompileSession& session) {
  const int count = ListMessageLanguages(session);
  std::string list;
  for (int i = 0; i < count; ++i) {
    if (!list.empty()) list += ", ";
    list += session.messages.languages[static_cast<std::size_t>(i)].view();
  }
  return list;
}

// messages: loads a module key's sections from "MESSAG." + language in the current directory and
// prints them; without a usable file, lists the languages that have one.
int RunMessages(const CommandLine& command_line, std::FILE* out, std::FILE* err) {
  CompileSession session;
  session.work_dir = platform::WorkDir(".");
  const std::string key = command_line.key.empty() ? "COMP" : command_line.key;
  std::string language = command_line.language;
  const std::string available = AvailableLanguages(session);
  if (language.empty()) language = available.substr(0, available.find(','));
  if (!language.empty() && LoadModuleMessages(session, key, language) == 0) {
    PrintModuleMessages(session, *FindModuleKey(key), out);
    return kExitOk;
  }
  if (available.empty()) {
    std::fputs(
        "rungc: messages: no message file (MESSAG.ITA, .DEU, .FRA, .ING or .SPA) with a "
        "good header in this directory\n",
        err);
  } else {
    std::fprintf(err, "rungc: messages: no usable MESSAG.%s here; languages available: %s\n",
                 language.c_str(), available.c_str());
  }
  return kExitFailed;
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string_view>& args) {
  if (args.empty()) return UsageError("no command given");
  const std::string_view command = args[0];
  if (IsHelp(command) || command == "help") {
    CommandLine line;
    line.command = Command::kHelp;
    return line;
  }
  if (command == "--version") {
    CommandLine line;
    line.command = args.size() == 1 ? Command::kVersion : Command::kUsageError;
    if (args.size() != 1) line.problem = "--version takes no arguments";
    return line;
  }
  if (command == "compile") return ParseCompile(args);
  if (command == "messages") return ParseMessages(args);
  return UsageError("unknown command " + std::string(command));
}

int RunCommandLine(const CommandLine& command_line, std::FILE* out, std::FILE* err,
                   const std::function<bool()>& escape_requested) {
  switch (command_line.command) {
    case Command::kHelp:
      std::fputs(kHelp.data(), out);
      return kExitOk;
    case Command::kVersion:
      std::fputs("rungc " RUNGC_VERSION "\n", out);
      return kExitOk;
    case Command::kCompile:
      return RunCompile(command_line, err, escape_requested);
    case Command::kMessages:
      return RunMessages(command_line, out, err);
    case Command::kUsageError:
      break;
  }
  std::fprintf(err, "rungc: %s\n%sTry 'rungc --help' for more information.\n",
               command_line.problem.c_str(), kUsage.data());
  return kExitUsage;
}

int ExitStatusForResult(unsigned result) {
  switch (result) {
    case kCompileOk:
      return kExitOk;
    case kCompileFailed:
      return kExitFailed;
    default:
      return kExitUnusable;
  }
}

}  // namespace rungc::tool
