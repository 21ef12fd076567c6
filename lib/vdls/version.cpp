#include "vdls.h"
#include "vdlversion.h"

extern "C" const VdlLibraryVersion* vdlsGetLibVersion(void)
{
    return vdl::versionRecord("vdls reference");
}
