#include "support/relay_fixtures.h"

#include <cstring>
#include <stdexcept>

namespace rungc::testing {

namespace {

constexpr std::string_view kMiddleDot = "\xC2\xB7";

// Places the text and its NUL in the pool at `used`; gives its start.
const char* AddToPool(CompileSession& s, std::size_t& used, std::string_view text) {
  if (used + text.size() + 1 > s.reader.pool.size()) throw std::length_error("operand pool full");
  char* start = s.reader.pool.data() + used;
  if (!text.empty()) std::memcpy(start, text.data(), text.size());
  start[text.size()] = '\0';
  used += text.size() + 1;
  return start;
}

int TotalLength(int code) {
  int total = 0;
  for (int length : ElementFieldLengths(code)) total += length;
  return total;
}

// The element table as the rung loop rebuilds it at the start of a program.
void FillElementTable(CompileSession& s) {
  for (int code = 0; code < 64; ++code) {
    ElementDescriptor& d = s.reader.elements[static_cast<std::size_t>(code)];
    const std::vector<int> lengths = ElementFieldLengths(code);
    d = ElementDescriptor{};
    d.code = static_cast<std::uint8_t>(code);
    d.operands = static_cast<std::uint8_t>(lengths.size());
    for (std::size_t i = 0; i < lengths.size(); ++i) {
      d.lengths[i] = static_cast<std::int8_t>(lengths[i]);
    }
  }
}

}  // namespace

std::unique_ptr<CompileSession> NewSession() {
  return std::make_unique<CompileSession>();
}

void LoadRungCells(CompileSession& s, const std::vector<std::vector<Cell>>& rows) {
  FillElementTable(s);
  s.reader.grid.fill(CellRecord{});
  s.reader.pool.fill('\0');
  std::size_t used = 0;
  std::size_t next = 0;
  auto place = [&](CellRecord cell) {
    if (next + kGridColumns >= kGridCells) throw std::length_error("too many rows for the grid");
    s.reader.grid[next++] = cell;
  };
  for (const std::vector<Cell>& row : rows) {
    const std::size_t row_start = next;
    for (const Cell& cell : row) {
      const auto type =
          static_cast<std::uint8_t>((cell.link ? kLinkFlag : 0) |
                                    (cell.variant ? kVariantFlag : 0) | (cell.code & kElementMask));
      const int length = TotalLength(cell.code);
      std::string operand = cell.use_raw ? cell.raw_operand : EncodeRecord(cell, 0).substr(6);
      CellRecord record{type, static_cast<std::uint8_t>(length), nullptr};
      switch (cell.code) {
        case 4:
        case 5:
        case 17:
        case 18:
          record.length = 0;
          for (int k = 0; k <= (cell.code <= 5 ? cell.repeat : 0); ++k) place(record);
          break;
        case 10:
        case 11:
        case 38:
          record.operand = AddToPool(s, used, operand);
          place(record);
          for (int k = 0; k < 6; ++k)
            place(CellRecord{static_cast<std::uint8_t>(type & kTypeMask)});
          break;
        case 39:
          break;
        default:
          if (length > 0) record.operand = AddToPool(s, used, operand);
          place(record);
          if (cell.code == 49) place(CellRecord{4});
          break;
      }
    }
    if (next - row_start != kGridColumns) {
      throw std::invalid_argument("a row must expand to 10 cells, this one gives " +
                                  std::to_string(next - row_start));
    }
  }
  s.diag.current_error = 0;
  s.diag.item.Clear();
  s.diag.text.Clear();
  s.diag.rung_error_latch = false;
  s.dispatch.record.Clear();
}

void LoadRung(CompileSession& s, const std::vector<std::string>& rows) {
  std::vector<std::vector<Cell>> cells;
  for (const std::string& row : rows) cells.push_back(LadderSource::ParseRow(row));
  LoadRungCells(s, cells);
}

std::string DumpUnits(std::string_view code) {
  std::string dump;
  for (std::size_t at = 0; at < code.size(); at += kUnitSize) {
    std::string_view unit = code.substr(at, kUnitSize);
    std::size_t end = unit.find_last_not_of(' ');
    unit = end == std::string_view::npos ? std::string_view() : unit.substr(0, end + 1);
    if (!dump.empty()) dump += ' ';
    for (char c : unit) {
      if (c == ' ') {
        dump += kMiddleDot;
      } else {
        dump += c == '\0' ? '~' : c;
      }
    }
  }
  return dump;
}

std::string UnitsFromDump(std::string_view dump) {
  std::string code;
  std::size_t from = 0;
  while (from < dump.size()) {
    std::size_t end = dump.find(' ', from);
    if (end == std::string_view::npos) end = dump.size();
    std::string unit;
    for (std::size_t i = from; i < end; ++i) {
      if (dump.substr(i, kMiddleDot.size()) == kMiddleDot) {
        unit += ' ';
        i += kMiddleDot.size() - 1;
      } else {
        unit += dump[i];
      }
    }
    if (unit.size() > kUnitSize) throw std::invalid_argument("unit longer than 8: " + unit);
    unit.resize(kUnitSize, ' ');
    code += unit;
    from = end + 1;
  }
  return code;
}

}  // namespace rungc::testing
