// Test-only builders for the sequence file and the message file.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace rungc::testing {

inline constexpr std::string_view kSequenceFileHeader = "- KORVA   1994       SEQ             ;";
inline constexpr std::string_view kOlderSequenceFileHeader =
    "- HALVERN 1992 RKX   SEQ             ;";

// One step of a sequence text: 0xFF, the type byte, then each operand padded with blanks to 6
// characters (longer operands are cut).
std::string SequenceStep(int type, std::initializer_list<std::string_view> operands = {});

// A sequence file: header, text area, byte 0, 32-bit count, 12-byte records (8-byte name, 32-bit
// length), all little-endian.
class SequenceFile {
 public:
  SequenceFile& Header(std::string_view header);
  // A sequence: its text joins the text area, its record gives its name and the text's length.
  SequenceFile& Add(std::string_view name, std::string_view text);
  // Bytes of the text area that belong to no record.
  SequenceFile& RawText(std::string_view text);
  // A record alone, with a length of its own.
  SequenceFile& Record(std::string_view name, std::int32_t length);
  // A count other than the number of records.
  SequenceFile& Count(std::int32_t count);
  std::string Bytes() const;

 private:
  std::string header_{kSequenceFileHeader};
  std::string text_;
  std::vector<std::pair<std::string, std::int32_t>> records_;
  std::optional<std::int32_t> count_;
};

inline constexpr std::string_view kMessageFileHeader = "- KORVA   1994       MSG             ;";
inline constexpr std::string_view kOlderMessageFileHeader =
    "- HALVERN 1992 RKX   MSG             ;";

// A message file: a header, then section markers, entries and raw lines, each ended by CR LF.
class MessageFile {
 public:
  explicit MessageFile(std::string_view header = kMessageFileHeader) : text_(header) {
    text_ += "\r\n";
  }
  // The marker line "#Bnn" of a section.
  MessageFile& Section(int number);
  // An entry line: the number in two digits, a blank, the text.
  MessageFile& Entry(int number, std::string_view text);
  MessageFile& Line(std::string_view line);
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace rungc::testing
