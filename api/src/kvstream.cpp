#include "kvstream.h"

#include <cstring>

#include "kv/kvsession.h"

kvString getLastErrorMessage() { return ""; }

// ---------------------------------------------------------------- files

io_stream::io_stream(kvString name, int mode, bool report) : m_file(0) {
    bool read = (mode & IO_READ) != 0;
    bool write = (mode & IO_WRITE) != 0;
    kvString path = name;
    if (!(mode & IO_ASIS)) {
        if (read) path = kvSession::getInPath(name);
        else if (write) path = kvSession::getOutPath(name);
    }
    char how[3] = {'r', 0, 0};
    if (!read && write) how[0] = (mode & IO_APPEND) ? 'a' : 'w';
    if (mode & IO_BINARY) how[1] = 'b';
    m_file = fopen(path.c_str(), how);
    if (!m_file && report) {
        g_ostrm << ERR << "-- Can't open file " << path
                << (read ? " to read" : (write ? " to write" : "")) << ": "
                << getLastErrorMessage() << "\n" << endMsg;
    }
}

io_stream::~io_stream() { closeFile(); }

// The console handles belong to the C runtime and stay open.
void io_stream::closeFile() {
    if (!m_file || m_file == stdin || m_file == stdout || m_file == stderr) return;
    fclose(m_file);
    m_file = 0;
}

o_stream& operator<<(o_stream& s, const kvString& text) {
    if (s.file()) fputs(text.c_str(), s.file());
    else printf("%s", text.c_str());
    return s;
}

bool getlinebuf(FILE* f, char* buffer, int size, bool& eof) {
    eof = false;
    memset(buffer, 0, size);
    if (!fgets(buffer, size, f)) {
        eof = true;
        return true;
    }
    int n = (int)strlen(buffer);
    if (n > 0 && buffer[n - 1] == '\n') {
        buffer[n - 1] = 0;
        return true;
    }
    // A full buffer without a line feed: the line goes on in the next piece.
    return n != size - 1;
}

// The line keeps its buffer from one line to the next: emptied in place it
// costs no allocation, and a long line grows by doubling.
bool i_stream::getline(kvString& line) {
    line.resize(0, 0);
    if (!m_file) return false;
    char buffer[512];
    bool eof = false;
    bool complete;
    do {
        complete = getlinebuf(m_file, buffer, sizeof buffer, eof);
        line += buffer;
    } while (!complete);
    return !line.empty() || !eof;
}

// Files made by createOStream. A fan-out attaches them and also plain objects
// such as c_out; only the former are deleted when the fan-out lets go of them.
// The list is never freed, so it outlives every global stream.
static kvList<o_stream*>& createdStreams() {
    static kvList<o_stream*>* created = new kvList<o_stream*>;
    return *created;
}

o_stream* createOStream(kvString name, bool append) {
    o_stream* s = new o_stream(name, IO_ASIS | IO_WRITE | (append ? IO_APPEND : 0), true);
    if (!s->isOpen()) {
        delete s;
        return 0;
    }
    createdStreams().insert(createdStreams().end(), s);
    return s;
}

void releaseOStream(o_stream* s) {
    if (!s) return;
    s->closeFile();
    kvList<o_stream*>& created = createdStreams();
    for (kvList<o_stream*>::iterator it = created.begin(); it != created.end(); ++it) {
        if (*it == s) {
            created.erase(it);
            delete s;
            return;
        }
    }
}

// ---------------------------------------------------------------- kvOStream

kvOStream::kvOStream() : m_outLevel(ERR), m_msgLevel(PERF) {}

kvOStream::~kvOStream() { close(); }

bool kvOStream::addStream(kvString name, bool append) {
    o_stream* s = createOStream(name, append);
    if (!s) return false;
    insert(end(), s);
    return true;
}

void kvOStream::setMsgLevel(MessageLevel level) {
    m_levels.insert(m_levels.begin(), m_msgLevel);
    m_msgLevel = level;
}

