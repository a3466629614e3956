// What the object code writer keeps after it returns: the driver reports a failure with them.
#pragma once

#include <cstdint>
#include <string>

namespace rungc {

struct ObjectWriterState {
  std::int32_t line_counter = 0;  // ordinal of the "#R#" line after the last "#F#" line
  std::string current_file_name;  // text of the last "#F#" line read, with its line end
};

}  // namespace rungc
