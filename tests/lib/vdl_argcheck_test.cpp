#include <gtest/gtest.h>

#include "vdlargcheck.h"

// The boundary of each check; warnings pass where the first error stops.
TEST(VdlArgCheck, BoundariesAndTheFirstErrorInOrder)
{
    float a = 0;
    float* rows[1] = {&a};
    EXPECT_EQ(vdl::checkPtrs({&a, rows}), vdlStsNoErr);
    EXPECT_EQ(vdl::checkPtrs({&a, nullptr, rows}), vdlStsNullPtrErr);
    EXPECT_EQ(vdl::checkLen(1), vdlStsNoErr);
    EXPECT_EQ(vdl::checkLen(0), vdlStsSizeErr);
    EXPECT_EQ(vdl::checkSize(-1, 3), vdlStsSizeErr);
    EXPECT_EQ(vdl::checkStep(4, 4), vdlStsNoErr);
    EXPECT_EQ(vdl::checkStep(3, 4), vdlStsStepErr);
    EXPECT_EQ(vdl::firstError({vdlStsNoErr, vdlStsDivByZeroWrn}), vdlStsNoErr);
    EXPECT_EQ(vdl::firstError({vdlStsDivByZeroWrn, vdlStsSizeErr, vdlStsNullPtrErr}), vdlStsSizeErr);
}
