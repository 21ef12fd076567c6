#include "kvresult.h"

#include "kvstring.h"

static const char* const s_names[KV_RESULT_COUNT + 1] = {
    "UNDEFINED", "OK", "ACCURWRN", "BADSTSWRN", "DATAWRN", "FUNCWRN", "WARNING",
    "ACCURFAIL", "DATAFAIL", "FUNCFAIL", "EXCPTFAIL", "FAIL", "UNKNOWN"};

static const char* const s_strings[KV_RESULT_COUNT + 1] = {
    "was not run", "successfully", "wrong measure accuracy", "modified control status",
    "test data warning", "lib function warning", "warning", "accuracy error",
    "test data error", "lib function error", "exception", "error", "unknown result"};

static int resultIndex(kvResult r) {
    return (r < 0 || r >= KV_RESULT_COUNT) ? KV_RESULT_COUNT : (int)r;
}

kvString kvResultName(kvResult r) { return s_names[resultIndex(r)]; }
kvString kvResultString(kvResult r) { return s_strings[resultIndex(r)]; }
