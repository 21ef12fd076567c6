// Pseudo-tests that write facts about the machine into a run as if they were
// tests: they stand in the list and the reports, and measure nothing.
#ifndef KV_INFOTEST_H
#define KV_INFOTEST_H

#include "kvtest.h"

class __kvInfoTest : public kvTest {
public:
    __kvInfoTest(kvString name, kvString file, kvString info)
        : kvTest((funcLoop)0, (funcStat)0, name, file, info) {}
    void loopData() override;
    void outputRegInfo() override {}
    virtual void printInformation() {}
};

class __kvOrvanCpuTest : public __kvInfoTest {
public:
    __kvOrvanCpuTest(kvString name, kvString file, kvString info) : __kvInfoTest(name, file, info) {}
    void printInformation() override;
};

class __kvOSTest : public __kvInfoTest {
public:
    __kvOSTest(kvString name, kvString file, kvString info) : __kvInfoTest(name, file, info) {}
    void printInformation() override;
};

class __kvHostTest : public __kvInfoTest {
public:
    __kvHostTest(kvString name, kvString file, kvString info) : __kvInfoTest(name, file, info) {}
    void printInformation() override;
};

#endif
