// A buffer of 8-character code units with a write position: the raw code text of a rung and the
// folded code record both use it. Appends are all-or-nothing and never pass the capacity; the
// character at the write position is always NUL.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace rungc {

template <std::size_t N>
class UnitBuffer {
 public:
  UnitBuffer() { Clear(); }

  // Fills the whole buffer with NUL and moves the write position to the start.
  void Clear() {
    chars_.fill('\0');
    pos_ = 0;
  }
  // Appends the characters when they fit (leaving room for the closing NUL); false otherwise.
  bool Append(std::string_view s) {
    if (s.size() > N - pos_) return false;
    if (!s.empty()) std::memcpy(chars_.data() + pos_, s.data(), s.size());
    pos_ += s.size();
    chars_[pos_] = '\0';
    return true;
  }
  bool Fits(std::size_t count) const { return count <= N - pos_; }

  char* data() { return chars_.data(); }
  const char* data() const { return chars_.data(); }
  std::size_t position() const { return pos_; }
  // Moves the write position back to an earlier place (the characters after it become NUL).
  void Truncate(std::size_t pos) {
    if (pos > pos_) return;
    std::memset(chars_.data() + pos, 0, pos_ - pos);
    pos_ = pos;
  }
  std::string_view view() const { return {chars_.data(), pos_}; }
  static constexpr std::size_t capacity() { return N; }

 private:
  std::array<char, N + 1> chars_{};
  std::size_t pos_ = 0;
};

}  // namespace rungc
