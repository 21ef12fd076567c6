// Builds the condition of one -f (function name) or -t (test name) key.
#include "kv/kvkeys.h"
#include "kvconditions.h"

RunCondition* kvMakeCondition(bool function, kvString arg) {
    switch (getCondition(arg)) {
    case 0:
        return function ? (RunCondition*)new RunCondition_f(arg) : new RunCondition_t(arg);
    case 1:
        return function ? (RunCondition*)new RunCondition_fAnd(arg) : new RunCondition_tAnd(arg);
    case 2:
        return function ? (RunCondition*)new RunCondition_fNot(arg) : new RunCondition_tNot(arg);
    case 3:
        return function ? (RunCondition*)new RunCondition_fEqual(arg)
                        : new RunCondition_tEqual(arg);
    default:
        return 0;   // no pattern
    }
}
