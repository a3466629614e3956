// Function-block statement lines through the lexer, the classifier, the dispatcher and every
// instruction family, and the comparison contact, on a session that is reused across executions.
//
// Input: byte 0 chooses the cells (bits 0-1: a head cell of two lines, a continuation cell of
// three, a comparison contact of three 6-character fields, or a head cell with a continuation
// cell under it); byte 1 from 0xC0 up fills the code text with 280 - (byte - 0xC0) units first,
// so that the lines meet the end of the 2,240-character code text; the rest is the cells'
// operand text, 32 characters per line.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/session.h"
#include "fuzz_project.h"
#include "ladder/box_lines.h"
#include "rungs/rung_reader.h"

namespace {

constexpr int kHead = 38;
constexpr int kContinuation = 10;
constexpr int kComparison = 49;
constexpr std::size_t kLineWidth = 32;

rungc::CompileSession& BoxSession() {
  static rungc::CompileSession& s = []() -> rungc::CompileSession& {
    rungc::CompileSession& session = rungc::fuzz::PassSession();
    rungc::RebuildElementTable(session.reader.elements);
    return session;
  }();
  return s;
}

// Places a cell in the grid with its operand text, as the rung reader leaves it in the pool.
void PlaceCell(rungc::CompileSession& s, std::size_t index, int type, std::string_view text,
               char* pool) {
  const std::size_t length =
      static_cast<std::size_t>(s.reader.elements[static_cast<std::size_t>(type)].total_length());
  std::fill(pool, pool + length + 1, ' ');
  std::copy_n(text.data(), std::min(text.size(), length), pool);
  pool[length] = '\0';
  rungc::CellRecord& cell = s.reader.grid[index];
  cell.type = static_cast<std::uint8_t>(type);
  cell.length = static_cast<std::uint8_t>(length);
  cell.operand = pool;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return -1;
  rungc::CompileSession& s = BoxSession();
  s.ladder = rungc::LadderState{};
  s.dispatch.conditional_block = 0;
  rungc::fuzz::ClearRungReports(s);
  if (data[1] >= 0xC0) {
    const int units = 280 - (data[1] - 0xC0);
    for (int i = 0; i < units; ++i) s.ladder.code.Append("B_______");
  }
  const std::string_view text(reinterpret_cast<const char*>(data + 2), size - 2);
  char* pool = s.reader.pool.data();
  switch (data[0] & 3) {
    case 0:
      PlaceCell(s, 0, kHead, text, pool);
      rungc::CompileBoxCell(s, 0, kHead);
      break;
    case 1:
      PlaceCell(s, 0, kContinuation, text, pool);
      rungc::CompileBoxCell(s, 0, kContinuation);
      break;
    case 2:
      PlaceCell(s, 0, kComparison, text, pool);
      rungc::CompileComparisonContact(s, 0);
      break;
    default: {
      const std::size_t head_length = 2 * kLineWidth;
      PlaceCell(s, 0, kHead, text, pool);
      PlaceCell(s, 10, kContinuation, text.substr(std::min(text.size(), head_length)),
                pool + head_length + 1);
      rungc::CompileBoxCell(s, 0, kHead);
      if (s.diag.current_error == 0) rungc::CompileBoxCell(s, 10, kContinuation);
      break;
    }
  }
  return 0;
}
