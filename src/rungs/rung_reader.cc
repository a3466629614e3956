#include "rungs/rung_reader.h"

#include <array>
#include <cstdio>
#include <cstring>

#include "common/session.h"

namespace rungc {

namespace {

constexpr std::size_t kRecordHeadSize = 6;  // type byte, row byte, repeat count
constexpr int kRowEnd = 0xFF;               // row byte of a record that ends a row
constexpr int kRowKindMask = 0xC0;          // top two bits of a header's row byte
constexpr int kSkippedRow = 0x80;           // binary 10: the row's rung is skipped
constexpr std::size_t kRungCellsMax = kGridRowsMax * kGridColumns;  // before the closing row
constexpr int kDropRung = -100;  // expansion result: a skipped or comment rung, read the next

// One row of the fixed element list: code, operand count and operand lengths.
struct ElementListRow {
  std::uint8_t code;
  std::uint8_t operands;
  std::int8_t length1, length2, length3;
};

constexpr ElementListRow kElementList[] = {
    {1, 1, 6, 0, 0},  {2, 1, 6, 0, 0},     {3, 1, 6, 0, 0},  {4, 0, 0, 0, 0},
    {5, 0, 0, 0, 0},  {6, 1, 6, 0, 0},     {7, 1, 6, 0, 0},  {8, 2, 6, 6, 0},
    {9, 2, 6, 6, 0},  {10, 3, 32, 32, 32}, {11, 0, 0, 0, 0}, {14, 2, 68, 68, 0},
    {15, 0, 0, 0, 0}, {16, 1, 6, 0, 0},    {17, 0, 0, 0, 0}, {18, 0, 0, 0, 0},
    {21, 1, 6, 0, 0}, {22, 1, 6, 0, 0},    {23, 1, 6, 0, 0}, {24, 1, 6, 0, 0},
    {25, 1, 6, 0, 0}, {26, 0, 0, 0, 0},    {29, 0, 0, 0, 0}, {30, 3, 68, 68, 68},
    {31, 1, 6, 0, 0}, {38, 2, 32, 32, 0},  {39, 0, 0, 0, 0}, {40, 0, 0, 0, 0},
    {41, 0, 0, 0, 0}, {42, 1, 6, 0, 0},    {43, 0, 0, 0, 0}, {44, 2, 6, 6, 0},
    {45, 2, 6, 6, 0}, {46, 2, 6, 6, 0},    {47, 2, 6, 6, 0}, {48, 2, 6, 6, 0},
    {49, 3, 6, 6, 6}, {50, 1, 32, 0, 0},
};

// One hexadecimal digit of the source: from 'a' on upper-cased, then '0' taken away and, above 9,
// 7 more. Characters are taken as signed, so bytes from 0x80 on are not upper-cased.
int DecodeDigit(char ch) {
  int c = static_cast<signed char>(ch);
  if (c >= 'a') c &= ~0x20;
  c -= '0';
  if (c > 9) c -= 7;
  return c;
}

// A byte of a record: the first digit times 16 plus the second, kept to 8 bits.
int DecodeByte(char high, char low) {
  return (DecodeDigit(high) * 16 + DecodeDigit(low)) & 0xFF;
}

// Places the characters of one row in the rung text while they fit, keeping room for the two
// NULs that end the text. Once a character does not fit, the rest of the row is read on (to
// find where it ends) but not placed.
class RowPlacer {
 public:
  RowPlacer(RungText& text, std::size_t place, RowRead* row)
      : text_(text), place_(place), row_(row) {}

  void Put(const char* chars, std::size_t count) {
    if (!row_->fits) return;
    if (place_ + row_->length + count + 2 > text_.size()) {
      row_->fits = false;
      return;
    }
    std::memcpy(text_.data() + place_ + row_->length, chars, count);
    row_->length += count;
  }
  void End() {
    if (place_ + row_->length < text_.size()) text_[place_ + row_->length] = '\0';
  }

