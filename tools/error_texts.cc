#include "error_texts.h"

#include <algorithm>
#include <array>

namespace rungc::tool {

namespace {

struct NumberText {
  int number;
  std::string_view text;
};

// Errors of the error records, by number, ascending. 1000 + n: rule n of the rung reader (17,
// 18) or of the rung validator; 4999 and 5001 to 5006: failures of the object code writers.
constexpr std::array kErrorTexts = std::to_array<NumberText>({
    {1, "the network walk stopped at a function block without giving its cell"},
    {2, "this element must stand in column 0 (the rung was compiled all the same)"},
    {3, "an output, timer or counter element stands outside column 9"},
    {4, "a row of a series ends after column 9 at an element that cannot end it"},
    {9, "an operand of a function-block line is not valid"},
    {15, "the rung's code does not begin with a load instruction"},
    {16, "an element of unknown type, or a function-block line whose operands fit no instruction"},
    {18, "a timer or counter number is not hexadecimal"},
    {19, "element 16 needs a number of 1 to 4 hexadecimal digits"},
    {20, "a conditional block is opened while another one is still open"},
    {21, "an output element names an input operand"},
    {22, "a timer or counter preset is neither a constant nor a word that may be used"},
    {23,
     "an unconditional function block is not fed by plain line cells, or its lower cells are "
     "linked"},
    {24, "a timer, counter or element-16 operand begins with the wrong letter"},
    {25, "an edge element has no contact to its left in its row, or a vertical link is in the way"},
    {26, "a function-block cell stands where the network cannot reach it as a function block"},
    {27, "a contact, coil or preset operand is malformed"},
    {28, "a subroutine or block starts before the end of the main program"},
    {29, "an output element writes an input bit, a timer or a counter"},
    {31, "a subroutine is called after the end of the main program"},
    {32, "the main program is ended a second time"},
    {33, "more than 255 jump labels"},
    {34, "a jump label is defined twice"},
    {35, "a jump, label, call or subroutine name is blank"},
    {37, "a jump goes back to a label defined before it, or to a label that is never defined"},
    {38, "a subroutine or block end without a matching start"},
    {39, "an indirect operand ('*') stands after the first unit of the rung's code"},
    {40, "an indirect operand ('*') is not followed by its modifier unit"},
    {41, "a jump or call unit of an unknown form"},
    {47, "the compile of this program was interrupted (Escape or Ctrl-C)"},
    {50, "the status file status.kpx cannot be opened"},
    {51, "the listing or error file cannot be created, or a ladder source cannot be opened"},
    {53, "the status file does not begin with a status header"},
    {55, "the project file cannot be opened"},
    {56, "the project file does not begin with a project header"},
    {57, "a conditional end without an open conditional block"},
    {58, "a call of a subroutine defined before it, or of a subroutine that is never defined"},
    {59, "a subroutine is defined twice, or more than 255 subroutines"},
    {60, "a subroutine starts inside another subroutine"},
    {66, "a subroutine end outside a subroutine"},
    {68, "the project uses a block start but no ordinary ladder element"},
    {69, "the project uses a block start but no block end"},
    {79, "the base of an indexed read or write is not a word of area R or M"},
    {80, "the rung's opening and closing units do not balance"},
    {1002, "a rung of a kind that cannot stand here, or an empty rung that holds another element"},
    {1003, "an output element stands outside column 9"},
    {1004,
     "a function block stands where it may not (in the first row only element 38, in column 3)"},
    {1005, "a blank cell inside a path, or a lower row that does not start with a link"},
    {1006, "a linked cell of the first row holds an element that may not stand there"},
    {1007, "an element stands where it may not, or a path has an empty cell"},
    {1008, "a linked cell stands under a blank cell"},
    {1009, "a linked cell stands under a function block outside column 3"},
    {1010, "a lower row has a single link and an element that needs a second one"},
    {1012, "a parallel branch holds no condition, or the path above it holds no element"},
    {1013, "a path ends in column 9 without an output element"},
    {1014, "a branch meets a function block in column 3, or two branches overlap"},
    {1015,
     "an output branch holds a condition, or the row above it is not a plain line up to column 8"},
    {1017, "the rung cannot be read: it begins with element 2"},
    {1018,
     "the rung cannot be read: an element code is unknown, or the rung is larger than the "
     "reader's buffers"},
    {1023, "a function-block cell that does not stand under a function block"},
    {1030, "element 17 or 18 opens a branch or comes before any condition of it"},
    {4999, "the object code writer met an instruction it does not know"},
    {5001, "an operand's area has a kind the object code writer cannot convert"},
    {5002, "an operand names an area that the memory map does not hold, or is not a word"},
    {5003, "an operand's element lies beyond its area in the memory map"},
    {5004, "an operand's group lies beyond its area in the memory map"},
    {5005, "a rung's code is longer than the object code writer takes (249 units)"},
    {5006, "the listing is missing or has a wrong header, or an object file cannot be created"},
});

// Label-pass errors: the IF structure check has numbers of its own; the name errors read as
// what the pass found.
constexpr std::array kLabelErrorTexts = std::to_array<NumberText>({
    {1, "an IF without its ENDIF, or an ENDIF without its IF"},
    {2, "an IF with more than one ELSE, or IF blocks nested more than 15 deep"},
    {35, "a jump, label, call or subroutine name is blank"},
    {37, "a jump names a label that is never defined"},
    {58, "a call names a subroutine that is never defined"},
});

constexpr std::array kWarningTexts = std::to_array<NumberText>({
    {1, "the line writes into the input area (its code was written all the same)"},
});

template <std::size_t N>
constexpr bool Ascending(const std::array<NumberText, N>& table) {
  for (std::size_t i = 1; i < N; ++i) {
    if (table[i - 1].number >= table[i].number) return false;
  }
  return true;
}
static_assert(Ascending(kErrorTexts) && Ascending(kLabelErrorTexts) && Ascending(kWarningTexts));

template <std::size_t N>
std::string_view Find(const std::array<NumberText, N>& table, int number) {
  auto it = std::lower_bound(table.begin(), table.end(), number,
                             [](const NumberText& entry, int n) { return entry.number < n; });
  return it != table.end() && it->number == number ? it->text : std::string_view();
}

}  // namespace

std::string_view ErrorText(RecordKind kind, int number) {
  switch (kind) {
    case RecordKind::kWarning:
      return Find(kWarningTexts, number);
    case RecordKind::kLabelError:
      return Find(kLabelErrorTexts, number);
    case RecordKind::kError:
      break;
  }
  return Find(kErrorTexts, number);
}

bool IsWriterFailure(int number) {
  return number == 4999 || (number >= 5001 && number <= 5006);
}

}  // namespace rungc::tool
