#include "../kvmemory.h"
#include "kvsession.h"

int main(int argc, char** argv) {
    g_trace.traceIn("main");
    if (!pSession) pSession = new kvSession;
    int code = pSession->run(argc, argv);
    kvFreeAll();
    g_trace.traceOut("main");
    return code;
}
