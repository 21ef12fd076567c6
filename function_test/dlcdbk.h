// dlcdbk.h: what the codebook modules share: the "Hint" parameter with the
// library's creation hints by name, the codebook size a hint asks for,
// making and releasing codebooks of either element type, and the
// bit-packed index rows of the 1u functions.
#ifndef DL_CDBK_H
#define DL_CDBK_H

#include <initializer_list>

#include "dl.h"

// Hints by name: 1 "full", 2 "kmeansLong", 3 "kmeansNum"; the default walk
// is `defaults`.
inline void dlCdbkHint(kvMapIterator<int>& hint, std::initializer_list<int> defaults) {
    dlMapList(hint, "Hint",
              {{vdlCdbkHintFull, "full"},
               {vdlCdbkHintKmeansLong, "kmeansLong"},
               {vdlCdbkHintKmeansNum, "kmeansNum"}},
              defaults);
}

// The full hint keeps every training vector; k-means make a fifth as many.
inline int dlClusterCount(int hint, int height) {
    return hint == vdlCdbkHintFull ? height : height / 5;
}

// A codebook of either element type, from `height` rows of `width`
// elements of `src` (row step `width`), weighted when `wgt` is given.
inline VdlStatus dlCdbkCreate(bool f32, void** handle, dlVector& src, dlVector* wgt, int width,
                              int height, int nClust, int hint) {
    Vdl_Cdbk_Hint h = (Vdl_Cdbk_Hint)hint;
    if (f32)
        return wgt ? vdlsCdbkInitAlloc_WgtL2_32f((VdlsCdbkState_32f**)handle, src, *wgt, width,
                                                 width, height, nClust, h)
                   : vdlsCdbkInitAlloc_L2_32f((VdlsCdbkState_32f**)handle, src, width, width,
                                              height, nClust, h);
    return wgt ? vdlsCdbkInitAlloc_WgtL2_16s((VdlsCdbkState_16s**)handle, src, *wgt, width, width,
                                             height, nClust, h)
               : vdlsCdbkInitAlloc_L2_16s((VdlsCdbkState_16s**)handle, src, width, width, height,
                                          nClust, h);
}

// Releases a codebook made by dlCdbkCreate, if any, and forgets it.
inline void dlCdbkFree(bool f32, void** handle) {
    if (!*handle) return;
    if (f32) vdlsCdbkFree_32f((VdlsCdbkState_32f*)*handle);
    else vdlsCdbkFree_16s((VdlsCdbkState_16s*)*handle);
    *handle = 0;
}

// A table of codebook handles from the library's allocator, one pointer
// each, all made from the same training rows; released last to first.
class dlCdbkTable {
public:
    dlCdbkTable() : m_table(0), m_count(0), m_f32(false) {}

    // False, with nothing left behind, when a codebook cannot be made.
    bool create(bool f32, int count, dlVector& src, int width, int height, int nClust, int hint) {
        release();
        m_table = (void**)vdlsMalloc_8u(count * (int)sizeof(void*));
        if (!m_table) return false;
        m_f32 = f32;
        for (int c = 0; c < count; ++c) {
            m_table[c] = 0;
            if (dlCdbkCreate(f32, &m_table[c], src, 0, width, height, nClust, hint) != vdlStsNoErr) {
                release();
                return false;
            }
            m_count = c + 1;
        }
        return true;
    }
    void release() {
        for (int c = m_count - 1; c >= 0; --c) dlCdbkFree(m_f32, &m_table[c]);
        if (m_table) vdlsFree(m_table);
        m_table = 0;
        m_count = 0;
    }
    operator VdlsCdbkState_16s**() const { return (VdlsCdbkState_16s**)m_table; }
    operator VdlsCdbkState_32f**() const { return (VdlsCdbkState_32f**)m_table; }

private:
    void** m_table;
    int m_count;
    bool m_f32;
};

// Bits of an index into `n` codewords: the base-2 logarithm rounded up.
inline int dlCeilLog2(int n) {
    int bits = 0;
    while ((1 << bits) < n) ++bits;
    return bits;
}

// The same rounded down.
inline int dlFloorLog2(int n) {
    int bits = 0;
    while ((2 << bits) <= n) ++bits;
    return bits;
}

// Packs `rows` rows of `perRow` indices into bits: row r starts at bit
// r * rowBits, each index takes `bits` bits, high bits first, and bit b is
// bit 7 - b % 8 of byte b / 8.
inline void dlPackIndices(dl8u* bytes, const dl16s* indices, int rows, int perRow, int bits,
                          int rowBits) {
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < perRow; ++c) {
            int value = indices[r * perRow + c];
            long long first = (long long)r * rowBits + (long long)c * bits;
            for (int b = 0; b < bits; ++b) {
                long long bit = first + b;
                if ((value >> (bits - 1 - b)) & 1) bytes[bit >> 3] |= (dl8u)(0x80 >> (bit & 7));
            }
        }
}

#endif
