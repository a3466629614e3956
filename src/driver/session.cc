#include "rungc/session.h"

#include <utility>

#include "common/session.h"
#include "driver/compile_driver.h"

namespace rungc {

namespace {

// The keyboard of a session whose caller polls for an interrupt: a request reads as Escape.
class EscapeRequestKeyboard final : public platform::Keyboard {
 public:
  explicit EscapeRequestKeyboard(const std::function<bool()>& requested) : requested_(requested) {}
  bool KeyWaiting() override { return requested_ && requested_(); }
  int ReadKey() override { return 27; }

 private:
  const std::function<bool()>& requested_;
};

}  // namespace

Session::Session() : state_(std::make_unique<CompileSession>()) {}
Session::~Session() = default;

std::uint32_t Session::Compile(const std::filesystem::path& directory,
                               const CompileOptions& options) {
  EscapeRequestKeyboard keyboard(options.escape_requested);
  CompileSession& s = *state_;
  s.work_dir = platform::WorkDir(directory);
  s.keyboard = &keyboard;
  s.run_sequencer = options.run_sequences;
  s.sequence_result = -1;
  const std::uint32_t result = CompileEntry(s);
  s.keyboard = nullptr;
  last_sequence_result_ = s.sequence_result;
  return result;
}

}  // namespace rungc
