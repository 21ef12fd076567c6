#include "kvcstream.h"

// ---------------------------------------------------------------- stores
// A store keeps a table column by column: list i holds column i of every row.

void clearStore(kvStringList* store) {
    for (int i = 0; i < KV_CSTREAM_COLUMNS; ++i) store[i].clear();
}

void addStore(kvStringList* store, kvString* row) {
    for (int i = 0; i < KV_CSTREAM_COLUMNS; ++i) store[i].insert(store[i].end(), row[i]);
}

int getStoreCount(kvStringList* store) { return store[0].size(); }

void resetStoreIterator(kvStringList* store, kvList<kvString>::iterator* cursors) {
    for (int i = 0; i < KV_CSTREAM_COLUMNS; ++i) cursors[i] = store[i].begin();
}

bool getStoreNext(kvStringList* store, kvString* row, kvList<kvString>::iterator* cursors) {
    for (int i = 0; i < KV_CSTREAM_COLUMNS; ++i)
        if (cursors[i] == store[i].end()) return false;
    for (int i = 0; i < KV_CSTREAM_COLUMNS; ++i) {
        row[i] = *cursors[i];
        ++cursors[i];
    }
    return true;
}

// ---------------------------------------------------------------- kvCStream

kvCStream::kvCStream() : m_count(0), m_lines(0), m_checkWidth(0) {}

kvCStream::~kvCStream() {
    clearStore(m_check);
    clearStore(m_postponed);
    close();
}

bool kvCStream::addStream(kvString name, bool append) {
    o_stream* s = createOStream(name, append);
    if (!s) return false;
    insert(end(), s);
    return true;
}

// Past the 32nd column a cell is dropped without a word.
void kvCStream::addCell(const kvString& text) {
    if (m_count < KV_CSTREAM_COLUMNS) m_colms[m_count++] = text;
}

void kvCStream::setColm(int index, const kvString& text) {
    if (index >= 0 && index < KV_CSTREAM_COLUMNS) m_colms[index] = text;
}

bool kvCStream::getColm(int index, kvString& text) const {
    if (index < 0 || index >= KV_CSTREAM_COLUMNS) return false;
    text = m_colms[index];
    return true;
}

// Exactly `width` cells (0: as many as were written); missing and empty cells
// show as "-", so a reader always sees the column.
void kvCStream::tableOut(int width) {
    if (width == 0) width = m_count;
    kvString line;
    for (int i = 0; i < width; ++i) {
        if (i > 0) line += ",";
        if (i < m_count && i < KV_CSTREAM_COLUMNS && !m_colms[i].empty()) line += m_colms[i];
        else line += "-";
    }
    line += "\n";
    for (iterator it = begin(); it != end(); ++it) {
        **it << line;
        if ((*it)->file()) fflush((*it)->file());
    }
}

void kvCStream::lineOut(int width) {
    tableOut(width);
    ++m_lines;
    if (m_checkWidth > 0) addStore(m_check, m_colms);
    tableFlush();
}

void kvCStream::tableFlush() {
    for (int i = 0; i < KV_CSTREAM_COLUMNS; ++i) m_colms[i] = "";
    m_count = 0;
}

void kvCStream::linePostpone() {
    addStore(m_postponed, m_colms);
    tableFlush();
}

void kvCStream::linePostponeOut(int width) {
    kvList<kvString>::iterator cursors[KV_CSTREAM_COLUMNS];
    resetStoreIterator(m_postponed, cursors);
    while (getStoreNext(m_postponed, m_colms, cursors)) {
        setColmCount(width);
        lineOut(width);
    }
    clearStore(m_postponed);
}

void kvCStream::identicalLinesStart(int width) {
    m_checkWidth = width > KV_CSTREAM_COLUMNS ? KV_CSTREAM_COLUMNS : width;
    clearStore(m_check);
}

bool kvCStream::identicalColms(kvString* a, kvString* b, int width) {
    if (width > KV_CSTREAM_COLUMNS) width = KV_CSTREAM_COLUMNS;
    for (int i = 0; i < width; ++i)
        if (!(a[i] == b[i])) return false;
    return true;
}

// Names the first pair of stored rows that agree in the check columns, by
// their line numbers in the table (title rows count too).
bool kvCStream::identicalLinesStop() {
    if (m_checkWidth <= 0) return false;
    int n = getStoreCount(m_check);
    if (n == 0) return false;

    bool found = false;
    int firstLine = m_lines - n + 1;
    kvList<kvString>::iterator ci[KV_CSTREAM_COLUMNS], cj[KV_CSTREAM_COLUMNS];
    kvString a[KV_CSTREAM_COLUMNS], b[KV_CSTREAM_COLUMNS];
    resetStoreIterator(m_check, ci);
    for (int i = 0; !found && getStoreNext(m_check, a, ci); ++i) {
        for (int k = 0; k < KV_CSTREAM_COLUMNS; ++k) cj[k] = ci[k];
        for (int j = i + 1; getStoreNext(m_check, b, cj); ++j) {
            if (identicalColms(a, b, m_checkWidth)) {
                g_ostrm << WARN << " Performance table warning:\n"
                        << " Lines " << firstLine + i << " & " << firstLine + j
                        << " have identical parameters\n" << endMsgFlush;
                found = true;
                break;
            }
        }
    }
    m_checkWidth = 0;
    clearStore(m_check);
    return found;
}

void kvCStream::flush() {
    for (iterator it = begin(); it != end(); ++it)
        if ((*it)->file()) fflush((*it)->file());
}

void kvCStream::close() {
    while (!empty()) {
        o_stream* s = *begin();
        erase(begin());
        releaseOStream(s);
    }
}

kvCStream& operator<<(kvCStream& s, const kvString& text) {
    if (text == "\n") s.lineOut(0);
    else s.addCell(text);
    return s;
}

kvCStream& operator<<(kvCStream& s, const char* text) { return s << kvString(text); }

kvCStream& operator<<(kvCStream& s, int v) {
    kvString text;
    text << v;
    return s << text;
}
