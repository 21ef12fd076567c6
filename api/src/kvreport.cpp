#include "kvreport.h"

#include <ctime>

#include "kv/kvsession.h"
#include "kvconditions.h"
#include "kvcputype.h"
#include "kvhost.h"
#include "kvtest.h"
#include "kvtestlist.h"
#include "kvticker.h"

kvReportFormat::kvReportFormat(bool frame, int c1, int c2, int c3, int c4, int c5, int c6)
    : m_frame(frame) {
    int c[6] = {c1, c2, c3, c4, c5, c6};
    for (int i = 0; i < 6; ++i) m_colms[i] = c[i];
}

kvString kvReportFormat::firstLine() { m_frame = true; return sepLine(); }
kvString kvReportFormat::lastLine() { m_frame = false; return sepLine(); }

kvString kvReportFormat::sepLine() {
    kvString line = "+";
    line.resize(78, '-');
    return line + "+\n";
}

kvString kvReportFormat::getLine(kvString a, kvString b, kvString c, kvString d, kvString e,
                                 kvString f) {
    kvString items[6] = {a, b, c, d, e, f};
    kvString line;
    setStartLine(line);
    for (int i = 0; i < 6; ++i) setItem(line, items[i], m_colms[i]);
    setEndLine(line);
    return line;
}

void kvReportFormat::setStartLine(kvString& line) { line += m_frame ? "|" : " "; }

void kvReportFormat::setEndLine(kvString& line) {
    if (m_frame && getLastLen(line) <= 78) {
        setOffsetLine(line, 78);
        line += "|";
    }
    line += "\n";
}

bool kvReportFormat::setOffsetLine(kvString& line, int place) {
    int len = getLastLen(line);
    if (len > place) return false;
    line.resize(line.length() + place - len, ' ');
    return true;
}

int kvReportFormat::getLastLen(const kvString& text) {
    int nl = text.rfind("\n");
    return nl < 0 ? text.length() : text.length() - nl - 1;
}

void kvReportFormat::setItem(kvString& line, kvString item, int column) {
    if (item.empty()) return;
    if (column < 0) {
        int start = -column - 1 - item.length();
        if (start >= 0) setItem(line, item, start);
        return;
    }
    int len = getLastLen(line);
    setItemLeft(line, item, len < column ? column : len + 1);
}

void kvReportFormat::setItemLeft(kvString& line, kvString item, int column) {
    setOffsetLine(line, column);
    line += item;
}

