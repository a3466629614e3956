// The test bench under its earlier name, for tests that still include this header.
#pragma once

#include "support/bench.h"

namespace rungc::testing {
using BackendBench = Bench;
}  // namespace rungc::testing