// An empty stack falls back to ERR, so a stray end marker never silences errors.
void kvOStream::restoreMsgLevel() {
    if (m_levels.empty()) {
        m_msgLevel = ERR;
        return;
    }
    m_msgLevel = *m_levels.begin();
    m_levels.erase(m_levels.begin());
}

// A numeric comparison: a cheap early test; the bit mask still filters the text.
bool kvOStream::beginMessage(MessageLevel level) {
    if ((int)level > m_outLevel) return false;
    setMsgLevel(level);
    return true;
}

void kvOStream::flush() {
    for (iterator it = begin(); it != end(); ++it)
        if ((*it)->file()) fflush((*it)->file());
}

// Closes every file and lets go of it; later text reaches no file.
void kvOStream::close() {
    while (!empty()) {
        o_stream* s = *begin();
        erase(begin());
        releaseOStream(s);
    }
}

void kvOStream::write(const kvString& text) {
    if ((m_msgLevel & m_outLevel) == 0) return;
    for (iterator it = begin(); it != end(); ++it) **it << text;
}

kvOStream& operator<<(kvOStream& s, MessageLevel level) {
    if (level == END_MSG) {
        s.restoreMsgLevel();
    } else if (level == END_MSG_FLUSH) {
        s.restoreMsgLevel();
        s.flush();
    } else {
        s.setMsgLevel(level);
    }
    return s;
}

kvOStream& operator<<(kvOStream& s, const kvString& text) {
    s.write(text);
    return s;
}

// Numbers take kvString's formats, so a double shows three significant digits.
template <class T>
static kvOStream& tsOutTpl(kvOStream& s, T value) {
    if (!s.enabled(s.getMsgLevel())) return s;
    kvString text;
    text << value;
    s.write(text);
    return s;
}

kvOStream& operator<<(kvOStream& s, const char* text) { return tsOutTpl(s, text); }
kvOStream& operator<<(kvOStream& s, char c) { return tsOutTpl(s, c); }
kvOStream& operator<<(kvOStream& s, int v) { return tsOutTpl(s, v); }
kvOStream& operator<<(kvOStream& s, long long v) { return tsOutTpl(s, v); }
kvOStream& operator<<(kvOStream& s, double v) { return tsOutTpl(s, v); }
kvOStream& operator<<(kvOStream& s, unsigned char v) { return tsOutTpl(s, (long long)v); }
kvOStream& operator<<(kvOStream& s, unsigned int v) { return tsOutTpl(s, (long long)v); }

// ---------------------------------------------------------------- kvTrace

static kvString traceLine(const kvString& indent, const char* what, const kvString& name) {
    kvString line;
    line << indent << "*****" << what << name << "\n";
    return line;
}

void kvTrace::traceIn(kvString name) {
    g_ostrm.setMsgLevel(TRACE);
    m_indent += "*";
    kvString line = traceLine(m_indent, " trace into   ", name);
    g_ostrm << line;
    m_text += line;
    flush();
    g_ostrm.restoreMsgLevel();
    insert(begin(), name);
}

// Closes every label down to `name`, so a label that an exception left open is
// closed by the traceOut of an outer one.
void kvTrace::traceOut(kvString name) {
    g_ostrm.setMsgLevel(TRACE);
    kvString line = traceLine(m_indent, " trace out of ", name);
    g_ostrm << line;
    m_text += line;
    flush();
    g_ostrm.restoreMsgLevel();
    for (iterator it = begin(); it != end(); ++it) {
        if (!m_indent.empty()) m_indent.resize(m_indent.length() - 1, 0);
        if (*it == name) {
            ++it;
            erase(begin(), it);
            break;
        }
    }
}

kvString kvTrace::getCurName() const { return empty() ? kvString() : *begin(); }

void kvTrace::flush() {
    if ((int)g_ostrm.getMsgLevel() <= g_ostrm.getOutLevel()) g_ostrm.flush();
}
