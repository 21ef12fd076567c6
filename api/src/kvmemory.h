// Aligned memory for test data. Every block gets an exact position relative
// to a 64-byte boundary and is recorded in one global list, through which the
// framework can size, save, restore and print a test's data without knowing
// the test.
#ifndef KV_MEMORY_H
#define KV_MEMORY_H

#include "kvlist.h"
#include "kvstring.h"

// The base by which a memory block tells what it is.
class kvObject {
public:
    virtual ~kvObject() {}
    virtual int objectSize() const { return 0; }
    virtual kvString objectInfo() const { return kvString(); }
    virtual bool reserveCopy() { return false; }
    virtual bool setReservedCopy() { return false; }
    virtual void deleteReservedCopy() {}
};

// Owner marks: a plain byte buffer, and a block that belongs to another
// object and is not listed by itself.
extern kvObject* MEM_OBJECT_IS_BUFFER;
extern kvObject* MEM_OBJECT_IS_SUBOBJECT;

// The record of one block.
struct Address {
    void* address;         // what kv_malloc(int) returned
    void* alignedPointer;  // what the caller got
    int size;              // what the caller asked for
    void* object;          // owner: a kvObject*, a mark, or null
};

class AddressList : public kvList<Address> {
public:
    AddressList() : next(end()) {}
    virtual ~AddressList() {}

    bool find(void* aligned, Address& out) const;
    bool getInfo(void* aligned, int* size, void** object) const;
    // The block at `it` (null at the end), its size and owner; `next` then
    // holds the position behind it.
    void* getNext(iterator it, int* size, void** object);
    // Takes the record out; its raw pointer, or null if it is not listed.
    void* remove(void* aligned);

    iterator next;
};

// The largest block kvMalloc records: its size is an int in the record.
long long kvMaxBlockSize();

// Raw allocation on a 64-byte boundary; the raw pointer lives in front of it.
void* kv_malloc(int size);
// Positioned `shift + align % 64` bytes behind a 64-byte boundary; the raw
// pointer goes to `address`.
void* kv_malloc(void*& address, int size, int align, int shift);
void kv_free(void* p);

// Allocates and records a block; null (and a memory error line) on failure,
// also for a negative size.
void* kvMalloc(int size, int align, int shift, void* object);
void* kvMalloc(void*& ptr, int size, int align, int shift);
// Frees a block of kvMalloc; pointers it did not give are ignored.
void kvFree(void* ptr);
bool kvMallocInfo(void* ptr, int* size, void** object);
// One walk at a time over the live blocks, in allocation order.
void* kvMallocFirst(int* size, void** object);
void* kvMallocNext(int* size, void** object);
// Forgets every block; the next kvMalloc starts a new list.
void kvFreeAll();

int kvGetVectorShift();
void kvSetVectorShift(int shift);
int kvGetVectorAlign();
void kvSetVectorAlign(int align);
bool kvGetAlignSrc();
void kvSetAlignSrc(bool alignSrc);
bool kvGetAlignByByte();
void kvSetAlignByByte(bool byByte);

#endif
