#include "support/reliability_fixtures.h"

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <new>

namespace rungc::testing {

namespace {

std::atomic<long> g_allocations{0};
std::atomic<long> g_allowed{-1};  // allocations still allowed; -1 unarmed
std::atomic<bool> g_triggered{false};

void* Allocate(std::size_t size) {
  g_allocations.fetch_add(1, std::memory_order_relaxed);
  long allowed = g_allowed.load(std::memory_order_relaxed);
  if (allowed == 0) {
    g_triggered = true;
    throw std::bad_alloc();
  }
  if (allowed > 0) g_allowed.store(allowed - 1, std::memory_order_relaxed);
  if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
  throw std::bad_alloc();
}

}  // namespace

TreeSnapshot SnapshotTree(const std::filesystem::path& root) {
  TreeSnapshot snapshot;
  std::error_code ec;
  for (std::filesystem::recursive_directory_iterator it(root, ec), end; !ec && it != end;
       it.increment(ec)) {
    if (!it->is_regular_file()) continue;
    std::ifstream in(it->path(), std::ios::binary);
    snapshot[std::filesystem::relative(it->path(), root).generic_string()] =
        std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return snapshot;
}

std::vector<std::string> TreeChanges(const TreeSnapshot& before, const TreeSnapshot& after) {
  std::vector<std::string> changes;
  for (const auto& [name, content] : after) {
    auto old = before.find(name);
    if (old == before.end()) {
      changes.push_back("+" + name);
    } else if (old->second != content) {
      changes.push_back("~" + name);
    }
  }
  for (const auto& [name, content] : before) {
    if (after.find(name) == after.end()) changes.push_back("-" + name);
  }
  return changes;
}

std::string StatusText(std::string_view directory_line, std::string_view project_line) {
  std::string text(kStatusHeaderLine);
  text += "\r\n";
  text.append(directory_line).append("\r\nLANG=ING\r\n").append(project_line).append("\r\n");
  return text;
}

LadderSource BoxRung(int rows, std::string_view last_line) {
  LadderSource source;
  source.Row("1(X1.0) 2(X1.1) 2(X1.2) 38(WY1 = WX2,WY1 = WX2)");
  for (int i = 1; i < rows; ++i) source.Row(". . . 10(WY1 = WX2,WY1 = WX2,WY1 = WX2)");
  source.Row(". . . 10(WY1 = WX2,WY1 = WX2," + std::string(last_line) + ")");
  return source.Row("1(X1.0) -x7 3(Y1.0)");
}

AllocationFailure::AllocationFailure(long allowed) {
  g_triggered = false;
  g_allowed = allowed;
}

AllocationFailure::~AllocationFailure() {
  g_allowed = -1;
}

bool AllocationFailure::triggered() const {
  return g_triggered;
}

long AllocationCount() {
  return g_allocations.load();
}

}  // namespace rungc::testing

// The test binary's global allocation functions: plain malloc and free, with the count and the
// armed failure above. Array and sized forms reach these through the library's defaults.
void* operator new(std::size_t size) {
  return rungc::testing::Allocate(size);
}
void operator delete(void* p) noexcept {
  std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
  std::free(p);
}