kvString kvReportFormat::getTimeStr(int seconds) {
    return kvString::format("%02d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
}

bool kvReportFormat::getPieceItem(kvString& text, kvString& piece, int width) {
    if (text.length() <= width) return false;
    int cut = -1;
    for (int i = width; i >= 0; --i)
        if (text[i] == ' ') { cut = i; break; }
    if (cut < 0) return false;
    piece = text.substr(0, cut);
    text = text.substr(cut + 1);
    return true;
}

kvString cutoffNL(kvString text) {
    int nl = text.find("\n");
    return nl < 0 ? text : text.substr(0, nl);
}

kvString kvTimeText(time_t t) { return cutoffNL(ctime(&t)); }

kvString cpuInfo() {
    kvString text = kvCpuType::cpuName(vdl_GetCpuType ? vdl_GetCpuType() : 0);
    text << ", ";
    if (kvGetNumOfProcessors() > 1) text << kvGetNumOfProcessors() << "x";
    int f = kvCpuTicker::getFreq();
    if (f > 999) text << kvString::format("%.3g", f / 1000.0) << " GHz";
    else text << f << " MHz";
    text << ", ";
    int cache = kvGetMaxCacheSizeB();
    if (cache != 0) text << "Max cache size " << cache / 1024 << " K";
    return text;
}

// ---- run title

kvReportTitle::kvReportTitle(const kvTestList& list) {
    kvOS osText;
    kvHost hostText;
    insert(end(), "CPU");
    insert(end(), cpuInfo());
    insert(end(), "OS");
    insert(end(), osText.text());
    insert(end(), "Computer");
    insert(end(), hostText.text());
    if (g_pLibInfoList) {
        for (kvStringList::iterator it = g_pLibInfoList->begin(); it != g_pLibInfoList->end(); ++it) {
            insert(end(), "Library");
            insert(end(), *it);
        }
    }
    insert(end(), "Start");
    insert(end(), kvTimeText(list.m_startTime));
}

kvOStream& operator<<(kvOStream& s, kvReportTitle& title) {
    kvReportFormat f(true, 1, 11, 13, -79, -79, -79);
    s << ERR << f.firstLine();
    kvReportTitle::iterator it = title.begin();
    while (it != title.end() && !(*it == "Start")) {
        kvString label = *it++;
        kvString value = it != title.end() ? *it++ : kvString();
        s << f.getLine(label, ":", value, "", "", "");
    }
    s << f.getLine("Test", ":", "Timing", "", "", "");
    if (it != title.end() && ++it != title.end()) s << f.getLine("", "", "", *it, "", "");
    s << f.lastLine() << endMsgFlush;
    return s;
}

kvCStream& operator<<(kvCStream& s, kvReportTitle& title) {
    for (kvReportTitle::iterator it = title.begin(); it != title.end();) {
        s << *it++;
        if (it != title.end()) s << *it++;
        s.lineOut(0);
    }
    return s;
}

// ---- test title

kvReportTestTitle::kvReportTestTitle(const kvTest* test) {
    insert(end(), "Function");
    insert(end(), test->m_name);
    insert(end(), kvTimeText(test->m_startTime));
    if (g_ostrm.getOutLevel() < 2) return;
    kvString labels[3] = {"Test", "Source", "Description"};
    kvString values[3] = {test->m_info.m_class, test->m_file, test->m_info.m_description};
    for (int i = 0; i < 3; ++i) {
        if (i == 2 && values[i].empty()) break;
        insert(end(), labels[i]);
        insert(end(), values[i]);
        insert(end(), "");
    }
}

kvOStream& operator<<(kvOStream& s, kvReportTestTitle& title) {
    kvReportFormat f(true, 1, 12, 14, -79, -79, -79);
    bool framed = s.getOutLevel() > 2;
    if (framed) s << f.firstLine();
    for (kvReportTestTitle::iterator it = title.begin(); it != title.end();) {
        kvString label = *it++;
        kvString value = *it++;
        kvString third = *it++;
        s << f.getLine(label, ":", value, third, "", "");
        if (!framed) break;
    }
    if (framed) s << f.lastLine();
    s.flush();
    return s;
}

kvCStream& operator<<(kvCStream& s, kvReportTestTitle& title) {
    kvReportTestTitle::iterator it = title.begin();
    if (it == title.end() || ++it == title.end()) return s;
    kvString name = *it;
    s << name << (name.find("__kv") == 0 ? "Information" : "Timing");
    s.flush();
    return s;
}

// ---- test result

kvReportTestResult::kvReportTestResult(const kvTest* test) {
    if (!test) {
        m_table = "Function,Class,Control87,Status87,ControlSSX,StatusSSX,Test,Time (sec.),"
                  "SrcName,Result,ExeName";
        return;
    }
    m_result = kvResultName(test->m_result);
    m_function = test->m_name;
    m_time = kvTimeText(test->m_stopTime);
    m_table << "-," << (test->m_bad87 ? "?" : "-") << ",-," << (test->m_badSSX ? "?" : "-")
            << "," << test->m_info.m_class << ","
            << (int)difftime(test->m_stopTime, test->m_startTime) << "," << test->m_file << ","
            << m_result << "," << kvSession::m_exePath.getFileName();
}

kvOStream& operator<<(kvOStream& s, kvReportTestResult& result) {
    kvReportFormat f(true, 1, 14, -79, -79, -79, -79);
    bool framed = s.getOutLevel() > 2;
    s << ERR;
    if (framed) s << f.firstLine();
    s << f.getLine("-" + result.m_result, result.m_function, result.m_time, "", "", "");
    if (framed) s << f.lastLine();
    s << endMsgFlush;
    return s;
}

kvCStream& operator<<(kvCStream& s, kvReportTestResult& result) {
    if (result.m_table.empty()) return s;
    s << result.m_table;
    s.lineOut(0);
    return s;
}

// ---- run summary

kvReportEnd::kvReportEnd(const kvTestList& list) {
    const int* c = list.m_counts;
    int warnings = c[KV_ACCURWRN] + c[KV_DATAWRN] + c[KV_FUNCWRN];
    int badStatus = c[KV_BADSTSWRN];
    int fails = c[KV_ACCURFAIL] + c[KV_DATAFAIL] + c[KV_FUNCFAIL];
    int exceptions = c[KV_EXCPTFAIL];
    int values[10] = {list.m_numTests, c[KV_OK], fails + exceptions + warnings + badStatus,
                      fails + exceptions, fails, exceptions, warnings + badStatus, warnings,
                      badStatus,
                      list.m_numTests - (c[KV_OK] + fails + exceptions + warnings + badStatus)};
    const char* labels[10] = {".Number of tests", ".Successes      ", ".Failures       ",
                              "...Fails        ", ".....-FAIL      ", ".....-EXCPTFAIL ",
                              "...Warnings     ", ".....-WARNING   ", ".....-BADSTSWRN ",
                              "...Undefined    "};
    for (int i = 0; i < 10; ++i) {
        insert(end(), labels[i]);
        insert(end(), kvString::format("%d", values[i]));
    }
    insert(end(), ".Total time     ");
    insert(end(), kvReportFormat::getTimeStr((int)difftime(list.m_stopTime, list.m_startTime)));
}

kvOStream& operator<<(kvOStream& s, kvReportEnd& end) {
    kvReportFormat f(true, 1, 33, 34, -79, -79, -79);
    s << ERR << f.firstLine() << f.getLine("KV Summary", "", "", "", "", "");
    for (kvReportEnd::iterator it = end.begin(); it != end.end();) {
        kvString label = *it++;
        kvString value = *it++;
        s << f.getLine(label + " : " + value, "", "", "", "", "");
    }
    s << f.lastLine() << endMsgFlush;
    return s;
}

kvCStream& operator<<(kvCStream& s, kvReportEnd& end) {
    s << "END_DATA";
    s.lineOut(0);
    for (kvReportEnd::iterator it = end.begin(); it != end.end();) {
        s << *it++;
        s << *it++;
        s.lineOut(0);
    }
    return s;
}

// ---- list of tests

static const char* const s_notTested[] = {"Init", "Close", "Alloc", "Malloc", "Free",
                                          "PutVal", "RotateCenter", "ResizeShift"};

static bool isTestableName(const kvString& name) {
    for (unsigned i = 0; i < sizeof s_notTested / sizeof *s_notTested; ++i)
        if (name.found(s_notTested[i])) return false;
    if (name.found("Get") && !name.found("Get_")) return false;
    if (name.found("Set") && !name.found("Set_")) return false;
    return !name.found("DrawText");
}

bool kvReportList::createFuncList() {
    clear();
    if (!g_pLibFuncList) return false;
    for (kvStringList::iterator it = g_pLibFuncList->begin(); it != g_pLibFuncList->end(); ++it)
        if (isTestableName(*it)) cell(*it);
    return !empty();
}

bool kvReportList::presentInTestList(const kvString& name, kvTestList& list) {
    for (kvTestList::iterator it = list.begin(); it != list.end(); ++it)
        if (*it && (*it)->m_name == name) return true;
    return false;
}

kvReportList::kvReportList(kvTestList& list, kvConditions& conditions, int mode) {
    if (mode != 0 && createFuncList()) {
        kvStringList names;
        names.swap(*this);
        cell("Exist");
        cell("Function");
        cell("\n");
        for (kvStringList::iterator it = names.begin(); it != names.end(); ++it) {
            bool present = presentInTestList(*it, list);
            if (present && mode < 0) continue;
            cell(present ? "+" : "-");
            cell(*it);
            cell("\n");
        }
        return;
    }
    clear();
    cell("   #");
    cell("Function");
    cell("Test");
    cell("Source");
    cell("\n");
    int number = 0;
    for (kvTestList::iterator it = list.begin(); it != list.end(); ++it) {
        kvTest* test = *it;
        if (!test || !test->tobeRun(conditions)) continue;
        cell(kvString::format("%4d", ++number));
        cell(test->m_name);
        cell(test->m_info.m_class);
        cell(test->m_file);
        cell("\n");
    }
}

kvOStream& operator<<(kvOStream& s, kvReportList& list) {
    for (kvReportList::iterator it = list.begin(); it != list.end(); ++it) {
        if (*it == "\n") s << "\n";
        else s << *it << "\t";
    }
    return s;
}

kvCStream& operator<<(kvCStream& s, kvReportList& list) {
    for (kvReportList::iterator it = list.begin(); it != list.end(); ++it) s << *it;
    return s;
}
