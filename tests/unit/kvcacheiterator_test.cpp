// The search for a data size in or out of cache, and its registration.
#include <gtest/gtest.h>

#include <string>

#include "kvcacheiterator.h"
#include "kvmemory.h"
#include "kvtest.h"
#include "kvvdl.h"
#include "testutil.h"

namespace {

const int MB = 1 << 20;
int g_cacheBytes = MB;

VdlStatus fakeCacheSize(int* size) {
    *size = g_cacheBytes;
    return 0;
}

VdlStatus failingCacheSize(int* size) {
    *size = MB;
    return -1;
}

// The first correction scales by a power of two to just below the target;
// a refinement halves or doubles; nothing may end at zero, and an unknown
// cache size (target 0) or data that do not grow (size 0) stop the search.
TEST(CacheUpdate, OneSizeMovesTowardsTheTarget) {
    const struct {
        int value, dataSize, target;
        bool refine, moved;
        int result;
    } cases[] = {
        {1, 100000, 1000000, false, true, 8},     {64, 2000000, 900000, false, true, 16},
        {64, 1000, 1000, false, true, 32},        // on the target: moved below it
        {2, 4000000, 1000, false, false, 0},      {10, 5, 10, true, true, 20},
        {20, 10, 10, true, true, 10},             {1, 10, 10, true, false, 0},
        {100, 5000, 0, false, false, -1},         {100, 5000, 0, true, false, -1},
        {100, 0, 1000, false, false, -1},
    };
    for (const auto& c : cases) {
        int v = c.value;
        EXPECT_EQ(c.moved, kvCacheIteratorInt::updateValue(v, c.dataSize, c.target, c.refine))
            << c.value << " " << c.dataSize << " " << c.target;
        if (c.result >= 0) {
            EXPECT_EQ(c.result, v) << c.value << " " << c.dataSize;
        }
    }
}

TEST(CacheUpdate, TwoAxesTakeTurns) {
    VdliSize s = {8, 8};
    EXPECT_TRUE(kvCacheIteratorSize::updateValue(s, 100000, 1000000, false));
    EXPECT_EQ(s.width, 32);
    EXPECT_EQ(s.height, 16);
    s = {4, 8};
    kvCacheIteratorSize::updateValue(s, 1, 2, true);   // the smaller axis grows
    EXPECT_EQ(s.width, 8);
    kvCacheIteratorSize::updateValue(s, 2, 1, true);   // on a square the height shrinks
    EXPECT_EQ(s.height, 4);
    s = {1, 1};
    EXPECT_FALSE(kvCacheIteratorSize::updateValue(s, 2, 1, true));
    EXPECT_FALSE(kvCacheIteratorSize::updateValue(s, 5000, 0, false));
}

class FixedObject : public kvObject {
public:
    explicit FixedObject(int size) : m_size(size) {}
    int objectSize() const override { return m_size; }
    int m_size;
};

bool keepSize(kvParameter*, int, int, bool) { return true; }

class CacheSearch : public ::testing::Test {
protected:
    void SetUp() override {
        m_saved = vdl_GetMaxCacheSizeB;
        vdl_GetMaxCacheSizeB = fakeCacheSize;
        g_cacheBytes = MB;
        kvFreeAll();
        m_len.init("len");
        m_len.translate("1000; 2000");
    }
    void TearDown() override {
        kvFreeAll();
        vdl_GetMaxCacheSizeB = m_saved;
    }
    // Data of a test: a fresh set of blocks.
    static void allocateData(int bytes) {
        kvFreeAll();
        kvMalloc(bytes, 0, 0, 0);
    }
    // Searches one state as loopData and canContinue do; the number of
    // corrections, or -1 when the search gave up.
    int search(kvCacheIterator& it, int bytesPerUnit) {
        for (int repeats = 0;; ++repeats) {
            allocateData(m_len.value() * bytesPerUnit);
            if (it.validateSize()) return repeats;
            if (!it.repeatValue()) return -1;
        }
    }
    vdlGetMaxCacheSizeBFunc m_saved = 0;
    kvIterator<int> m_len;
};

TEST_F(CacheSearch, EachStateFindsASizeThatFits) {
    kvCacheIteratorInt it(m_len, 0, 0);
    ASSERT_TRUE(it.firstValue());
    EXPECT_STREQ(it.getComment().c_str(), "inCache");
    EXPECT_GT(search(it, 4), 0);
    EXPECT_GE(it.m_totalSize, it.lowSize());
    EXPECT_LE(it.m_totalSize, (int)(MB * 0.9));
    EXPECT_EQ(it.m_tries, 0);

    ASSERT_TRUE(it.nextValue());
    EXPECT_STREQ(it.getComment().c_str(), "outofCache");
    EXPECT_EQ(m_len.value(), 1000);   // each state starts from the first value
    EXPECT_GT(search(it, 4), 0);
    EXPECT_GE(it.m_totalSize, (int)(MB * 1.05));
    EXPECT_FALSE(it.nextValue());

    // Data inside the bounds pass at once: 300 KB on a cache of 1 MB.
    it.firstValue();
    m_len.m_value = 300;
    EXPECT_EQ(search(it, 1024), 0);
}

TEST_F(CacheSearch, TriesAreReportedAndEndAfterEleven) {
    kvCacheIteratorInt it(m_len, 0, keepSize);
    it.firstValue();
    allocateData(4000);
    EXPECT_FALSE(it.validateSize());
    EXPECT_STREQ(it.m_info.c_str(), "      inCache try: cacheParm=1000 totalSize=4000 < 104857\n");
    for (int i = 1; i <= 11; ++i) EXPECT_TRUE(it.repeatValue()) << i;
    EXPECT_FALSE(it.repeatValue());
    EXPECT_EQ(it.m_tries, 12);
}

TEST_F(CacheSearch, AnObjectTooSmallInDataTooBigNarrowsOnceThenGivesUp) {
    FixedObject object(1000);
    kvCacheIteratorInt it(m_len, &object, keepSize);
    it.firstValue();
    allocateData(2 * MB);
    EXPECT_FALSE(it.validateSize());
    EXPECT_DOUBLE_EQ(it.m_lowFactor, 0.01);
    EXPECT_TRUE(contains(it.m_info.c_str(), " objectSize=1000 < 104857\n")) << it.m_info.c_str();
    EXPECT_TRUE(it.repeatValue());
    EXPECT_FALSE(it.validateSize());
    EXPECT_FALSE(it.repeatValue());
}

TEST_F(CacheSearch, AJumpOverTheRangeWidensIt) {
    kvCacheIteratorInt it(m_len, 0, keepSize);
    it.firstValue();
    allocateData(2 * MB);
    EXPECT_FALSE(it.validateSize());
    it.repeatValue();
    EXPECT_FALSE(it.validateSize());
    it.repeatValue();
    allocateData(50000);   // below 0.1 of the cache, above 0.01
    EXPECT_TRUE(it.validateSize());
    EXPECT_TRUE(it.m_info.empty());
}

TEST_F(CacheSearch, UnknownCacheSizeStopsInCacheAndFitsOutOfCache) {
    vdl_GetMaxCacheSizeB = failingCacheSize;
    kvCacheIteratorInt it(m_len, 0, 0);
    EXPECT_EQ(it.cacheSize(), 0);
    it.firstValue();
    EXPECT_EQ(search(it, 4), -1);
    it.nextValue();
    EXPECT_EQ(search(it, 4), 0);
}

TEST(RegCacheParm, WrapsOnlyTheFirstSizeUnderCacheTiming) {
    kvStepIterator<int> len, step;
    kvTest test((funcLoop)0, (funcStat)0, "vdlsTest", "p_test_au.cpp", "TimTest");
    kvTest::m_cache = false;
    test.regCacheParm(len, 0, 0);
    EXPECT_EQ(test.m_cacheParm, nullptr);
    EXPECT_EQ(*test.m_parms.begin(), (kvParameter*)&len);

    test.m_parms.clear();
    kvTest::m_cache = true;
    test.regCacheParm(len, 0, 0);
    test.regCacheParm(step, 0, 0);
    kvTest::m_cache = false;
    ASSERT_NE(test.m_cacheParm, nullptr);
    EXPECT_EQ(test.m_cacheParm->getParm(), (kvParameter*)&len);
    EXPECT_EQ(*test.m_parms.begin(), (kvParameter*)test.m_cacheParm);
    EXPECT_EQ(*++test.m_parms.begin(), (kvParameter*)&step);
}

}  // namespace
