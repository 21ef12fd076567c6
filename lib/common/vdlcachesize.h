// Largest data or unified cache of a processor, from whichever CPUID
// interface describes its caches.
#ifndef VDL_COMMON_CACHESIZE_H
#define VDL_COMMON_CACHESIZE_H

#include <climits>

#include "vdlcpuid.h"

#pragma GCC visibility push(hidden)

namespace vdl {

struct CacheDescriptor {
    unsigned char code;
    int size;
    bool instruction;
};

// Function 2 cache descriptors, largest first, so that the first one a
// processor reports is its largest cache. TLB, trace-cache and prefetch
// descriptors are not caches of data and are left out.
inline const CacheDescriptor* cacheDescriptors(int* count)
{
    static const CacheDescriptor table[] = {
        {0xEC, 25165824, false}, {0xEB, 18874368, false}, {0x4D, 16777216, false},
        {0x4C, 12582912, false}, {0xEA, 12582912, false}, {0x47, 8388608, false},
        {0x4B, 8388608, false}, {0xE4, 8388608, false}, {0x4A, 6291456, false},
        {0x4E, 6291456, false}, {0xDE, 6291456, false}, {0x29, 4194304, false},
        {0x46, 4194304, false}, {0x49, 4194304, false}, {0xD8, 4194304, false},
        {0xE3, 4194304, false}, {0x48, 3145728, false}, {0xDD, 3145728, false},
        {0x25, 2097152, false}, {0x45, 2097152, false}, {0x7D, 2097152, false},
        {0x85, 2097152, false}, {0xD2, 2097152, false}, {0xD7, 2097152, false},
        {0xE2, 2097152, false}, {0xDC, 1572864, false}, {0x23, 1048576, false},
        {0x24, 1048576, false}, {0x44, 1048576, false}, {0x78, 1048576, false},
        {0x7C, 1048576, false}, {0x84, 1048576, false}, {0x87, 1048576, false},
        {0xD1, 1048576, false}, {0xD6, 1048576, false}, {0x22, 524288, false},
        {0x3E, 524288, false}, {0x43, 524288, false}, {0x7B, 524288, false},
        {0x7F, 524288, false}, {0x80, 524288, false}, {0x83, 524288, false},
        {0x86, 524288, false}, {0xD0, 524288, false}, {0x3D, 393216, false},
        {0x21, 262144, false}, {0x3C, 262144, false}, {0x3F, 262144, false},
        {0x42, 262144, false}, {0x7A, 262144, false}, {0x82, 262144, false},
        {0x3A, 196608, false}, {0x1D, 131072, false}, {0x39, 131072, false},
        {0x3B, 131072, false}, {0x41, 131072, false}, {0x79, 131072, false},
        {0x09, 32768, true}, {0x2C, 32768, false}, {0x30, 32768, true},
        {0x68, 32768, false}, {0x0E, 24576, false}, {0x08, 16384, true},
        {0x0C, 16384, false}, {0x0D, 16384, false}, {0x60, 16384, false},
        {0x67, 16384, false}, {0x06, 8192, true}, {0x0A, 8192, false},
        {0x66, 8192, false},
    };
    *count = static_cast<int>(sizeof(table) / sizeof(table[0]));
    return table;
}

// Function 4 layout, shared by the second maker's 0x8000001D: walks the
// subleaves up to the first of type 0, skipping instruction caches.
inline long long largestDeterministicCache(const CpuidView& cpu, unsigned leaf)
{
    if (!cpu.valid(leaf))
        return 0;
    long long largest = 0;
    for (unsigned index = 0; index < 64; ++index) {
        const CpuidRegs r = cpu.regs(leaf, index);
        const unsigned type = bits(r.eax, 4, 0);
        if (type == 0)
            break;
        if (type == 2)
            continue;
        const long long size = (bits(r.ebx, 31, 22) + 1LL) * (bits(r.ebx, 21, 12) + 1LL) *
                               (bits(r.ebx, 11, 0) + 1LL) * (r.ecx + 1LL);
        if (size > largest)
            largest = size;
    }
    return largest;
}

inline bool hasDescriptor(const CpuidRegs& r, unsigned char code)
{
    const unsigned regs[4] = {r.eax, r.ebx, r.ecx, r.edx};
    for (int i = 0; i < 4; ++i) {
        if (bit(regs[i], 31))
            continue;  // register holds no valid descriptors
        // The low byte of EAX is a repeat count, not a descriptor.
        for (int byte = (i == 0) ? 1 : 0; byte < 4; ++byte)
            if (((regs[i] >> (8 * byte)) & 0xFFu) == code)
                return true;
    }
    return false;
}

inline long long largestDescriptorCache(const CpuidView& cpu)
{
    if (!cpu.valid(2))
        return 0;
    const CpuidRegs r = cpu.regs(2);
    int count = 0;
    const CacheDescriptor* table = cacheDescriptors(&count);
    for (int i = 0; i < count; ++i)
        if (!table[i].instruction && hasDescriptor(r, table[i].code))
            return table[i].size;
    return 0;
}

// Older processors of the second maker: L3 in 512 KiB units in EDX[31:18] and
// L2 in KiB in ECX[31:16] of 0x80000006.
inline long long largestLegacyExtendedCache(const CpuidView& cpu)
{
    if (!cpu.valid(0x80000006u))
        return 0;
    const CpuidRegs r = cpu.regs(0x80000006u);
    const long long l3 = bits(r.edx, 31, 18) * 512LL * 1024;
    const long long l2 = bits(r.ecx, 31, 16) * 1024LL;
    return l3 > l2 ? l3 : l2;
}

// The first interface that reports anything wins; 0 when none does. Sizes
// beyond int are clamped, as the public call reports an int.
inline int largestCacheSize(const CpuidView& cpu)
{
    long long size = largestDeterministicCache(cpu, 4);
    if (size == 0 && bit(cpu.regs(0x80000001u).ecx, 22))
        size = largestDeterministicCache(cpu, 0x8000001Du);
    if (size == 0)
        size = largestDescriptorCache(cpu);
    if (size == 0)
        size = largestLegacyExtendedCache(cpu);
    return size > INT_MAX ? INT_MAX : static_cast<int>(size);
}

} // namespace vdl

#pragma GCC visibility pop

#endif
