// kvException and the signal handler that turns a fault of a measured
// function into one: the handler jumps back to the innermost protected region,
// which throws.
#include "kvexception.h"

#include <csignal>
#include <cstdio>

#include "kvstring.h"

kvException::kvException(const kvString& text) {
    snprintf(m_msg, sizeof(m_msg), "--VDL. Exception: %s", text.c_str());
    snprintf(m_info, sizeof(m_info), "%s", text.c_str());
}

kvException::kvException(const char* text) {
    snprintf(m_msg, sizeof(m_msg), "--VDL. Signal: %s", text);
    snprintf(m_info, sizeof(m_info), "%s", text);
}

sigjmp_buf tsSignal::m_jmpbuf;
int tsSignal::m_code = 0;
int tsSignal::m_depth = 0;

// Built at static initialisation, so the handler is in place before main.
tsSignal _g_signal;

// signal() keeps the handler installed; the signal stays blocked while the
// handler runs, and siglongjmp brings back the mask that sigsetjmp saved, so
// the next fault is caught the same way.
tsSignal::tsSignal() {
    signal(SIGFPE, sig_fpe);
    signal(SIGILL, sig_fpe);
    signal(SIGSEGV, sig_fpe);
}

// Outside every protected region there is nowhere to go: with the default
// action back in place the process ends as an unhandled fault would. The
// signal is raised again, as it is blocked here it arrives on return; that
// also covers a signal that was sent rather than caused by an instruction.
void tsSignal::sig_fpe(int signal) {
    m_code = signal;
    if (m_depth == 0) {
        ::signal(signal, SIG_DFL);
        raise(signal);
        return;
    }
    siglongjmp(m_jmpbuf, -1);
}

const char* tsSignal::getInfo() {
    switch (m_code) {
    case SIGFPE: return "FP error, such as overflow, division by zero, invalid operation.";
    case SIGILL: return "Illegal instruction.";
    case SIGSEGV: return "Illegal storage access.";
    default: return "Unknown exception";
    }
}
