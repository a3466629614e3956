// The peephole pass on raw code given as unit dumps.
#include "ladder/optimise_rung_code.h"

#include <gtest/gtest.h>

#include <string>

#include "support/bench.h"

namespace rungc {
namespace {

using testing::DumpUnits;
using testing::UnitsFromDump;

// Each case: the raw code, the record the pass makes of it and the error it reports.
TEST(Peephole, FoldsRawCodeIntoTheRecord) {
  struct Case {
    const char* raw;
    const char* record;
    int error;
  };
  const Case cases[] = {
      {"DA DC F DB GY", "AA HC BB GY", 0},  // an OR join folds into its load
      {"DA DB E GY", "AA BB GY", 0},        // a closed branch without a join is an AND
      {"Y BA BB GY", "AA BB GY", 0},        // a line start gives way to the contact
      {"DA DC F Y e M]WX0010 M·WR0020 M·F_0008 GY", "AA HC e M]WX0010 M·WR0020 M·F_0008 GY", 0},
      {"DA DB DD F E DC GY", "AA DB HD E BC GY", 0},
      {"DA Y DC F GY", "AA Y DC F GY", 0},  // OR folding ends at the first line start
      {"DA DB DC E F GY", "AA DB BC F GY", 0},
      {"DA dC F GY", "AA hC GY", 0},
      {"dA LjLOOP1", "aA LjLOOP1", 0},
      {"Y bA GY", "aA GY", 0},
      {"DA Y GY", "AA GY", 0},  // a line start before an output is dropped
      {"Y e M]WX0010 M·WR0020 M·F_0008 GY", "e M]WX0010 M·WR0020 M·F_0008 GY", 15},
      {"DA B* m_______", "AA", 39},  // a pseudo-contact not first
      {"DA GY D* m_______", "AA GY", 39},
      {"D* GY", "", 40},
      {"DA LxLOOP1", "AA", 41},  // an L unit of another kind
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.raw);
    CompileSession s;
    s.ladder.code.Append(UnitsFromDump(c.raw));
    OptimiseRungCode(s, s.ladder.code, s.dispatch.record);
    EXPECT_EQ(s.diag.current_error, c.error);
    EXPECT_EQ(DumpUnits(s.dispatch.record.view()), c.record);
  }
}

}  // namespace
}  // namespace rungc
