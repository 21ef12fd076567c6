// Integer forms of an entry point take a scale factor as their last
// argument, float forms do not: one call site serves both.
#ifndef VDL_TESTS_SCALED_CALL_H
#define VDL_TESTS_SCALED_CALL_H

#include <type_traits>

#include "vdlcore.h"

namespace vdltest {

template <class Fn, class... Args>
VdlStatus callScaled(Fn fn, int scaleFactor, Args... args)
{
    if constexpr (std::is_invocable_v<Fn, Args..., int>)
        return fn(args..., scaleFactor);
    else
        return fn(args...);
}

} // namespace vdltest

#endif
