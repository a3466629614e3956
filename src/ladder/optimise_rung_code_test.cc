// The peephole pass on raw code given as unit dumps.
#include "ladder/optimise_rung_code.h"

#include <gtest/gtest.h>

#include <string>

#include "support/bench.h"

namespace rungc {
namespace {

using testing::DumpUnits;
using testing::UnitsFromDump;

struct FoldCase {
  const char* name;
  const char* raw;
  const char* record;
  int error;
};

class Folds : public ::testing::TestWithParam<FoldCase> {};

TEST_P(Folds, RawCodeIntoRecord) {
  const FoldCase& c = GetParam();
  testing::Bench bench;
  CompileSession& s = bench.session();
  s.ladder.code.Append(UnitsFromDump(c.raw));
  OptimiseRungCode(s, s.ladder.code, s.dispatch.record);
  EXPECT_EQ(s.diag.current_error, c.error);
  EXPECT_EQ(DumpUnits(s.dispatch.record.view()), c.record);
}

INSTANTIATE_TEST_SUITE_P(
    Peephole, Folds,
    ::testing::Values(
        FoldCase{"OrJoinFoldsIntoItsLoad", "DA DC F DB GY", "AA HC BB GY", 0},
        FoldCase{"ClosedBranchWithoutJoinIsAnAnd", "DA DB E GY", "AA BB GY", 0},
        FoldCase{"LineStartGivesWayToTheContact", "Y BA BB GY", "AA BB GY", 0},
        FoldCase{"NegatedLineStart", "Y bA GY", "aA GY", 0},
        FoldCase{"ComparisonAfterAJoin", "DA DC F Y e M]WX0010 M·WR0020 M·F_0008 GY",
                 "AA HC e M]WX0010 M·WR0020 M·F_0008 GY", 0},
        FoldCase{"JoinInsideAClosedBranch", "DA DB DD F E DC GY", "AA DB HD E BC GY", 0},
        FoldCase{"OrFoldingEndsAtTheFirstLineStart", "DA Y DC F GY", "AA Y DC F GY", 0},
        FoldCase{"LoadBeforeEIsAnAnd", "DA DB DC E F GY", "AA DB BC F GY", 0},
        FoldCase{"NegatedLoadFoldsToNegatedOr", "DA dC F GY", "AA hC GY", 0},
        FoldCase{"LoadBeforeATimer", "DA T0001A M·K_0064", "AA T0001A M·K_0064", 0},
        FoldCase{"LoadBeforeAJump", "dA LjLOOP1", "aA LjLOOP1", 0},
        FoldCase{"LoadBeforeAConditionalBox", "DA MAK_0008 Ma", "AA MAK_0008 Ma", 0},
        FoldCase{"LineStartBeforeAnOutputIsDropped", "DA Y GY", "AA GY", 0},
        FoldCase{"UnconditionalBox", "D* m_______ MOY_0010 M·X_0023", "m_______ MOY_0010 M·X_0023",
                 0},
        FoldCase{"CodeNotBeginningWithALoad", "Y e M]WX0010 M·WR0020 M·F_0008 GY",
                 "e M]WX0010 M·WR0020 M·F_0008 GY", 15},
        FoldCase{"PseudoContactNotFirst", "DA B* m_______", "AA", 39},
        FoldCase{"PseudoLoadNotFirst", "DA GY D* m_______", "AA GY", 39},
        FoldCase{"PseudoContactWithoutABox", "D* GY", "", 40},
        FoldCase{"LUnitOfAnotherKind", "DA LxLOOP1", "AA", 41}),
    [](const ::testing::TestParamInfo<FoldCase>& info) { return std::string(info.param.name); });

TEST(Peephole, InstructionCounterCountsTheRecord) {
  testing::Bench bench;
  CompileSession& s = bench.session();
  s.dispatch.instruction_counter = 10;
  s.ladder.code.Append(UnitsFromDump("DA DC F DB GY"));
  OptimiseRungCode(s, s.ladder.code, s.dispatch.record);
  EXPECT_EQ(s.dispatch.instruction_counter, 14);
}

TEST(Peephole, PseudoContactIsRemovedFromTheCount) {
  testing::Bench bench;
  CompileSession& s = bench.session();
  s.ladder.code.Append(UnitsFromDump("D* m_______ MOY_0010 M·X_0023"));
  OptimiseRungCode(s, s.ladder.code, s.dispatch.record);
  EXPECT_EQ(s.dispatch.instruction_counter, 3);
  EXPECT_EQ(s.dispatch.record.position(), 24u);
  EXPECT_EQ(s.dispatch.record.data()[24], '\0');
}

}  // namespace
}  // namespace rungc
