// The sequencer's state: the sequence file read into memory and the sequence error number.
#pragma once

namespace rungc {

struct SequencerState {};

}  // namespace rungc
