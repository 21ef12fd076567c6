#include "vdlsr.h"
#include "vdlversion.h"

extern "C" const VdlLibraryVersion* vdlsrGetLibVersion(void)
{
    return vdl::versionRecord("vdlsr reference");
}
