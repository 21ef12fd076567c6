// The registry: registration texts, the stable sort, -F and the counting of
// a run's results (their totals are shown by the summary's test).
#include <gtest/gtest.h>

#include "kvconditions.h"
#include "kvtest.h"
#include "kvtestinfo.h"
#include "kvtestlist.h"
#include "kvticker.h"

namespace {

TEST(KvTestInfo, SplitsClassDescriptionTag) {
    struct { const char* text; const char* c; const char* d; const char* t; } cases[] = {
        {"A", "A", "", ""},           {"A/B", "A", "B", ""},        {"A/B/C", "A", "B", "C"},
        {"/B", "", "B", ""},          {"A//", "A", "", ""},         {"A/B/C/D", "A", "B", "C/D"},
        {"TimAcccm//DL_REG", "TimAcccm", "", "DL_REG"},
    };
    for (auto& c : cases) {
        kvTestInfo info(c.text);
        EXPECT_STREQ(c.c, info.m_class.c_str()) << c.text;
        EXPECT_STREQ(c.d, info.m_description.c_str()) << c.text;
        EXPECT_STREQ(c.t, info.m_tag.c_str()) << c.text;
    }
}

// A test whose name sorts, and whose run returns a chosen result.
class Scripted : public kvTest {
public:
    Scripted(const char* name, int id, kvResult r = KV_OK)
        : kvTest((funcLoop)0, (funcStat)0, name, "s", "TimScripted"), m_id(id), m_r(r) {}
    kvResult run() override {
        ++runs;
        m_result = m_r == KV_UNDEFINED ? KV_OK : m_r;
        return m_r;
    }
    int m_id;
    kvResult m_r;
    int runs = 0;
};

std::vector<int> order(kvTestList& list) {
    std::vector<int> ids;
    for (kvTestList::iterator it = list.begin(); it != list.end(); ++it)
        ids.push_back(static_cast<Scripted*>(*it)->m_id);
    return ids;
}

void clearList(kvTestList& list) {
    for (kvTestList::iterator it = list.begin(); it != list.end(); ++it) delete *it;
    list.clear();
}

// Names ascend, and within one name the registration order stays, for a
// list long enough to need several merge passes and for the shortest ones.
TEST(KvTestList, SortIsStable) {
    for (int rounds : {0, 1, 100}) {
        kvTestList list;
        const char* names[] = {"c", "a", "b", "a", "c", "b", "a"};
        int n = 0;
        for (int round = 0; round < rounds; ++round)
            for (const char* name : names) list.insert(list.end(), new Scripted(name, n++));
        list.sortFunc();
        ASSERT_EQ(7u * rounds, order(list).size());
        kvString prev;
        int prevId = -1;
        for (kvTestList::iterator it = list.begin(); it != list.end(); ++it) {
            Scripted* t = static_cast<Scripted*>(*it);
            if (t->m_name == prev) EXPECT_LT(prevId, t->m_id);
            else EXPECT_LT(prev.compare(t->m_name), 0);
            prev = t->m_name;
            prevId = t->m_id;
        }
        clearList(list);
    }
}

TEST(KvTestList, RunTestsSelectsCountsAndStartsFrom) {
    kvTestList list;
    Scripted* a = new Scripted("vdlsAlpha", 1);
    Scripted* b = new Scripted("vdlsLogGauss_32f", 2, KV_DATAFAIL);
    Scripted* c = new Scripted("vdlsLogGauss_64f", 3, KV_UNDEFINED);  // turned away: not counted
    Scripted* d = new Scripted("vdlsZero", 4, KV_UNDEFINED);
    for (Scripted* t : {a, b, c, d}) list.insert(list.end(), t);
    kvConditions all;
    kvTestList::m_startFunc = "LogGauss";
    EXPECT_TRUE(list.runTests(all));
    EXPECT_TRUE(kvTestList::m_startFunc.empty());
    EXPECT_EQ(0, a->runs);  // before the start function: skipped, not counted
    for (Scripted* t : {b, c, d}) EXPECT_EQ(1, t->runs) << t->m_id;
    EXPECT_EQ(1, list.m_numTests);  // c and d returned 0 with m_result 1
    EXPECT_EQ(1, list.m_counts[KV_DATAFAIL]);
    clearList(list);
}

}  // namespace
