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

std::string Padded(std::string text, std::size_t length) {
  text.resize(length, ' ');
  return text;
}

struct ExpansionCase {
  const char* name;
  std::string row;
  std::string dump;
};

class RungExpansion : public ::testing::TestWithParam<ExpansionCase> {};

TEST_P(RungExpansion, FillsTheGridRowAsListed) {
  Bench bench;
  bench.Open(LadderSource().Row(GetParam().row));
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.Dump(), GetParam().dump);
}

INSTANTIATE_TEST_SUITE_P(
    Elements, RungExpansion,
    ::testing::Values(
        ExpansionCase{"ContactsLinesCoil", "1(X1.2) 2(R10.1) -x6 3(Y1.0)",
                      "01(X1.2) 02(R10.1) 04 04 04 04 04 04 04 03(Y1.0)"},
        ExpansionCase{"RepeatCountAddsCells", "1(X1) -x3 .x3 3(Y1)",
                      "01(X1) 04 04 04 04 05 05 05 05 03(Y1)"},
        ExpansionCase{"FlagsKeptInTheTypeByte", "1(A) !2(B) -x6 !3(Y)",
                      "01(A) 42(B) 04 04 04 04 04 04 04 43(Y)"},
        ExpansionCase{"BoxFillsSevenColumnsFillersUnlinked", "1(A) 2(B) 2(C) ^10(L1,L2,L3)",
                      "01(A) 02(B) 02(C) 8A(" + Padded("L1", 32) + Padded("L2", 32) +
                          "L3) 0A 0A 0A 0A 0A 0A"},
        ExpansionCase{"BoxWithoutTextStillPointsIntoThePool", "1(A) 2(B) 2(C) 11",
                      "01(A) 02(B) 02(C) 0B() 0B 0B 0B 0B 0B 0B"},
        ExpansionCase{"Box38", "1(A) 2(B) 2(C) 38(P,Q)",
                      "01(A) 02(B) 02(C) 26(" + Padded("P", 32) + "Q) 26 26 26 26 26 26"},
        ExpansionCase{"Element49FillsTwoColumns", "1(A) 49(B,C,D) -x5 3(Y)",
                      "01(A) 31(B     C     D) 04 04 04 04 04 04 04 03(Y)"},
        ExpansionCase{"EdgesWithoutOperand", "1(A) 17 18 -x5 3(Y)",
                      "01(A) 11 12 04 04 04 04 04 04 03(Y)"},
        ExpansionCase{"Element39PassedOver", "1(A) 39 -x7 3(Y)",
                      "01(A) 04 04 04 04 04 04 04 04 03(Y)"},
        ExpansionCase{"ElementsWithoutTextHaveNoOperand", "40 26 29 41 43 -x3 3(Y)",
                      "28 1A 1D 29 2B 04 04 04 04 03(Y)"}),
    [](const ::testing::TestParamInfo<ExpansionCase>& info) { return info.param.name; });

TEST(RungReader, LowerCaseHexDigitsReadAsUpperCase) {
  // The same row once in upper and once in lower case: "8ac000" must read as "8AC000".
  std::string upper = testing::EncodeRecord(Cell(1, {"X1"}), 0xC0) +
                      testing::EncodeRecord(Cell(10, {"A", "B", "C"}).Linked(), 0) +
                      testing::EncodeRecord(Cell(4).Times(1), 0);
  std::string lower = upper;
  for (std::size_t at : {std::size_t{0}, std::size_t{12}, std::size_t{114}}) {
    for (std::size_t i = at; i < at + 6; ++i) {
      lower[i] = static_cast<char>(std::tolower(static_cast<unsigned char>(lower[i])));
    }
  }
  ASSERT_NE(lower, upper);
  Bench a;
  a.Open(LadderSource().Raw(upper));
  Bench b;
  b.Open(LadderSource().Raw(lower));
  ASSERT_EQ(a.Read(), 0);
  ASSERT_EQ(b.Read(), 0);
  EXPECT_EQ(b.Dump(), a.Dump());
  EXPECT_EQ(b.Dump().substr(0, 12), "01(X1) 8A(A ");
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

TEST(RungReader, SkippedRungGoesWithItsContinuationRows) {
  Bench bench;
  bench.Open(LadderSource()
                 .Row("1(A) 2(B) -x6 3(Y)", RowKind::kSkipped)
                 .Row("^- 2(C) ^. .x6")
                 .Row("1(E) -x7 3(W)"));
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.Dump(), "01(E) 04 04 04 04 04 04 04 04 03(W)");
  EXPECT_EQ(bench.session().reader.line_counter, 1 + 3);
}

TEST(RungReader, SkippedRowNeverContinuesARung) {
  Bench bench;
  bench.Open(LadderSource()
                 .Row("1(A) 2(B) -x6 3(Y)")
                 .Row("^- 2(C) ^. .x6", RowKind::kSkipped)
                 .Row("1(E) -x7 3(W)"));
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.session().reader.cell_count, 10u);
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.Dump(), "01(E) 04 04 04 04 04 04 04 04 03(W)");
}

TEST(RungReader, CommentRungsNeverReachTheGrid) {
  Bench bench;
  bench.Open(LadderSource()
                 .Row("14(a comment,more)")
                 .Row("15")
                 .Row("1(A) 2(B) -x6 3(Y)")
                 .Row(". ^- 30(x,y,z) ^. .x6")  // a comment element further on drops the rung
                 .Row("1(E) -x7 3(W)"));
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.Dump(), "01(E) 04 04 04 04 04 04 04 04 03(W)");
}

