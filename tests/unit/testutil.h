// Helpers shared by the unit tests: a temporary directory, whole-file reads
// and writes, and a capture of what the global text stream writes.
#ifndef KV_TESTUTIL_H
#define KV_TESTUTIL_H

#include <cstdio>
#include <cstdlib>
#include <string>

#include "kvstream.h"

class TempDir {
public:
    TempDir() {
        char pattern[] = "/tmp/kvtestXXXXXX";
        m_dir = mkdtemp(pattern);
    }
    ~TempDir() { std::system(("rm -rf " + m_dir).c_str()); }
    kvString path(const char* name) const { return kvString(m_dir.c_str()) + "/" + name; }
    const std::string& dir() const { return m_dir; }

private:
    std::string m_dir;
};

inline std::string readFile(const kvString& name) {
    std::string text;
    if (FILE* f = fopen(name.c_str(), "rb")) {
        char buf[4096];
        size_t n;
        while ((n = fread(buf, 1, sizeof buf, f)) > 0) text.append(buf, n);
        fclose(f);
    }
    return text;
}

inline void writeFile(const kvString& name, const std::string& text) {
    FILE* f = fopen(name.c_str(), "wb");
    fwrite(text.data(), 1, text.size(), f);
    fclose(f);
}

// Attaches a file to a stream for one test and detaches it again; every
// other file of the stream stays as it was.
template <class Stream>
class StreamCapture {
public:
    explicit StreamCapture(Stream& stream, const char* name = "capture.txt")
        : m_stream(stream), m_path(m_dir.path(name)) {
        m_stream.addStream(m_path, false);
    }
    ~StreamCapture() {
        typename Stream::iterator last = m_stream.end();
        --last;
        releaseOStream(*last);
        m_stream.erase(last);
    }
    std::string text() {
        m_stream.flush();
        return readFile(m_path);
    }

private:
    Stream& m_stream;
    TempDir m_dir;
    kvString m_path;
};

#endif
