#include "output/side_files.h"

#include <cctype>
#include <cstring>

#include "common/chars.h"
#include "common/session.h"
#include "output/object_file.h"
#include "output/resolve_operand.h"

namespace rungc {

namespace {

struct TableFiles {
  const char* source_extension;
  std::string_view source_header;
  const char* side_extension;
  std::string_view side_header;
};

constexpr TableFiles kThermoregulationFiles{"tmr", "- KORVA   1994       TERMO           ;", "tmc",
                                            "- KORVA   1994       TERMOCOD        ;"};
constexpr TableFiles kPidFiles{"pds", "- KORVA   1994       PID             ;", "pdc",
                               "- KORVA   1994       PIDCOD          ;"};

constexpr std::size_t kHeaderCompared = 30;
constexpr std::size_t kHeaderLineMax = 79;
constexpr std::size_t kTableLineMax = 1999;
constexpr std::int32_t kFirstTableLine = 20001;
constexpr std::uint8_t kMarker[4] = {0x01, 0x01, 0x01, 0x01};
constexpr std::uint8_t kSignature[4] = {0x55, 0xAA, 0xAA, 0x55};
constexpr std::uint8_t kEmptyRecord[4] = {0x55, 0x55, 0x55, 0x55};
constexpr std::string_view kNullOperand = "  NULL";

const TableFiles& FilesOf(ParameterTable table) {
  return table == ParameterTable::kThermoregulation ? kThermoregulationFiles : kPidFiles;
}

char Upper(char c) {
  return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}

// The position after the next ',' from `from`, or the end of the line when there is none.
std::size_t AfterNextComma(std::string_view line, std::size_t from) {
  const std::size_t comma = line.find(',', from < line.size() ? from : line.size());
  return comma == std::string_view::npos ? line.size() : comma + 1;
}

// A decimal integer as "%d" reads it (blanks skipped, a sign); 0 when there is none. Only the
// low 16 bits are kept, so wider numbers wrap.
std::uint16_t ReadValue(std::string_view line, std::size_t at) {
  while (std::isspace(static_cast<unsigned char>(At(line, at)))) ++at;
  const bool negative = At(line, at) == '-';
  if (At(line, at) == '-' || At(line, at) == '+') ++at;
  std::uint32_t value = 0;
  while (std::isdigit(static_cast<unsigned char>(At(line, at)))) {
    value = value * 10 + static_cast<std::uint32_t>(At(line, at++) - '0');
  }
  return static_cast<std::uint16_t>(negative ? 0u - value : value);
}

// Stores bytes in the record as far as it reaches.
struct RecordWriter {
  TableRecord* record;
  std::size_t length = 0;

