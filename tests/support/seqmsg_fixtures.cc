#include "support/seqmsg_fixtures.h"

#include <cstdio>

namespace rungc::testing {

namespace {

void AppendLittleEndian32(std::string& out, std::int32_t value) {
  const auto bits = static_cast<std::uint32_t>(value);
  for (int shift = 0; shift < 32; shift += 8) out += static_cast<char>((bits >> shift) & 0xFF);
}

}  // namespace

std::string SequenceStep(int type, std::initializer_list<std::string_view> operands) {
  std::string step{'\xFF', static_cast<char>(type)};
  for (std::string_view operand : operands) {
    std::string field(operand.substr(0, 6));
    field.resize(6, ' ');
    step += field;
  }
  return step;
}

SequenceFile& SequenceFile::Header(std::string_view header) {
  header_ = header;
  return *this;
}

SequenceFile& SequenceFile::Add(std::string_view name, std::string_view text) {
  text_ += text;
  return Record(name, static_cast<std::int32_t>(text.size()));
}

SequenceFile& SequenceFile::RawText(std::string_view text) {
  text_ += text;
  return *this;
}

SequenceFile& SequenceFile::Record(std::string_view name, std::int32_t length) {
  records_.emplace_back(std::string(name), length);
  return *this;
}

SequenceFile& SequenceFile::Count(std::int32_t count) {
  count_ = count;
  return *this;
}

std::string SequenceFile::Bytes() const {
  std::string out = header_ + text_;
  out += '\0';
  AppendLittleEndian32(out, count_.value_or(static_cast<std::int32_t>(records_.size())));
  for (const auto& [name, length] : records_) {
    std::string field = name.substr(0, 8);
    field.resize(8, '\0');
    out += field;
    AppendLittleEndian32(out, length);
  }
  return out;
}

MessageFile& MessageFile::Section(int number) {
  char marker[8];
  std::snprintf(marker, sizeof marker, "#B%02d", number);
  return Line(marker);
}

MessageFile& MessageFile::Entry(int number, std::string_view text) {
  char prefix[16];
  std::snprintf(prefix, sizeof prefix, "%02d ", number);
  return Line(prefix + std::string(text));
}

MessageFile& MessageFile::Line(std::string_view line) {
  text_ += line;
  text_ += "\r\n";
  return *this;
}

}  // namespace rungc::testing