 private:
  RungText& text_;
  std::size_t place_;
  RowRead* row_;
};

// Reads the 6 characters of a record; false at the end of the file (a cut record is not placed).
bool ReadRecordHead(platform::InputFile& source, std::array<char, kRecordHeadSize>& head) {
  return source.Read(head.data(), head.size()) == head.size();
}

// Places a record read with its operand text, as many characters as its element carries.
void PlaceRecord(RungReaderState& r, RowPlacer& placer,
                 const std::array<char, kRecordHeadSize>& head) {
  placer.Put(head.data(), head.size());
  const int code = DecodeByte(head[0], head[1]) & kElementMask;
  const int total = r.elements[static_cast<std::size_t>(code)].total_length();
  if (total <= 0) return;
  std::array<char, 3 * 128> operand;
  const std::size_t read = r.source.Read(operand.data(), static_cast<std::size_t>(total));
  placer.Put(operand.data(), read);
}

// Ends the rung text with two NULs after `end`, the characters of the rows kept.
void EndRungText(RungReaderState& r, std::size_t end) {
  r.rung_text[end] = '\0';
  r.rung_text[end + 1] = '\0';
  r.rung_text_length = end;
}

bool IsOrdinaryElement(int code) {
  switch (code) {
    case 2:
    case 3:
    case 6:
    case 7:
    case 8:
    case 9:
    case 16:
    case 21:
    case 22:
    case 23:
    case 24:
    case 25:
    case 26:
    case 29:
    case 31:
    case 40:
    case 41:
    case 44:
    case 45:
    case 46:
    case 47:
    case 48:
      return true;
    default:
      return false;
  }
}

// Expands the records of the rung text into the grid and the pool. Characters past the rows kept
// read as NUL, so a record cut by the end of the file ends the walk.
class RungExpander {
 public:
  RungExpander(RungReaderState& r, RungGrid& grid, OperandPool& pool)
      : r_(r), grid_(grid), pool_(pool) {}

  int Expand(int* kind);

 private:
  char TextAt(std::size_t i) const { return i < r_.rung_text_length ? r_.rung_text[i] : '\0'; }
  int ExpandRecord(int type, int code, int repeat, int length);
  bool AddCell(int type, int length, const char* operand);
  const char* CopyOperand(int length);

