// Test benches for the rung reader, the validation and the rung loop: a compile session that
// reads ladder sources of a temporary project, with the listing and error files open.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/session.h"
#include "platform/keyboard.h"
#include "support/ladder_builder.h"

namespace rungc::testing {

// A session in a temporary project whose listing "PLANT.LII" and error file are open, so that
// rungs can be read, dispatched and reported as in a compile.
class RungBench {
 public:
  RungBench();

  CompileSession& session() { return *session_; }
  const TempProject& project() const { return project_; }

  // Writes the source and opens it for the rung reader (element table rebuilt, line counter 1).
  void Open(const LadderSource& source, bool end_record = true);
  // The same for a file given whole, header included.
  void OpenRaw(std::string_view file_text);
  // Reads the next rung; `kind` holds its kind afterwards.
  int Read();
  int kind() const { return kind_; }
  // The grid of the last rung read, as `DumpGrid` writes it.
  std::string Dump() const;

  // Writes a program source and compiles it with the rung loop alone, as the driver would.
  int CompileProgram(std::string_view name, const LadderSource& source, bool end_record = true);

  // Closes the output files and gives their lines (the listing without its header line).
  std::vector<std::string> ErrorLines();
  std::vector<std::string> ListingLines();

 private:
  void CloseOutputs();

  TempProject project_;
  std::unique_ptr<CompileSession> session_;
  int kind_ = 0;
};

// Reads the first rung of a source of these rows (row notation) and validates its grid.
int ValidateRows(const std::vector<std::string>& rows);

// A keyboard whose presses are scripted per poll: `presses[n]` holds the codes waiting at the
// n-th `KeyWaiting` (none when it is empty or past the script).
class ScriptedKeyboard final : public platform::Keyboard {
 public:
  explicit ScriptedKeyboard(std::vector<std::vector<int>> presses) : presses_(std::move(presses)) {}
  bool KeyWaiting() override;
  int ReadKey() override;
  int keys_read() const { return keys_read_; }

 private:
  std::vector<std::vector<int>> presses_;
  std::size_t poll_ = 0;
  std::vector<int> waiting_;
  int keys_read_ = 0;
};

// The checksum line that closes a listing of these lines (header first): every line after the
// header with its line end, then "#s#", summed as signed bytes.
std::string ListingChecksumLine(const std::vector<std::string>& lines);

// The six summary lines of the error file.
std::vector<std::string> SummaryLines(int riga, int errors, int warnings, int rungs, int main_total,
                                      int sub_total);

}  // namespace rungc::testing
