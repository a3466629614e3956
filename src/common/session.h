// One compile session: everything a compile keeps between its operations, one small struct per
// subsystem. Operations take the session explicitly, so compiles in different sessions never
// meet; the exported entry point keeps one session for the life of the loaded module.
#pragma once

#include "diag/diag_state.h"
#include "diag/message_state.h"
#include "driver/driver_state.h"
#include "driver/memory_map.h"
#include "labels/label_table.h"
#include "ladder/ladder_state.h"
#include "output/output_state.h"
#include "platform/file_io.h"
#include "platform/keyboard.h"
#include "rungs/rung_state.h"
#include "sequencer/sequencer_state.h"

namespace rungc {

struct CompileSession {
  platform::WorkDir work_dir;              // where "status.kpx" and "memory.ovl" are read
  platform::Keyboard* keyboard = nullptr;  // null: no console, no key is ever waiting
  bool run_sequencer = false;              // compile the sequence file after the object code
  int sequence_result = -1;                // result of that sequence compile; -1 not run

  DiagState diag;
  DriverState driver;
  MemoryMapState memory;
  RungReaderState reader;
  DispatchState dispatch;
  LadderState ladder;
  LabelState labels;
  ObjectWriterState object;
  MessageState messages;
  SequencerState sequencer;
};

}  // namespace rungc
