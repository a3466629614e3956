// Every number the compiler reports has a text; the three record kinds keep their own meanings.
#include "error_texts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace rungc::tool {
namespace {

TEST(ErrorTexts, EveryReportedNumberHasAText) {
  std::vector<int> errors = {1,  2,  3,  4,  9,  15, 16, 18, 19, 20, 21, 22, 23, 24, 25,
                             26, 27, 28, 29, 31, 32, 33, 34, 35, 37, 38, 39, 40, 41, 47,
                             50, 51, 53, 55, 56, 57, 58, 59, 60, 66, 68, 69, 79, 80, 1002};
  // The rung reader's and the rung validator's rule numbers.
  for (int rule : {3, 4, 5, 6, 7, 8, 9, 10, 12, 13, 14, 15, 17, 18, 23, 30}) {
    errors.push_back(1000 + rule);
  }
  for (int writer : {4999, 5001, 5002, 5003, 5004, 5005, 5006}) errors.push_back(writer);
  for (int number : errors) {
    EXPECT_FALSE(ErrorText(RecordKind::kError, number).empty()) << number;
  }
  for (int number : {1, 2, 35, 37, 58}) {
    EXPECT_FALSE(ErrorText(RecordKind::kLabelError, number).empty()) << number;
  }
  EXPECT_FALSE(ErrorText(RecordKind::kWarning, 1).empty());
  EXPECT_TRUE(ErrorText(RecordKind::kError, 5).empty());  // between numbers that have one
}

TEST(ErrorTexts, TheSameNumberMeansDifferentThingsByRecordKind) {
  EXPECT_NE(ErrorText(RecordKind::kError, 1), ErrorText(RecordKind::kLabelError, 1));
  EXPECT_NE(ErrorText(RecordKind::kError, 1), ErrorText(RecordKind::kWarning, 1));
  EXPECT_NE(ErrorText(RecordKind::kError, 2), ErrorText(RecordKind::kLabelError, 2));
}

}  // namespace
}  // namespace rungc::tool
