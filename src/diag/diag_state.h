// What the report operations keep for one compile: the counters the driver decides the result
// from, the texts of the report being written, the once-per-rung latch and the two open files.
#pragma once

#include <cstdint>
#include <filesystem>

#include "common/fixed_text.h"
#include "common/limits.h"
#include "platform/file_io.h"

namespace rungc {

struct DiagState {
  std::int32_t current_error = 0;  // also set directly by other passes as a status
  std::int32_t current_warning = 0;
  FixedText<kReportTextMax> item;      // empty = none
  FixedText<kReportTextMax> text;      // empty = none
  bool rung_error_latch = false;       // set after an error; further errors of the rung are dropped
  std::int32_t error_count = 0;        // E and J records written
  std::int32_t warning_count = 0;      // W records written
  std::uint32_t listing_checksum = 0;  // kept for the life of the session (module-load lifetime)
  platform::OutputFile listing;
  platform::OutputFile error_file;
  std::filesystem::path listing_path;
  std::filesystem::path temp_path;   // listing path with the extension ".$$$"
  std::filesystem::path error_path;  // listing path with the extension ".ERR"
};

}  // namespace rungc
