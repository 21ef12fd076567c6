// Code paths. A family's kernel sources (files named *_kernels.cpp) are
// compiled once per path, each time with the path's compiler flags and
// with VDL_PATH set to the path's name, so that one source gives a
// baseline, a 256-bit and (where the compiler has it) a 512-bit build of
// every kernel. Each build fills the family's table of kernel pointers;
// an entry point calls kernels through the table of the path in force,
// which vdlInit or vdlInitCpu set once.
//
// In a kernel source:
//     namespace vdl::VDL_PATH_NS { ...kernels... }
//     VDL_PATH_TABLE(GaussKernels, gaussKernels) = { &VDL_PATH_NS::quadInv32f, ... };
// In the family's header, seen by the entry points:
//     VDL_DISPATCH(GaussKernels, gaussKernels)
// and an entry point calls gaussKernels().quadInv32f(...).
//
// Every kernel lives in the path's own namespace, so that no two paths
// share a symbol that the linker could fold into one; kernel sources
// therefore use their own templates and C math, not library templates
// such as std::sort, whose one kept copy might carry another path's
// instructions.
#ifndef VDL_COMMON_PATHS_H
#define VDL_COMMON_PATHS_H

#include "vdlcore.h"

#pragma GCC visibility push(hidden)

#define VDL_CAT2(a, b) a##_##b
#define VDL_CAT(a, b) VDL_CAT2(a, b)

#ifdef VDL_PATH
#define VDL_PATH_NS VDL_CAT(path, VDL_PATH)
#define VDL_PATH_TABLE(Table, name) extern const Table VDL_CAT(name, VDL_PATH); \
    const Table VDL_CAT(name, VDL_PATH)
#endif

#ifdef VDL_HAVE_512
#define VDL_TABLE_512(name) &name##_vec512
#else
#define VDL_TABLE_512(name) &name##_vec256
#endif

// The table of the path in force; a path the build lacks falls back to the
// next narrower one, which every processor that runs it also runs.
#define VDL_DISPATCH(Table, name)                                                     \
    extern const Table name##_baseline;                                               \
    extern const Table name##_vec256;                                                 \
    VDL_DECLARE_512(Table, name)                                                      \
    inline const Table& name()                                                        \
    {                                                                                 \
        static const Table* const tables[::vdl::codePathCount] = {                   \
            &name##_baseline, &name##_vec256, VDL_TABLE_512(name)};                   \
        return *tables[::vdlGetCodePath()];                                           \
    }

#ifdef VDL_HAVE_512
#define VDL_DECLARE_512(Table, name) extern const Table name##_vec512;
#else
#define VDL_DECLARE_512(Table, name)
#endif

namespace vdl {

enum CodePath { pathBaseline = 0, pathVec256 = 1, pathVec512 = 2, codePathCount = 3 };

} // namespace vdl

#pragma GCC visibility pop

#endif
