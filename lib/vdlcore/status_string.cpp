#include "vdlcore.h"

namespace {

struct StatusText {
    VdlStatus status;
    const char* text;
};

const StatusText statusTexts[] = {
    {vdlStsThreadsWrn, "Warning: the library runs on the caller's thread only"},
    {vdlStsLogNegArgWrn, "Warning: logarithm of a negative argument, result set to the floor value"},
    {vdlStsLogZeroArgWrn, "Warning: logarithm of zero, result set to the floor value"},
    {vdlStsDivByZeroWrn, "Warning: division by zero, result saturated"},
    {vdlStsGenericCodeWrn, "Warning: no optimized code for this processor, generic code is used"},
    {vdlStsNoErr, "No error"},
    {vdlStsErr, "Unclassified error"},
    {vdlStsNullPtrErr, "Null pointer error"},
    {vdlStsSizeErr, "Wrong value of length or size"},
    {vdlStsStepErr, "Row step is smaller than the row width"},
    {vdlStsBadArgErr, "Argument is out of its domain"},
    {vdlStsNoMemErr, "Not enough memory"},
    {vdlStsCpuNotSupportedErr, "The processor does not support the requested processor type"},
    {vdlStsCpuTypeErr, "Unknown processor type code"},
    {vdlStsNumThreadsErr, "Number of threads is negative"},
    {vdlStsNoCacheInfoErr, "The processor reports no cache size"},
    {vdlStsDivByZeroErr, "Division by zero"},
    {vdlStsOutOfRangeErr, "Index or parameter is out of range"},
    {vdlStsContextMatchErr, "State object does not match the function"},
};

} // namespace

extern "C" const char* vdlGetStatusString(VdlStatus status)
{
    for (const StatusText& row : statusTexts)
        if (row.status == status)
            return row.text;
    return "Unknown status code";
}
