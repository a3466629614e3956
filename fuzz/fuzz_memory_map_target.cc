// The memory map: read from "memory.ovl", then used as the compile uses it. The object writer
// converts a fixed set of listing lines that name every area family and every mnemonic group, the
// side-file conversion resolves table operands, and the sequencer checks operands against the
// sizes derived from the map. Everything after the read works in memory.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/session.h"
#include "driver/memory_map.h"
#include "fuzz_project.h"
#include "output/object_file.h"
#include "output/side_files.h"
#include "sequencer/sequence_operands.h"

namespace {

// Listing lines in listing form: contacts and coils on bit areas, timers, counters, words of
// every area, constants, resolved jumps and the end records.
constexpr std::array<const char*, 6> kCodeLines = {
    "#R#A_X_0123B_R_012Bb_M_0019G_Y_0010g_Z_00F3I_F_0007i_R_3FFF",
    "#R#T_T_0012M_K_0064C_C_0005c_T_0005O_T_007Fp_C_00FF",
    "#R#m_______MDWX0002M_WY0001M_WR0410M_WM00FFM_WF0010M_WZ000FM_AX0123M_AY0707",
    "#R#MAK_0014MDWT0003M_WC0002M_DR0001M+K_FFFFMa______",
    "#R#LJK00010LlK_0012LCK00004LSK_0001LjKA0000LcWR0001",
    "#R#L2______L3______",
};

// Table lines of the side files: word operands of every word area, "NULL" operands, bit areas.
constexpr std::array<std::string_view, 4> kTableLines = {
    "0001 WR12   1,2,3,4,5,6,WM0001 7,8,9,\n",
    "0002 WAX5   -1,0,65536,3,4,5,  NULL 7,\n",
    "0003   NULL 1,2,3,4,5,6,WZ0003 0,1,\n",
    "0004 WY0101 1,2,3,4,5,6,WT0007 9,\n",
};

// Sequence operands of every family, with the mode each is checked in.
struct SequenceCase {
  std::string_view text;
  int mode;
  bool no_input;
};
constexpr std::array<SequenceCase, 8> kSequenceCases = {{
    {"X12.3 ", rungc::kSequenceBit, false},
    {"Y1.F  ", rungc::kSequenceBit, true},
    {"M12.3 ", rungc::kSequenceBit, false},
    {"WAX5  ", rungc::kSequenceWord, false},
    {"WY0102", rungc::kSequenceWordOrConstant, false},
    {"WT7   ", rungc::kSequenceWord, true},
    {"WC3   ", rungc::kSequenceWordOrConstant, false},
    {"WS1   ", rungc::kSequenceWord, false},
}};

void UseMemoryMap(rungc::CompileSession& s) {
  std::array<rungc::ObjectWord, rungc::kMaxUnitsPerLine> words;
  std::size_t count = 0;
  for (const char* line : kCodeLines) rungc::ConvertCodeLine(s.memory, line, &words, &count);
  rungc::TableRecord record;
  std::size_t length = 0;
  for (std::string_view line : kTableLines) {
    rungc::ConvertTableLine(s.memory, line, &record, &length);
  }
  for (const SequenceCase& c : kSequenceCases) {
    rungc::SequenceOperand operand;
    for (std::size_t i = 0; i < operand.size(); ++i) operand[i] = c.text[i];
    rungc::EncodeSequenceOperand(s.memory.sizes, operand, c.mode, c.no_input);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  rungc::CompileSession& s = rungc::fuzz::PassSession();
  rungc::fuzz::Project().Write("memory.ovl",
                               std::string_view(reinterpret_cast<const char*>(data), size));
  s.memory = rungc::MemoryMapState{};  // each input starts from the table of a loaded module
  if (rungc::LoadMemoryMap(s, "memory.ovl") != -1) rungc::DeriveAreaSizes(s.memory);
  UseMemoryMap(s);
  return 0;
}