TEST(RungReader, SourceWithoutRowEndRecordLosesItsLastRow) {
  Bench bench;
  bench.Open(LadderSource().Row("1(A) 2(B) -x6 3(Y)").Row("^- 2(C) ^. .x6"),
             /*end_record=*/false);
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.session().reader.cell_count, 10u);  // the continuation row was dropped
  EXPECT_TRUE(bench.session().reader.last_row_dropped);
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.kind(), 0);
  EXPECT_EQ(bench.Read(), -1);
  EXPECT_EQ(bench.session().reader.line_counter, 3);
}

TEST(RungReader, FirstRowKeptWhenTheFileEndsInIt) {
  Bench bench;
  // The last record is cut: its head is complete, its operand text is not.
  const std::string coil = testing::EncodeRecord(Cell(3, {"Y1"}), 0);
  bench.Open(LadderSource().Row("1(A) -x7").Raw(coil.substr(0, 8)), /*end_record=*/false);
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.Dump(), "01(A) 04 04 04 04 04 04 04 04 03(Y1)");
  EXPECT_FALSE(bench.session().reader.last_row_dropped);
}

TEST(RungReader, EndOfFileWithoutRungsGivesMinusOne) {
  Bench bench;
  bench.Open(LadderSource());
  EXPECT_EQ(bench.Read(), -1);
  EXPECT_EQ(bench.session().reader.line_counter, 1);
}

TEST(RungReader, LoneRowEndRecordIsARungOfElementZero) {
  Bench bench;
  bench.Open(LadderSource().Raw(testing::EncodeRecord(Cell(0), 0xFF)), /*end_record=*/false);
  EXPECT_EQ(bench.Read(), kRungUnreadable);
}

struct RefusalCase {
  const char* name;
  std::string row;
  int result;
  int kind;
};

class RungRefusal : public ::testing::TestWithParam<RefusalCase> {};

TEST_P(RungRefusal, GivesTheReaderCode) {
  Bench bench;
  bench.Open(LadderSource().Row(GetParam().row));
  EXPECT_EQ(bench.Read(), GetParam().result);
  EXPECT_EQ(bench.kind(), GetParam().kind);
}

INSTANTIATE_TEST_SUITE_P(
    Codes, RungRefusal,
    ::testing::Values(RefusalCase{"ContactFirst", "2(X1) -x8 3(Y)", 17, 2},
                      RefusalCase{"NegatedContactFirst", "!2(X1) -x8 3(Y)", 17, 2},
                      RefusalCase{"ElementZero", "0 -x8 3(Y)", 18, 0},
                      RefusalCase{"Element50", "50(ABC) -x8 3(Y)", 18, 50},
                      RefusalCase{"Element12Later", "1(A) 12 -x7 3(Y)", 18, 1},
                      RefusalCase{"Element33Later", "1(A) 33 -x7 3(Y)", 18, 1},
                      RefusalCase{"ContactLaterIsFine", "1(A) 2(B) -x6 3(Y)", 0, 1}),
    [](const ::testing::TestParamInfo<RefusalCase>& info) { return info.param.name; });

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
  source.Row(last_row);
  return source;
}

// One row of a contact, linked lines and `count` records of element 39 (6 characters each).
LadderSource LongRow(int count) {
  std::string row = "1(A) ^-x8";
  for (int i = 0; i < count; ++i) row += " 39";
  return LadderSource().Row(row);
}

struct SizeCase {
  const char* name;
  LadderSource source;
  int result;
};

class RungSizeLimit : public ::testing::TestWithParam<SizeCase> {};

TEST_P(RungSizeLimit, RungsTooLargeAreRefusedWithCode18) {
  Bench bench;
  bench.Open(GetParam().source);
  EXPECT_EQ(bench.Read(), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(
    Limits, RungSizeLimit,
    ::testing::Values(SizeCase{"ThirtyOneRows", RowsOfLines(31), 0},
                      SizeCase{"ThirtyTwoRows", RowsOfLines(32), 18},
                      // 39 boxes and an element 11: 3,784 pool characters.
                      SizeCase{"PoolJustEnough", RowsOfBoxes(19, "10(A,B,C) 11"), 0},
                      // 40 boxes: 3,880 pool characters in 4,080 of rung text.
                      SizeCase{"PoolOverflow", RowsOfBoxes(19, "10(A,B,C) 10(D,E,F)"), 18},
                      SizeCase{"TextJustEnough", LongRow(679), 0},  // 4,092 characters
                      SizeCase{"TextOverflow", LongRow(680), 18}),  // 4,098 characters
    [](const ::testing::TestParamInfo<SizeCase>& info) { return info.param.name; });

TEST(RungReader, RowThatDoesNotFitIsNotCounted) {
  Bench bench;
  std::string row = ". ^-x8";
  for (int i = 0; i < 700; ++i) row += " 39";
  bench.Open(LadderSource().Row("1(A) -x7 3(Y)").Row(row));
  EXPECT_EQ(bench.Read(), 18);
  EXPECT_EQ(bench.session().reader.line_counter, 2);
}

TEST(RungReader, OversizeRowOfTheNextRungLeavesThisRungIntact) {
  Bench bench;
  std::string row = "1(B) -x8";
  for (int i = 0; i < 700; ++i) row += " 39";
  bench.Open(LadderSource().Row("1(A) -x7 3(Y)").Row(row));
  ASSERT_EQ(bench.Read(), 0);
  EXPECT_EQ(bench.Dump(), "01(A) 04 04 04 04 04 04 04 04 03(Y)");
  EXPECT_EQ(bench.Read(), 18);
}

TEST(RungReader, ElementFlagsFollowTheElementsExpanded) {
  Bench bench;
  bench.Open(LadderSource().Row("1(A) -x8").Row("1(A) 42(B) -x7").Row("43 -x8").Row("1(A) 3(Y)"));
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
