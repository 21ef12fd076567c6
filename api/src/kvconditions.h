// Run selection: one condition object per -f or -t key, and the list that
// answers whether a test is to run.
#ifndef KV_CONDITIONS_H
#define KV_CONDITIONS_H

#include "kvstring.h"

class kvTest;

class RunCondition {
public:
    RunCondition(int group, const kvString& pattern) : m_group(group), m_pattern(pattern) {}
    virtual ~RunCondition() {}
    virtual bool tobeRun(const kvTest* test) = 0;
    int m_group;        // 1: any of the group suffices; 0: all must hold
    kvString m_pattern;
protected:
    bool inFunction(const kvTest* test) const;
    bool isFunction(const kvTest* test) const;
    bool inTestName(const kvTest* test) const;
    bool isTestName(const kvTest* test) const;
};

#define KV_RUN_CONDITION(Name, group, expr)                                  \
    class Name : public RunCondition {                                       \
    public:                                                                  \
        explicit Name(const kvString& p) : RunCondition(group, p) {}         \
        bool tobeRun(const kvTest* test) override { return expr; }           \
    }

KV_RUN_CONDITION(RunCondition_f, 1, inFunction(test));
KV_RUN_CONDITION(RunCondition_fEqual, 1, isFunction(test));
KV_RUN_CONDITION(RunCondition_fAnd, 0, inFunction(test));
KV_RUN_CONDITION(RunCondition_fNot, 0, !inFunction(test));
KV_RUN_CONDITION(RunCondition_t, 1, inTestName(test));
KV_RUN_CONDITION(RunCondition_tEqual, 1, isTestName(test));
KV_RUN_CONDITION(RunCondition_tAnd, 0, inTestName(test));
KV_RUN_CONDITION(RunCondition_tNot, 0, !inTestName(test));

#undef KV_RUN_CONDITION

// The conditions in key order; the objects live until the process ends.
class kvConditions : public kvList<RunCondition*> {
public:
    virtual ~kvConditions() {}
    bool tobeRun(const kvTest* test);
};

// Builds the condition of a -f (function) or -t (test) key from its argument;
// null for an empty pattern.
RunCondition* kvMakeCondition(bool function, kvString arg);

#endif
