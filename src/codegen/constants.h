// Numbers of constant operands read as the standard conversions "%ld", "%x" and "%lf" read them
// on the controller suite's platform, whose `long` has 32 bits: a decimal or hexadecimal value
// beyond 32 bits is clamped as the C library clamps a 32-bit `long` (or `unsigned long`), never
// taken with 64 bits. White space and a sign may precede the digits.
#pragma once

#include <cstdint>

namespace rungc {

// "%ld" (and "%d"): decimal digits; above 2147483647 gives 2147483647, below -2147483648 gives
// -2147483648. False when no digit can be read.
bool ScanLong32(const char* text, std::int32_t& value);
// "%x": hexadecimal digits, after an optional "0x" or "0X"; a magnitude above 0xFFFFFFFF gives
// 0xFFFFFFFF, a '-' negates modulo 2^32. False when no digit can be read.
bool ScanHex32(const char* text, std::uint32_t& value);
// "%lf": a decimal floating-point number. False when none can be read.
bool ScanDouble(const char* text, double& value);

}  // namespace rungc
