// A text of at most N characters in a fixed buffer, always NUL-terminated. Longer input is cut,
// never written past the buffer.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace rungc {

template <std::size_t N>
class FixedText {
 public:
  FixedText() = default;
  explicit FixedText(std::string_view s) { Set(s); }

  void Set(std::string_view s) {
    size_ = s.size() < N ? s.size() : N;
    if (size_ > 0) std::memcpy(chars_.data(), s.data(), size_);
    chars_[size_] = '\0';
  }
  void Append(std::string_view s) {
    std::size_t n = s.size() < N - size_ ? s.size() : N - size_;
    if (n > 0) std::memcpy(chars_.data() + size_, s.data(), n);
    size_ += n;
    chars_[size_] = '\0';
  }
  void Clear() { Set({}); }

  std::string_view view() const { return {chars_.data(), size_}; }
  const char* c_str() const { return chars_.data(); }
  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  static constexpr std::size_t capacity() { return N; }

 private:
  std::array<char, N + 1> chars_{};
  std::size_t size_ = 0;
};

}  // namespace rungc
