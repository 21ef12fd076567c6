// Reports: the 79-column frames of the text log, the run title, the lines of
// each test, the run summary and the listing of tests.
#ifndef KV_REPORT_H
#define KV_REPORT_H

#include <ctime>

#include "kvcstream.h"
#include "kvstream.h"

class kvTest;
class kvTestList;
class kvConditions;

class kvReportFormat {
public:
    kvReportFormat(bool frame, int c1, int c2, int c3, int c4, int c5, int c6);
    kvString firstLine();
    kvString lastLine();
    kvString sepLine();
    kvString getLine(kvString a, kvString b, kvString c, kvString d, kvString e, kvString f);
    void setStartLine(kvString& line);
    void setEndLine(kvString& line);
    static bool setOffsetLine(kvString& line, int place);
    static int getLastLen(const kvString& text);
    void setItem(kvString& line, kvString item, int column);
    void setItemLeft(kvString& line, kvString item, int column);
    static kvString getTimeStr(int seconds);
    static bool getPieceItem(kvString& text, kvString& piece, int width);

    bool m_frame;
    int m_colms[6];
};

kvString cutoffNL(kvString text);
kvString cpuInfo();
kvString kvTimeText(time_t t);

class kvReportTitle : public kvList<kvString> {
public:
    explicit kvReportTitle(const kvTestList& list);
    virtual ~kvReportTitle() {}
};
kvOStream& operator<<(kvOStream& s, kvReportTitle& title);
kvCStream& operator<<(kvCStream& s, kvReportTitle& title);

class kvReportTestTitle : public kvList<kvString> {
public:
    explicit kvReportTestTitle(const kvTest* test);
    virtual ~kvReportTestTitle() {}
};
kvOStream& operator<<(kvOStream& s, kvReportTestTitle& title);
kvCStream& operator<<(kvCStream& s, kvReportTestTitle& title);

struct kvReportTestResult {
    explicit kvReportTestResult(const kvTest* test);
    kvString m_result;
    kvString m_function;
    kvString m_time;
    kvString m_table;
};
kvOStream& operator<<(kvOStream& s, kvReportTestResult& result);
kvCStream& operator<<(kvCStream& s, kvReportTestResult& result);

class kvReportEnd : public kvList<kvString> {
public:
    explicit kvReportEnd(const kvTestList& list);
    virtual ~kvReportEnd() {}
};
kvOStream& operator<<(kvOStream& s, kvReportEnd& end);
kvCStream& operator<<(kvCStream& s, kvReportEnd& end);

class kvReportList : public kvList<kvString> {
public:
    kvReportList(kvTestList& list, kvConditions& conditions, int mode);
    virtual ~kvReportList() {}
    bool createFuncList();
    static bool presentInTestList(const kvString& name, kvTestList& list);
private:
    void cell(const kvString& text) { insert(end(), text); }
};
kvOStream& operator<<(kvOStream& s, kvReportList& list);
kvCStream& operator<<(kvCStream& s, kvReportList& list);

#endif
