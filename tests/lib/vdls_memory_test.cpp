#include <cstdint>
#include <cstring>

#include <gtest/gtest.h>

#include "vdls.h"

TEST(VdlsMemory, BlocksAreAlignedAndWritable)
{
    for (int len : {1, 3, 63, 64, 65, 4096, 1 << 20}) {
        void* p = vdlsMalloc_8u(len);
        ASSERT_NE(p, nullptr) << len;
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(p) % 64, 0u) << len;
        std::memset(p, 0xA5, static_cast<std::size_t>(len));
        vdlsFree(p);
    }
}

TEST(VdlsMemory, NonPositiveLengthGivesNull)
{
    EXPECT_EQ(vdlsMalloc_8u(0), nullptr);
    EXPECT_EQ(vdlsMalloc_8u(-1), nullptr);
    vdlsFree(nullptr);
}
