// The test bench: a compile session working in a temporary project with its listing "PLANT.LII"
// and error file "PLANT.ERR" open, as the driver leaves them before the programs. Each step of a
// compile can be run on it alone (read a rung, compile a rung, a box cell, a program, the label
// pass, the object writer) and the output files read back. Also the whole-compile helpers: the
// example project, the tool run as a process, and the text forms of code units and object bytes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/session.h"
#include "platform/keyboard.h"
#include "support/ladder_builder.h"

namespace rungc::testing {

// The raw code text a box cell left and the lines of the error file.
struct BoxResult {
  std::string code;
  Lines reports;
};

class Bench {
 public:
  Bench();
  ~Bench();
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;

  CompileSession& session() { return *session_; }
  TempProject& project() { return project_; }
  // The listing path as the driver hands it to the object writer.
  std::string listing_path() const { return session_->diag.listing_path.string(); }

  // Close the file and give its lines (the listing without its header).
  Lines ErrorLines();
  Lines ListingLines();

  // Writes the source as "MAIN.PLC" and opens it for the rung reader (line counter 1).
  void Open(const LadderSource& source, bool end_record = true);
  void OpenRaw(std::string_view file_text);
  // Reads the next rung; `kind()` holds its kind afterwards, `Dump()` its grid as `DumpGrid`
  // writes it.
  int Read();
  int kind() const { return kind_; }
  std::string Dump() const;
  // Reads one rung of these rows (10 cells a row) without validating it and clears what the rung
  // loop clears before a rung, ready for the network compiler.
  void LoadRung(const Lines& rows);
  void LoadRung(const std::vector<std::vector<Cell>>& rows);
  // Writes a program source and compiles it with the rung loop alone, as the driver would.
  int CompileProgram(std::string_view name, const LadderSource& source, bool end_record = true);

  // Compiles a cell of type 38 (head, 2 lines) or 10 (continuation, 3 lines) holding `lines`
  // (each padded to 32 characters) in column 0 of the grid.
  BoxResult CompileCell(const Lines& lines, int type = 38);
  // Compiles a comparison contact with the fields a, op and b (6 characters each).
  BoxResult CompileComparison(std::string_view a, std::string_view op, std::string_view b);

  // Replaces the listing with the header and these lines (the listing file is closed first).
  void WriteListing(const Lines& lines);
  // Writes "memory.ovl" (asking for object code) with these area lines and loads it.
  void LoadMemoryMap(const Lines& area_lines);
  // Runs the label pass as the compile does: check mode, then rewrite mode over the ".$$$" copy,
  // which is restored when the rewrite fails. Gives the last mode's result.
  int RunLabelPass();

 private:
  void ReadRungOf(const LadderSource& source, std::size_t rows);
  BoxResult FinishBox();

  TempProject project_;
  std::unique_ptr<CompileSession> session_;
  int kind_ = 0;
  std::string cell_text_;
};

// Box lines compiled alone. Report notation: "E9", "E16:HX", "W1:WX1" (kind, number and item)
// for a record of rung 1 whose text is the line.
BoxResult CompileBoxLine(std::string_view line);
std::string Record(std::string_view report, std::string_view text);
// One row of a statement table: a source line, the code it gives in `DumpUnits` form and its
// reports in order. `units` is kAnyCode where an error leaves a partly written code text that
// the rung compiler drops anyway.
inline constexpr std::string_view kAnyCode = "?";
struct LineCase {
  std::string_view line;
  std::string_view units;
  std::vector<std::string_view> reports;
};
void ExpectLine(const LineCase& row);

// Code units as text: each unit without its trailing blanks, blanks inside shown as '·', NULs as
// '~', units separated by one blank. "DX001.2 " "M K_0064" gives "DX001.2 M·K_0064".
std::string DumpUnits(std::string_view code);
// The reverse: units from their dump, each padded with blanks to 8 characters.
std::string UnitsFromDump(std::string_view dump);
// Bytes as a compact hexadecimal dump, "02 08 14 02".
std::string HexBytes(std::string_view bytes);

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

// Whole compiles through the public session.
//
// Writes a project of one program, MAIN.PLC, and compiles it.
std::uint32_t CompileMain(const TempProject& p, const LadderSource& source);
// The bundled example project and a copy of it in the project's folder.
std::filesystem::path ExampleDir();
void CopyExample(const TempProject& p);

struct ToolRun {
  int status = -1;  // the exit status, -1 when the tool did not exit normally
  std::string out;
  std::string err;
};
// Runs the rungc tool with `args` in the directory `cwd` and collects its output.
ToolRun RunTool(const Lines& args, const std::filesystem::path& cwd);

}  // namespace rungc::testing
