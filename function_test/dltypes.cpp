// The limits of the float types and the table of element types.
#include "dltypes.h"

#include <cfloat>
#include <cmath>

double MAXABS_32F = 0.5 * std::sqrt((double)FLT_MAX);
double MAXABS_64F = 0.5 * std::sqrt(DBL_MAX);

namespace {

const dlTypeOps typeTable[] = {
    realOps<dl8u>(DL_8U),      realOps<dl16u>(DL_16U),    realOps<dl32u>(DL_32U),
    realOps<dl64u>(DL_64U),    realOps<dl8s>(DL_8S),      realOps<dl16s>(DL_16S),
    realOps<dl32s>(DL_32S),    realOps<dl64s>(DL_64S),    cplxOps<dl8s>(DL_8SC),
    cplxOps<dl16s>(DL_16SC),   cplxOps<dl16u>(DL_16UC),   cplxOps<dl32s>(DL_32SC),
    cplxOps<dl64s>(DL_64SC),   realOps<dl32f>(DL_32F),    realOps<dl64f>(DL_64F),
    cplxOps<dl32f>(DL_32FC),   cplxOps<dl64f>(DL_64FC),
};

}  // namespace

const dlTypeOps* dlFindType(dlType type) {
    for (const dlTypeOps& t : typeTable)
        if (t.type == type) return &t;
    return 0;
}
