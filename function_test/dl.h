// dl.h: what a test module is made of. A module names its data, its
// parameters and its Tim class, and registers one test per library function
// with DL_REG; the timing trio of each test is spelled here, once.
#ifndef DL_H
#define DL_H

#include <cstring>
#include <initializer_list>

#include "vdlcore.h"
#include "vdls.h"
#include "vdlsr.h"

#include "dlfunc.h"
#include "dlparams.h"
#include "dltest.h"
#include "dlvector.h"
#include "kv/kvsession.h"
#include "kvcstream.h"
#include "kvistream.h"
#include "kvparameter.h"
#include "kvticker.h"

// ---- the catalogue's common unit

void dlSetVdlEnvironment();
const VdlLibraryVersion* dlGetVdlVersion_vdlsr();
const VdlLibraryVersion* dlGetVdlVersion_vdls();

extern const kvString RndStr[2];
extern const kvString HintStr[3];
extern const kvString CmpStr[5];
extern const kvString FlagStr[4];

// ---- the head of a module: its source path and its library registrations

#define DL_MODULE(path)                                                                  \
    static const char* const dlModuleFile = path;                                        \
    [[maybe_unused]] static bool regVdlEnvironment = kvRegVdlEnvironment(dlSetVdlEnvironment); \
    [[maybe_unused]] static bool regVersion_vdlsr = kvRegVdlVersion(dlGetVdlVersion_vdlsr)

// A module that also calls general functions of libvdls.
#define DL_MODULE_VDLS(path)                                                             \
    DL_MODULE(path);                                                                     \
    [[maybe_unused]] static bool regVersion_vdls = kvRegVdlVersion(dlGetVdlVersion_vdls)

// ---- a module's buffers as a group

// Each buffer typed by the test's function: by its argument `arg`, or by a
// dlArg such as DL_DST1.
inline void dlInitAll(std::initializer_list<dlVector*> vectors, const dlFunc& func, int arg = 1) {
    for (dlVector* v : vectors) v->init(func, arg);
}
inline void dlInitAll(std::initializer_list<dlVector*> vectors, const dlFunc& func, dlArg arg) {
    for (dlVector* v : vectors) v->init(func, arg);
}

// Each vector `len` long, filled by `mode`; false at the first that cannot
// be made.
inline bool dlCreateAll(std::initializer_list<dlVector*> vectors, long long len, SetMode mode,
                        double a = 0, double b = 0) {
    for (dlVector* v : vectors)
        if (!v->createVector(len, mode, a, b)) return false;
    return true;
}

inline void dlDeleteAll(std::initializer_list<dlVector*> vectors,
                        std::initializer_list<dlrMatrice*> matrices = {}) {
    for (dlVector* v : vectors) v->deleteVector();
    for (dlrMatrice* m : matrices) m->deleteMatrice();
}

// An error message of a module's set-up, such as data it could not make.
inline void dlError(const kvString& text) { g_ostrm << ERR << text << endMsg; }

// ---- a Tim class over a base that takes the module's data

// The constructor: the base gets the module's file-scope data (one or more
// arguments), then the arguments of the registration.
#define DL_CTOR(Class, Base, ...) \
    template <class... Args>      \
    Class(Args... args) : Base(__VA_ARGS__, args...) {}

// A Tim class that is all its base.
#define DL_CLASS(Class, Base, ...)         \
    class Class : public Base {            \
    public:                                \
        DL_CTOR(Class, Base, __VA_ARGS__)  \
    }

// ---- the trio of a test: one call, a timed loop, a timed sum of single calls

// Loop form: a warm-up call, then `n` calls in one bracket; `init` (a
// statement, possibly empty) precedes every call and lies inside the bracket.
#define DL_TIM_LOOP(func, call, init)                                   \
    static kvResult tim_##func##_loop(int n, long long* clocks) {       \
        init;                                                           \
        VdlStatus status = (call);                                      \
        kvCpuTicker ticker;                                             \
        ticker.start();                                                 \
        for (int i = 0; i < n; ++i) {                                   \
            init;                                                       \
            status = (call);                                            \
        }                                                               \
        ticker.stop();                                                  \
        *clocks = ticker.getTicks();                                    \
        return dlTest::checkStatus(status, #func);                      \
    }

// Statistic form: each call in its own bracket until at least *n calls and
// *clocks clocks; the pass at -1 warms up and is dropped by start().
#define DL_TIM_STAT(func, call, init)                                   \
    static kvResult tim_##func##_stat(int* n, long long* clocks) {      \
        kvCpuTicker ticker;                                             \
        VdlStatus kept = 0;                                             \
        int i = -1;                                                     \
        for (;;) {                                                      \
            if (i == 0) ticker.start();                                 \
            if (i >= *n && ticker.getTicks() >= *clocks) break;         \
            init;                                                       \
            ticker.on();                                                \
            VdlStatus status = (call);                                  \
            ticker.off();                                               \
            if (status != 0) kept = status;                             \
            if (status < 0) break;                                      \
            ++i;                                                        \
        }                                                               \
        *n = i;                                                         \
        *clocks = ticker.getTicks();                                    \
        return dlTest::checkStatus(kept, #func);                        \
    }

#define DL_TRIO(func, call, init)                                       \
    static int tcall_##func() { return (call); }                        \
    DL_TIM_LOOP(func, call, init)                                       \
    DL_TIM_STAT(func, call, init)

// Registers a test of `func` called with the argument list `args`.
#define DL_REG(Class, func, args)                                       \
    DL_TRIO(func, func args, (void)0)                                   \
    [[maybe_unused]] static bool reg_##func = kvRegTest(new Class(     \
        tcall_##func, (funcInit)0, tim_##func##_loop, tim_##func##_stat, #func, \
        dlModuleFile, #Class "//DL_REG"))

// An in-place test: `restore` copies the saved input back over the work
// buffer before every call.
#define DL_REG_I(Class, func, args, restore)                            \
    static int tinit_##func() { restore; return 0; }                    \
    DL_TRIO(func, func args, tinit_##func())                            \
    [[maybe_unused]] static bool reg_##func = kvRegTest(new Class(     \
        tcall_##func, tinit_##func, tim_##func##_loop, tim_##func##_stat, \
        #func, dlModuleFile, #Class "//DL_REG_I"))

#endif
