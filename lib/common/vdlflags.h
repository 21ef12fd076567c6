// The floating-point exception flags across a call that refuses its input
// only after having computed with it: a refused call leaves the flags as it
// found them.
#ifndef VDL_COMMON_FLAGS_H
#define VDL_COMMON_FLAGS_H

#include <cfenv>

#include "vdlcore.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// Saves the flags when made; restore() puts them back and passes the
// status of the refusal on.
class FlagKeeper {
public:
    FlagKeeper() { std::fegetexceptflag(&m_flags, FE_ALL_EXCEPT); }
    VdlStatus restore(VdlStatus status) const
    {
        std::fesetexceptflag(&m_flags, FE_ALL_EXCEPT);
        return status;
    }

private:
    std::fexcept_t m_flags;
};

} // namespace vdl

#pragma GCC visibility pop

#endif
