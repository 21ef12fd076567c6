#include "dltest.h"

#include <climits>

#include "dlvector.h"
#include "kv/kvsession.h"
#include "kvcstream.h"
#include "kvmemory.h"
#include "kvparameter.h"
#include "kvticker.h"

dlTest::dlTest(funcCall call, funcInit init, funcLoop loop, funcStat stat, kvString name,
               kvString file, kvString info)
    : kvTest(call, init, loop, stat, name, file, info), m_func(name) {}

kvResult dlTest::run() {
    dlVector::m_seed = 7;  // every test sees the same data stream
    return kvTest::run();
}

int dlTest::compareFunc(const kvTest* other) const {
    return m_func.compare(dlFunc(other->m_name));
}

void dlTest::funcToCstrm() {
    g_cstrm << m_func.prefix() + m_func.baseName() << m_func.typeName() << m_func.descrName();
}

bool dlTest::isFloatFunction() {
    return kvTest::isFloatFunction() && (m_name.found("32f") || m_name.found("64f"));
}

kvString dlTest::regInfo() {
    kvString text = kvTest::regInfo();
    int at = text.find("KV_");
    if (at >= 0) text = text.substr(0, at) + "DL_" + text.substr(at + 3);
    return text;
}

kvString dlTest::unitStr(int index) {
    static const char* const units[] = {" ", "e", "px", "pxch", "cpMac", "e_kp", "px_kp", "pxch_kp"};
    return index >= 0 && index < 8 ? units[index] : " ";
}

kvResult dlTest::checkStatus(VdlStatus status, kvString name) {
    if (status == 0) return KV_OK;
    bool error = status < 0;
    g_ostrm << (error ? ERR : WARN) << (error ? "--VDL ERROR. " : "--VDL WARNING. ")
            << "status = " << (int)status;
    if (!name.empty()) g_ostrm << " in " << name;
    g_ostrm << ": " << (vdl_GetStatusString ? vdl_GetStatusString(status) : "") << "\n" << endMsg;
    kvResult r = error ? KV_FUNCFAIL : KV_FUNCWRN;
    raiseResult(error || g_ostrm.enabled(WARN) ? r : KV_OK);
    return r;
}

// ---- debug printing of all memory blocks at the data level

void dlTest::printAllMemoryBlocks(kvString title) {
    if (!g_ostrm.enabled(DATA)) return;
    g_trace.traceIn("printAllMemoryBlocks");
    g_ostrm << DATA;
    printFirstDebugLine(title);
    int size = 0;
    void* owner = 0;
    int count = 0;
    for (void* p = kvMallocFirst(&size, &owner); p; p = kvMallocNext(&size, &owner)) {
        kvObject* object = (kvObject*)owner;
        if (!object || object == MEM_OBJECT_IS_SUBOBJECT) continue;
        printFirstBlockLine(++count, object, size);
        if (object == MEM_OBJECT_IS_BUFFER) printByteBlock(p, size);
        else if (dlVector* v = dynamic_cast<dlVector*>(object)) printVectorBlock(v);
        printLastBlockLine(count, object);
    }
    printLastDebugLine(title);
    g_ostrm << endMsg;
    g_trace.traceOut("printAllMemoryBlocks");
}

void dlTest::printFirstDebugLine(kvString title) {
    g_ostrm << "======== OBJECTS OUTPUT START === " << title << " === OBJECTS OUTPUT START ========\n";
}

void dlTest::printLastDebugLine(kvString title) {
    g_ostrm << "======== OBJECTS OUTPUT END === " << title << " === OBJECTS OUTPUT END ========\n";
}

void dlTest::printFirstBlockLine(int number, kvObject* owner, int size) {
    g_ostrm << "======== Object " << number << ": ";
    if (owner == MEM_OBJECT_IS_BUFFER) g_ostrm << "MemoryBlock size=" << size;
    else g_ostrm << owner->objectInfo();
    g_ostrm << "\n";
}

void dlTest::printLastBlockLine(int, kvObject*) { g_ostrm << "\n"; }

void dlTest::printVectorBlock(dlVector* vector) { g_ostrm << vector->getString() << "\n"; }

void dlTest::printByteBlock(void* block, int size) {
    g_ostrm << dlVector::getByteString(block, size) << "\n";
}

// ---- prTest

void dlItem::toOStream() const {
    if (m_parm) m_parm->toOStream(g_ostrm);
    else g_ostrm << m_name << "=" << m_value << " ";
}

void dlItem::toCStream() const {
    if (m_parm) m_parm->toCStream(g_cstrm);
    else g_cstrm << m_value;
}

void dlItem::nameToCStream() const {
    if (m_parm) m_parm->nameToCStream(g_cstrm);
    else g_cstrm << m_name;
}

void prTest::parmsNameToCstrm() {
    dlColumns c;
    columns(c);
    for (dlColumns::iterator it = c.begin(); it != c.end(); ++it) it->nameToCStream();
}

void prTest::parmsToOstrm() {
    dlColumns c;
    columns(c);
    for (dlColumns::iterator it = c.begin(); it != c.end(); ++it) it->toOStream();
}

void prTest::parmsToCstrm() {
    dlColumns c;
    columns(c);
    for (dlColumns::iterator it = c.begin(); it != c.end(); ++it) it->toCStream();
}

void prTest::resultTitleToCStream() {
    g_cstrm << "Comment" << "Clocks" << "per" << "Time(usec)" << "Time_el(usec)" << "MFlops";
    if (m_hot) g_cstrm << "Interest";
}

void prTest::resultToCstrm() {
    const char* form = m_tool.m_method == KV_METHOD_STATISTIC ? "nStat=%d" : "nLps=%d";
    double usec = m_tool.m_funcClocks / kvCpuTicker::getFreq();
    g_cstrm << kvString::format(form, m_tool.m_numLoops) << perfString(false) << getUnit()
            << kvString::format("%.3e", usec) << kvString::format("%.3e", usec * 1e3 / getDivisor_el())
            << perfString(true) << (isHotLine() ? "Hot" : "");
}

// In 64 bits, held to the largest int: a column count from the input near
// the limit must not wrap to a small stride.
int prTest::roundedStride(int cols) const {
    const long long unit = m_name.found("16s") ? 8 : 4;
    const long long stride = (cols + unit - 1) / unit * unit;
    return stride > INT_MAX ? INT_MAX : (int)stride;
}

bool prTest::stepOdometer(std::initializer_list<kvParameter*> fastestFirst) {
    if (m_firstSet) {
        for (kvParameter* p : fastestFirst)
            if (!p->firstValue()) return false;
        return true;
    }
    const kvParameter* const* begin = fastestFirst.begin();
    int n = (int)fastestFirst.size();
    for (int moved = 0; moved < n; ++moved) {
        if (!const_cast<kvParameter*>(begin[moved])->nextValue()) continue;
        // An exhausted iterator restarts at its first value on its next step.
        for (int i = 0; i < moved; ++i) const_cast<kvParameter*>(begin[i])->nextValue();
        return true;
    }
    return false;
}
