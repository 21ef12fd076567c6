// Processor probes: a few machine-level routines around CPUID, rdtsc and
// xgetbv that the clocks, the floating-point state and the processor report use.
#ifndef KV_CPUPROBE_H
#define KV_CPUPROBE_H

struct vdlOrvanCpuId {
    unsigned family;
    unsigned stepping;
    unsigned model;
    unsigned type;
    unsigned features;
    unsigned cacheDescriptors[2];
    unsigned flagA;
    unsigned unused;
    unsigned flagB;
    unsigned flagC;
    unsigned logicalProcessors;
    unsigned flagD;
    unsigned wide64;
    unsigned flagE;
    unsigned cores;
    unsigned flagF;
    unsigned flagG;
    unsigned extFamily;
    unsigned extModel;
    unsigned flagH;
    unsigned flagI;
    unsigned flagJ;
};

extern "C" {
void ownGetReg(unsigned regs[4], unsigned function, unsigned subfunction);
int vdl_has_cpuid();
int vdl_max_cpuid_input();
int vdl_has_rdtsc();
int vdl_is_mmx_extension();
int vdl_is_ssx_extension();
int vdl_is_wni_extension();
int vdl_is_tandem_extension();
int vdl_is_pni_extension();
int vdl_is_mni_extension();
int vdl_is_sse41_extension();
int vdl_is_sse42_extension();
int vdl_is_movbe();
int vdl_is_avx_extension();
int vdl_is_wide64_extension();
int vdl_get_cores_on_die();
int vdl_is_GenuineOrvan();
int vdl_get_cpu_ident(vdlOrvanCpuId* id);
unsigned long long vdl_xgetbv(unsigned index);
}

#endif
