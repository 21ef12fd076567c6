// Element types of a function form. Each form of a name (_32f,
// _Scaled_16s32f, _Low_16s32s ...) is one entry of this table: the type of
// its data, the type of its results and value arguments, and the type its
// sums run in.
#ifndef VDL_COMMON_TYPES_H
#define VDL_COMMON_TYPES_H

#include "vdlcore.h"

#pragma GCC visibility push(hidden)

namespace vdl {

template <class SrcT, class DstT, class AccT>
struct ElementTypes {
    using Src = SrcT;  // data
    using Dst = DstT;  // results and value arguments
    using Acc = AccT;  // sums
};

using Types32f = ElementTypes<Vdl32f, Vdl32f, float>;
using Types64f = ElementTypes<Vdl64f, Vdl64f, double>;
using Types32f64f = ElementTypes<Vdl32f, Vdl64f, double>;
// A product of 16-bit differences and a 16-bit weight needs 47 bits, so the
// exact 16-bit forms sum in double; the Low forms sum in float and lose the
// low bits.
using Types16s32f = ElementTypes<Vdl16s, Vdl32f, double>;
using Types16s32fLow = ElementTypes<Vdl16s, Vdl32f, float>;
using Types16s32s = ElementTypes<Vdl16s, Vdl32s, double>;
using Types16s32sLow = ElementTypes<Vdl16s, Vdl32s, float>;
using Types16s = ElementTypes<Vdl16s, Vdl16s, double>;
using Types32s = ElementTypes<Vdl32s, Vdl32s, double>;

} // namespace vdl

#pragma GCC visibility pop

#endif
