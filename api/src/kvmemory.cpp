#include "kvmemory.h"

#include <climits>
#include <cstdint>
#include <cstdlib>

#include "kvstream.h"

kvObject* MEM_OBJECT_IS_BUFFER = new kvObject;
kvObject* MEM_OBJECT_IS_SUBOBJECT = new kvObject;

// Null until the first block, and again after kvFreeAll.
static AddressList* pAddressList = 0;

static int VectorShift = 512;
static int VectorAlign = 0;
static bool AlignSrc = true;
static bool AlignByByte = true;

int kvGetVectorShift() { return VectorShift; }
void kvSetVectorShift(int shift) { VectorShift = shift; }
int kvGetVectorAlign() { return VectorAlign; }
void kvSetVectorAlign(int align) { VectorAlign = align % 64; }
bool kvGetAlignSrc() { return AlignSrc; }
void kvSetAlignSrc(bool alignSrc) { AlignSrc = alignSrc; }
bool kvGetAlignByByte() { return AlignByByte; }
void kvSetAlignByByte(bool byByte) { AlignByByte = byByte; }

// ------------------------------------------------------------ raw blocks

// The raw pointer is kept 128 bytes in front of the block, so that kv_free
// needs no search.
static const int RAW_SPARE = 256;
static const int RAW_OFFSET = 192;
static const int RAW_SLOT = 128;

long long kvMaxBlockSize() { return INT_MAX; }

// The spare bytes are added in size_t, so no size near the int limit wraps.
static void* rawMalloc(size_t size) {
    char* buf = (char*)malloc(size + RAW_SPARE);
    if (!buf) return 0;
    char* p = (char*)(((uintptr_t)buf + RAW_OFFSET) & ~(uintptr_t)63);
    *(void**)(p - RAW_SLOT) = buf;
    return p;
}

void* kv_malloc(int size) {
    if (size < 0) return 0;
    return rawMalloc((size_t)size);
}

void kv_free(void* p) {
    if (!p) return;
    free(*(void**)((char*)p - RAW_SLOT));
}

// For a 64-byte aligned ptr this is ptr + align: the low six bits of the sum
// are all ones and those of the mask are `align`.
static void* getAlignedPtr(void* ptr, int align) {
    uintptr_t mask = (uintptr_t)(intptr_t)(align - 64);
    return (void*)(((uintptr_t)ptr + 63) & mask);
}

void* kv_malloc(void*& address, int size, int align, int shift) {
    int a = align % 64;
    long long total = (long long)size + shift + a + 64;
    address = 0;
    if (size < 0 || total < 0) return 0;
    address = rawMalloc((size_t)total);
    if (!address) return 0;
    return getAlignedPtr((char*)address + shift, a);
}

// ------------------------------------------------------------ the list

bool AddressList::find(void* aligned, Address& out) const {
    for (iterator i = begin(); i != end(); ++i) {
        if (i->alignedPointer == aligned) {
            out = *i;
            return true;
        }
    }
    return false;
}

bool AddressList::getInfo(void* aligned, int* size, void** object) const {
    Address a;
    if (!find(aligned, a)) return false;
    if (size) *size = a.size;
    if (object) *object = a.object;
    return true;
}

void* AddressList::getNext(iterator it, int* size, void** object) {
    if (it == end()) {
        next = end();
        return 0;
    }
    Address a = *it;
    if (a.alignedPointer) {
        if (size) *size = a.size;
        if (object) *object = a.object;
    }
    next = ++it;
    return a.alignedPointer;
}

void* AddressList::remove(void* aligned) {
    for (iterator i = begin(); i != end(); ++i) {
        if (i->alignedPointer == aligned) {
            void* raw = i->address;
            if (next == i) ++next;
            erase(i);
            return raw;
        }
    }
    return 0;
}

// ------------------------------------------------------------ kvMalloc

static kvString blockItems(int size, void* address, void* aligned) {
    kvString line;
    line << "size:" << size << "  address:" << (const void*)address
         << "  alignedPointer:" << (const void*)aligned;
    return line;
}

void* kvMalloc(int size, int align, int shift, void* object) {
    void* address = 0;
    void* aligned = kv_malloc(address, size, align, shift);
    if (!aligned) {
        g_ostrm << ERR << "-- Memory error: can't allocate " << size << " bytes\n" << endMsg;
        return 0;
    }
    if (!pAddressList) pAddressList = new AddressList;
    Address a = {address, aligned, size, object};
    pAddressList->insert(pAddressList->end(), a);
    if (g_ostrm.enabled(MEM))
        g_ostrm << MEM << " - kvMalloc: " << blockItems(size, address, aligned) << "\n"
                << endMsgFlush;
    return aligned;
}

void* kvMalloc(void*& ptr, int size, int align, int shift) {
    ptr = kvMalloc(size, align, shift, 0);
    return ptr;
}

void kvFree(void* ptr) {
    if (!pAddressList || !ptr) return;
    if (g_ostrm.enabled(MEM)) {
        Address a;
        kvString items;
        if (pAddressList->find(ptr, a)) items = blockItems(a.size, a.address, a.alignedPointer);
        g_ostrm << MEM << " - kvFree: " << items << "\n" << endMsgFlush;
    }
    kv_free(pAddressList->remove(ptr));
}

bool kvMallocInfo(void* ptr, int* size, void** object) {
    return pAddressList && pAddressList->getInfo(ptr, size, object);
}

void* kvMallocFirst(int* size, void** object) {
    if (!pAddressList) return 0;
    return pAddressList->getNext(pAddressList->begin(), size, object);
}

void* kvMallocNext(int* size, void** object) {
    if (!pAddressList) return 0;
    return pAddressList->getNext(pAddressList->next, size, object);
}

// Called when no block is needed any more. The blocks are not given back: a
// holder of an old block may still call kvFree, and a reused address would
// then free a block of the new list. The forgotten lists stay reachable, so
// that they are not taken for leaks.
void kvFreeAll() {
    static kvList<AddressList*>* forgotten = new kvList<AddressList*>;
    if (pAddressList) forgotten->insert(forgotten->end(), pAddressList);
    pAddressList = 0;
}
