// rungc: runs one compile of a project directory and explains the result to a person.
#include <cstdio>
#include <cstring>
#include <string>

#include "rungc/session.h"

namespace {

int Usage() {
  std::fprintf(stderr, "usage: rungc compile [DIR]\n");
  return 64;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || std::strcmp(argv[1], "compile") != 0 || argc > 3) return Usage();
  const std::string dir = argc == 3 ? argv[2] : ".";
  rungc::Session session;
  const std::uint32_t result = session.Compile(dir);
  std::fprintf(stderr, "result %u\n", static_cast<unsigned>(result));
  return result == 0 ? 0 : result == 4098 ? 1 : 2;
}
