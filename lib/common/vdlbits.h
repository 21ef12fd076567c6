// Rows of bits: bit k of a row lies in byte k / 8 under the mask
// 0x80 >> k % 8, the first bit the most significant. Bit numbers are wide
// enough for a whole matrix of packed rows.
#ifndef VDL_COMMON_BITS_H
#define VDL_COMMON_BITS_H

#include "vdlcore.h"

#pragma GCC visibility push(hidden)

namespace vdl {

inline Vdl8u bitMask(long long k) { return static_cast<Vdl8u>(0x80u >> (k & 7)); }

inline bool testBit(const Vdl8u* row, long long k) { return (row[k >> 3] & bitMask(k)) != 0; }

inline void setBit(Vdl8u* row, long long k) { row[k >> 3] |= bitMask(k); }

inline void clearBit(Vdl8u* row, long long k) { row[k >> 3] &= static_cast<Vdl8u>(~bitMask(k)); }

// The 8 bits of a row of `bytes` bytes from bit `first` on, as one byte in
// the same order; bits past the end of the row read as 0.
inline Vdl8u bitsFrom(const Vdl8u* row, int first, int bytes)
{
    const int q = first >> 3;
    const int r = first & 7;
    if (r == 0)
        return row[q];
    const unsigned hi = static_cast<unsigned>(row[q]) << r;
    const unsigned lo = q + 1 < bytes ? static_cast<unsigned>(row[q + 1]) >> (8 - r) : 0u;
    return static_cast<Vdl8u>(hi | lo);
}

// Bytes that hold `bits` bits, and the mask of the used bits of the last.
inline int bytesFor(int bits) { return (bits + 7) / 8; }
inline Vdl8u lastByteMask(int bits)
{
    return bits % 8 == 0 ? Vdl8u(0xFF) : static_cast<Vdl8u>(0xFFu << (8 - bits % 8));
}

} // namespace vdl

#pragma GCC visibility pop

#endif
