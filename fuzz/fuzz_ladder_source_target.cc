// One ladder source through the whole compile: reader, validation, network compiler, function
// blocks, peephole pass, label pass and object code. The custom mutator edits the source as
// records and rows (element codes, flags, row bytes, repeat counts, operand characters), which
// reaches much deeper than byte flips of the hexadecimal text.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz_project.h"
#include "support/ladder_builder.h"

namespace {

constexpr std::string_view kHeader = "- KORVA   1994       PLC             ;";

struct Record {
  int type = 0;
  int row = 0;
  int repeat = 0;
  std::string operand;
};

int HexDigit(char c) {
  if (c >= 'a') c = static_cast<char>(c & ~0x20);
  int v = c - '0';
  return v > 9 ? v - 7 : v;
}

int OperandLength(int type) {
  int total = 0;
  for (int n : rungc::testing::ElementFieldLengths(type & 0x3F)) total += n;
  return total;
}

// Splits the records after the header; whatever cannot be parsed is kept as a last raw record.
std::vector<Record> ParseSource(std::string_view text, std::string* tail) {
  std::vector<Record> records;
  if (text.substr(0, kHeader.size()) == kHeader) text.remove_prefix(kHeader.size());
  while (text.size() >= 6) {
    Record r;
    r.type = HexDigit(text[0]) * 16 + HexDigit(text[1]);
    r.row = HexDigit(text[2]) * 16 + HexDigit(text[3]);
    r.repeat = HexDigit(text[4]) * 16 + HexDigit(text[5]);
    std::size_t length = static_cast<std::size_t>(OperandLength(r.type));
    if (r.type < 0 || r.type > 255 || r.row < 0 || r.row > 255 || text.size() < 6 + length) break;
    r.operand = std::string(text.substr(6, length));
    records.push_back(r);
    text.remove_prefix(6 + length);
  }
  *tail = std::string(text);
  return records;
}

std::string Serialise(const std::vector<Record>& records, const std::string& tail) {
  std::string text(kHeader);
  for (const Record& r : records) {
    char head[7];
    std::snprintf(head, sizeof head, "%02X%02X%02X", r.type & 0xFF, r.row & 0xFF, r.repeat & 0xFF);
    text += head;
    text += r.operand;
  }
  return text + tail;
}

constexpr std::string_view kAlphabet = "XYRFZMTCWDAHK0123456789.()=+-*/:<>; ,_abcdefIFELSNDUQ";
constexpr int kCodes[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 14, 16,
                          17, 18, 21, 22, 23, 24, 25, 26, 29, 31, 38, 39, 40,
                          41, 42, 43, 44, 45, 46, 47, 48, 49, 0,  63};

void SetType(Record& r, int type) {
  r.type = type;
  r.operand.resize(static_cast<std::size_t>(OperandLength(type)), ' ');
}

void MutateRecords(std::vector<Record>& records, std::mt19937& rng) {
  auto pick = [&rng](std::size_t n) { return static_cast<std::size_t>(rng() % n); };
  if (records.empty()) {
    Record r;
    SetType(r, 1);
    r.row = 0xC0;
    records.push_back(r);
    return;
  }
  Record& r = records[pick(records.size())];
  switch (rng() % 9) {
    case 0:
      SetType(r, (r.type & 0xC0) | kCodes[pick(std::size(kCodes))]);
      break;
    case 1:
      r.type ^= 0x80;
      break;  // link flag
    case 2:
      r.type ^= 0x40;
      break;  // variant flag
    case 3:
      r.row = (const int[]){0x00, 0xC0, 0x80, 0xFF, 0xBF}[pick(5)];
      break;
    case 4:
      r.repeat = static_cast<int>(rng() % 12);
      break;
    case 5:
      if (!r.operand.empty()) r.operand[pick(r.operand.size())] = kAlphabet[pick(kAlphabet.size())];
      break;
    case 6:
      records.insert(records.begin() + static_cast<long>(pick(records.size() + 1)), r);
      break;
    case 7:
      records.erase(records.begin() + static_cast<long>(pick(records.size())));
      break;
    default: {
      std::size_t a = pick(records.size()), b = pick(records.size());
      std::swap(records[a], records[b]);
      break;
    }
  }
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t max_size, unsigned int seed);
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t max_size);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t max_size, unsigned int seed) {
  std::mt19937 rng(seed);
  if (rng() % 8 == 0) return LLVMFuzzerMutate(data, size, max_size);
  std::string tail;
  std::vector<Record> records =
      ParseSource(std::string_view(reinterpret_cast<const char*>(data), size), &tail);
  const int rounds = 1 + static_cast<int>(rng() % 3);
  for (int i = 0; i < rounds; ++i) MutateRecords(records, rng);
  std::string text = Serialise(records, tail);
  if (text.size() > max_size) return size;
  std::memcpy(data, text.data(), text.size());
  return text.size();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  rungc::fuzz::FuzzProject& p = rungc::fuzz::Project();
  static const bool written = (p.WriteStandardProject(), true);
  (void)written;
  p.Write("MAIN.PLC", std::string_view(reinterpret_cast<const char*>(data), size));
  p.Compile();
  return 0;
}
