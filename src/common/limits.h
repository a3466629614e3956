// Fixed sizes of the compiler's buffers and tables. They are behaviour: the files the suite
// exchanges were written against them, so every reader and writer keeps to them exactly.
#pragma once

#include <cstddef>

namespace rungc {

inline constexpr std::size_t kGridColumns = 10;
inline constexpr std::size_t kGridRowsMax = 31;  // rows of a rung; a closing empty row follows
inline constexpr std::size_t kGridCells = 321;   // room for 31 rows, the closing row and one
inline constexpr std::size_t kOperandPoolSize = 3852;  // operand texts of one rung with their NULs
inline constexpr std::size_t kRungTextSize = 4096;     // raw characters of the rows of one rung
inline constexpr std::size_t kCodeTextSize = 2240;     // raw code of one rung: 280 units
inline constexpr std::size_t kCodeRecordSize = 2240;   // folded code of one rung
inline constexpr std::size_t kUnitSize = 8;            // characters of one code unit
inline constexpr std::size_t kReportTextMax = 239;     // report item and report text
inline constexpr std::size_t kLabelSlots = 255;        // slots of each label table
inline constexpr std::size_t kMemoryAreaRows = 63;     // rows of the memory area table
inline constexpr std::size_t kBoxLineMax = 32;         // characters of a function-block line
inline constexpr std::size_t kOperandCount = 8;        // operands of one function-block line
inline constexpr std::size_t kOperandTextMax = 39;     // characters of one operand
inline constexpr std::size_t kProjectDirMax = 279;     // characters of the project directory

}  // namespace rungc
