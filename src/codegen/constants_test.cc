#include "codegen/constants.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace rungc {
namespace {

TEST(Constants, DecimalReadsClampAt32Bits) {
  struct Row {
    const char* text;
    std::int32_t value;
  };
  const Row rows[] = {
      {"-5", -5},
      {" +12x", 12},
      {"2147483647", INT32_MAX},
      {"2147483648", INT32_MAX},
      {"99999999999999999999999", INT32_MAX},
      {"-2147483648", INT32_MIN},
      {"-3000000000", INT32_MIN},
  };
  for (const Row& row : rows) {
    std::int32_t value = 0;
    EXPECT_TRUE(ScanLong32(row.text, value)) << row.text;
    EXPECT_EQ(value, row.value) << row.text;
  }
  std::int32_t value = 0;
  EXPECT_FALSE(ScanLong32("", value));
  EXPECT_FALSE(ScanLong32("-", value));
  EXPECT_FALSE(ScanLong32("H1", value));
}

TEST(Constants, HexReadsClampAt32Bits) {
  struct Row {
    const char* text;
    std::uint32_t value;
  };
  const Row rows[] = {
      {"100", 0x100},
      {"1G", 1},
      {"0X10", 0x10},
      {"0X", 0},
      {"0XG", 0},
      {"FFFFFFFF", 0xFFFFFFFF},
      {"00000000100", 0x100},
      {"100000100", 0xFFFFFFFF},
      {"-1", 0xFFFFFFFF},
      {"-5", 0xFFFFFFFB},
  };
  for (const Row& row : rows) {
    std::uint32_t value = 0;
    EXPECT_TRUE(ScanHex32(row.text, value)) << row.text;
    EXPECT_EQ(value, row.value) << row.text;
  }
  std::uint32_t value = 0;
  EXPECT_FALSE(ScanHex32("", value));
  EXPECT_FALSE(ScanHex32("G", value));
}

}  // namespace
}  // namespace rungc
