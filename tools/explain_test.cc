// Reading an error file and turning its records into lines for a person.
#include "explain.h"

#include <gtest/gtest.h>

#include <string>

namespace rungc::tool {
namespace {

TEST(ExplainErrorFile, RecordsTakeTheirFileFromTheLineBefore) {
  const ErrorFileReport report = ParseErrorFile(
      "#F#MAIN.PLC\r\n"
      "#W#NERR=1#RUNG=4#ITEM=WX1#STRG=WX1 = 5\r\n"
      "#E#NERR=9#RUNG=4#ITEM=A#B#STRG=WR1 = A#B\r\n"
      "#F#PUMP.PLC\r\n"
      "#E#NERR=1017#RUNG=1\r\n"
      "#F#MAIN.PLC\r\n"
      "#J#NERR=37#RUNG= 12 : K_0001\r\n"
      "#F#PUMP.PLC\r\n"
      "#E#NERR=5003#RUNG=17\r\n"
      "Riga N. = 7\r\n#TERR=4\r\n#TWRN=1\r\n#TOTRUNG=14\r\n#TOTMAINISTR=57\r\n#TOTSUBMISTR=3\r\n");
  ASSERT_EQ(report.records.size(), 5u);
  const std::vector<std::string> expected = {
      "MAIN.PLC, rung 4: warning 1: the line writes into the input area (its code was written "
      "all the same); item \"WX1\"; text \"WX1 = 5\"",
      "MAIN.PLC, rung 4: error 9: an operand of a function-block line is not valid; item \"A#B\"; "
      "text \"WR1 = A#B\"",
      "PUMP.PLC, rung 1: error 1017: the rung cannot be read: it begins with element 2",
      "MAIN.PLC, label pass, rung 12 of the project: error 37: a jump names a label that is never "
      "defined; name \"K_0001\"",
      "PUMP.PLC, object code, code record 17: error 5003: an operand's element lies beyond its "
      "area in the memory map",
  };
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(FormatRecord(report.records[i]), expected[i]);
  }
  EXPECT_EQ(report.files, (std::vector<std::string>{"MAIN.PLC", "PUMP.PLC"}));
  EXPECT_TRUE(report.summary.present);
  EXPECT_EQ(report.summary.rows_read, 7);
  EXPECT_EQ(FormatTotals(report.summary),
            "4 errors, 1 warning, 14 rungs (main program 57 units, subroutine area 3 units)");
}

TEST(ExplainErrorFile, LabelErrorsOfTheIfCheckNameNothing) {
  const ErrorFileReport report = ParseErrorFile(
      "#F#NoName\r\n#J#NERR=2#RUNG= 5 : many\r\n#F#A.PLC\r\n#J#NERR=1#RUNG=1 : \r\n");
  ASSERT_EQ(report.records.size(), 2u);
  EXPECT_EQ(FormatRecord(report.records[0]),
            "NoName, label pass, rung 5 of the project: error 2: an IF with more than one ELSE, "
            "or IF blocks nested more than 15 deep");
  EXPECT_EQ(FormatRecord(report.records[1]),
            "A.PLC, label pass, rung 1 of the project: error 1: an IF without its ENDIF, or an "
            "ENDIF without its IF");
}

TEST(ExplainErrorFile, UnknownNumbersAndMissingFilesStillGiveALine) {
  const ErrorFileReport report = ParseErrorFile("#E#NERR=12345#RUNG=2\n#W#NERR=7#RUNG=3");
  ASSERT_EQ(report.records.size(), 2u);
  EXPECT_EQ(FormatRecord(report.records[0]),
            "(no file), rung 2: error 12345: (no description for this number)");
  EXPECT_EQ(FormatRecord(report.records[1]),
            "(no file), rung 3: warning 7: (no description for this number)");
  EXPECT_FALSE(report.summary.present);
}

TEST(ExplainErrorFile, TotalsCountInTheSingular) {
  RunSummary one;
  one.errors = one.warnings = one.rungs = one.main_units = one.subroutine_units = 1;
  EXPECT_EQ(FormatTotals(one),
            "1 error, 1 warning, 1 rung (main program 1 unit, subroutine area 1 unit)");
}

}  // namespace
}  // namespace rungc::tool
