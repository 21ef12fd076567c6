// kvResult: the outcome of a measurement or a test. Larger is worse, and
// results combine by taking the maximum.
#ifndef KV_RESULT_H
#define KV_RESULT_H

class kvString;

enum kvResult {
    KV_UNDEFINED = 0,
    KV_OK = 1,
    KV_ACCURWRN = 2,
    KV_BADSTSWRN = 3,
    KV_DATAWRN = 4,
    KV_FUNCWRN = 5,
    KV_WARNING = 6,
    KV_ACCURFAIL = 7,
    KV_DATAFAIL = 8,
    KV_FUNCFAIL = 9,
    KV_EXCPTFAIL = 10,
    KV_FAIL = 11
};

const int KV_RESULT_COUNT = 12;

kvString kvResultName(kvResult r);
kvString kvResultString(kvResult r);

inline kvResult kvMaxResult(kvResult a, kvResult b) { return a > b ? a : b; }

#endif
