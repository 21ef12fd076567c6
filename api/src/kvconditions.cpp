#include "kvconditions.h"

#include "kvtest.h"

bool RunCondition::inFunction(const kvTest* test) const { return test->m_name.found(m_pattern); }
bool RunCondition::isFunction(const kvTest* test) const { return test->m_name == m_pattern; }
bool RunCondition::inTestName(const kvTest* test) const {
    return test->m_info.m_class.found(m_pattern);
}
bool RunCondition::isTestName(const kvTest* test) const {
    return test->m_info.m_class == m_pattern;
}

bool kvConditions::tobeRun(const kvTest* test) {
    bool anyFirst = false;
    bool firstMatched = false;
    for (iterator it = begin(); it != end(); ++it) {
        if ((*it)->m_group != 1) continue;
        anyFirst = true;
        if ((*it)->tobeRun(test)) {
            firstMatched = true;
            break;
        }
    }
    if (anyFirst && !firstMatched) return false;
    for (iterator it = begin(); it != end(); ++it)
        if ((*it)->m_group == 0 && !(*it)->tobeRun(test)) return false;
    return true;
}
