#include "support/boxe2e_fixtures.h"

#include <cstddef>

namespace rungc::testing {

void AddBoxRung(LadderSource& source, std::string_view before, const std::vector<std::string>& head,
                const std::vector<std::vector<std::string>>& continuations) {
  std::vector<Cell> row = LadderSource::ParseRow(before);
  row.push_back(Cell(38, head));
  source.Row(row);
  for (const std::vector<std::string>& lines : continuations) {
    std::vector<Cell> below = LadderSource::ParseRow(".x2");
    below.push_back(Cell(10, lines));
    source.Row(below);
  }
}

std::string BoxLine(std::string_view line) {
  std::string text(line);
  text.resize(32, ' ');
  return text;
}

std::string CrLfText(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

std::vector<std::string> RunSummary(int rows, int errors, int warnings, int rungs, int main_total,
                                    int sub_total) {
  return {
      "Riga N. = " + std::to_string(rows),          "#TERR=" + std::to_string(errors),
      "#TWRN=" + std::to_string(warnings),          "#TOTRUNG=" + std::to_string(rungs),
      "#TOTMAINISTR=" + std::to_string(main_total), "#TOTSUBMISTR=" + std::to_string(sub_total)};
}

std::string BeforeLabelPass(std::string_view record) {
  std::string text(record);
  // Units start after the three-character record mark, 8 characters each.
  for (std::size_t at = 3; at + 8 <= text.size(); at += 8) {
    if (text.compare(at, 2, "Mj") == 0 || text.compare(at, 2, "Mk") == 0) {
      text.replace(at + 2, 6, "______");
    }
  }
  return text;
}

}  // namespace rungc::testing
