#include "interrupt.h"

#include <atomic>
#include <csignal>

namespace {

// Only lock-free atomics may be touched by a signal handler.
std::atomic<bool> interrupt_waiting{false};
static_assert(std::atomic<bool>::is_always_lock_free);

}  // namespace

extern "C" {
static void OnInterrupt(int signal_number) {
  interrupt_waiting.store(true);
  // Until the rung loop takes this one, the next interrupt kills the process.
  std::signal(signal_number, SIG_DFL);
}
}

namespace rungc::tool {

void CatchInterrupts() {
  interrupt_waiting.store(false);
  std::signal(SIGINT, OnInterrupt);
}

void ReleaseInterrupts() {
  std::signal(SIGINT, SIG_DFL);
  interrupt_waiting.store(false);
}

bool TakeInterrupt() {
  if (!interrupt_waiting.exchange(false)) return false;
  std::signal(SIGINT, OnInterrupt);
  return true;
}

}  // namespace rungc::tool