  RungReaderState& r_;
  RungGrid& grid_;
  OperandPool& pool_;
  std::size_t at_ = 0;       // next character of the rung text
  std::size_t cells_ = 0;    // cells placed
  std::size_t pool_at_ = 0;  // next character of the pool
};

int RungExpander::Expand(int* kind) {
  bool first = true;
  for (;;) {
    if (TextAt(at_) == '\0') {
      for (std::size_t i = 0; i < kGridColumns; ++i) grid_[cells_ + i] = CellRecord{};
      r_.cell_count = cells_;
      return 0;
    }
    const int type = DecodeByte(TextAt(at_), TextAt(at_ + 1));
    const int row_byte = DecodeByte(TextAt(at_ + 2), TextAt(at_ + 3));
    const int repeat = DecodeByte(TextAt(at_ + 4), TextAt(at_ + 5));
    const int code = type & kElementMask;
    if (first) {
      first = false;
      *kind = code;
      if ((row_byte & kRowKindMask) == kSkippedRow) return kDropRung;
      if (code == 2) return kRungStartsWithContact;
      if (code == 14 || code == 15 || code == 30) return kDropRung;
    }
    if (code == 0 || code > 49) return kRungUnreadable;
    const int length = r_.elements[static_cast<std::size_t>(code)].total_length();
    at_ += kRecordHeadSize;
    const int result = ExpandRecord(type, code, repeat, length);
    if (result != 0) return result;
  }
}

// Expands one record whose head has been passed over; its operand text starts at `at_`.
int RungExpander::ExpandRecord(int type, int code, int repeat, int length) {
  switch (code) {
    case 4:
    case 5:
      // A line or blank record stands for 1 + repeat identical cells.
      if (cells_ + 1 + static_cast<std::size_t>(repeat) > kRungCellsMax) return kRungUnreadable;
      for (int i = 0; i <= repeat; ++i) AddCell(type, 0, nullptr);
      return 0;
    case 10:
    case 11:
    case 38: {
      // A box fills 7 columns; its operand reference points into the pool even without text.
      if (cells_ + 7 > kRungCellsMax) return kRungUnreadable;
      const char* operand = CopyOperand(length);
      if (operand == nullptr) return kRungUnreadable;
      AddCell(type, length, operand);
      for (int i = 0; i < 6; ++i) AddCell(type & kTypeMask, 0, nullptr);
      return 0;
    }
    case 49: {
      if (cells_ + 2 > kRungCellsMax) return kRungUnreadable;
      const char* operand = length > 0 ? CopyOperand(length) : nullptr;
      if (length > 0 && operand == nullptr) return kRungUnreadable;
      AddCell(type, length, operand);
      AddCell(4, 0, nullptr);
      return 0;
    }
    case 17:
    case 18:
      if (!AddCell(type, 0, nullptr)) return kRungUnreadable;
      return 0;
    case 39:
      return 0;
    case 14:
    case 15:
    case 30:
      return kDropRung;
    case 1:
    case 42:
    case 43:
      break;
    default:
      if (!IsOrdinaryElement(code)) return kRungUnreadable;
      break;
  }
  if (cells_ + 1 > kRungCellsMax) return kRungUnreadable;
  const char* operand = length > 0 ? CopyOperand(length) : nullptr;
  if (length > 0 && operand == nullptr) return kRungUnreadable;
  AddCell(type, length, operand);
  if (IsOrdinaryElement(code)) r_.ordinary_element_seen = true;
  if (code == 42) r_.element42_seen = true;
  if (code == 43) r_.element43_seen = true;
  return 0;
}

// Places one cell; false when the rung already holds the most cells a grid can take.
bool RungExpander::AddCell(int type, int length, const char* operand) {
  if (cells_ >= kRungCellsMax) return false;
  CellRecord& cell = grid_[cells_++];
  cell.type = static_cast<std::uint8_t>(type);
  cell.length = static_cast<std::uint8_t>(length);
  cell.operand = operand;
  return true;
}

// Copies `length` characters of the rung text and a NUL to the pool and passes over them in the
// text; null when the pool has no room for them.
const char* RungExpander::CopyOperand(int length) {
  const std::size_t count = static_cast<std::size_t>(length);
  if (pool_at_ + count + 1 > pool_.size()) return nullptr;
  char* operand = pool_.data() + pool_at_;
  for (std::size_t i = 0; i < count; ++i) operand[i] = TextAt(at_ + i);
  operand[count] = '\0';
  pool_at_ += count + 1;
  at_ += count;
  return operand;
}

}  // namespace

void RebuildElementTable(ElementTable& table) {
  table.fill(ElementDescriptor{});
  for (const ElementListRow& row : kElementList) {
    ElementDescriptor& d = table[row.code];
    d.code = row.code;
    d.operands = row.operands;
    d.lengths = {row.length1, row.length2, row.length3};
  }
}

int ReadRow(CompileSession& session, std::size_t place, RowRead* row) {
  RungReaderState& r = session.reader;
  *row = RowRead{};
  RowPlacer placer(r.rung_text, place, row);
  std::array<char, kRecordHeadSize> head;
  if (!ReadRecordHead(r.source, head)) return -1;
  row->header_row_byte = DecodeByte(head[2], head[3]);
  PlaceRecord(r, placer, head);
  int count = 0;
  for (;;) {
    const long mark = r.source.Tell();
    if (!ReadRecordHead(r.source, head)) return -1;
    const int type = DecodeByte(head[0], head[1]);
    const int row_byte = DecodeByte(head[2], head[3]);
    if (row_byte == kRowEnd || (row_byte & 0x80) != 0) {
      // The row ends before a row-end record or the next row's header, which are read again.
      r.source.Seek(mark);
      placer.End();
      if (row_byte != kRowEnd && (row->header_row_byte & kRowKindMask) == kSkippedRow) return 0;
      return count;
    }
    const int type_value = type & kTypeMask;
    if ((type & kLinkFlag) != 0 || type_value == 10 || type_value == 11) ++count;
    PlaceRecord(r, placer, head);
  }
}

int ReadRungText(CompileSession& session) {
  RungReaderState& r = session.reader;
  RowRead row;
  const int first = ReadRow(session, 0, &row);
  // The text of an earlier rung still counts: the call that meets the end of the file then
  // gives an empty rung.
  if (first == -1 && r.rung_text[0] == '\0') return -1;
  if (!row.fits) {
    EndRungText(r, 0);
    return kRungUnreadable;
  }
  ++r.line_counter;
  std::size_t end = row.length;
  for (;;) {
    const long mark = r.source.Tell();
    const int count = ReadRow(session, end, &row);
    if (count == -1) {
      // A row cut by the end of the file is dropped; unless it was the row-end record, the
      // source's writer left that record out.
      if (row.header_row_byte != -1 && row.header_row_byte != kRowEnd) r.last_row_dropped = true;
      break;
    }
    if (count == 0) {
      r.source.Seek(mark);
      break;
    }
    if (!row.fits) {
      EndRungText(r, end);
      return kRungUnreadable;
    }
    ++r.line_counter;
    end += row.length;
  }
  EndRungText(r, end);
  return 0;
}

int ReadRung(CompileSession& session, RungGrid& grid, OperandPool& pool, int* kind) {
  for (;;) {
    *kind = 0;
    const int text = ReadRungText(session);
    if (text != 0) return text;
    RungExpander expander(session.reader, grid, pool);
    const int result = expander.Expand(kind);
    if (result != kDropRung) return result;
  }
}

std::string DumpGrid(const RungGrid& grid, std::size_t cells) {
  std::string dump;
  for (std::size_t i = 0; i < cells && i < grid.size(); ++i) {
    if (i > 0) dump += i % kGridColumns == 0 ? '\n' : ' ';
    std::array<char, 4> type;
    std::snprintf(type.data(), type.size(), "%02X", grid[i].type);
    dump += type.data();
    if (grid[i].operand != nullptr) {
      std::string_view text(grid[i].operand);
      while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
      dump.append("(").append(text).append(")");
    }
  }
  return dump;
}

}  // namespace rungc
