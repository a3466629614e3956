#include "output/opcode_table.h"

namespace rungc {

// OpcodeTable. It must stay in step with the unit letters that the rung dispatch, the ladder
// network compiler and the instruction generators write (in their listing form, a blank read as
// '_'): a unit whose mnemonic is missing here fails the object code with -1.
const std::array<OpcodeRow, kOpcodeRows + 1> kOpcodeTable = {{
    {"A_", 2},   {"a_", 4},   {"B_", 10},  {"b_", 12},  {"C_", 30},  {"c_", 32},  {"D_", 6},
    {"d_", 8},   {"E_", 18},  {"e_", 56},  {"F_", 20},  {"G_", 24},  {"g_", 26},  {"I_", 34},
    {"i_", 36},  {"j_", 60},  {"J_", 62},  {"H_", 14},  {"h_", 16},  {"N_", 22},  {"n_", 38},
    {"O_", 44},  {"P_", 46},  {"Q_", 48},  {"o_", 50},  {"p_", 52},  {"T_", 28},  {"Y_", 54},
    {"Ll", 74},  {"L2", 68},  {"L3", 70},  {"LJ", 100}, {"Lj", 102}, {"LC", 112}, {"Lc", 114},
    {"LS", 118}, {"Ls", 116}, {"LT", 120}, {"Li", 124}, {"m_", 0},   {"MA", 92},  {"Ma", 90},
    {"ML", 168}, {"M=", 182}, {"Md", 132}, {"MD", 134}, {"M@", 164}, {"M$", 166}, {"MO", 160},
    {"Mo", 162}, {"M+", 128}, {"M-", 136}, {"M*", 144}, {"M/", 148}, {"M&", 152}, {"M|", 154},
    {"M^", 188}, {"ME", 170}, {"M>", 172}, {"M<", 174}, {"M]", 176}, {"M[", 178}, {"Me", 180},
    {"MQ", 146}, {"Mq", 150}, {"MI", 184}, {"Mi", 186}, {"MS", 156}, {"Ms", 158}, {"MB", 192},
    {"Mb", 194}, {"MC", 202}, {"MF", 204}, {"MV", 206}, {"MG", 190}, {"MT", 140}, {"Mt", 142},
    {"MU", 196}, {"Mu", 198}, {"MP", 234}, {"Mp", 236}, {"Mf", 238}, {"MX", 254}, {"Mx", 208},
    {"M_", 0},   {"Mj", 244}, {"Mk", 246}, {"Ml", 248}, {"FF", 0},
}};

bool LookUpOpcode(char first, char second, std::uint8_t* opcode) {
  for (std::size_t i = 0; i < kOpcodeRows; ++i) {
    const OpcodeRow& row = kOpcodeTable[i];
    if (row.mnemonic[0] == first && row.mnemonic[1] == second) {
      *opcode = row.opcode;
      return true;
    }
  }
  return false;
}

}  // namespace rungc
