// The name comparison and the two label tables: define and reference with their errors, full
// tables, and the names that assign and resolve write for the label pass.
#include "labels/label_table.h"

#include <gtest/gtest.h>

#include <string>

namespace rungc {
namespace {

struct NamesCase {
  std::string a;
  std::string b;
  std::size_t limit;
  bool equal;
};

class NamesEqualTest : public ::testing::TestWithParam<NamesCase> {};

TEST_P(NamesEqualTest, ComparesBothWays) {
  const NamesCase& c = GetParam();
  EXPECT_EQ(NamesEqual(c.a, c.b, c.limit), c.equal) << '"' << c.a << "\" / \"" << c.b << '"';
  EXPECT_EQ(NamesEqual(c.b, c.a, c.limit), c.equal) << '"' << c.b << "\" / \"" << c.a << '"';
}

INSTANTIATE_TEST_SUITE_P(
    Rule, NamesEqualTest,
    ::testing::Values(NamesCase{"LOOP1", "LOOP1", 256, true},
                      NamesCase{"loop1", "LOOP1", 256, true},
                      NamesCase{"LOOP1", "LOOP2", 256, false}, NamesCase{"AB", "ABC", 256, false},
                      NamesCase{"  AB", "AB", 256, true},       // leading blanks skipped
                      NamesCase{"AB CD", "AB", 256, true},      // a blank ends a name
                      NamesCase{"AB\tX", "AB\nY", 256, true},   // so do tab and line feed
                      NamesCase{"AB_", "AB", 256, true},        // '_' against an ended name
                      NamesCase{"LOOP1_", "LOOP1", 256, true},  // a name field of the listing
                      NamesCase{"A_B", "A", 256, true}, NamesCase{"A_B", "AXB", 256, false},
                      NamesCase{"", "", 256, true}, NamesCase{"", "A", 256, false},
                      NamesCase{"ABCD", "ABXY", 2, true}, NamesCase{"ABCD", "ABXY", 3, false}));

// The two tables differ only in their error numbers.
struct TableKind {
  const char* name;
  LabelErrors errors;
};

class LabelTableTest : public ::testing::TestWithParam<TableKind> {
 protected:
  LabelTable table_{GetParam().errors};
  const LabelErrors& errors() const { return GetParam().errors; }
};

TEST_P(LabelTableTest, ReferenceBeforeDefinitionSucceeds) {
  EXPECT_EQ(table_.Reference("LOOP1 "), 0);
  EXPECT_EQ(table_.slot(0).state, 1);
  EXPECT_EQ(table_.Reference("loop1 "), 0);
  EXPECT_EQ(table_.slot(0).state, 2);
  EXPECT_EQ(table_.Define("LOOP1 "), 0);
  EXPECT_EQ(table_.slot(0).state, -1);
  EXPECT_EQ(table_.slot(1).state, 0);
}

TEST_P(LabelTableTest, ReferenceAfterDefinitionFails) {
  EXPECT_EQ(table_.Define("LOOP1 "), 0);
  EXPECT_EQ(table_.Reference("LOOP1 "), errors().not_found);
  EXPECT_EQ(table_.slot(0).state, -1);
}

TEST_P(LabelTableTest, DefinedTwiceFails) {
  EXPECT_EQ(table_.Define("AB_   "), 0);
  EXPECT_EQ(table_.Define("  ab  "), errors().defined_twice);
}

TEST_P(LabelTableTest, BlankNamesFail) {
  EXPECT_EQ(table_.Define("      "), kBlankNameError);
  EXPECT_EQ(table_.Reference(""), kBlankNameError);
  EXPECT_EQ(table_.Define("        X"), kBlankNameError);  // 8 blanks: the name is not looked for
  EXPECT_EQ(table_.slot(0).state, 0);
  char field[] = "      ";
  EXPECT_EQ(table_.Assign(field, 6, 0), kBlankNameError);
  EXPECT_EQ(table_.Resolve(field, 6, 0), kBlankNameError);
}

TEST_P(LabelTableTest, StoredNameLosesLeadingBlanksAndKeepsSevenLessThem) {
  EXPECT_EQ(table_.Define("  AB  "), 0);
  EXPECT_EQ(table_.Define("ABCDEFGHIJ"), 0);
  EXPECT_EQ(table_.Define("   ABCDEFGH"), 0);
  EXPECT_EQ(table_.slot(0).name.view(), "AB");
  EXPECT_EQ(table_.slot(1).name.view(), "ABCDEFG");
  EXPECT_EQ(table_.slot(2).name.view(), "ABCD");
}

TEST_P(LabelTableTest, FullTableRefusesTheNextName) {
  for (int i = 0; i < 255; ++i) {
    const std::string name = "N" + std::to_string(i);
    ASSERT_EQ(i % 2 == 0 ? table_.Define(name) : table_.Reference(name), 0) << name;
  }
  EXPECT_EQ(table_.Define("N255"), errors().table_full);
  EXPECT_EQ(table_.Reference("N255"), errors().table_full);
  EXPECT_EQ(table_.Reference("N253"), 0);  // names already entered still match
  EXPECT_EQ(table_.Define("N254"), errors().defined_twice);
}

TEST_P(LabelTableTest, AssignWritesTheSlotNameAndResolveTheDisplacement) {
  for (int i = 0; i < 10; ++i) ASSERT_EQ(table_.Define("N" + std::to_string(i)), 0);
  ASSERT_EQ(table_.Reference("LOOP1"), 0);  // slot 10
  ASSERT_EQ(table_.Define("LOOP1"), 0);
  char label[] = "LOOP1_";
  EXPECT_EQ(table_.Assign(label, 6, 7), 0);
  EXPECT_STREQ(label, "K_000A");
  EXPECT_EQ(table_.slot(10).address, 7u);
  char jump[] = "  LOOP1_";  // written at the first non-blank character
  EXPECT_EQ(table_.Resolve(jump, 8, 3), 0);
  EXPECT_STREQ(jump, "  K00010");
}

TEST_P(LabelTableTest, AssignAndResolveFindOnlyDefinedNames) {
  ASSERT_EQ(table_.Reference("ONLYREF"), 0);
  char field[] = "ONLYREF";
  EXPECT_EQ(table_.Assign(field, 7, 1), errors().not_found);
  EXPECT_EQ(table_.Resolve(field, 7, 1), errors().not_found);
  char other[] = "OTHER_";
  EXPECT_EQ(table_.Resolve(other, 6, 1), errors().not_found);
  EXPECT_STREQ(field, "ONLYREF");
}

TEST_P(LabelTableTest, EmptyClearsEverySlot) {
  ASSERT_EQ(table_.Define("AB"), 0);
  char field[] = "AB____";
  ASSERT_EQ(table_.Assign(field, 6, 5), 0);
  table_.Empty();
  EXPECT_EQ(table_.slot(0).state, 0);
  EXPECT_EQ(table_.slot(0).address, 0u);
  EXPECT_TRUE(table_.slot(0).name.empty());
  EXPECT_EQ(table_.Reference("AB"), 0);
}

INSTANTIATE_TEST_SUITE_P(Tables, LabelTableTest,
                         ::testing::Values(TableKind{"JumpLabels", kJumpLabelErrors},
                                           TableKind{"Subroutines", kSubroutineErrors}),
                         [](const ::testing::TestParamInfo<TableKind>& info) {
                           return info.param.name;
                         });

}  // namespace
}  // namespace rungc
