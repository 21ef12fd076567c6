#include "vdlsr.h"

extern "C" const VdlLibraryVersion* vdlsrGetLibVersion(void)
{
    static const VdlLibraryVersion version = {
        1, 0, 0, 1, {'x', '6', '4', '\0'}, "vdlsr reference", "1.0.0 (r1)", __DATE__};
    return &version;
}
