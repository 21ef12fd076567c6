#include "kvhost.h"

#include <cstdio>
#include <cstring>
#include <sys/utsname.h>
#include <unistd.h>

kvOS::kvOS() {
    m_text[0] = 0;
    struct utsname u;
    if (uname(&u) == 0)
        snprintf(m_text, sizeof m_text, "%s (%s, %s)", u.sysname, u.release, u.machine);
}

kvHost::kvHost() {
    if (gethostname(m_text, sizeof m_text - 1) != 0) m_text[0] = 0;
    m_text[sizeof m_text - 1] = 0;
}

kvOS os;
kvHost host;
