#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "kvmemory.h"
#include "kvtest.h"
#include "testutil.h"

#include <gmock/gmock.h>

using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

uintptr_t lowBits(void* p) { return (uintptr_t)p & 63; }

class Memory : public ::testing::Test {
protected:
    void SetUp() override {
        kvFreeAll();
        kvSetVectorAlign(0);
        kvSetVectorShift(512);
        kvSetAlignSrc(true);
        kvTest::m_vectorNum = 0;
        kvTest::m_vectorShift = 0;
    }
    void TearDown() override { kvFreeAll(); }

    int countBlocks() {
        int n = 0;
        for (void* p = kvMallocFirst(0, 0); p; p = kvMallocNext(0, 0)) ++n;
        return n;
    }
};

TEST_F(Memory, BlocksLieWhereAskedAndHoldTheirSize) {
    void* a = kvMalloc(100, 1, 0, 0);
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(lowBits(a), 1u);
    memset(a, 1, 100);

    void* raw = 0;
    void* c = kv_malloc(raw, 100, 65, 0);  // 65 acts as 1
    EXPECT_EQ(lowBits(raw), 0u);
    EXPECT_EQ((char*)c - (char*)raw, 1);
    kv_free(raw);

    void* d = kv_malloc(raw, 100, 63, 512 + 64);
    EXPECT_EQ((char*)d - (char*)raw, 512 + 64 + 63);
    memset(d, 1, 100);
    kv_free(raw);
    kv_free(0);

    kvSetVectorAlign(-70);
    EXPECT_EQ(kvGetVectorAlign(), -6);
}

TEST_F(Memory, WalkGoesInAllocationOrderAndStaysAtTheEnd) {
    int size = -1;
    void* object = (void*)&size;
    EXPECT_EQ(kvMallocFirst(&size, &object), nullptr);
    EXPECT_EQ(size, -1);   // untouched without a list
    EXPECT_EQ(object, (void*)&size);

    kvObject owner;
    void* a = kvMalloc(10, 0, 0, 0);
    void* b = kvMalloc(20, 0, 0, &owner);
    void* c = kvMalloc(30, 0, 0, MEM_OBJECT_IS_BUFFER);
    EXPECT_EQ(kvMallocFirst(&size, &object), a);
    EXPECT_EQ(kvMallocNext(&size, &object), b);
    EXPECT_EQ(size, 20);
    EXPECT_EQ(object, (void*)&owner);
    EXPECT_EQ(kvMallocNext(0, 0), c);
    EXPECT_EQ(kvMallocNext(&size, &object), nullptr);
    EXPECT_EQ(kvMallocNext(&size, &object), nullptr);   // the caller may go on
    EXPECT_EQ(size, 20);
}

TEST_F(Memory, InfoAndFreeKnowOnlyAlignedPointersOfTheList) {
    kvFree(0);   // no list yet
    kvObject owner;
    char* a = (char*)kvMalloc(16, 3, 0, &owner);
    EXPECT_TRUE(kvMallocInfo(a, 0, 0));
    EXPECT_FALSE(kvMallocInfo(a + 8, 0, 0));
    void* b = kvMalloc(16, 0, 0, 0);
    int local = 0;
    kvFree(&local);
    kvFree(a + 1);
    EXPECT_EQ(countBlocks(), 2);
    kvFree(a);
    EXPECT_EQ(countBlocks(), 1);
    EXPECT_EQ(kvMallocFirst(0, 0), b);

    kvFreeAll();
    EXPECT_EQ(kvMallocFirst(0, 0), nullptr);
    void* c = kvMalloc(16, 0, 0, 0);
    kvFree(b);   // a block of the old list
    EXPECT_EQ(countBlocks(), 1);
    EXPECT_EQ(kvMallocFirst(0, 0), c);
}

// Counts the copies that the walk asks for.
class CopyingObject : public kvObject {
public:
    bool reserveCopy() override { ++reserved; return true; }
    bool setReservedCopy() override { ++restored; return true; }
    int reserved = 0;
    int restored = 0;
};

TEST_F(Memory, AllocateMisalignsTheFirstBufferOfASetOnly) {
    kvSetVectorAlign(3);
    void* first = kvTest::allocate(100, -1);
    void* second = kvTest::allocate(100, -1);
    void* exact = kvTest::allocate(100, 5);
    EXPECT_EQ(lowBits(first), 3u);
    EXPECT_EQ(lowBits(second), 0u);
    EXPECT_EQ(lowBits(exact), 5u);
    EXPECT_EQ(kvTest::m_vectorNum, 3);
    EXPECT_EQ(kvTest::m_vectorShift, 3 * 512);

    kvSetAlignSrc(false);
    EXPECT_EQ(lowBits(kvTest::allocate(100, -2)), 6u);   // two units of VectorAlign

    void* object = 0;
    EXPECT_TRUE(kvMallocInfo(first, 0, &object));
    EXPECT_EQ(object, (void*)MEM_OBJECT_IS_BUFFER);
}

TEST_F(Memory, AllocateWrapsTheShift) {
    kvTest::m_vectorShift = 32768 - 512;
    ASSERT_NE(kvTest::allocate(10, 0), nullptr);
    EXPECT_EQ(kvTest::m_vectorShift, 0);
    kvSetVectorShift(1000);
    kvTest::m_vectorShift = 32000;
    kvTest::allocate(10, 0);
    EXPECT_EQ(kvTest::m_vectorShift, 0);
    kvTest::allocate(10, 0);
    EXPECT_EQ(kvTest::m_vectorShift, 1000);
}

TEST_F(Memory, ReserveAndResetCountOnlyOwnersThatCopy) {
    CopyingObject v1, v2;
    kvTest::allocate(10, 0, static_cast<kvObject*>(&v1));
    kvTest::allocate(10, 0);
    kvMalloc(10, 0, 0, 0);
    kvMalloc(10, 0, 0, MEM_OBJECT_IS_SUBOBJECT);
    kvTest::allocate(10, 0, static_cast<kvObject*>(&v2));
    EXPECT_EQ(kvTest::reserveAllVectors(), 2);
    EXPECT_EQ(kvTest::resetAllVectors(), 2);
    EXPECT_EQ(kvTest::resetAllVectors(), 2);
    EXPECT_EQ(v1.reserved + v2.reserved, 2);
    EXPECT_EQ(v1.restored + v2.restored, 4);
}

TEST_F(Memory, MessagesOfFailureAndOfTheMemoryLevel) {
    LogCapture log(ERR | MEM);
    EXPECT_EQ(kvMalloc(-1000, 0, 0, 0), nullptr);
    void* a = kvMalloc(100, 0, 0, 0);
    int foreign = 0;
    kvFree(&foreign);
    kvFree(a);
    const std::string text = log.text();
    EXPECT_THAT(text, StartsWith("-- Memory error: can't allocate -1000 bytes\n"));
    size_t m = text.find(" - kvMalloc: size:100  address:");
    size_t foreignLine = text.find(" - kvFree: \n");
    size_t freed = text.find(" - kvFree: size:100  address:");
    EXPECT_TRUE(m < foreignLine && foreignLine < freed && freed != std::string::npos) << text;
    EXPECT_THAT(text.substr(m), HasSubstr("  alignedPointer:"));
}

}  // namespace
