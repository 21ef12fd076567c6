// A table of calls that must be refused. Each runs on fresh buffers, so a
// call may spoil an input to provoke its fault without affecting the next.
#ifndef VDL_TESTS_REFUSED_CALLS_H
#define VDL_TESTS_REFUSED_CALLS_H

#include <cfenv>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "vdlcore.h"

namespace vdltest {

template <class Buffers>
struct RefusedCall {
    const char* what;
    VdlStatus status;
    std::function<VdlStatus(Buffers&)> call;
};

// Every call returns its status, raises no floating-point flag and leaves
// the outputs of its buffers as they were (Buffers::untouched()).
template <class Buffers>
void expectRefused(const std::vector<RefusedCall<Buffers>>& calls)
{
    for (const RefusedCall<Buffers>& c : calls) {
        Buffers b;
        std::feclearexcept(FE_ALL_EXCEPT);
        EXPECT_EQ(c.call(b), c.status) << c.what;
        EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0) << c.what << " raised a floating-point flag";
        EXPECT_TRUE(b.untouched()) << c.what << " wrote an output";
    }
}

} // namespace vdltest

#endif
