// Version records of the libraries. The version text names the build: the
// release, the build type and the code path in force, so that two runs on
// different builds or paths can be told apart by what a harness prints.
#ifndef VDL_COMMON_VERSION_H
#define VDL_COMMON_VERSION_H

#include <cstdio>

#include "vdlcore.h"
#include "vdlpaths.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// One record per code path, made on first use; never null.
inline const VdlLibraryVersion* versionRecord(const char* name)
{
    struct Records {
        char text[codePathCount][80];
        VdlLibraryVersion record[codePathCount];
        explicit Records(const char* name)
        {
            static const char* const paths[codePathCount] = {"baseline", "vec256", "vec512"};
            for (int p = 0; p < codePathCount; ++p) {
                std::snprintf(text[p], sizeof text[p], "%s (%s, %s path)", VDL_VERSION_TEXT,
                              VDL_BUILD_TEXT, paths[p]);
                record[p] = {1, 0, 0, 1, {'x', '6', '4', '\0'}, name, text[p], __DATE__};
            }
        }
    };
    static const Records records(name);
    return &records.record[vdlGetCodePath()];
}

} // namespace vdl

#pragma GCC visibility pop

#endif
