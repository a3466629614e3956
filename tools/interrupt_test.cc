// Ctrl-C becomes one Escape key press per interrupt.
#include "interrupt.h"

#include <gtest/gtest.h>

#include <csignal>

namespace rungc::tool {
namespace {

TEST(Interrupt, EachInterruptIsTakenOnce) {
  CatchInterrupts();
  EXPECT_FALSE(TakeInterrupt());
  std::raise(SIGINT);
  EXPECT_TRUE(TakeInterrupt());
  EXPECT_FALSE(TakeInterrupt());
  std::raise(SIGINT);  // taking the first one caught interrupts again
  EXPECT_TRUE(TakeInterrupt());
  ReleaseInterrupts();
  EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_DFL);
}

TEST(Interrupt, AWaitingInterruptLeavesTheNextOneToTheSystem) {
  CatchInterrupts();
  std::raise(SIGINT);
  EXPECT_EQ(std::signal(SIGINT, SIG_IGN), SIG_DFL);  // a second Ctrl-C would end the process
  ReleaseInterrupts();
  EXPECT_FALSE(TakeInterrupt());
}

}  // namespace
}  // namespace rungc::tool
