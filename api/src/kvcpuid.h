// The CPUID instruction as the processor report reads it: one object per
// function, the feature-flag table, the cache-descriptor table of function 2
// and the cache sizes of function 4.
#ifndef KV_CPUID_H
#define KV_CPUID_H

#include "kvstring.h"

// Source of the four registers for one function and subfunction. The
// instruction itself by default; tests put a model processor in its place.
typedef void (*kvCpuidReader)(unsigned regs[4], unsigned function, unsigned subfunction);

// Installs `reader` (null restores the instruction) and returns the one before.
kvCpuidReader kvSetCpuidReader(kvCpuidReader reader);

class CPUID {
public:
    enum { EAX = 0, EBX = 1, ECX = 2, EDX = 3 };

    // Zeros in all four words when the processor does not offer the function.
    explicit CPUID(unsigned function, unsigned subfunction = 0);

    unsigned reg(int index) const { return m_regs[index]; }
    unsigned getBits(int reg, int high, int low) const;
    unsigned getBit(int reg, int bit) const { return getBits(reg, bit, bit); }
    unsigned getByte(int reg, int index) const { return getBits(reg, index * 8 + 7, index * 8); }

    static unsigned largestFunction();
    static unsigned largestExFunction();
    static bool validFunction(unsigned function);

private:
    unsigned m_regs[4];
};

struct FlagInfo {
    unsigned function;
    int reg;
    int bit;
    const char* name;
    const char* description;
};

extern FlagInfo FeatureFlags[];
extern const int FeatureFlagsCount;

// The row named `name`, or null; an empty name matches no row, since the
// unassigned bits are the rows without a name.
FlagInfo* findFlagInfo(FlagInfo* table, int count, kvString name);
// The row named `name` at (function, reg, bit), or null.
FlagInfo* findFlagInfo(FlagInfo* table, int count, unsigned function, int reg, int bit);
bool isFeatureFlag(kvString name);
void printFeatureFlag(kvString name);

struct CacheDescriptor {
    unsigned char descriptor;
    int size;
};

// Cache descriptors of function 2, largest cache first, ended by descriptor 0.
extern const CacheDescriptor tableCache[];
extern const int tableCacheCount;

// The size of the first row of `table` whose descriptor is among the
// descriptor bytes of the function-2 registers `regs`; -1 when the repeat
// count is not 1 or no row matches.
int descriptorCacheSize(const unsigned regs[4], const CacheDescriptor* table);
// descriptorCacheSize over function 2 of this processor.
int ownGetCacheSize(const CacheDescriptor* table);

// Cache type field of a function-4 style answer (function 4 and 0x8000001D).
enum { CACHE_NONE = 0, CACHE_DATA = 1, CACHE_INSTRUCTION = 2, CACHE_UNIFIED = 3 };
// Bytes of the cache such an answer describes: sets * line * partitions * ways.
long long cacheBytes(const CPUID& leaf);

// Cache number `index` of function 4 in bytes; -1 past the last cache.
int getCacheSizeB(unsigned index);
// Largest cache of function 4, instruction caches included; 0 without it.
int getMaxCacheSizeB();
// Largest data or unified cache that `function` (4 or 0x8000001D) lists;
// 0 when the function is absent or lists none.
int largestDataCacheB(unsigned function);

extern const char starLine[];
extern const char doubleLine[];
extern const char singleLine[];

#endif
