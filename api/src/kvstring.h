// kvString: the system's growable, always zero-terminated byte string, its
// number formatter and parser, and the tokenizer kvParse.
#ifndef KV_STRING_H
#define KV_STRING_H

#include "kvlist.h"

class kvStringList;

class kvString {
public:
    kvString();
    kvString(const char* text);
    kvString(const kvString& other);
    virtual ~kvString();

    // Capacity for n characters: the smallest multiple of 16 above n.
    static int getBufSize(int n);

    void init();
    void allocate(int n);
    void free();
    void growBy(int n);

    kvString& assign(char c);
    kvString& assign(const char* text);
    kvString& assign(const kvString& other);
    kvString& operator=(const kvString& other) { return assign(other); }
    kvString& operator=(const char* text) { return assign(text); }

    void resize(int n, char c);
    bool empty() const { return m_len == 0; }
    int length() const { return m_len; }
    int capacity() const { return m_cap; }
    const char* c_str() const { return m_buf ? m_buf : ""; }
    char* data() { return m_buf; }
    char& at(int i) { return m_buf[i]; }
    char at(int i) const { return m_buf[i]; }
    char& operator[](int i) { return m_buf[i]; }
    char operator[](int i) const { return m_buf[i]; }

    bool errorConvertion() const { return m_error != 0; }
    void setErrorConvertion(bool on) const { m_error = on ? 1 : 0; }

    kvString& operator+=(const kvString& s);
    kvString& operator+=(const char* s);
    kvString& operator+=(char c);

    bool operator==(const kvString& s) const;
    bool operator!=(const kvString& s) const { return !(*this == s); }
    int compare(const kvString& s) const;
    int find(const kvString& s, int pos = 0) const;
    bool found(const kvString& s) const { return find(s, 0) != -1; }
    int rfind(const kvString& s) const;
    kvString substr(int pos) const;
    kvString substr(int pos, int n) const;
    kvString& trim();
    kvString toLower() const;
    kvString getFileName() const;
    kvString getFileDir() const;
    kvString getFileTitle() const;
    static const char* prefixI64();

    // Appending: text, or a number in the system's formats.
    kvString& operator<<(const kvString& s) { return *this += s; }
    kvString& operator<<(const char* s) { return *this += s; }
    kvString& operator<<(char c) { return *this += c; }
    kvString& operator<<(int v);
    kvString& operator<<(long long v);
    kvString& operator<<(double v);
    kvString& operator<<(float v) { return *this << (double)v; }
    kvString& operator<<(bool v);
    kvString& operator<<(const void* p);

    // Name tables: parallel arrays of values and names.
    static kvString enumString(int value, const int* values, const kvString* names, int count);
    static int enumValue(kvString text, const int* values, const kvString* names, int count,
                         int prefixLength);
    static kvString flagString(int flags, const int* values, const kvString* names, int count);
    static int flagValue(kvString text, const int* values, const kvString* names, int count,
                         int prefixLength);
    static bool fitString(kvString text, kvString name, int prefixLength);

    // Tokenizing with kvParse's quote rules.
    int parse(kvStringList& words, const kvString& separators) const;
    int parse(kvString& a, kvString& b, const kvString& separators) const;
    int parse(kvString& a, kvString& b, kvString& c, const kvString& separators) const;

    // printf-style helper used by the formatters of the framework.
    static kvString format(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

private:
    char* m_buf;
    int m_len;
    int m_cap;
    mutable char m_error;
};

kvString operator+(const kvString& a, const kvString& b);
kvString operator+(const kvString& a, const char* b);
kvString operator+(const char* a, const kvString& b);

// Reading: the left operand receives the value, the text carries the mark.
int& operator<<(int& value, kvString& text);
long long& operator<<(long long& value, kvString& text);
double& operator<<(double& value, kvString& text);
float& operator<<(float& value, kvString& text);
bool& operator<<(bool& value, kvString& text);

class kvStringList : public kvList<kvString> {
public:
    virtual ~kvStringList() {}
};

// Tokenizer state over one text; quote state -1 outside quotes, -100 quoting off,
// otherwise the index of the opening quote.
struct kvParse {
    kvString m_text;
    kvString m_separators;
    int m_pos;
    int m_quote;

    explicit kvParse(const kvString& text) : m_text(text), m_pos(0), m_quote(-1) {}
    void initParse(const kvString& separators);
    bool isSeparator(int index);
    bool nextWord(kvString& word);
    void removeQuote(kvString& word);
    int parse(kvStringList& words, const kvString& separators);
    int parse(kvString& a, kvString& b, const kvString& separators);
    int parse(kvString& a, kvString& b, kvString& c, const kvString& separators);
};

#endif
