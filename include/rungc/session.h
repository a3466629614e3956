// The C++ interface of the compiler: a session runs compiles in a directory of its choosing.
// A new session starts with a fresh state; compiles of one session share what the loaded module
// would keep between calls (the listing checksum, the element flags, the memory map sizes).
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>

namespace rungc {

struct CompileSession;

inline constexpr std::uint32_t kCompileOk = 0;
inline constexpr std::uint32_t kCompileUnusable = 4097;  // status/project/listing/error file
inline constexpr std::uint32_t kCompileFailed = 4098;

struct CompileOptions {
  // Compile the project's sequence file after the object code step.
  bool run_sequences = false;
  // Polled between rungs: true acts as the Escape key (the program being compiled ends with
  // error 47). Null: no key is ever pressed.
  std::function<bool()> escape_requested;
};

class Session {
 public:
  Session();
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // One complete compile with `directory` as the current directory; gives 0, 4097 or 4098.
  std::uint32_t Compile(const std::filesystem::path& directory, const CompileOptions& options = {});

  // The result of the sequence compile of the last Compile that ran it: 0 none read, 1 compiled,
  // 2 a sequence failed; -1 when it did not run.
  int last_sequence_result() const { return last_sequence_result_; }

  CompileSession& state() { return *state_; }

 private:
  std::unique_ptr<CompileSession> state_;
  int last_sequence_result_ = -1;
};

}  // namespace rungc
