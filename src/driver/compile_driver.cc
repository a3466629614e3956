#include "driver/compile_driver.h"

#include <array>
#include <cstdio>
#include <new>
#include <string>

#include "common/session.h"
#include "diag/messages.h"
#include "diag/report.h"
#include "driver/memory_map.h"
#include "driver/project_files.h"
#include "labels/resolve_labels.h"
#include "output/object_file.h"
#include "rungs/compile_program.h"
#include "sequencer/sequencer.h"

namespace rungc {

namespace {

std::string Format(const char* format, std::int32_t value) {
  std::array<char, 48> buf;
  std::snprintf(buf.data(), buf.size(), format, static_cast<int>(value));
  return buf.data();
}

void CloseAllFiles(CompileSession& s) {
  s.diag.listing.Close();
  s.diag.error_file.Close();
  s.driver.project_file.Close();
  s.reader.source.Close();
}

// Deletes the previous object code file of the project (base + ".cod" beside the listing) and its
// side files, so that a compile that writes none leaves none of an earlier compile behind.
void DeletePreviousObjectFiles(CompileSession& s) {
  std::string base = s.diag.listing_path.string();
  base.resize(base.size() - 3);
  platform::RemoveFile(base + "cod");
  platform::RemoveFile(base + "tmc");
  platform::RemoveFile(base + "pdc");
}

// The end-of-compile checks of the elements used: a block start (element 42) needs ordinary
// elements and a block end (element 43) somewhere in the compiles of the session.
void CheckElementsUsed(CompileSession& s) {
  if (!s.reader.element42_seen) return;
  if (!s.reader.ordinary_element_seen) ReportError(s, 68);
  if (!s.reader.element43_seen) ReportError(s, 69);
}

// Puts the listing back from its ".$$$" copy after a failed rewrite.
void RestoreListing(CompileSession& s) {
  platform::RemoveFile(s.diag.listing_path);
  platform::RenameFile(s.diag.temp_path, s.diag.listing_path);
}

// Runs the label pass in check mode, then in rewrite mode over a ".$$$" copy of the listing,
// which is restored when the rewrite fails or is interrupted.
int RunLabelPass(CompileSession& s) {
  int result = ResolveLabels(s, 0);
  if (result != 0) return result;
  platform::RemoveFile(s.diag.temp_path);
  platform::RenameFile(s.diag.listing_path, s.diag.temp_path);
  try {
    result = ResolveLabels(s, 1);
  } catch (...) {
    RestoreListing(s);
    throw;
  }
  if (result != 0) RestoreListing(s);
  platform::RemoveFile(s.diag.temp_path);
  return result;
}

std::uint32_t FinishFailed(CompileSession& s) {
  WriteRunSummary(s);
  ReleaseTables(s);
  return 4098;
}

}  // namespace

std::uint32_t CompileEntry(CompileSession& session) {
  session.driver.total_rungs = 0;
  session.driver.main_instruction_total = 0;
  session.driver.subroutine_instruction_total = 0;
  session.dispatch.instruction_counter = 0;
  session.diag.current_error = 0;
  session.diag.current_warning = 0;
  session.diag.error_count = 0;
  session.diag.warning_count = 0;
  session.reader.programs_missing_row_end.clear();
  session.labels.jumps.Empty();
  session.labels.subroutines.Empty();
  try {
    return CompileDriver(session);
  } catch (...) {
    // Only an exhausted memory can get here; the compile fails as for any other lack of memory.
    CloseAllFiles(session);
    return 4098;
  }
}

std::uint32_t CompileDriver(CompileSession& session) {
  session.driver.program_list_result = 0;
  if (ReadStatusAndProject(session) != 0) {
    CloseAllFiles(session);  // nothing stays open between calls
    return 4097;
  }
  DeletePreviousObjectFiles(session);
  const int map = LoadMemoryMap(session, "memory.ovl");
  if (map != -1) DeriveAreaSizes(session.memory);

  const int list = CompileProgramList(session);
  session.driver.program_list_result = list;
  WriteEndRecords(session);
  CheckElementsUsed(session);
  int result = list == 1 ? RunLabelPass(session) : 0;

  if (session.diag.error_count != 0) {
    WriteRunSummary(session);
    CloseAllFiles(session);
    ReleaseTables(session);
    return 4098;
  }
  if (list != 1) return FinishFailed(session);
  if (map == 0) {
    session.object.line_counter = 0;
    result = WriteObjectFile(session, session.diag.listing_path.string());
  }
  if (result != 0) {
    ReportWriterFailure(session, result);
    return FinishFailed(session);
  }
  if (session.run_sequencer) {
    ReadSequenceFile(session);
    session.sequence_result = CompileSequences(session);
    if (session.sequence_result == 2) return FinishFailed(session);
  }
  WriteRunSummary(session);
  AppendListingChecksum(session);
  ReleaseTables(session);
  return 0;
}

int CompileProgramList(CompileSession& session) {
  DriverState& d = session.driver;
  d.main_instruction_total = 0;
  d.subroutine_instruction_total = 0;
  d.total_rungs = 0;
  session.dispatch.instruction_counter = 0;
  session.dispatch.sub_area_depth = 0;
  int result = 1;
  while (result >= 1) {
    const int name = ReadProgramName(session);
    if (name == -1) return 2;
    if (name == -2) return 1;
    if (d.program_name.empty()) return -1;
    result = CompileProgram(session);
    d.total_rungs += session.dispatch.program_rung_count;
    if (d.main_instruction_total == 0) {
      d.main_instruction_total = session.dispatch.instruction_counter;
    } else {
      d.subroutine_instruction_total = session.dispatch.instruction_counter;
    }
  }
  return result;
}

void WriteEndRecords(CompileSession& session) {
  if (session.dispatch.sub_area_depth == 0) {
    std::array<char, 9> end_of_main{"L2      "};
    WriteRecord(session, 'R', end_of_main.data());
  }
  std::array<char, 9> end_of_area{"L3      "};
  WriteRecord(session, 'R', end_of_area.data());
  session.diag.listing.Close();
}

void WriteRunSummary(CompileSession& session) {
  platform::OutputFile& out = session.diag.error_file;
  out.WriteLine(Format("Riga N. = %d", session.reader.line_counter));
  out.WriteLine(Format("#TERR=%d", session.diag.error_count));
  out.WriteLine(Format("#TWRN=%d", session.diag.warning_count));
  out.WriteLine(Format("#TOTRUNG=%d", session.driver.total_rungs));
  out.WriteLine(Format("#TOTMAINISTR=%d", session.driver.main_instruction_total));
  out.WriteLine(Format("#TOTSUBMISTR=%d", session.driver.subroutine_instruction_total));
  out.Close();
}

void AppendListingChecksum(CompileSession& session) {
  platform::OutputFile listing;
  if (!listing.OpenAppend(session.diag.listing_path)) return;
  AddToListingChecksum(session, "#s#");
  std::array<char, 24> line;
  std::snprintf(line.data(), line.size(), "#s#%04X",
                static_cast<unsigned>(session.diag.listing_checksum));
  listing.WriteLine(line.data());
}

void ReportWriterFailure(CompileSession& session, int code) {
  std::string name = session.object.current_file_name;
  if (!name.empty()) name.pop_back();
  session.diag.error_file.WriteLine("#F#" + name);
  session.diag.error_file.WriteLine(Format("#E#NERR=%d", code + 5000) +
                                    Format("#RUNG=%d", session.object.line_counter));
  ++session.diag.error_count;
}

void ReleaseTables(CompileSession& session) {
  ReleaseMessageTables(session);
  CloseAllFiles(session);
}

}  // namespace rungc
