// Helpers of the unit tests: the shared test support in the framework's
// strings, and a capture of what the global text stream writes.
#ifndef KV_TESTUTIL_H
#define KV_TESTUTIL_H

#include <string>

#include "kvstream.h"
#include "test_support.h"

using testsupport::contains;
using testsupport::lines;
using testsupport::split;
using testsupport::startsWith;

// A scratch folder whose paths are the framework's strings.
class TempDir : public testsupport::TempDir {
public:
    kvString path(const char* name) const {
        return kvString(testsupport::TempDir::path(name).c_str());
    }
};

inline std::string readFile(const kvString& name) { return testsupport::readFile(name.c_str()); }

inline void writeFile(const kvString& name, const std::string& text) {
    testsupport::writeFile(name.c_str(), text);
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
        return onDisk();
    }
    // What the file holds now, without a flush.
    std::string onDisk() const { return readFile(m_path); }

private:
    Stream& m_stream;
    TempDir m_dir;
    kvString m_path;
};

// Collects what g_ostrm writes at `level` while it lives, then puts the
// level back.
class LogCapture : public StreamCapture<kvOStream> {
public:
    explicit LogCapture(OutputLevel level = ERR | WARN | PERF)
        : StreamCapture<kvOStream>(g_ostrm), m_level(g_ostrm.getOutLevel()) {
        g_ostrm.setOutLevel(level);
    }
    ~LogCapture() { g_ostrm.setOutLevel(m_level); }

private:
    OutputLevel m_level;
};

#endif
