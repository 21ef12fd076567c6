// Test data at every byte offset: a misaligned configuration places buffers
// at any byte, and every fill, read and print of every element type must
// work there. Under the sanitizer build a typed access through a misaligned
// pointer would end the test.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "dlvector.h"
#include "kvmemory.h"
#include "kvtest.h"

namespace {

const dlType allTypes[] = {DL_8U,   DL_16U,  DL_32U,  DL_64U,  DL_8S,   DL_16S,
                           DL_32S,  DL_64S,  DL_8SC,  DL_16SC, DL_16UC, DL_32SC,
                           DL_64SC, DL_32F,  DL_64F,  DL_32FC, DL_64FC};

const unsigned char kGuard = 0xA5;
const int kLen = 5;

}  // namespace

TEST(DlMisaligned, EveryTypeFillsAndReadsAtEveryOffset) {
    for (dlType type : allTypes) {
        dlVector v(type);
        const int item = dlVector::item(v.m_func);
        for (int offset = 1; offset < 16; ++offset) {
            std::vector<unsigned char> raw(16 + kLen * item + 16, kGuard);
            void* p = raw.data() + offset;
            SCOPED_TRACE(testing::Message() << "type " << type << " offset " << offset);

            v.setDataConst(p, kLen, 3, 4);
            for (int i = 0; i < kLen; ++i) {
                double re = 0, im = 0;
                v.getElement((char*)p + i * item, re, im);
                EXPECT_EQ(re, 3.0);
            }
            v.setDataSequence(p, kLen, 1, 100, 1, 1.0);
            EXPECT_EQ(v.getElement((char*)p + 4 * item), 5.0);
            v.setDataRandom(p, kLen, 0, 50);
            v.setVectorJaehne(p, kLen, 10);
            EXPECT_FALSE(v.getDataString(p, kLen).empty());

            // Nothing outside the elements was written.
            for (int i = 0; i < offset; ++i) ASSERT_EQ(raw[i], kGuard);
            for (size_t i = offset + kLen * item; i < raw.size(); ++i) ASSERT_EQ(raw[i], kGuard);
        }
    }
}

TEST(DlMisaligned, VectorsOfAByteMisalignedSetWork) {
    kvSetAlignByByte(true);
    kvSetVectorAlign(3);
    kvSetAlignSrc(true);
    kvTest::m_vectorNum = 0;
    dlVector d(DL_64FC), s(DL_16S);
    ASSERT_TRUE(d.createVector(9, SET_RANDOM, -1, 1));
    EXPECT_EQ((uintptr_t)d.m_data % 64, 3u);
    d.setIndex(8, SET_VALUE, 2.5, -1.5);
    double re = 0, im = 0;
    d.getIndex(8, re, im);
    EXPECT_EQ(re, 2.5);
    EXPECT_EQ(im, -1.5);

    // The matrix rows of an odd stride are misaligned one by one.
    kvTest::m_vectorNum = 0;
    dlrMatrice m(DL_32F);
    ASSERT_TRUE(m.createMatrice(3, 2, 13, -1));
    m.setRandom(-1, 1);
    m.setMatriceAt(2, 1, 7, 0);
    EXPECT_EQ(m.getMatriceAt(2, 1), 7.0);
    ASSERT_TRUE(s.createVector(5, SET_SEQUENCE, 0, 10));
    EXPECT_EQ(s.getIndex(4), 8.0);
    kvSetVectorAlign(0);
}
