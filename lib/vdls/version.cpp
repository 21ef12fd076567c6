#include "vdls.h"

extern "C" const VdlLibraryVersion* vdlsGetLibVersion(void)
{
    static const VdlLibraryVersion version = {
        1, 0, 0, 1, {'x', '6', '4', '\0'}, "vdls reference", "1.0.0 (r1)", __DATE__};
    return &version;
}
