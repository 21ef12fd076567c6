// kvCStream: comma-separated tables built cell by cell in a row of 32 columns,
// with the identical-row check and postponed rows.
#ifndef KV_CSTREAM_H
#define KV_CSTREAM_H

#include "kvstream.h"

const int KV_CSTREAM_COLUMNS = 32;

void clearStore(kvStringList* store);
void addStore(kvStringList* store, kvString* row);
int getStoreCount(kvStringList* store);
void resetStoreIterator(kvStringList* store, kvList<kvString>::iterator* cursors);
bool getStoreNext(kvStringList* store, kvString* row, kvList<kvString>::iterator* cursors);

class kvCStream : public kvList<o_stream*> {
public:
    kvCStream();
    virtual ~kvCStream();

    bool addStream(kvString name, bool append);
    void addCell(const kvString& text);
    void setColm(int index, const kvString& text);
    bool getColm(int index, kvString& text) const;
    int getColmCount() const { return m_count; }
    void setColmCount(int count) { m_count = count < 0 ? 0 : (count > KV_CSTREAM_COLUMNS ? KV_CSTREAM_COLUMNS : count); }
    int getLineCount() const { return m_lines; }

    void tableOut(int width);
    void lineOut(int width);
    void tableFlush();
    void linePostpone();
    void linePostponeOut(int width);
    void identicalLinesStart(int width);
    bool identicalLinesStop();
    static bool identicalColms(kvString* a, kvString* b, int width);
    void flush();
    void close();

private:
    kvString m_colms[KV_CSTREAM_COLUMNS];
    int m_count;
    int m_lines;
    int m_checkWidth;
    kvStringList m_check[KV_CSTREAM_COLUMNS];
    kvStringList m_postponed[KV_CSTREAM_COLUMNS];
};

// A text that is exactly "\n" ends the row; any other text is the next cell.
kvCStream& operator<<(kvCStream& s, const kvString& text);
kvCStream& operator<<(kvCStream& s, const char* text);
kvCStream& operator<<(kvCStream& s, int v);

#endif
