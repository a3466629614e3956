// The listing form of code units, unit by unit and over whole records.
#include "output/listing_form.h"

#include <gtest/gtest.h>

#include <string>

namespace rungc {
namespace {

std::string InListingForm(std::string text) {
  ListingUnitForm(text.data(), text.size());
  return text;
}

TEST(ListingUnitForm, RearrangesOperandsByUnitLetter) {
  struct Case {
    std::string unit;
    std::string listed;
  };
  const Case cases[] = {
      {"DX012.3 ", "D_X_0123"},  // bit operand: the '.' drops out
      {"T00012  ", "T_T_0012"},  // timer: its letter is the area
      {"C00003  ", "C_C_0003"},  // counter
      {"cT0005  ", "c_T_0005"},  // element-16 unit
      {"O00012  ", "O_T_0012"},  // timer variants name area T
      {"Q0001A  ", "Q_T_001A"},
      {"o00012  ", "o_C_0012"},  // counter variants name area C
      {"p00012  ", "p_C_0012"},
      {"BT0001A ", "B_T_001A"},  // a timer or counter word after a letter
      {"AC00012 ", "A_C_0012"},
      {"AR0010  ", "AR0010__"},  // anything else only loses its blanks
      {"LjLOOP1 ", "LjLOOP1_"},  // jumps keep their name
      {"L2      ", "L2______"},
      {"LjA.B   ", "L_j_A.B_"},  // a '.' is looked at before the 'L'
      {"M+WR0001", "M+WR0001"},  // function-block units: blanks only
      {"M X01.2 ", "M_X01.2_"},
      {"m       ", "m_______"},
      {std::string("Y\0\0\0\0\0\0\0", 8), "Y_______"},  // NULs inside a unit become '_'
      {std::string("DX0.\0abc", 8), "D_X_0._b"},        // the '.' is sought before a NUL only
      {std::string("TX1\0.abc", 8), "T_T_1_.a"},
  };
  for (const Case& c : cases) EXPECT_EQ(InListingForm(c.unit), c.listed) << c.unit;
}

TEST(ListingUnitForm, WalksUnitsUntilOneBeginsWithNul) {
  EXPECT_EQ(InListingForm("DX012.3 T00012  M+WR0001"), "D_X_0123T_T_0012M+WR0001");
  const std::string stopped = std::string("DX000.1 ") + std::string(1, '\0') + "X 00 1 ";
  EXPECT_EQ(InListingForm(stopped), std::string("D_X_0001") + std::string(1, '\0') + "X 00 1 ");
  // A last partial unit is left as it stands.
  EXPECT_EQ(InListingForm("DX000.1 Y 1"), "D_X_0001Y 1");
}

}  // namespace
}  // namespace rungc
