// dlTest and prTest: kvTest fitted to one function of the library under
// test. The test's name is the function's name, parsed into a dlFunc that
// gives the data types, the table columns and the order of the run.
#ifndef DL_TEST_H
#define DL_TEST_H

#include <initializer_list>

#include "dlfunc.h"
#include "kvparameter.h"
#include "kvtest.h"
#include "vdlcore.h"

class dlVector;
class kvObject;

class dlTest : public kvTest {
public:
    dlTest(funcCall call, funcInit init, funcLoop loop, funcStat stat, kvString name,
           kvString file, kvString info);

    bool tobeRun(kvConditions& conditions) override { return kvTest::tobeRun(conditions); }
    kvResult run() override;
    int compareFunc(const kvTest* other) const override;
    void funcToCstrm() override;
    bool isFloatFunction() override;
    void printAllMemoryBlocks(kvString title) override;
    kvString regInfo() override;

    virtual void printFirstDebugLine(kvString title);
    virtual void printLastDebugLine(kvString title);
    virtual void printFirstBlockLine(int number, kvObject* owner, int size);
    virtual void printLastBlockLine(int number, kvObject* owner);
    virtual void printVectorBlock(dlVector* vector);
    virtual void printByteBlock(void* block, int size);

    // Reports a non-zero status of the library and raises the test's result.
    static kvResult checkStatus(VdlStatus status, kvString name);
    kvResult checkStatus(VdlStatus status) { return checkStatus(status, m_name); }
    // Name of a unit by index: 0 " ", 1 "e", 2 "px", ...
    static kvString unitStr(int index);

    const dlFunc& func() const { return m_func; }

protected:
    dlFunc m_func;
};

// One column of a parameter set: a parameter (which prints itself) or a
// work variable of the module with its name.
class dlItem {
public:
    dlItem(kvParameter& parm) : m_parm(&parm) {}
    dlItem(const char* name, int value) : m_parm(0), m_name(name) { m_value << value; }
    dlItem(const char* name, const char* text) : m_parm(0), m_name(name), m_value(text) {}
    dlItem() : m_parm(0) {}
    void toOStream() const;
    void toCStream() const;
    void nameToCStream() const;

private:
    kvParameter* m_parm;
    kvString m_name;
    kvString m_value;
};

// An empty column: nothing in the text line, "-" in the table.
inline dlItem dlGap() {
    static kvIterator<int> nameless;
    return dlItem(nameless);
}

// The columns of a module, in its order.
class dlColumns : public kvList<dlItem> {
public:
    dlColumns& operator<<(const dlItem& item) {
        insert(end(), item);
        return *this;
    }
};

// The base of every Tim class: per-element figures, the unit "e", and the
// walk over the module's own odometer of parameters.
class prTest : public dlTest {
public:
    using dlTest::dlTest;
    using kvTest::resultToCstrm;

    kvString getUnit() override { return unitStr(1); }
    // An alternative result block; the run's table writer does not use it.
    virtual void resultTitleToCStream();
    virtual void resultToCstrm();
    virtual double getDivisor_el() { return getDivisor(); }
    // The text line and the table row of a set list the module's columns.
    void parmsToOstrm() override;
    void parmsToCstrm() override;
    void parmsNameToCstrm() override;
    virtual void columns(dlColumns& c) { (void)c; }

protected:
    // Row step of data laid out as one buffer: the column count rounded up
    // to a multiple of 8 for 16-bit data, of 4 otherwise.
    int roundedStride(int cols) const;
    // Steps the parameters as an odometer, the fastest first: on the first
    // set of the test each takes its first value; later the fastest moves,
    // and when it runs out the next one moves and the faster ones restart.
    bool stepOdometer(std::initializer_list<kvParameter*> fastestFirst);
};

#endif
