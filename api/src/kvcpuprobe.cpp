// Processor probes. Each reads one CPUID function and tests a bit or a field;
// the register layouts are the processor maker's published CPUID definitions.
#include "kvcpuprobe.h"

#include <cstring>

namespace {

const unsigned EFLAGS_ID = 1u << 21;

enum { EAX = 0, EBX = 1, ECX = 2, EDX = 3 };

unsigned bit(unsigned word, int n) { return (word >> n) & 1u; }

unsigned field(unsigned word, int high, int low) {
    return (word >> low) & ((1u << (high - low + 1)) - 1u);
}

unsigned cpuidReg(unsigned function, int reg) {
    unsigned regs[4];
    ownGetReg(regs, function, 0);
    return regs[reg];
}

// Function 1 EDX bit 28 only says that EBX bits 23:16 are valid; more than
// one logical processor needs that count above 1 as well.
bool tandem(const unsigned regs[4]) {
    return bit(regs[EDX], 28) && field(regs[EBX], 23, 16) > 1;
}

bool hasExtendedFunction(unsigned function) {
    return cpuidReg(0x80000000u, EAX) >= function;
}

}  // namespace

extern "C" {

void ownGetReg(unsigned regs[4], unsigned function, unsigned subfunction) {
    unsigned a, b, c, d;
    __asm__ __volatile__("cpuid"
                         : "=a"(a), "=b"(b), "=c"(c), "=d"(d)
                         : "a"(function), "c"(subfunction));
    regs[EAX] = a;
    regs[EBX] = b;
    regs[ECX] = c;
    regs[EDX] = d;
}

int vdl_has_cpuid() {
    unsigned long original, toggled;
    // The pushes go below the red zone, where the compiler may keep locals of
    // this leaf function.
    __asm__ __volatile__(
        "lea -128(%%rsp), %%rsp\n\t"
        "pushfq\n\t"
        "pop %0\n\t"
        "mov %0, %1\n\t"
        "xor %2, %1\n\t"
        "push %1\n\t"
        "popfq\n\t"
        "pushfq\n\t"
        "pop %1\n\t"
        "push %0\n\t"
        "popfq\n\t"
        "lea 128(%%rsp), %%rsp"
        : "=&r"(original), "=&r"(toggled)
        : "i"(EFLAGS_ID)
        : "cc", "memory");
    return ((original ^ toggled) & EFLAGS_ID) != 0;
}

int vdl_max_cpuid_input() { return (int)cpuidReg(0, EAX); }

int vdl_has_rdtsc() { return bit(cpuidReg(1, EDX), 4); }
int vdl_is_mmx_extension() { return bit(cpuidReg(1, EDX), 23); }
int vdl_is_ssx_extension() { return bit(cpuidReg(1, EDX), 25); }
int vdl_is_wni_extension() { return bit(cpuidReg(1, EDX), 26); }

int vdl_is_tandem_extension() {
    unsigned regs[4];
    ownGetReg(regs, 1, 0);
    return tandem(regs);
}

int vdl_is_pni_extension() { return bit(cpuidReg(1, ECX), 0); }
int vdl_is_mni_extension() { return bit(cpuidReg(1, ECX), 9); }
int vdl_is_sse41_extension() { return bit(cpuidReg(1, ECX), 19); }
int vdl_is_sse42_extension() { return bit(cpuidReg(1, ECX), 20); }
int vdl_is_movbe() { return bit(cpuidReg(1, ECX), 22); }

// The wide registers are usable only when the operating system saves their
// state too: XCR0 must enable both the SSX (bit 1) and the AVX (bit 2) state.
// xgetbv itself faults unless the OS has set OSXSAVE (ECX bit 27).
int vdl_is_avx_extension() {
    unsigned ecx = cpuidReg(1, ECX);
    if (!bit(ecx, 27) || !bit(ecx, 28))
        return 0;
    return (vdl_xgetbv(0) & 6u) == 6u;
}

int vdl_is_wide64_extension() {
    if (!hasExtendedFunction(0x80000001u))
        return 0;
    return bit(cpuidReg(0x80000001u, EDX), 29);
}

int vdl_get_cores_on_die() {
    if (vdl_max_cpuid_input() < 4)
        return 1;
    unsigned regs[4];
    ownGetReg(regs, 4, 0);
    return (int)field(regs[EAX], 31, 26) + 1;
}

int vdl_is_GenuineOrvan() {
    unsigned regs[4];
    ownGetReg(regs, 0, 0);
    char vendor[12];
    memcpy(vendor, &regs[EBX], 4);
    memcpy(vendor + 4, &regs[EDX], 4);
    memcpy(vendor + 8, &regs[ECX], 4);
    return memcmp(vendor, "GenuineOrvan", 12) == 0;
}

// Fills the record from functions 1, 2, 4 and 0x80000001; returns 1, or 0
// with the record zeroed when the processor has no CPUID.
int vdl_get_cpu_ident(vdlOrvanCpuId* id) {
    memset(id, 0, sizeof(*id));
    if (!vdl_has_cpuid())
        return 0;
    unsigned r1[4];
    ownGetReg(r1, 1, 0);
    id->family = field(r1[EAX], 11, 8);
    id->stepping = field(r1[EAX], 3, 0);
    id->model = field(r1[EAX], 7, 4);
    id->type = field(r1[EAX], 13, 12);
    id->features = r1[EDX];

    unsigned maxInput = (unsigned)vdl_max_cpuid_input();
    if (maxInput >= 2) {
        unsigned r2[4];
        ownGetReg(r2, 2, 0);
        id->cacheDescriptors[0] = r2[EAX];
        id->cacheDescriptors[1] = r2[EDX];
    }
    id->flagA = bit(r1[EDX], 23);
    id->flagB = bit(r1[EDX], 25);
    id->flagC = bit(r1[EDX], 26);
    id->logicalProcessors = tandem(r1);
    id->flagD = bit(r1[ECX], 0);
    id->wide64 = vdl_is_wide64_extension();
    id->flagE = bit(r1[ECX], 9);
    id->cores = vdl_get_cores_on_die();
    id->flagF = bit(r1[ECX], 19);
    id->flagG = bit(r1[ECX], 20);
    id->extFamily = field(r1[EAX], 27, 20);
    id->extModel = field(r1[EAX], 19, 16);
    id->flagH = bit(r1[ECX], 22);
    id->flagI = bit(r1[ECX], 28);
    id->flagJ = bit(r1[ECX], 27);
    return 1;
}

// Raw xgetbv: the caller must have seen OSXSAVE, or the instruction faults.
unsigned long long vdl_xgetbv(unsigned index) {
    unsigned lo, hi;
    __asm__ __volatile__("xgetbv" : "=a"(lo), "=d"(hi) : "c"(index));
    return ((unsigned long long)hi << 32) | lo;
}

}  // extern "C"
