// kvTestList: all registered tests; sorts them, runs the selected ones and
// counts their results for the run's summary.
#ifndef KV_TESTLIST_H
#define KV_TESTLIST_H

#include <ctime>

#include "kvresult.h"
#include "kvstring.h"

class kvTest;
class kvConditions;
class kvParameter;

class kvTestList : public kvList<kvTest*> {
public:
    kvTestList();
    virtual ~kvTestList() {}

    void sortFunc();
    bool runTests(kvConditions& conditions);
    void plus(kvResult r);
    void selectCommonParms(kvConditions& conditions, kvList<kvParameter*>& parms);
    static bool aless(kvTest*& a, kvTest*& b);

    time_t m_startTime;
    time_t m_stopTime;
    int m_numTests;
    int m_counts[KV_RESULT_COUNT];

    static kvTest* m_pCurrentTest;
    static kvString m_startFunc;
};

// Empty hooks around the run, for a build that wants to add work there.
void beforeAll();
void beforeTest();
void afterTest(kvTest* test);

#endif
