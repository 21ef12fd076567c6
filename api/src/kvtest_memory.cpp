// The buffers of one parameter set: each gets its own misalignment and its
// own start offset, so that the buffers of a set fall on different cache sets.
#include "kvmemory.h"
#include "kvtest.h"

int kvTest::m_vectorNum = 0;
int kvTest::m_vectorShift = 0;

// The shift pattern repeats after this many bytes.
static const int VECTOR_SHIFT_WRAP = 32768;

void* kvTest::allocate(int size, int align) {
    return allocate(size, align, 0);
}

void* kvTest::allocate(int size, int align, void* object) {
    if (align < 0) {
        align = -align * kvGetVectorAlign();
        if (kvGetAlignSrc() && m_vectorNum != 0) align = 0;
    }
    void* p = kvMalloc(size, align, m_vectorShift, object ? object : MEM_OBJECT_IS_BUFFER);
    if (p) {
        ++m_vectorNum;
        m_vectorShift += kvGetVectorShift();
        if (m_vectorShift >= VECTOR_SHIFT_WRAP) m_vectorShift = 0;
    }
    return p;
}

void kvTest::deallocate(void* p) {
    kvFree(p);
}

int kvTest::reserveAllVectors() {
    int count = 0;
    void* object = 0;
    for (void* p = kvMallocFirst(0, &object); p; p = kvMallocNext(0, &object)) {
        if (object && static_cast<kvObject*>(object)->reserveCopy()) ++count;
        object = 0;
    }
    return count;
}

int kvTest::resetAllVectors() {
    int count = 0;
    void* object = 0;
    for (void* p = kvMallocFirst(0, &object); p; p = kvMallocNext(0, &object)) {
        if (object && static_cast<kvObject*>(object)->setReservedCopy()) ++count;
        object = 0;
    }
    return count;
}
