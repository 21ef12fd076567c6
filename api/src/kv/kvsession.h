// kvSession: the order of the whole run, from the command line to the exit
// code; the registration functions through which test modules announce
// themselves before main; file and directory naming.
#ifndef KV_SESSION_H
#define KV_SESSION_H

#include "../kvstream.h"
#include "../kvvdl.h"

class kvTest;
class kvTestList;
class kvParameter;
class kvConditions;
class RunCondition;
class kvTool;
struct kvOption;

class kvSession {
public:
    kvSession();
    virtual ~kvSession();

    virtual void initSession();
    virtual int run(int argc, char** argv);
    virtual void funcTitleToCStream();
    virtual void parmsTitleToCStream();
    virtual void resultTitleToCStream();
    virtual void putTableTitle();
    virtual void putTableTitleLine();
    virtual bool startSession() { return true; }
    virtual void updateOptions();
    virtual bool parseCommandLine(int argc, char** argv);
    virtual void listTests(int mode);
    virtual void hint(char arg, bool hide);
    virtual void hint_quick(bool hide);
    virtual void hint_full(bool hide);
    virtual void hint_descr(char key);
    virtual void outputHeader();
    virtual void outputFooter();
    virtual void outputSignal();
    virtual void readCommonData();

    void setInDir(kvString dir);
    void setOutDir(kvString dir);
    void setDefName(kvString name);
    static kvString genDirName(kvString name);
    static kvString genPathName(kvString dir, kvString name, kvString ext);
    static kvString genInPath(kvString name, kvString ext);
    static kvString genOutPath(kvString name, kvString ext);
    static kvString getInPath(kvString name);
    static kvString getOutPath(kvString name);
    static kvString getDirPath(kvString name, kvString dir);
    static bool isAbsolutePath(const kvString& path);
    static bool isExit(int level) { return m_exitLevel >= level; }
    static kvString getExitInfo();

    void addAskMode(int mode) { m_askMode |= mode; }
    void setQuickMode(bool quick) { m_quickMode = quick; }
    void setEnumMode(int mode) { m_enumMode = mode; }
    void addLevelMode(OutputLevel level) { m_levelMode |= level; }
    void setIniMode(kvString name, bool write) { m_iniName = name; m_iniWrite = write; }
    void addCondition(RunCondition* condition);
    void unopenedFile() { m_unopened = true; }
    void setSglName(kvString name) { m_sglName = name; }
    void initOption(char key, kvString help, kvString (*info)(kvString),
                    void (*apply)(kvString, kvSession*), kvString descr, bool hidden);
    kvOption* getOption(char key);
    void applyOption(char key, kvString arg);
    bool readCfgFile(kvString& line, kvString& name);
    bool quickOutput();
    static kvString getEnterTitle(kvString text);
    void beginCommonData();
    void endCommonData();
    void selectTestParameters();
    int readTimingMethod();
    int readTestParameters();
    int readDataOffset();

    // Builds the key table in registration order; -T and -N only when a
    // library is bound.
    void registerOptions(bool libraryBound);
    static void deleteOption(kvOption* option);
    void kvFuncTitleToCStream();
    void kvParmsTitleToCStream();

    // Library set-up around the run.
    void setVdlEnvironment();
    void setVdlLibInfo();
    void initStaticCpu();
    void setNumThreads();
    static void reportStatus(VdlStatus status);

    kvConditions* m_conditions;
    kvList<kvOption*> m_options;
    int m_askMode;
    bool m_batch;
    OutputLevel m_levelMode;
    bool m_quickMode;
    int m_enumMode;
    bool m_unopened;
    kvString m_iniName;
    bool m_iniWrite;
    kvString m_optionInfo;
    kvString m_sglName;

    static kvString m_exePath;
    static kvString m_defName;
    static kvString m_inDir;
    static kvString m_outDir;
    static int m_nameMode;
    static bool m_nameExit;
    static int m_exitLevel;
};

// Reads Accuracy (in per cent) into g_tool.m_accuracy for the methods that
// use it (Auto and Iterative, and any unknown one).
void readAccuracy(int method);

// Deletes every test and the list at the end of the run.
void deleteTestList();

// Registration: safe before main, in any order; each returns 1 so that a
// translation unit can run it by initialising a static bool.
int kvRegTest(kvTest* test);
int kvRegParm(kvParameter& parm);
int kvRegParmFunc(void (*f)());
int kvRegCmdLine(kvString keys);
int kvRegTimingMethod(void (*f)(kvTool&));
int kvRegVdlEnvironment(void (*f)());
int kvRegVdlVersion(vdlGetLibVersionFunc f);
int kvRegLibInfo(kvString line);
int kvRegLibFunc(kvString name);
int kvRegHotFunction(kvString name);
int kvRegQKeys();
int kvRegSession(kvSession* session);

extern kvSession* pSession;
extern kvTestList* pTestList;
extern kvList<kvParameter*>* g_pParmList;
extern void (*s_parmFunc)();
extern kvString* pCmdLine;
extern kvStringList* g_pHotList;
extern kvStringList* g_pLibInfoList;
extern kvStringList* g_pLibFuncList;
extern char s_hintArg;
extern bool s_hintHide;
extern bool s_version;
extern int s_cpuType;
extern int s_numThreads;
extern int qKeys;
extern void (*vdlEnvironment)();
extern kvList<vdlGetLibVersionFunc>* vdlVersionList;
extern void (*initTimingMethod)(kvTool&);
extern const char* KV_version;

#endif
