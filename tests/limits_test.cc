// Fixed sizes at their limit and one past it: every reader and buffer keeps its size, and input
// beyond it meets the refusal the compiler documents, never an overflow.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/session.h"
#include "diag/messages.h"
#include "diag/report.h"
#include "driver/memory_map.h"
#include "ladder/emit.h"
#include "output/object_file.h"
#include "output/side_files.h"
#include "rungc/session.h"
#include "support/bench.h"
#include "support/ladder_builder.h"
#include "support/reliability_fixtures.h"
#include "support/seqmsg_fixtures.h"

namespace rungc {
namespace {

using testing::Bench;
using testing::LadderSource;
using testing::SplitLines;
using testing::TempProject;

// Report item and report text keep 239 characters; the record carries no more.
TEST(Limits, ReportTextsKeep239Characters) {
  for (std::size_t length : {std::size_t{239}, std::size_t{240}, std::size_t{1000}}) {
    Bench bench;
    const std::string item(length, 'i');
    const std::string text(length, 't');
    ReportErrorText(bench.session(), 9, item, text);
    const std::vector<std::string> lines = bench.ErrorLines();
    ASSERT_EQ(lines.size(), 1u) << length;
    EXPECT_EQ(lines[0],
              "#E#NERR=9#RUNG=1#ITEM=" + std::string(239, 'i') + "#STRG=" + std::string(239, 't'))
        << length;
  }
}

// A label-pass message is cut in its name so that it keeps 239 characters with the rung number
// at its end.
TEST(Limits, LabelPassMessageKeepsTheRungNumber) {
  const std::string fixed = "JUMP  Err at Rung 0";
  const std::size_t room = 239 - fixed.size();
  for (std::size_t length : {room, room + 1, std::size_t{2000}}) {
    Bench bench;
    const std::string name = "Q" + std::string(length - 1, 'A');
    bench.WriteListing({"#F#MAIN.PLC", "#R#LJ" + name});
    EXPECT_EQ(bench.RunLabelPass(), -1);
    const std::vector<std::string> lines = bench.ErrorLines();
    ASSERT_EQ(lines.size(), 2u) << length;
    EXPECT_EQ(lines[1], "#J#NERR=37#RUNG= 0 : " + name.substr(0, room)) << length;
  }
}

// The code text holds 280 units: the 280th fits, the 281st is refused with error 16 and the walk
// stops, the text left as it was.
TEST(Limits, CodeTextHolds2240Characters) {
  testing::Bench bench;
  CompileSession& s = bench.session();
  for (int i = 0; i < 279; ++i) ASSERT_TRUE(s.ladder.code.Append("B_X_0000"));
  EXPECT_TRUE(EmitCode(s, "G_Y_0000"));
  EXPECT_EQ(s.ladder.code.position(), 2240u);
  EXPECT_EQ(s.diag.current_error, 0);
  EXPECT_FALSE(EmitCode(s, "G"));
  EXPECT_EQ(s.diag.current_error, 16);
  EXPECT_EQ(s.ladder.walk_state, kWalkStopped);
  EXPECT_EQ(s.ladder.code.position(), 2240u);
  EXPECT_EQ(s.ladder.code.data()[2240], '\0');
}

// A statement line whose units would pass the end of the code text is refused with error 16.
TEST(Limits, StatementLinePastTheCodeTextIsRefused) {
  for (int free_units : {3, 2}) {
    testing::Bench bench;
    CompileSession& s = bench.session();
    for (int i = 0; i < 280 - free_units; ++i) s.ladder.code.Append("B_X_0000");
    const testing::BoxResult r = bench.CompileCell({"WY1 = WX2"});
    // "WY1 = WX2" needs three units: a load, an empty operand unit and the store. The units that
    // fit are written; the rung's code is dropped with the error.
    EXPECT_EQ(r.reports, free_units == 3 ? std::vector<std::string>{}
                                         : std::vector<std::string>{"#E#NERR=16#RUNG=1"});
    EXPECT_EQ(s.ladder.code.position(), 2240u) << free_units;
  }
}

// The label pass reads lines of up to 4,093 characters, line end included. A jump unit that ends
// a line of that length is resolved; one character more cuts the unit at the read, and its name
// is blank (error 35).
TEST(Limits, LabelPassLinesOf4093Characters) {
  for (int fillers : {510, 511}) {
    Bench bench;
    CompileSession& s = bench.session();
    ASSERT_EQ(s.labels.jumps.Reference("LOOP1 "), 0);
    ASSERT_EQ(s.labels.jumps.Define("LOOP1 "), 0);
    std::string record = "#R#";
    for (int i = 0; i < fillers; ++i) record += "B_X_0000";
    record += "LJLOOP1_";
    bench.WriteListing({"#F#MAIN.PLC", record, "#R#LlLOOP1_"});
    if (fillers == 510) {
      ASSERT_EQ(bench.RunLabelPass(), 0);
      EXPECT_EQ(bench.ListingLines()[1].substr(record.size() - 8), "LJK00004");
    } else {
      EXPECT_EQ(bench.RunLabelPass(), -1);
      EXPECT_EQ(bench.ListingLines()[1], record);  // restored from the copy
      EXPECT_EQ(bench.ErrorLines()[1], "#J#NERR=35#RUNG= 0 : Err");
    }
  }
}

// The object writer reads listing lines of up to 1,999 characters and converts at most 249 units
// of a line: a 249th unit is converted (an unknown one fails the writer with -1), a line of 250
// units is refused whole (5) and leaves no object code file.
TEST(Limits, ObjectWriterConverts249UnitsOfA1999CharacterLine) {
  for (int units : {249, 250}) {
    Bench bench;
    bench.LoadMemoryMap(testing::SampleAreaLines());
    std::string record = "#R#";
    for (int i = 1; i < units; ++i) record += "A_R_0123";
    record += units == 249 ? "??______" : "A_R_0123";
    bench.WriteListing({"#F#MAIN.PLC", record});
    const int result = WriteObjectFile(bench.session(), bench.listing_path());
    EXPECT_EQ(result, units == 249 ? kUnknownMnemonic : kNoBufferMemory) << units;
    EXPECT_FALSE(bench.project().Exists("PLANT.cod")) << units;
  }
}

// Table lines of the side files are read up to 1,999 characters and records hold 1,000 bytes.
TEST(Limits, SideTableLinesAndRecords) {
  const std::string head = "0001 WR12   1,2,3,4,5,6,WM0001 7,";
  struct Case {
    std::size_t further_values;  // "1," each
    std::size_t padding;         // blanks before the line's last ','
    int result;
    std::size_t side_file_size;
  };
  const std::size_t fits = (1000 - 20) / 2;
  const std::size_t line_max = 1999 - 1;  // characters before the line end
  const std::size_t pad = line_max - head.size() - 2 * fits - 1;
  for (const Case& c : {
           Case{fits, 0, 0, 44 + 1000},
           Case{fits + 1, 0, 0, 44 + 1000},  // the record is full: the value is dropped
           Case{fits, pad, 0, 44 + 1000},    // 1,999 characters with the line end
           Case{fits, pad + 1, 2, 0},        // the line end is read as a line of its own
       }) {
    Bench bench;
    bench.LoadMemoryMap(testing::SampleAreaLines());
    std::string line = head;
    for (std::size_t i = 0; i < c.further_values; ++i) line += "1,";
    line += std::string(c.padding, ' ') + ",";
    bench.project().WriteFile("PLANT.tmr", testing::ThermoregulationTable({line}));
    EXPECT_EQ(WriteSideFiles(bench.session(), bench.listing_path()), c.result) << line.size();
    EXPECT_EQ(bench.project().ReadFile("PLANT.tmc").size(), c.side_file_size) << line.size();
    EXPECT_EQ(bench.project().Exists("PLANT.tmc"), c.result == 0);
  }
}

// Memory map area lines are read up to 259 characters; a longer line is read as two, and a second
// part that begins with a letter is an area line of its own.
TEST(Limits, MemoryMapLinesOf259Characters) {
  const std::string area = "WZ,WWWW,900H,0,0,16";
  const std::string fits = area + std::string(258 - area.size(), ' ');
  for (const std::string& line : {fits, fits + " Q"}) {
    Bench bench;
    bench.project().WriteMemoryMap(true, {line});
    EXPECT_EQ(LoadMemoryMap(bench.session(), "memory.ovl"), line == fits ? 0 : -1) << line.size();
  }
}

// Message file lines are read up to 127 characters: an entry of 123 characters is kept whole;
// a longer one keeps 124, and the rest of its line ends the section.
TEST(Limits, MessageFileLinesOf127Characters) {
  for (std::size_t length : {std::size_t{123}, std::size_t{124}}) {
    TempProject project;
    CompileSession s;
    s.work_dir = platform::WorkDir(project.dir());
    testing::MessageFile file;
    file.Section(1).Entry(1, std::string(length, 'm')).Entry(2, "next");
    project.WriteFile("MESSAG.ING", file.Text());
    ASSERT_EQ(LoadModuleMessages(s, "TERMO", "ING"), 0);
    const MessageTable& table = *FindMessageTable(s, "TITOLI");
    if (length == 123) {
      EXPECT_EQ(table, (MessageTable{std::string(123, 'm'), "next"}));
    } else {
      EXPECT_EQ(table, MessageTable{std::string(124, 'm')});
    }
  }
}

// A project directory of 279 - 8 characters in the status file is used whole; one character more
// shifts the status lines, and the project file is not found (4097).
TEST(Limits, StatusDirectoryLineOf279Characters) {
  const std::string dir =
      std::string(100, 'a') + "\\" + std::string(100, 'b') + "\\" + std::string(67, 'c') + "\\";
  ASSERT_EQ(dir.size(), 270u);
  for (bool longer : {false, true}) {
    TempProject p;
    const std::string used = longer ? dir.substr(0, 269) + "cc\\" : dir;
    std::string host = used;
    for (char& c : host) c = c == '\\' ? '/' : c;
    p.WriteFile(host + "PLANT.PRO",
                std::string(testing::kProjectHeaderLine) + "\r\nMAIN.PLC\r\n \r\n");
    p.WriteLadder(host + "MAIN.PLC", LadderSource());
    p.WriteFile("status.kpx", testing::StatusText("PRJDIR= " + used, "PROJ=PLANT.PRO "));
    const testing::TreeSnapshot before = testing::SnapshotTree(p.dir());
    Session session;
    EXPECT_EQ(session.Compile(p.dir()), longer ? 4097u : 0u);
    EXPECT_EQ(p.Exists(host + "PLANT.LII"), !longer);
    if (longer) {
      EXPECT_EQ(session.state().diag.current_error, 55);
      EXPECT_TRUE(testing::TreeChanges(before, testing::SnapshotTree(p.dir())).empty());
    }
  }
}

// Project file lines are read up to 259 characters: a program line of that length names its
// program; one blank more leaves a bare line end as the next line, an empty name (4098).
TEST(Limits, ProjectFileLinesOf259Characters) {
  for (std::size_t blanks : {std::size_t{250}, std::size_t{251}}) {
    TempProject p;
    p.WriteStatus();
    p.WriteLadder("MAIN.PLC", LadderSource());
    p.WriteProject({"MAIN.PLC" + std::string(blanks, ' ')});
    Session session;
    EXPECT_EQ(session.Compile(p.dir()), blanks == 250 ? 0u : 4098u) << blanks;
    EXPECT_EQ(SplitLines(p.ReadFile("PLANT.LII"))[1], "#F#MAIN.PLC");
  }
}

// A rung fills the 2,240 characters of the code text with 280 units (three contacts, the skip
// unit, 275 statement units and the block end) in 31 rows; one unit more is error 16 and the
// next rung still compiles; a 32nd row makes the rung unreadable (1018) and ends the program.
TEST(Limits, RungsAtTheCodeTextAndGridLimits) {
  struct Case {
    int rows;  // continuation rows
    std::string_view last_line;
    std::uint32_t result;
    std::vector<std::string> errors;  // the error file's lines before its summary
    std::size_t records;              // rung records in the listing
  };
  const Case cases[] = {
      {30, "Y1.0 = 1", kCompileOk, {"#F#MAIN.PLC"}, 2},
      {30, "WY1 = WX2", kCompileFailed, {"#F#MAIN.PLC", "#E#NERR=16#RUNG=1"}, 1},
      {31, "Y1.0 = 1", kCompileFailed, {"#F#MAIN.PLC", "#E#NERR=1018#RUNG=1"}, 0},
  };
  for (const Case& c : cases) {
    TempProject p;
    p.WriteSimpleProject({{"MAIN.PLC", testing::BoxRung(c.rows, c.last_line)}});
    p.WriteMemoryMap(false, {});
    Session session;
    EXPECT_EQ(session.Compile(p.dir()), c.result) << c.rows << c.last_line;
    const std::vector<std::string> errors = SplitLines(p.ReadFile("PLANT.ERR"));
    EXPECT_EQ(std::vector<std::string>(errors.begin(), errors.end() - 6), c.errors) << c.rows;
    std::vector<std::string> records;
    for (const std::string& line : SplitLines(p.ReadFile("PLANT.LII"))) {
      if (line.rfind("#R#", 0) == 0 && line.rfind("#R#L", 0) != 0) records.push_back(line);
    }
    ASSERT_EQ(records.size(), c.records) << c.rows << c.last_line;
    if (c.result == kCompileOk) {
      EXPECT_EQ(records[0].size(), 3u + 2240u);
    }
  }
}

}  // namespace
}  // namespace rungc
