#include "output/listing_form.h"

#include <array>
#include <cstring>

#include "common/limits.h"

namespace rungc {

namespace {

// Moves the operand of one unit into area-and-index order. The cases follow the unit letters:
// bit operands (with '.'), timers and counters, the element-16 unit and the timer and counter
// variants; jump units and units without a recognised operand stay as they are.
void RearrangeUnit(char* u) {
  std::array<char, kUnitSize> c;
  std::memcpy(c.data(), u, kUnitSize);
  bool has_dot = false;
  for (std::size_t i = 0; i < kUnitSize && c[i] != '\0'; ++i) {
    if (c[i] == '.') {
      has_dot = true;
      break;
    }
  }
  auto set = [u](char a, char b, char d, char e, char f, char g) {
    u[0] = a;  // the letter never changes
    u[1] = ' ';
    u[2] = b;
    u[3] = ' ';
    u[4] = d;
    u[5] = e;
    u[6] = f;
    u[7] = g;
  };
  if (has_dot) {
    set(c[0], c[1], c[2], c[3], c[4], c[6]);
  } else if (c[0] == 'L') {
    return;
  } else if (c[0] == 'T' || c[0] == 'C') {
    set(c[0], c[0], c[2], c[3], c[4], c[5]);
  } else if (c[0] == 'c') {
    set(c[0], c[1], c[2], c[3], c[4], c[5]);
  } else if (c[0] == 'O' || c[0] == 'P' || c[0] == 'Q') {
    set(c[0], 'T', c[2], c[3], c[4], c[5]);
  } else if (c[0] == 'o' || c[0] == 'p') {
    set(c[0], 'C', c[2], c[3], c[4], c[5]);
  } else if (c[1] == 'T' || c[1] == 'C') {
    set(c[0], c[1], c[3], c[4], c[5], c[6]);
  }
}

}  // namespace

void ListingUnitForm(char* text, std::size_t size) {
  for (std::size_t at = 0; at + kUnitSize <= size && text[at] != '\0'; at += kUnitSize) {
    char* u = text + at;
    if (u[0] != 'M' && u[0] != 'm') RearrangeUnit(u);
    for (std::size_t i = 0; i < kUnitSize; ++i) {
      if (u[i] == ' ' || u[i] == '\0') u[i] = '_';
    }
  }
}

}  // namespace rungc
