#include "kvtestlist.h"

#include "kvcacheiterator.h"
#include "kvconditions.h"
#include "kvparameter.h"
#include "kvtest.h"

kvTest* kvTestList::m_pCurrentTest = 0;
kvString kvTestList::m_startFunc;

void beforeAll() {}
void beforeTest() {}
void afterTest(kvTest*) {}

kvTestList::kvTestList() : m_numTests(0) {
    m_startTime = m_stopTime = time(0);
    for (int i = 0; i < KV_RESULT_COUNT; ++i) m_counts[i] = 0;
}

bool kvTestList::aless(kvTest*& a, kvTest*& b) {
    if (!a || !b) return false;
    return a->compareFunc(b) < 0;
}

// Stable merge sort over the nodes: elements are carried one at a time
// through bins of sorted runs, bin i holding a run twice as long as bin i-1.
void kvTestList::sortFunc() {
    if (begin() == end() || ++begin() == end()) return;
    const int BINS = 16;
    kvList<kvTest*> carry;
    kvList<kvTest*> bins[BINS];
    int fill = 0;
    while (!empty()) {
        carry.splice(carry.begin(), *this, begin());
        int i = 0;
        while (i < fill && !bins[i].empty()) {
            // bins[i] holds earlier elements: merge carry into it, then move back.
            bins[i].merge(carry, aless);
            bins[i].swap(carry);
            ++i;
        }
        if (i == BINS) --i;
        carry.swap(bins[i]);
        if (i == fill && fill < BINS) ++fill;
    }
    for (int i = 1; i < fill; ++i) {
        // Later bins hold earlier elements: merge the younger run into the older.
        bins[i].merge(bins[i - 1], aless);
    }
    swap(bins[fill - 1]);
}

bool kvTestList::runTests(kvConditions& conditions) {
    beforeAll();
    for (iterator it = begin(); it != end(); ++it) {
        kvTest* test = *it;
        if (!test || !test->tobeRun(conditions)) continue;
        if (!m_startFunc.empty() && !test->m_name.found(m_startFunc)) continue;
        m_startFunc = "";
        m_pCurrentTest = test;
        beforeTest();
        kvResult r = test->run();
        afterTest(test);
        if (r != KV_UNDEFINED || test->m_result != KV_OK) plus(r);
        m_pCurrentTest = 0;
    }
    return m_counts[KV_FAIL] != 0;
}

void kvTestList::plus(kvResult r) {
    int i = (r < 0 || r >= KV_RESULT_COUNT) ? KV_FAIL : (int)r;
    ++m_numTests;
    ++m_counts[i];
    if (i >= KV_ACCURWRN && i <= KV_FUNCWRN) ++m_counts[KV_WARNING];
    if (i >= KV_ACCURFAIL && i <= KV_EXCPTFAIL) ++m_counts[KV_FAIL];
}

void kvTestList::selectCommonParms(kvConditions& conditions, kvList<kvParameter*>& parms) {
    kvList<kvParameter*>::iterator p;
    for (p = parms.begin(); p != parms.end(); ++p) (*p)->m_toRead = false;
    for (iterator it = begin(); it != end(); ++it) {
        kvTest* test = *it;
        if (!test || !test->tobeRun(conditions)) continue;
        test->startAndStop();
        bool allMarked = true;
        for (p = parms.begin(); p != parms.end(); ++p) allMarked = allMarked && (*p)->m_toRead;
        for (p = parms.begin(); p != parms.end(); ++p) {
            if ((*p)->m_toRead) continue;
            for (kvList<kvParameter*>::iterator t = test->m_parms.begin();
                 t != test->m_parms.end(); ++t) {
                kvParameter* used = *t;
                if (test->m_cacheParm && used == (kvParameter*)test->m_cacheParm)
                    used = test->m_cacheParm->m_parm;
                if (used == *p) {
                    (*p)->m_toRead = true;
                    break;
                }
            }
        }
        delete test->m_cacheParm;
        test->m_cacheParm = 0;
        test->m_parms.clear();
        if (allMarked) break;
    }
    // Erase, from the end to the start, every parameter no selected test uses.
    p = parms.end();
    for (--p; p.pNode();) {
        kvList<kvParameter*>::iterator prev = p;
        --prev;
        if (!(*p)->m_toRead) parms.erase(p);
        p = prev;
    }
}
