// kvException, the one exception type, and tsSignal, which turns SIGFPE,
// SIGILL and SIGSEGV inside a protected region into a kvException.
#ifndef KV_EXCEPTION_H
#define KV_EXCEPTION_H

#include <csetjmp>
#include <cstring>
#include <exception>

class kvString;

class kvException : public std::exception {
public:
    // For errors of input: "--VDL. Exception: " text.
    explicit kvException(const kvString& text);
    // For signals and fixed texts: "--VDL. Signal: " text.
    explicit kvException(const char* text);
    const char* msg() const { return m_msg; }
    const char* info() const { return m_info; }
    const char* what() const noexcept override { return m_msg; }
private:
    char m_msg[256];
    char m_info[256];
};

class tsSignal {
public:
    tsSignal();
    static void sig_fpe(int signal);
    static int code() { return m_code; }
    static const char* getInfo();
    static sigjmp_buf m_jmpbuf;
    static int m_code;
    // True while some protected region has set the jump target.
    static int m_depth;
};

// Saves the jump target of the enclosing region and restores it on every way
// out, so that regions nest and a signal lands in the innermost one.
class kvSignalRegion {
public:
    kvSignalRegion() {
        memcpy(m_saved, tsSignal::m_jmpbuf, sizeof(sigjmp_buf));
        ++tsSignal::m_depth;
    }
    ~kvSignalRegion() {
        memcpy(tsSignal::m_jmpbuf, m_saved, sizeof(sigjmp_buf));
        --tsSignal::m_depth;
    }
private:
    sigjmp_buf m_saved;
};

// Opens a protected region in the current scope: a signal that arrives later
// in this scope comes back here and is thrown as a kvException. Use it inside
// the `try` whose `catch (kvException&)` reports it.
#define KV_SIGNAL_REGION(region)                                   \
    kvSignalRegion region;                                         \
    if (sigsetjmp(tsSignal::m_jmpbuf, 1) != 0)                     \
        throw kvException(tsSignal::getInfo())

#endif
