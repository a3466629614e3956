// Whole compiles of generated projects: relay rungs with parallel branches, timers and function
// blocks, compiled to object code. Memory must not grow with the number of rungs.
#include <benchmark/benchmark.h>

#include <string>

#include "rungc/session.h"
#include "support/ladder_builder.h"

namespace {

using rungc::testing::Cell;
using rungc::testing::LadderSource;
using rungc::testing::TempProject;

// A program of `rungs` rungs of three shapes: a latch with a parallel branch, a timer, and a
// conditional function block.
LadderSource Program(int rungs) {
  LadderSource source;
  for (int i = 0; i < rungs; ++i) {
    switch (i % 3) {
      case 0:
        source.Row("1(X1.2) 2(R10.1) -x6 3(Y1.0)").Row("^2(Y1.0) ^. .x7");
        break;
      case 1:
        source.Row("1(X1.3) -x7 8(T1A,100)");
        break;
      default:
        source.Row(
            {Cell(1, {"X1.4"}), Cell(4).Times(1), Cell(38, {"WR10 = WR11 + 5", "IF WR10 > 100"})});
        source.Row({Cell(5).Times(2), Cell(10, {"WY1 = WR10", "ELSE", "ENDIF"})});
        break;
    }
  }
  return source;
}

void BM_CompileProject(benchmark::State& state) {
  TempProject project;
  project.WriteSimpleProject({{"MAIN.PLC", Program(static_cast<int>(state.range(0)))}});
  project.WriteMemoryMap(
      true, {"X,SSWB,0,16,8,8", "Y,SSWB,100H,16,8,8", "R,SSWB,200H,16,64,8", "T,TTTT,C00H,4,0,128",
             "WR,WWWW,200H,0,0,1048", "WY,SSWW,100H,16,8,8"});
  for (auto _ : state) {
    rungc::Session session;
    benchmark::DoNotOptimize(session.Compile(project.dir()));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_CompileProject)->Arg(30)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