  bool full(std::size_t more) const { return length + more > record->size(); }
  void Byte(std::uint8_t b) {
    if (!full(1)) (*record)[length++] = b;
  }
  void Value(std::uint16_t v) {
    Byte(static_cast<std::uint8_t>(v & 0xFF));
    Byte(static_cast<std::uint8_t>(v >> 8));
  }
};

// The 3 bytes of an operand of the table line at `at`: "  NULL" gives zeros; any other name is
// normalised and resolved like a unit's operand field. A word is required when `word_only`.
int ConvertTableOperand(const MemoryMapState& map, std::string_view line, std::size_t at,
                        bool word_only, RecordWriter& out) {
  std::array<char, 8> name{};
  for (std::size_t i = 0; i < 6; ++i) name[i] = At(line, at + i);
  if (std::string_view(name.data(), 6) == kNullOperand) {
    for (int i = 0; i < 3; ++i) out.Byte(0);
    return 0;
  }
  if (char* blank = std::strchr(name.data(), ' '); blank != nullptr) *blank = '\0';
  if (NormalizeWordName(name.data()) != 0) return kNoSuchArea;
  UnitText unit;
  unit.fill(' ');
  std::memcpy(unit.data() + 2, name.data(), 6);
  OperandAddress address;
  if (int result = ResolveOperand(map, unit, &address); result != 0) return result;
  if (word_only && address.access != 255) return kNoSuchArea;
  out.Byte(address.access);
  out.Byte(address.low);
  out.Byte(address.high);
  return 0;
}

}  // namespace

int NormalizeWordName(char* name) {
  const std::size_t length = std::strlen(name);
  name[0] = Upper(name[0]);
  if (name[0] != 'W') return kNoSuchArea;
  name[1] = Upper(name[1]);
  if (name[1] == 'A' && length >= 2) {
    // WAX12 becomes AX012: the analogue areas are named without their 'W'.
    std::array<char, 8> moved{};
    moved[0] = 'A';
    moved[1] = Upper(name[2]);
    moved[2] = '0';
    for (std::size_t i = 3; i < length; ++i) moved[i] = name[i];
    std::memcpy(name, moved.data(), length);
  }
  if (length >= 6) return 0;
  // The digits after the two letters move to the end of the field; zeros fill the gap.
  const std::size_t digits = length >= 2 ? length - 2 : 0;
  std::array<char, 6> field;
  field.fill('0');
  field[0] = name[0];
  field[1] = name[1];
  std::memcpy(field.data() + 6 - digits, name + length - digits, digits);
  std::memcpy(name, field.data(), 6);
  name[6] = '\0';
  return 0;
}

int ConvertTableLine(const MemoryMapState& map, std::string_view line, TableRecord* record,
                     std::size_t* length) {
  RecordWriter out{record};
  *length = 0;
  if (At(line, 4) == 'N') {
    for (std::uint8_t b : kEmptyRecord) out.Byte(b);
    *length = out.length;
    return 0;
  }
  if (int result = ConvertTableOperand(map, line, 5, false, out); result != 0) return result;
  std::size_t at = 12;
  for (int value = 1; value <= 6; ++value) {
    if (value > 1) at = AfterNextComma(line, at);
    out.Value(ReadValue(line, at));
  }
  const std::size_t operand_b = AfterNextComma(line, at);
  if (int result = ConvertTableOperand(map, line, operand_b, true, out); result != 0) {
    return result;
  }
  at = operand_b + 7;
  out.Value(ReadValue(line, at));
  // Further values up to the line end; a record that is full takes no more.
  for (at = AfterNextComma(line, at); At(line, at) != '\n' && At(line, at) != '\0' && !out.full(2);
       at = AfterNextComma(line, at)) {
    out.Value(ReadValue(line, at));
  }
  *length = out.length;
  return 0;
}

int ConvertTableFile(CompileSession& session, const std::string& listing_path,
                     platform::OutputFile& side, const std::filesystem::path& side_path,
                     ParameterTable table) {
  const TableFiles& files = FilesOf(table);
  platform::InputFile source;
  std::array<char, kTableLineMax + 1> line{};
  if (source.Open(FindBesideListing(WithPathExtension(listing_path, files.source_extension)),
                  platform::OpenMode::kText)) {
    source.ReadLine(line.data(), kHeaderLineMax);
  }
  if (!source.is_open() ||
      std::strncmp(line.data(), files.source_header.data(), kHeaderCompared) != 0 ||
      FindMemoryArea(session.memory, "WZ") == nullptr) {
    side.Write(kMarker, sizeof kMarker);
    return 0;
  }
  side.WriteLine(files.side_header);
  side.Write(kSignature, sizeof kSignature);
  session.object.line_counter = kFirstTableLine;
  TableRecord record;
  for (;;) {
    line.fill('\0');
    source.ReadLine(line.data(), kTableLineMax);
    if (source.eof()) return 0;
    record.fill(0);
    std::size_t length = 0;
    const int result = ConvertTableLine(session.memory, line.data(), &record, &length);
    if (result != 0) {
      source.Close();
      side.Close();
      platform::RemoveFile(side_path);
      return result;
    }
    side.Write(record.data(), length);
    ++session.object.line_counter;
  }
}

int WriteSideFiles(CompileSession& session, const std::string& listing_path) {
  int first_failure = 0;
  std::int32_t counter_at_failure = 0;
  for (ParameterTable table : {ParameterTable::kThermoregulation, ParameterTable::kPid}) {
    const std::filesystem::path side_path =
        WithPathExtension(listing_path, FilesOf(table).side_extension);
    platform::OutputFile side;
    if (!side.Create(side_path)) continue;
    const int result = ConvertTableFile(session, listing_path, side, side_path, table);
    if (result != 0 && first_failure == 0) {
      first_failure = result;
      counter_at_failure = session.object.line_counter;
    }
  }
  if (first_failure != 0) session.object.line_counter = counter_at_failure;
  return first_failure;
}

}  // namespace rungc
