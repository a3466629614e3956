#include "sequencer/sequencer.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <string>

#include "common/session.h"
#include "diag/report.h"
#include "driver/project_files.h"
#include "labels/label_table.h"
#include "sequencer/sequence_operands.h"

namespace rungc {

namespace {

constexpr std::string_view kSequenceHeader = "- KORVA   1994       SEQ             ;";
constexpr std::string_view kOlderSequenceHeader = "- HALVERN 1992 RKX   SEQ             ;";
constexpr std::size_t kSequenceHeaderLength = 38;
constexpr std::int32_t kSequenceCountRule = 26;  // above it, the last record is not compiled
constexpr std::size_t kSequenceRecordSize = 12;
constexpr std::size_t kSequenceNameSize = 8;
constexpr unsigned char kStepStart = 0xFF;
constexpr std::string_view kNoOperand = "______";
constexpr std::string_view kClosingLine = "#S#Ss______\r\n";
constexpr std::size_t kStepLineLength = 3 + 4 * 8 + 2;  // "#S#", four units, CR LF

struct OperandRule {
  int mode;       // SequenceOperandMode
  bool no_input;  // the input families are refused
};

// One row of the step-type table: how many bytes follow the type byte, the operands among them,
// and which operand each of the line's four units shows (-1: "______").
struct StepType {
  int type;
  std::size_t record_bytes;
  bool writes_line;
  bool end_step;
  int operand_count;
  std::array<OperandRule, 4> operands;
  std::array<int, 4> units;
};

constexpr OperandRule kWord{kSequenceWord, false};
constexpr OperandRule kWordNoInput{kSequenceWord, true};
constexpr OperandRule kWordOrConstant{kSequenceWordOrConstant, false};
constexpr OperandRule kBit{kSequenceBit, false};
constexpr OperandRule kBitNoInput{kSequenceBit, true};

constexpr StepType EndStep(int type) {
  return {type, 0, true, true, 0, {}, {-1, -1, -1, -1}};
}
constexpr StepType SilentStep(int type, std::size_t bytes) {
  return {type, bytes, false, false, 0, {}, {-1, -1, -1, -1}};
}

constexpr std::array<StepType, 18> kStepTypeTable = {{
    EndStep(1),
    EndStep(2),
    {3, 6, true, false, 1, {kWordOrConstant}, {-1, -1, 0, -1}},
    {4, 18, true, false, 3, {kWordNoInput, kWordOrConstant, kWordOrConstant}, {-1, 0, 1, 2}},
    {5, 12, true, false, 2, {kWord, kWordOrConstant}, {0, -1, 1, -1}},
    {6, 12, true, false, 2, {kWord, kWordOrConstant}, {0, -1, 1, -1}},
    {7, 24, true, false, 4, {kWord, kWordNoInput, kWordOrConstant, kWordOrConstant}, {0, 1, 2, 3}},
    {8, 24, true, false, 4, {kWord, kWordNoInput, kWordOrConstant, kWordOrConstant}, {0, 1, 2, 3}},
    {9, 24, true, false, 4, {kWord, kWordNoInput, kWordOrConstant, kWordOrConstant}, {0, 1, 2, 3}},
    EndStep(10),
    SilentStep(11, 0),
    {12, 6, true, false, 1, {kBitNoInput}, {-1, 0, -1, -1}},
    {13, 6, true, false, 1, {kBitNoInput}, {-1, 0, -1, -1}},
    {14, 6, true, false, 1, {kBit}, {0, -1, -1, -1}},
    {15, 6, true, false, 1, {kBit}, {0, -1, -1, -1}},
    SilentStep(16, 40),
    {127, 6, true, false, 1, {kWordNoInput}, {-1, 0, -1, -1}},
    SilentStep(128, 0),
}};

const StepType* FindStepType(int type) {
  for (const StepType& row : kStepTypeTable) {
    if (row.type == type) return &row;
  }
  return nullptr;
}

// The character after 'S' that names a step type: '0' + type, '_' for type 127.
char StepTypeCharacter(int type) {
  return type == 127 ? '_' : static_cast<char>('0' + type);
}

// The sequence file's name: the listing name with its extension replaced by "VP".
std::string SequenceFileName(const std::string& listing_name) {
  const std::size_t dot = listing_name.rfind('.');
  return (dot == std::string::npos ? listing_name : listing_name.substr(0, dot)) + ".VP";
}

std::int32_t LittleEndian32(const unsigned char* bytes) {
  const std::uint32_t value =
      static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
      static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
  return static_cast<std::int32_t>(value);
}

// Reads the text area up to its byte 0, dropping a carriage return before a line feed. False when
// the file ends first or the text area is longer than 9,899 bytes.
bool ReadTextArea(platform::InputFile& file, SequencerState& q) {
  q.text.fill(0);
  std::size_t length = 0;
  int c = file.GetByte();
  while (c > 0) {
    int next = file.GetByte();
    if (c == '\r' && next == '\n') {
      c = '\n';
      next = file.GetByte();
    }
    if (length == kSequenceTextMax) return false;
    q.text[length++] = static_cast<unsigned char>(c);
    c = next;
  }
  q.text_length = length;
  return c == 0;
}

// Reads the count and the sequence records into the sequence table. False when the file ends
// before them.
bool ReadSequenceRecords(platform::InputFile& file, SequencerState& q) {
  std::array<unsigned char, kSequenceRecordSize> record{};
  if (file.Read(reinterpret_cast<char*>(record.data()), 4) != 4) return false;
  const std::int32_t count = LittleEndian32(record.data());
  std::int64_t start = 0;
  for (std::int32_t i = 0; i < count; ++i) {
    if (file.Read(reinterpret_cast<char*>(record.data()), record.size()) != record.size()) {
      return false;
    }
    const void* end = std::memchr(record.data(), 0, kSequenceNameSize);
    const std::size_t name_length =
        end == nullptr
            ? kSequenceNameSize
            : static_cast<std::size_t>(static_cast<const unsigned char*>(end) - record.data());
    std::array<char, 16> name{};
    std::snprintf(name.data(), name.size(), "%-6.*s", static_cast<int>(name_length),
                  reinterpret_cast<const char*>(record.data()));
    SequenceRow row;
    row.name.Set(name.data());
    row.start = start;
    row.length = LittleEndian32(record.data() + kSequenceNameSize);
    start += row.length;
    q.table.push_back(row);
  }
  q.sequence_count = count > kSequenceCountRule ? count - 1 : std::max(count, 0);
  return true;
}

// Copies the text of a sequence into the cleared working copy. The slice is cut to the text
// area: bytes outside it read as the byte 0 that ends a sequence.
void CopySequenceText(SequencerState& q, const SequenceRow& row) {
  q.work.fill(0);
  const std::int64_t area = static_cast<std::int64_t>(q.text_length);
  const std::int64_t from = std::clamp<std::int64_t>(row.start, 0, area);
  const std::int64_t to = std::clamp<std::int64_t>(row.start + row.length, from, area);
  std::memcpy(q.work.data(), q.text.data() + from, static_cast<std::size_t>(to - from));
}

unsigned char WorkByte(const SequencerState& q, std::size_t at) {
  return at < q.work.size() ? q.work[at] : 0;
}

// Encodes the operands of the step at `at` into `operands`: 0, or the error number of the first
// operand that fails.
int EncodeStepOperands(CompileSession& session, const StepType& step, std::size_t at,
                       std::array<SequenceOperand, 4>& operands) {
  const SequencerState& q = session.sequencer;
  for (int k = 0; k < step.operand_count; ++k) {
    SequenceOperand& operand = operands[static_cast<std::size_t>(k)];
    for (std::size_t i = 0; i < operand.size(); ++i) {
      operand[i] = static_cast<char>(WorkByte(q, at + 2 + 6 * static_cast<std::size_t>(k) + i));
    }
    const OperandRule& rule = step.operands[static_cast<std::size_t>(k)];
    const int error =
        EncodeSequenceOperand(session.memory.sizes, operand, rule.mode, rule.no_input);
    if (error != 0) return error;
  }
  return 0;
}

// The line of a step: "#S#", then 'S' and the type character, three times "S_", each followed
// by the operand the unit shows or "______"; carriage return, line feed.
bool AppendStepLine(SequencerState& q, const StepType& step,
                    const std::array<SequenceOperand, 4>& operands) {
  FixedText<kStepLineLength> line("#S#");
  for (std::size_t unit = 0; unit < 4; ++unit) {
    const char prefix[2] = {'S', unit == 0 ? StepTypeCharacter(step.type) : '_'};
    line.Append(std::string_view(prefix, 2));
    const int shown = step.units[unit];
    line.Append(shown < 0 ? kNoOperand
                          : std::string_view(operands[static_cast<std::size_t>(shown)].data(), 6));
  }
  line.Append("\r\n");
  return q.output.Append(line.view());
}

// Appends the output buffer to the listing and adds its bytes to the listing checksum.
void AppendToListing(CompileSession& session, platform::OutputFile& listing) {
  const std::string_view bytes = session.sequencer.output.view();
  listing.Write(bytes);
  AddToListingChecksum(session, bytes);
}

}  // namespace

int ReadSequenceFile(CompileSession& session) {
  SequencerState& q = session.sequencer;
  q.file_read = false;
  q.error_number = 0;
  q.failed_sequence = -1;
  q.table.clear();
  q.sequence_count = 0;
  q.text_length = 0;
  platform::InputFile file;
  const std::string path = ProjectPath(session, SequenceFileName(session.driver.listing_name));
  if (!file.Open(session.work_dir.ResolveInput(path), platform::OpenMode::kBinary)) return -1;
  std::array<char, kSequenceHeaderLength + 1> header{};
  file.ReadLine(header.data(), kSequenceHeaderLength);
  if (!NamesEqual(header.data(), kSequenceHeader) &&
      !NamesEqual(header.data(), kOlderSequenceHeader)) {
    return -1;
  }
  if (ReadTextArea(file, q) && ReadSequenceRecords(file, q)) q.file_read = true;
  return 1;
}

int CompileSequences(CompileSession& session) {
  SequencerState& q = session.sequencer;
  if (!q.file_read) return 0;
  q.failed_sequence = -1;
  // Without a listing to append to (no compile ran in the session) nothing is compiled.
  platform::OutputFile listing;
  if (!listing.OpenAppend(session.diag.listing_path)) return 0;
  for (std::int32_t i = 0; i < q.sequence_count; ++i) {
    q.output.Clear();
    CopySequenceText(q, q.table[static_cast<std::size_t>(i)]);
    if (CompileSequence(session, i) != 0) {
      q.failed_sequence = i;
      break;
    }
    AppendToListing(session, listing);
  }
  q.output.Clear();
  q.output.Append(kClosingLine);
  AppendToListing(session, listing);
  return q.error_number != 0 ? 2 : 1;
}

int CompileSequence(CompileSession& session, int index) {
  SequencerState& q = session.sequencer;
  q.error_number = 0;
  const std::string head =
      "#S#SS" + std::string(q.table[static_cast<std::size_t>(index)].name.view().substr(0, 6)) +
      "\r\n";
  q.output.Append(head);
  int steps = 0;
  bool end_met = false;
  std::size_t at = 0;
  while (q.error_number == 0 && WorkByte(q, at) != 0) {
    // A byte other than the step mark ends the sequence where it stands.
    if (WorkByte(q, at) != kStepStart) return steps;
    ++steps;
    const StepType* step = FindStepType(WorkByte(q, at + 1));
    if (step == nullptr) return steps;
    end_met = end_met || step->end_step;
    std::array<SequenceOperand, 4> operands{};
    q.error_number = EncodeStepOperands(session, *step, at, operands);
    if (q.error_number == 0 && step->writes_line && !AppendStepLine(q, *step, operands)) {
      q.error_number = kSequenceTooLong;
    }
    at += 2 + step->record_bytes;
  }
  if (end_met || q.error_number != 0) return q.error_number == 0 ? 0 : steps;
  q.error_number = kSequenceNoEndStep;
  return steps;
}

}  // namespace rungc
