// Integer results of a per-element kernel: the kernel fills a block of
// doubles, and each becomes a result element by the library's one rule.
#ifndef VDL_CHUNKED_RESULT_H
#define VDL_CHUNKED_RESULT_H

#include "vdlround.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// fill(first, count, values) computes elements first .. first + count - 1.
template <class D, class Fill>
void scaledInBlocks(D* dst, int len, int scaleFactor, const Fill& fill)
{
    constexpr int block = 256;
    double values[block];
    const ScaleRule<D> rule(scaleFactor);
    for (int first = 0; first < len; first += block) {
        const int count = len - first < block ? len - first : block;
        fill(first, count, values);
        for (int i = 0; i < count; ++i)
            dst[first + i] = rule(values[i]);
    }
}

} // namespace vdl

#pragma GCC visibility pop

#endif
