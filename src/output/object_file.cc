#include "output/object_file.h"

#include <cctype>
#include <cstring>
#include <string_view>

#include "common/session.h"
#include "output/opcode_table.h"
#include "output/side_files.h"

namespace rungc {

namespace {

constexpr std::string_view kObjectHeader = "- KORVA   1995 V2.0  COD             ;";
// Listings of this and of the older writer are accepted; headers compare on 30 characters.
constexpr std::string_view kListingHeader = "- KORVA   1995 V2.0  LIS             ;";
constexpr std::string_view kOlderListingHeader = "- HALVERN 1992 RKX   LIS             ;";
constexpr std::size_t kHeaderCompared = 30;
constexpr std::size_t kHeaderLineMax = 79;
constexpr std::size_t kObjectLineMax = 1999;

bool IsJumpMnemonic(const UnitText& unit) {
  return unit[0] == 'L' && (unit[1] == 'J' || unit[1] == 'j' || unit[1] == 'C' || unit[1] == 'c');
}

// The displacement that the label pass wrote after the 'K' of a jump: the hexadecimal digits
// from character 3 to the end of the unit.
std::uint32_t Displacement(const UnitText& unit) {
  std::uint32_t value = 0;
  for (std::size_t i = 3; i < kUnitSize; ++i) {
    const unsigned char c = static_cast<unsigned char>(unit[i]);
    if (!std::isxdigit(c)) break;
    value = value * 16 +
            static_cast<std::uint32_t>(std::isdigit(c) ? c - '0' : std::toupper(c) - 'A' + 10);
  }
  return value;
}

bool ListingHeaderAccepted(const char* line) {
  return std::strncmp(line, kListingHeader.data(), kHeaderCompared) == 0 ||
         std::strncmp(line, kOlderListingHeader.data(), kHeaderCompared) == 0;
}

}  // namespace

std::filesystem::path FindBesideListing(const std::string& path) {
  return platform::WorkDir().ResolveInput(path);
}

std::string WithPathExtension(const std::string& listing_path, const char* extension) {
  std::string path = listing_path;
  path.resize(path.size() >= 3 ? path.size() - 3 : 0);
  return path + extension;
}

int EncodeUnit(const MemoryMapState& map, const UnitText& unit, bool jump, ObjectWord* word) {
  *word = ObjectWord{};
  std::uint8_t opcode = 0;
  if (!LookUpOpcode(unit[0], unit[1], &opcode)) return kUnknownMnemonic;
  (*word)[0] = opcode;
  // A displacement begins with a decimal digit; one that begins with a letter is read as an
  // operand like any other.
  if (jump && unit[2] == 'K' && std::isdigit(static_cast<unsigned char>(unit[3]))) {
    const std::uint32_t value = Displacement(unit);
    (*word)[1] = static_cast<std::uint8_t>((value >> 16) & 0xFF);
    (*word)[2] = static_cast<std::uint8_t>(value & 0xFF);
    (*word)[3] = static_cast<std::uint8_t>((value >> 8) & 0xFF);
    return 0;
  }
  OperandAddress address;
  const int result = ResolveOperand(map, unit, &address);
  (*word)[1] = address.access;
  (*word)[2] = address.low;
  (*word)[3] = address.high;
  return result;
}

int ConvertCodeLine(const MemoryMapState& map, const char* line,
                    std::array<ObjectWord, kMaxUnitsPerLine>* words, std::size_t* count) {
  *count = 0;
  const std::size_t length = std::strlen(line);
  for (std::size_t at = 3; at < length && line[at] != '\n' && *count < kMaxUnitsPerLine;
       at += kUnitSize) {
    // The unit's characters up to the line end; NUL after it.
    UnitText unit{};
    for (std::size_t i = 0; i < kUnitSize && at + i < length && line[at + i] != '\n'; ++i) {
      unit[i] = line[at + i];
    }
    const int result = EncodeUnit(map, unit, IsJumpMnemonic(unit), &(*words)[*count]);
    if (result != 0) return result;
    ++*count;
  }
  // A record of more units than the line and word buffers hold is refused rather than cut.
  const std::size_t rest = 3 + *count * kUnitSize;
  if (rest < length && line[rest] != '\n') return kNoBufferMemory;
  return 0;
}

int WriteObjectFile(CompileSession& session, const std::string& listing_path) {
  ObjectWriterState& state = session.object;
  platform::InputFile listing;
  if (!listing.Open(FindBesideListing(listing_path), platform::OpenMode::kText)) {
    return kFileFailure;
  }
  std::array<char, kObjectLineMax + 1> line{};
  listing.ReadLine(line.data(), kHeaderLineMax);
  if (!ListingHeaderAccepted(line.data())) return kFileFailure;

  const std::filesystem::path object_path = WithPathExtension(listing_path, "cod");
  platform::OutputFile object;
  if (!object.Create(object_path)) return kFileFailure;
  object.WriteLine(kObjectHeader);

  std::array<ObjectWord, kMaxUnitsPerLine> words;
  for (;;) {
    line.fill('\0');
    listing.ReadLine(line.data(), kObjectLineMax);
    if (listing.eof()) break;
    if (std::strncmp(line.data(), "#F#", 3) == 0) {
      state.current_file_name = line.data() + 3;
      state.line_counter = 1;
      continue;
    }
    if (std::strncmp(line.data(), "#R#", 3) != 0) continue;
    std::size_t count = 0;
    const int result = ConvertCodeLine(session.memory, line.data(), &words, &count);
    if (result != 0) {
      listing.Close();
      object.Close();
      platform::RemoveFile(object_path);
      return result;
    }
    object.Write(words.data(), count * sizeof(ObjectWord));
    ++state.line_counter;
  }
  listing.Close();
  object.Close();
  return WriteSideFiles(session, listing_path);
}

}  // namespace rungc
