// Rows of codeword indices, one per codebook of a table: as elements of an
// integer type, or bit-packed, each index in as many bits as its codebook
// needs, the most significant bit first.
#ifndef VDL_CDBK_INDICES_H
#define VDL_CDBK_INDICES_H

#include <cstddef>
#include <limits>

#include "cdbk_state.h"
#include "vdlbits.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// Bits of an index into `size` codewords: ceil(log2(size)), 0 for one.
inline int indexBits(int size)
{
    int bits = 0;
    while ((1LL << bits) < size)
        ++bits;
    return bits;
}

// Index c of row i at element i * step + c.
template <class I, class Ptr>
class ElementIndices {
public:
    ElementIndices(Ptr base, int step) : m_base(base), m_step(step) {}
    const void* data() const { return m_base; }

    // The step must hold one index per codebook, and I every index.
    template <class T>
    VdlStatus layoutCheck(const typename StateOf<T>::type* const* table, int count)
    {
        if (VdlStatus s = checkStep(m_step, count))
            return s;
        for (int c = 0; c < count; ++c)
            if (table[c]->body.size - 1LL > static_cast<long long>(std::numeric_limits<I>::max()))
                return vdlStsOutOfRangeErr;
        return vdlStsNoErr;
    }
    long long read(int i, int c) const { return m_base[at(i, c)]; }
    void write(int i, int c, int index) const { m_base[at(i, c)] = static_cast<I>(index); }

private:
    std::ptrdiff_t at(int i, int c) const { return static_cast<std::ptrdiff_t>(i) * m_step + c; }

    Ptr m_base;
    int m_step;
};

// Row i starts at bit i * step, in the bit rows of vdlbits.h.
template <class Ptr>
class PackedIndices {
public:
    PackedIndices(Ptr base, int step) : m_base(base), m_step(step) {}
    const void* data() const { return m_base; }

    template <class T>
    VdlStatus layoutCheck(const typename StateOf<T>::type* const* table, int count)
    {
        m_offset.reset(count);
        m_bits.reset(count);
        if (!m_offset.ok() || !m_bits.ok())
            return vdlStsNoMemErr;
        long long offset = 0;
        for (int c = 0; c < count; ++c) {
            m_offset[c] = offset;
            m_bits[c] = indexBits(table[c]->body.size);
            offset += m_bits[c];
        }
        return offset <= m_step ? vdlStsNoErr : vdlStsStepErr;
    }
    long long read(int i, int c) const
    {
        long long value = 0;
        const long long first = start(i, c);
        for (int b = 0; b < m_bits[c]; ++b)
            value = value << 1 | (testBit(m_base, first + b) ? 1 : 0);
        return value;
    }
    void write(int i, int c, int index) const
    {
        const long long first = start(i, c);
        for (int b = 0; b < m_bits[c]; ++b) {
            if ((index >> (m_bits[c] - 1 - b)) & 1)
                setBit(m_base, first + b);
            else
                clearBit(m_base, first + b);
        }
    }

private:
    long long start(int i, int c) const { return static_cast<long long>(i) * m_step + m_offset[c]; }

    Ptr m_base;
    int m_step;
    Buffer<long long> m_offset;
    Buffer<int> m_bits;
};

} // namespace vdl

#pragma GCC visibility pop

#endif
