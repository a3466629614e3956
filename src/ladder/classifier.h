// The operand classifier: gives each operand of a function-block line its type flags (the OPT_
// flags of the operand table) and, for operator signs and keywords, its keyword code. The
// dispatcher chooses the instruction family by the type of operand 0; the generators test the
// types and codes of the other operands.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace rungc {

struct CompileSession;

// Keyword codes. The generators write a keyword's code as the second character of its head
// mnemonic ("MB" for BIN, "MI" for INC, ...), so these codes must stay in step with the
// generators of the instruction families.
namespace keyword {
inline constexpr std::int32_t kAssign = 61;   // '=': "=" and the single signs + - : * /
inline constexpr std::int32_t kCompare = 69;  // 'E': "==", ">", "<", ">=", "><", "<=", "<>"
inline constexpr std::int32_t kInc = 'I';
inline constexpr std::int32_t kDec = 'i';
inline constexpr std::int32_t kShfr = 'S';
inline constexpr std::int32_t kShfl = 's';
inline constexpr std::int32_t kAnd = '&';
inline constexpr std::int32_t kOr = '|';
inline constexpr std::int32_t kXor = '^';
inline constexpr std::int32_t kSfr = 'T';
inline constexpr std::int32_t kSfl = 't';
inline constexpr std::int32_t kRor = 'U';
inline constexpr std::int32_t kRol = 'u';
inline constexpr std::int32_t kIf = 'j';
inline constexpr std::int32_t kElse = 'k';
inline constexpr std::int32_t kEndif = 'l';
inline constexpr std::int32_t kBin = 'B';
inline constexpr std::int32_t kBcd = 'b';
inline constexpr std::int32_t kFun = 'X';
inline constexpr std::int32_t kNot = '?';
inline constexpr std::int32_t kCopy = 'C';
inline constexpr std::int32_t kFill = 'F';
inline constexpr std::int32_t kSum = 'V';
inline constexpr std::int32_t kAvrg = 'G';
inline constexpr std::int32_t kDpread = 'P';
inline constexpr std::int32_t kDpwrite = 'p';
inline constexpr std::int32_t kSegment = 'f';
inline constexpr std::int32_t kS16 = 'g';
inline constexpr std::int32_t kS12 = 'h';
inline constexpr std::int32_t kSqrt = '0';
// The float function codes of the one-register functions are their keyword codes.
inline constexpr std::int32_t kAbs = 0x01;
inline constexpr std::int32_t kNeg = 0x02;
inline constexpr std::int32_t kCmp = 0x1A;
}  // namespace keyword

struct KeywordEntry {
  std::string_view text;
  std::int32_t code;
};

// The keywords, compared in this order with the whole operand text, case-sensitively (the lexer
// has upper-cased names already).
inline constexpr std::array<KeywordEntry, 31> KeywordTable = {{
    {"INC", keyword::kInc},         {"DEC", keyword::kDec},       {"SHFR", keyword::kShfr},
    {"SHFL", keyword::kShfl},       {"AND", keyword::kAnd},       {"OR", keyword::kOr},
    {"XOR", keyword::kXor},         {"SFR", keyword::kSfr},       {"SFL", keyword::kSfl},
    {"ROR", keyword::kRor},         {"ROL", keyword::kRol},       {"IF", keyword::kIf},
    {"ELSE", keyword::kElse},       {"ENDIF", keyword::kEndif},   {"BIN", keyword::kBin},
    {"BCD", keyword::kBcd},         {"FUN", keyword::kFun},       {"NOT", keyword::kNot},
    {"COPY", keyword::kCopy},       {"FILL", keyword::kFill},     {"SUM", keyword::kSum},
    {"AVRG", keyword::kAvrg},       {"DPREAD", keyword::kDpread}, {"DPWRITE", keyword::kDpwrite},
    {"SEGMENT", keyword::kSegment}, {"S16", keyword::kS16},       {"S12", keyword::kS12},
    {"SQRT", keyword::kSqrt},       {"ABS", keyword::kAbs},       {"NEG", keyword::kNeg},
    {"CMP", keyword::kCmp},
}};

// Sets the type and keyword code of operand k (0 to 7) of the current line. Decimal integer
// constants are rewritten without leading zeros. A word that is neither an operand nor a keyword
// is error 16 with the operand as item and the box line as text.
void ClassifyOperand(CompileSession& session, int k);
// Classifies all eight operands, as every dispatch of a line needs.
void ClassifyOperands(CompileSession& session);

}  // namespace rungc
