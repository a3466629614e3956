// The rung reader on hand-built sources: expansions, rungs that are passed over, rows that continue
// a rung or begin the next, the end of the file, and the refusals.
#include "rungs/rung_reader.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <vector>

#include "support/bench.h"

namespace rungc {
namespace {

using testing::Bench;
using testing::Cell;
using testing::LadderSource;
using testing::RowKind;
using testing::Rows;

std::string Padded(std::string text, std::size_t length) {
  text.resize(length, ' ');
  return text;
}

TEST(RungReader, ExpandsEachRecordIntoItsCells) {
  const std::pair<std::string, std::string> cases[] = {
      {"1(X1.2) 2(R10.1) -x6 3(Y1.0)", "01(X1.2) 02(R10.1) 04 04 04 04 04 04 04 03(Y1.0)"},
      {"1(X1) -x3 .x3 3(Y1)", "01(X1) 04 04 04 04 05 05 05 05 03(Y1)"},    // repeat counts
      {"1(A) !2(B) -x6 !3(Y)", "01(A) 42(B) 04 04 04 04 04 04 04 43(Y)"},  // flags kept
      // A box fills seven columns, the fillers unlinked; without text it still points into the
      // pool.
      {"1(A) 2(B) 2(C) ^10(L1,L2,L3)",
       "01(A) 02(B) 02(C) 8A(" + Padded("L1", 32) + Padded("L2", 32) + "L3) 0A 0A 0A 0A 0A 0A"},
      {"1(A) 2(B) 2(C) 11", "01(A) 02(B) 02(C) 0B() 0B 0B 0B 0B 0B 0B"},
      {"1(A) 2(B) 2(C) 38(P,Q)",
       "01(A) 02(B) 02(C) 26(" + Padded("P", 32) + "Q) 26 26 26 26 26 26"},
      {"1(A) 49(B,C,D) -x5 3(Y)", "01(A) 31(B     C     D) 04 04 04 04 04 04 04 03(Y)"},
      {"1(A) 17 18 -x5 3(Y)", "01(A) 11 12 04 04 04 04 04 04 03(Y)"},
      {"1(A) 39 -x7 3(Y)", "01(A) 04 04 04 04 04 04 04 04 03(Y)"},  // element 39 passed over
      {"40 26 29 41 43 -x3 3(Y)", "28 1A 1D 29 2B 04 04 04 04 03(Y)"},
  };
  for (const auto& [row, dump] : cases) {
    Bench bench;
    bench.Open(Rows({row}));
    ASSERT_EQ(bench.Read(), 0) << row;
    EXPECT_EQ(bench.Dump(), dump);
  }
}

TEST(RungReader, LowerCaseHexDigitsReadAsUpperCase) {
  // "8ac000" must read as "8AC000": the record heads of the row, lower-cased.
  std::string records = LadderSource().Row("1(X1) ^10(A,B,C) -x1").records();
  for (char& c : records) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  Bench bench;
  bench.Open(LadderSource().Raw(records));
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.Dump().substr(0, 12), "01(x1) 8A(a ");
}

TEST(RungReader, RowsContinueARungOnlyThroughLinksAfterTheHeader) {
  Bench bench;
  bench.Open(LadderSource()
                 .Row("1(A) 2(B) -x6 3(Y)")
                 .Row("^- 2(C) ^. .x6")   // a linked record after the header: continues
                 .Row(". . . 10(P,Q,R)")  // element 10 after the header: continues
                 .Row("^1(D) -x7 3(Z)")   // only the header is linked: a new rung
                 .Row("1(E) -x7 3(W)"));  // nothing linked: a new rung
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.session().reader.cell_count, 30u);
  EXPECT_EQ(bench.kind(), 1);
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.Dump(), "81(D) 04 04 04 04 04 04 04 04 03(Z)");
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.Dump(), "01(E) 04 04 04 04 04 04 04 04 03(W)");
  ASSERT_EQ(bench.Read(), 0);  // the end of the file while a rung's text is still held
  EXPECT_EQ(bench.kind(), 0);
  EXPECT_EQ(bench.Dump(), "");
  EXPECT_EQ(bench.session().reader.grid[0].type, 0);
  EXPECT_EQ(bench.Read(), -1);
  EXPECT_EQ(bench.session().reader.line_counter, 1 + 5 + 1);
  EXPECT_FALSE(bench.session().reader.last_row_dropped);
}

// A skipped rung goes with its continuation rows; a skipped row never continues a rung; comment
// rungs, and rungs with a comment element further on, never reach the grid.
TEST(RungReader, SkippedAndCommentRungsAreDropped) {
  Bench skipped;
  skipped.Open(LadderSource()
                   .Row("1(A) 2(B) -x6 3(Y)", RowKind::kSkipped)
                   .Row("^- 2(C) ^. .x6")
                   .Row("1(E) -x7 3(W)"));
  ASSERT_EQ(skipped.Read(), 0);
  EXPECT_EQ(skipped.Dump(), "01(E) 04 04 04 04 04 04 04 04 03(W)");
  EXPECT_EQ(skipped.session().reader.line_counter, 1 + 3);

  Bench skipped_row;
  skipped_row.Open(LadderSource()
                       .Row("1(A) 2(B) -x6 3(Y)")
                       .Row("^- 2(C) ^. .x6", RowKind::kSkipped)
                       .Row("1(E) -x7 3(W)"));
  ASSERT_EQ(skipped_row.Read(), 0);
  EXPECT_EQ(skipped_row.session().reader.cell_count, 10u);
  ASSERT_EQ(skipped_row.Read(), 0);
  EXPECT_EQ(skipped_row.Dump(), "01(E) 04 04 04 04 04 04 04 04 03(W)");

  Bench comments;
  comments.Open(Rows({"14(a comment,more)", "15", "1(A) 2(B) -x6 3(Y)", ". ^- 30(x,y,z) ^. .x6",
                      "1(E) -x7 3(W)"}));
  ASSERT_EQ(comments.Read(), 0);
  EXPECT_EQ(comments.Dump(), "01(E) 04 04 04 04 04 04 04 04 03(W)");
}

