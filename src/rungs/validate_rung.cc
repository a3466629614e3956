#include "rungs/validate_rung.h"

namespace rungc {

namespace {

constexpr int kColumns = static_cast<int>(kGridColumns);
constexpr int kCells = static_cast<int>(kGridCells);
constexpr int kBlank = 5;
constexpr int kLine = 4;

// The type byte of cell i; cells outside the grid read as empty.
int TypeAt(const RungGrid& grid, int i) {
  return i >= 0 && i < kCells ? grid[static_cast<std::size_t>(i)].type : 0;
}
// The type value: the element code with the variant flag, without the link flag.
int ValueAt(const RungGrid& grid, int i) {
  return TypeAt(grid, i) & kTypeMask;
}
bool LinkedAt(const RungGrid& grid, int i) {
  return (TypeAt(grid, i) & kLinkFlag) != 0;
}
int Column(int i) {
  return i % kColumns;
}

// Elements that may stand in columns 1 to 8 of a path (lines, contacts, edges, element 49).
bool IsPassing(int t) {
  return t == 2 || t == 4 || t == 17 || t == 18 || t == 49 || t == 66;
}
// Passing elements that count as a condition in a branch.
bool IsCondition(int t) {
  return t == 2 || t == 49 || t == 66;
}

// Output elements of a lower row; the first row also allows element 40.
bool IsLowerRowOutput(int t) {
  switch (t) {
    case 3:
    case 6:
    case 7:
    case 8:
    case 9:
    case 16:
    case 22:
    case 31:
    case 44:
    case 45:
    case 46:
    case 47:
    case 48:
    case 67:
      return true;
    default:
      return false;
  }
}
bool IsFirstRowOutput(int b) {
  return b == 40 || IsLowerRowOutput(b);
}
bool IsBox(int t) {
  return t == 10 || t == 38;
}

// The first row, columns 1 to 9, judged on the whole type byte (a linked cell is never allowed).
int CheckFirstRow(const RungGrid& grid) {
  for (int c = 1; c < kColumns; ++c) {
    const int b = TypeAt(grid, c);
    if (IsPassing(b)) {
      if (c == kColumns - 1) return 13;
      continue;
    }
    if (IsFirstRowOutput(b)) return c == kColumns - 1 ? 0 : 3;
    if (b == 38) return c == 3 ? 0 : 4;
    if (b == 10) return 4;
    if (b == kBlank) return 5;
    return (b & kLinkFlag) != 0 ? 6 : 7;
  }
  return 0;
}

// The links of a lower row: a link must hang under a connection, under a box only in column 3,
// and a row with a single link may hold no passing element.
int CheckRowLinks(const RungGrid& grid, int row) {
  const int start = row * kColumns;
  bool passing = false;
  for (int i = start; i < start + kColumns; ++i) {
    const int t = ValueAt(grid, i);
    if (t == 2 || t == 4 || t == 17 || t == 18 || t == 66) passing = true;
  }
  int links = 0;
  for (int i = start; i < start + kColumns; ++i) {
    if (!LinkedAt(grid, i)) continue;
    const int above = i - kColumns;
    if (TypeAt(grid, above) == kBlank) return 8;
    if (IsBox(ValueAt(grid, above)) && Column(i) != 3) return 9;
    if (Column(i) != 0 && ValueAt(grid, i) == kBlank && ValueAt(grid, i - 1) == kBlank &&
        TypeAt(grid, i + kColumns) != 0 && !LinkedAt(grid, i + kColumns)) {
      return 8;
    }
    ++links;
  }
  return links == 1 && passing ? 10 : 0;
}

// A branch from S that rejoins the rows above at E: the path it parallels is found k rows up,
// where the links above S or above E end; that path must not be crossed by another link and must
// hold an element, or the branch would short it.
int CheckBranch(const RungGrid& grid, int s, int e) {
  int k_end = 1;
  while (LinkedAt(grid, e - kColumns * k_end)) ++k_end;
  int k_start = 1;
  while (s - kColumns * k_start >= kColumns && LinkedAt(grid, s - kColumns * k_start)) ++k_start;
  const int k = k_start <= k_end ? k_start : k_end;
  const int from = s - kColumns * k;
  const int to = e - 1 - kColumns * k;
  for (int i = from + 1; i <= to; ++i) {
    if (LinkedAt(grid, i)) return 14;
  }
  for (int i = from; i <= to; ++i) {
    const int t = ValueAt(grid, i);
    if (t != kLine && t != kBlank) return 0;
  }
  return 12;
}

// A branch from S that ends in an output in column 9: above it (past blanks) a plain line must
// run to column 8, so that the second output is fed from the same point as the first.
int CheckOutputBranch(const RungGrid& grid, int s) {
  int i = s - kColumns;
  while (ValueAt(grid, i) == kBlank && i >= kColumns) i -= kColumns;
  for (; Column(i) != kColumns - 1; ++i) {
    if (ValueAt(grid, i) != kLine) return 15;
  }
  return 0;
}

// Walks a branch opened at S to the right until it rejoins the rows above or ends in an output.
int WalkBranch(const RungGrid& grid, int s, bool has_condition, int& cursor) {
  for (;;) {
    ++cursor;
    const bool last_column = Column(cursor) == kColumns - 1;
    if (LinkedAt(grid, cursor)) {
      if (!has_condition) return 12;
      return CheckBranch(grid, s, cursor);
    }
    const int t = ValueAt(grid, cursor);
    if (IsCondition(t)) {
      if (last_column) return 13;
      has_condition = true;
      continue;
    }
    if (t == kLine) {
      if (last_column) return 13;
      continue;
    }
    if (t == 17 || t == 18) {
      if (last_column) return 13;
      if (!has_condition) return 30;
      continue;
    }
    if (IsLowerRowOutput(t)) {
      if (!last_column) return 3;
      if (has_condition) return 15;
      const int code = CheckOutputBranch(grid, s);
      if (code != 0) return code;
      ++cursor;
      return 0;
    }
    if (IsBox(t)) return Column(cursor) == 3 ? 14 : 4;
    return t == kBlank ? 5 : 7;
  }
}

// One step of the row scan: passes over blanks, then judges the cell at the cursor, which must
// open a branch (a linked cell) unless it is a box line under a box.
int ScanStep(const RungGrid& grid, int row_end, int& cursor) {
  while (ValueAt(grid, cursor) == kBlank) {
    if (++cursor >= row_end) return 0;
  }
  const int b = TypeAt(grid, cursor);
  if ((b & kLinkFlag) == 0) {
    if (b == 10 && IsBox(ValueAt(grid, cursor - kColumns))) {
      cursor += kColumns;  // the rest of the row belongs to the box
      return 0;
    }
    return b == 10 ? 23 : 5;
  }
  const int s = cursor;
  const int t = b & kTypeMask;
  const bool last_column = Column(cursor) == kColumns - 1;
  bool has_condition = false;
  if (t == 2 || t == 66) {
    if (last_column) return 13;
    has_condition = true;
  } else if (t == kLine) {
    if (last_column) return 13;
  } else if (t == 17 || t == 18) {
    return 30;
  } else if (t == 49) {
    if (last_column) return 13;
    has_condition = true;
  } else if (IsLowerRowOutput(t)) {
    if (!last_column) return 3;
    ++cursor;
    return 0;
  } else if (IsBox(t)) {
    cursor += 7;
    return 0;
  } else {
    return 7;
  }
  return WalkBranch(grid, s, has_condition, cursor);
}

int ScanRow(const RungGrid& grid, int row) {
  int cursor = row * kColumns;
  const int row_end = cursor + kColumns;
  while (cursor < row_end) {
    const int code = ScanStep(grid, row_end, cursor);
    if (code != 0) return code;
  }
  return 0;
}

}  // namespace

int ValidateRung(const RungGrid& grid) {
  const int first = CheckFirstRow(grid);
  if (first != 0) return first;
  for (int row = 1; row <= static_cast<int>(kGridRowsMax); ++row) {
    if (TypeAt(grid, row * kColumns) == 0) break;
    const int links = CheckRowLinks(grid, row);
    if (links != 0) return links;
    const int scan = ScanRow(grid, row);
    if (scan != 0) return scan;
  }
  return 0;
}

}  // namespace rungc
