// Ctrl-C during a compile acts as the Escape key of the rung loop: the program being compiled
// ends with error 47 and the compile goes on, instead of the process being killed.
#pragma once

namespace rungc::tool {

// Catches the interrupt signal from now on. While an interrupt waits to be taken, a second one
// ends the process as usual, so a compile that does not poll can still be stopped.
void CatchInterrupts();
// Gives the interrupt signal back its default action and forgets a waiting interrupt.
void ReleaseInterrupts();
// True once for each interrupt caught since the last call (the rung loop's "key waiting").
bool TakeInterrupt();

}  // namespace rungc::tool