TEST(RungReader, ASourceWithoutRowEndRecordLosesItsLastRow) {
  Bench bench;
  bench.Open(Rows({"1(A) 2(B) -x6 3(Y)", "^- 2(C) ^. .x6"}), /*end_record=*/false);
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.session().reader.cell_count, 10u);  // the continuation row was dropped
  EXPECT_TRUE(bench.session().reader.last_row_dropped);
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.kind(), 0);
  EXPECT_EQ(bench.Read(), -1);
  EXPECT_EQ(bench.session().reader.line_counter, 3);

  // A first row is kept when the file ends in it: the last record's head is complete, its
  // operand text is not.
  Bench first;
  const std::string coil = testing::EncodeRecord(Cell(3, {"Y1"}), 0);
  first.Open(LadderSource().Row("1(A) -x7").Raw(coil.substr(0, 8)), /*end_record=*/false);
  ASSERT_EQ(first.Read(), 0);
  EXPECT_EQ(first.Dump(), "01(A) 04 04 04 04 04 04 04 04 03(Y1)");
  EXPECT_FALSE(first.session().reader.last_row_dropped);
}

TEST(RungReader, EndOfFileAndLoneRowEnd) {
  Bench empty;
  empty.Open(LadderSource());
  EXPECT_EQ(empty.Read(), -1);
  EXPECT_EQ(empty.session().reader.line_counter, 1);
  Bench lone;  // a lone row-end record is a rung of element 0
  lone.Open(LadderSource().Raw(testing::EncodeRecord(Cell(0), 0xFF)), /*end_record=*/false);
  EXPECT_EQ(lone.Read(), kRungUnreadable);
}

// A rung of `rows` rows of 10 cells, each row after the first linked to the one above.
LadderSource RowsOfLines(int rows) {
  LadderSource source;
  source.Row("1(A) -x7 3(Y)");
  for (int i = 1; i < rows; ++i) source.Row("- ^-x8");
  return source;
}

// A rung of boxes: `rows` rows of two boxes of 96 characters each (97 in the pool).
LadderSource RowsOfBoxes(int rows, std::string_view last_row) {
  LadderSource source;
  for (int i = 0; i < rows; ++i) source.Row("10(A,B,C) 10(D,E,F)");
  return source.Row(last_row);
}

// One row of `lead` and `count` records of element 39 (6 characters each).
std::string LongRow(std::string lead, int count) {
  for (int i = 0; i < count; ++i) lead += " 39";
  return lead;
}

TEST(RungReader, RefusesRungsItCannotReadWithTheirCode) {
  struct Case {
    LadderSource source;
    int result;
    int kind;  // -1: not looked at
  };
  const Case cases[] = {
      {Rows({"2(X1) -x8 3(Y)"}), 17, 2},  // a contact first
      {Rows({"0 -x8 3(Y)"}), 18, 0},
      {Rows({"50(ABC) -x8 3(Y)"}), 18, 50},
      {Rows({"1(A) 12 -x7 3(Y)"}), 18, 1},
      // The limits: 31 rows, a pool of 3,784 characters (39 boxes and an element 11) but not
      // 3,880 (40 boxes), 4,092 characters of rung text but not 4,098.
      {RowsOfLines(31), 0, -1},
      {RowsOfLines(32), 18, -1},
      {RowsOfBoxes(19, "10(A,B,C) 11"), 0, -1},
      {RowsOfBoxes(19, "10(A,B,C) 10(D,E,F)"), 18, -1},
      {Rows({LongRow("1(A) ^-x8", 679)}), 0, -1},
      {Rows({LongRow("1(A) ^-x8", 680)}), 18, -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.source.records().substr(0, 24));
    Bench bench;
    bench.Open(c.source);
    EXPECT_EQ(bench.Read(), c.result);
    if (c.kind >= 0) {
      EXPECT_EQ(bench.kind(), c.kind);
    }
  }
}

// A row that does not fit is not counted; when it begins the next rung, the rung before is read
// whole first.
TEST(RungReader, AnOversizeRowIsRefusedOnItsOwn) {
  Bench continuing;
  continuing.Open(Rows({"1(A) -x7 3(Y)", LongRow(". ^-x8", 700)}));
  EXPECT_EQ(continuing.Read(), 18);
  EXPECT_EQ(continuing.session().reader.line_counter, 2);
  Bench next;
  next.Open(Rows({"1(A) -x7 3(Y)", LongRow("1(B) -x8", 700)}));
  ASSERT_EQ(next.Read(), 0);
  EXPECT_EQ(next.Dump(), "01(A) 04 04 04 04 04 04 04 04 03(Y)");
  EXPECT_EQ(next.Read(), 18);
}

TEST(RungReader, ElementFlagsFollowTheElementsExpanded) {
  Bench bench;
  bench.Open(Rows({"1(A) -x8", "1(A) 42(B) -x7", "43 -x8", "1(A) 3(Y)"}));
  const RungReaderState& r = bench.session().reader;
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_FALSE(r.ordinary_element_seen || r.element42_seen || r.element43_seen);
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_TRUE(r.element42_seen);
  EXPECT_FALSE(r.ordinary_element_seen || r.element43_seen);
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_TRUE(r.element43_seen);
  EXPECT_FALSE(r.ordinary_element_seen);
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_TRUE(r.ordinary_element_seen);
}

}  // namespace
}  // namespace rungc
