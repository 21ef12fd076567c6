// The operating system and host name texts that a run reports.
#ifndef KV_HOST_H
#define KV_HOST_H

struct kvOS {
    kvOS();
    const char* text() const { return m_text; }
    char m_text[1024];
};

struct kvHost {
    kvHost();
    const char* text() const { return m_text; }
    char m_text[1024];
};

extern kvOS os;
extern kvHost host;

#endif
