// Text output: files behind io_stream, the levelled fan-out kvOStream, the
// call trace kvTrace, and the global stream objects.
#ifndef KV_STREAM_H
#define KV_STREAM_H

#include <cstdio>

#include "kvstring.h"

// Level of one message; the two negative values are end markers, never stored.
enum MessageLevel {
    ERR = 1,
    WARN = 2,
    PERF = 4,
    INFO = 8,
    TRACE = 16,
    MEM = 32,
    DATA = 64,
    END_MSG = -10,        // closes the message
    END_MSG_FLUSH = -11   // closes the message and flushes every file
};

// A mask of MessageLevel bits.
typedef int OutputLevel;

const MessageLevel endMsg = END_MSG;
const MessageLevel endMsgFlush = END_MSG_FLUSH;

// Mode bits of io_stream.
enum {
    IO_READ = 1,
    IO_WRITE = 2,
    IO_APPEND = 4,
    IO_BINARY = 8,
    IO_ASIS = 256   // use the name as given, not through the session's directories
};

kvString getLastErrorMessage();

class io_stream {
public:
    io_stream() : m_file(0) {}
    io_stream(kvString name, int mode, bool report);
    explicit io_stream(FILE* f) : m_file(f) {}
    virtual ~io_stream();
    FILE* file() const { return m_file; }
    bool isOpen() const { return m_file != 0; }
    void closeFile();
protected:
    FILE* m_file;
};

class o_stream : public io_stream {
public:
    o_stream() {}
    o_stream(kvString name, int mode, bool report) : io_stream(name, mode, report) {}
    explicit o_stream(FILE* f) : io_stream(f) {}
    virtual ~o_stream() {}
};

class i_stream : public io_stream {
public:
    i_stream() {}
    i_stream(kvString name, int mode, bool report) : io_stream(name, mode, report) {}
    explicit i_stream(FILE* f) : io_stream(f) {}
    virtual ~i_stream() {}
    // Reads one line of any length without its line feed; false at end of file.
    bool getline(kvString& line);
};

bool getlinebuf(FILE* f, char* buffer, int size, bool& eof);
o_stream& operator<<(o_stream& s, const kvString& text);

// A new output file under `name` as given; null (and a message) when it fails.
o_stream* createOStream(kvString name, bool append);
// Closes s and deletes it if createOStream made it; other streams are only closed.
void releaseOStream(o_stream* s);

class kvOStream : public kvList<o_stream*> {
public:
    kvOStream();
    virtual ~kvOStream();

    bool addStream(kvString name, bool append);
    void addStream(o_stream* s) { insert(end(), s); }
    void setOutLevel(OutputLevel level) { m_outLevel = level; }
    OutputLevel getOutLevel() const { return m_outLevel; }
    void setMsgLevel(MessageLevel level);
    MessageLevel getMsgLevel() const { return m_msgLevel; }
    void restoreMsgLevel();
    bool beginMessage(MessageLevel level);
    void endMessage() { restoreMsgLevel(); }
    void endMessageFlush() { endMessage(); flush(); }
    // True when text at `level` passes the mask.
    bool enabled(MessageLevel level) const { return (level & m_outLevel) != 0; }
    void flush();
    void close();
    void write(const kvString& text);

private:
    OutputLevel m_outLevel;
    MessageLevel m_msgLevel;
    kvList<MessageLevel> m_levels;
};

kvOStream& operator<<(kvOStream& s, MessageLevel level);
kvOStream& operator<<(kvOStream& s, const kvString& text);
kvOStream& operator<<(kvOStream& s, const char* text);
kvOStream& operator<<(kvOStream& s, char c);
kvOStream& operator<<(kvOStream& s, int v);
kvOStream& operator<<(kvOStream& s, long long v);
kvOStream& operator<<(kvOStream& s, double v);
kvOStream& operator<<(kvOStream& s, unsigned char v);
kvOStream& operator<<(kvOStream& s, unsigned int v);

class kvTrace : public kvList<kvString> {
public:
    kvTrace() {}
    virtual ~kvTrace() {}
    void traceIn(kvString name);
    void traceOut(kvString name);
    kvString getCurName() const;
    void flush();
    const kvString& getText() const { return m_text; }
    void setText(const kvString& text) { m_text = text; }
    // Empties the trace text and the indent (each test starts afresh).
    void reset() { m_text = ""; m_indent = ""; }
    const kvString& getIndent() const { return m_indent; }
private:
    kvString m_text;
    kvString m_indent;
};

// Brackets a step with a trace label. Deliberately not RAII: a label left open
// by an exception or a signal must still name the place when it is reported.
#define KV_TRACED(label, step)        \
    do {                              \
        g_trace.traceIn(label);       \
        step;                         \
        g_trace.traceOut(label);      \
    } while (0)

class kvCStream;
class kvIStream;

extern i_stream c_in;
extern o_stream c_out;
extern kvOStream g_ostrm;
extern kvCStream g_cstrm;
extern kvCStream g_qstrm;
extern kvCStream g_ustrm;
extern kvIStream g_istrm;
extern kvTrace g_trace;

extern const char* extIni;
extern const char* extCsv;
extern const char* extOut;
extern const char* extSgl;
extern const char* extName;
extern const char* extSum;

#endif
