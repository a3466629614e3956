// The console keyboard as the rung loop sees it: a library caller has no console, so the default
// keyboard never has a key waiting; the command-line tool supplies one that turns an interrupt
// into the Escape key.
#pragma once

namespace rungc::platform {

class Keyboard {
 public:
  virtual ~Keyboard() = default;
  // True when a key press is waiting to be read.
  virtual bool KeyWaiting() = 0;
  // Reads one key code (27 is Escape; 0 announces a second code).
  virtual int ReadKey() = 0;
};

// The keyboard of a caller without a console.
class NoKeyboard final : public Keyboard {
 public:
  bool KeyWaiting() override { return false; }
  int ReadKey() override { return 0; }
};

}  // namespace rungc::platform
