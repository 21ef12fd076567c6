#include "kvstring.h"

#include <cctype>
#include <climits>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

int kvString::getBufSize(int n) {
    if (n < 0) n = 0;
    return (n / 16 + 1) * 16;
}

kvString::kvString() { init(); assign(""); }
kvString::kvString(const char* text) { init(); assign(text); }
kvString::kvString(const kvString& other) { init(); assign(other); }
kvString::~kvString() { free(); }

void kvString::init() {
    m_buf = 0;
    m_len = 0;
    m_cap = 0;
    m_error = 0;
}

void kvString::allocate(int n) {
    if (n < 0) n = 0;
    int size = getBufSize(n);
    if (m_buf && size == m_cap) {
        memset(m_buf, 0, m_cap);
    } else {
        free();
        m_buf = (char*)calloc(size, 1);
        m_cap = size;
    }
    m_len = n;
}

void kvString::free() {
    ::free(m_buf);
    m_buf = 0;
    m_len = 0;
    m_cap = 0;
}

// The capacity at least doubles when it must grow, so that a text built
// piece by piece costs time linear in its length; doubling keeps it a
// multiple of 16.
void kvString::growBy(int n) {
    int newLen = m_len + n;
    if (newLen < m_cap) {
        m_len = newLen;
        return;
    }
    int cap = getBufSize(newLen);
    if (m_cap <= INT_MAX / 2 && 2 * m_cap > cap) cap = 2 * m_cap;
    char* buf = (char*)calloc(cap, 1);
    if (m_buf) memcpy(buf, m_buf, m_len + 1);
    ::free(m_buf);
    m_buf = buf;
    m_cap = cap;
    m_len = newLen;
}

kvString& kvString::assign(char c) {
    char text[2] = {c, 0};
    return assign(text);
}

kvString& kvString::assign(const char* text) {
    if (!text) text = "";
    // The text may lie inside our own buffer: copy it out first.
    int n = (int)strlen(text);
    char* copy = (char*)malloc(n + 1);
    memcpy(copy, text, n + 1);
    allocate(n);
    memcpy(m_buf, copy, n);
    ::free(copy);
    return *this;
}

kvString& kvString::assign(const kvString& other) {
    if (&other == this) return *this;
    return assign(other.c_str());
}

void kvString::resize(int n, char c) {
    if (n < 0) n = 0;
    if (n == m_len) return;
    if (n > m_len) {
        int old = m_len;
        growBy(n - old);
        memset(m_buf + old, c, n - old);
    } else {
        memset(m_buf + n, 0, m_len - n);
        m_len = n;
    }
}

kvString& kvString::operator+=(const kvString& s) { return *this += s.c_str(); }

kvString& kvString::operator+=(const char* s) {
    if (!s || !*s) return *this;
    if (s >= m_buf && s < m_buf + m_cap) {  // appending a part of ourselves
        kvString copy(s);
        return *this += copy.c_str();
    }
    int n = (int)strlen(s);
    int old = m_len;
    growBy(n);
    memcpy(m_buf + old, s, n);
    return *this;
}

kvString& kvString::operator+=(char c) {
    int old = m_len;
    growBy(1);
    m_buf[old] = c;
    return *this;
}

bool kvString::operator==(const kvString& s) const { return strcmp(c_str(), s.c_str()) == 0; }

int kvString::compare(const kvString& s) const {
    if (empty() || s.empty()) return m_len - s.m_len;
    const char* a = c_str();
    const char* b = s.c_str();
    for (; *a && *b; ++a, ++b) {
        signed char ca = (signed char)*a, cb = (signed char)*b;
        if (ca < cb) return -1;
        if (ca > cb) return 1;
    }
    return m_len - s.m_len;
}

int kvString::find(const kvString& s, int pos) const {
    if (pos < 0 || pos > m_len) return -1;
    const char* p = strstr(c_str() + pos, s.c_str());
    return p ? (int)(p - c_str()) : -1;
}

int kvString::rfind(const kvString& s) const {
    int n = s.length();
    if (n == 0) return m_len;
    for (int i = m_len - n; i >= 0; --i)
        if (strncmp(c_str() + i, s.c_str(), n) == 0) return i;
    return -1;
}

kvString kvString::substr(int pos) const {
    if (pos < 0 || pos > m_len) return kvString();
    return kvString(c_str() + pos);
}

kvString kvString::substr(int pos, int n) const {
    kvString r;
    if (n < 1 || pos < 0 || pos > m_len) return r;
    if (n > m_len - pos) n = m_len - pos;
    r.allocate(n);
    memcpy(r.m_buf, c_str() + pos, n);
    return r;
}

static bool isTrimmed(char c) { return c == ' ' || c == '\t' || c == '\r'; }

kvString& kvString::trim() {
    int b = 0, e = m_len;
    while (b < e && isTrimmed(m_buf[b])) ++b;
    while (e > b && isTrimmed(m_buf[e - 1])) --e;
    if (b == 0 && e == m_len) return *this;
    return assign(substr(b, e - b));
}

kvString kvString::toLower() const {
    kvString r(*this);
    for (int i = 0; i < r.m_len; ++i) r.m_buf[i] = (char)tolower((unsigned char)r.m_buf[i]);
    return r;
}

static int lastSeparator(const kvString& s) {
    int a = s.rfind("/"), b = s.rfind("\\");
    return a > b ? a : b;
}

kvString kvString::getFileName() const {
    int i = lastSeparator(*this);
    return i < 0 ? *this : substr(i + 1);
}

kvString kvString::getFileDir() const {
    int i = lastSeparator(*this);
    return i < 0 ? kvString() : substr(0, i + 1);
}

kvString kvString::getFileTitle() const {
    kvString name = getFileName();
    int dot = name.rfind(".");
    return dot < 0 ? name : name.substr(0, dot);
}

const char* kvString::prefixI64() { return "ll"; }

kvString kvString::format(const char* fmt, ...) {
    char buf[512];
    va_list ap;
    va_start(ap, fmt);
    int n = vsnprintf(buf, sizeof buf, fmt, ap);
    va_end(ap);
    if (n < (int)sizeof buf) return kvString(buf);
    char* big = (char*)malloc(n + 1);
    va_start(ap, fmt);
    vsnprintf(big, n + 1, fmt, ap);
    va_end(ap);
    kvString r(big);
    ::free(big);
    return r;
}

kvString& kvString::operator<<(int v) { return *this += format("%d", v); }
kvString& kvString::operator<<(long long v) { return *this += format("%lld", v); }
kvString& kvString::operator<<(double v) { return *this += format("%.3g", v); }
kvString& kvString::operator<<(bool v) { return *this += (v ? "yes" : "no"); }

kvString& kvString::operator<<(const void* p) {
    if (!p) return *this += "NULL";
    return *this += format("%llX", (long long)(intptr_t)p);
}

kvString operator+(const kvString& a, const kvString& b) { kvString r(a); r += b; return r; }
kvString operator+(const kvString& a, const char* b) { kvString r(a); r += b; return r; }
kvString operator+(const char* a, const kvString& b) { kvString r(a); r += b; return r; }

// Hexadecimal when the text starts with 0x or 0X, else decimal.
static const char* intFormat(const kvString& t, bool wide) {
    if (t.length() > 1 && t[0] == '0' && (t[1] == 'x' || t[1] == 'X'))
        return t[1] == 'x' ? (wide ? "%llx" : "%x") : (wide ? "%llX" : "%X");
    return wide ? "%lld" : "%d";
}

int& operator<<(int& value, kvString& text) {
    text.setErrorConvertion(false);
    int v = 0;
    int r = sscanf(text.c_str(), intFormat(text, false), &v);
    if (r == 0) text.setErrorConvertion(true);
    else if (r == 1) value = v;
    return value;
}

long long& operator<<(long long& value, kvString& text) {
    text.setErrorConvertion(false);
    long long v = 0;
    int r = sscanf(text.c_str(), intFormat(text, true), &v);
    if (r == 0) text.setErrorConvertion(true);
    else if (r == 1) value = v;
    return value;
}

double& operator<<(double& value, kvString& text) {
    text.setErrorConvertion(false);
    double v = 0;
    int r = sscanf(text.c_str(), "%lf", &v);
    if (r == 0) text.setErrorConvertion(true);
    else if (r == 1) value = v;
    return value;
}

float& operator<<(float& value, kvString& text) {
    double d = value;
    d << text;
    value = (float)d;
    return value;
}

bool& operator<<(bool& value, kvString& text) {
    text.setErrorConvertion(false);
    kvString t = text.toLower();
    t.trim();
    value = false;
    if (t.empty()) {
        text.setErrorConvertion(true);
    } else if (t[0] == 'y' || t[0] == 't' || t == "1") {
        value = true;
    } else if (t[0] == 'n' || t[0] == 'f' || t == "0") {
        value = false;
    } else {
        text.setErrorConvertion(true);
    }
    return value;
}

bool kvString::fitString(kvString text, kvString name, int prefixLength) {
    kvString t = text.toLower();
    kvString n = name.toLower();
    kvString tail = n.substr(prefixLength);
    return tail.find(t) == 0 || n.find(t) == 0;
}

kvString kvString::enumString(int value, const int* values, const kvString* names, int count) {
    for (int i = 0; i < count; ++i)
        if (values[i] == value) return names[i];
    return format("%d", value);
}

int kvString::enumValue(kvString text, const int* values, const kvString* names, int count,
                        int prefixLength) {
    for (int i = 0; i < count; ++i)
        if (fitString(text, names[i], prefixLength)) return values[i];
    text.setErrorConvertion(true);
    return 0;
}

kvString kvString::flagString(int flags, const int* values, const kvString* names, int count) {
    kvString r;
    bool any = false;
    for (int i = 0; i < count; ++i) {
        if (values[i] & flags) {
            if (any) r += "|";
            r += names[i];
            any = true;
        }
    }
    return any ? r : format("%d", flags);
}

int kvString::flagValue(kvString text, const int* values, const kvString* names, int count,
                        int prefixLength) {
    kvStringList words;
    text.parse(words, "|,; ");
    int result = 0;
    for (kvStringList::iterator w = words.begin(); w != words.end(); ++w) {
        int i = 0;
        while (i < count && !fitString(*w, names[i], prefixLength)) ++i;
        if (i < count) result |= values[i];
        else text.setErrorConvertion(true);
    }
    return result;
}

int kvString::parse(kvStringList& words, const kvString& separators) const {
    kvParse p(*this);
    return p.parse(words, separators);
}

int kvString::parse(kvString& a, kvString& b, const kvString& separators) const {
    kvParse p(*this);
    return p.parse(a, b, separators);
}

int kvString::parse(kvString& a, kvString& b, kvString& c, const kvString& separators) const {
    kvParse p(*this);
    return p.parse(a, b, c, separators);
}

void kvParse::initParse(const kvString& separators) {
    m_pos = 0;
    m_separators = separators;
    m_quote = separators.found("\"") ? -100 : -1;
}

bool kvParse::isSeparator(int i) {
    char c = m_text[i];
    if (m_quote == -100 || (m_quote == -1 && c != '"'))
        return c != 0 && strchr(m_separators.c_str(), c) != 0;
    if (m_quote == -1) {  // an opening quote
        m_quote = i;
        return false;
    }
    if (c == '"') m_quote = (m_quote == i - 1) ? 0 : -1;
    return false;
}

// Each character is examined once, so a quote that opens a word protects the
// separators behind it just as one inside the word does.
bool kvParse::nextWord(kvString& word) {
    word = "";
    int n = m_text.length();
    int i = m_pos;
    while (i < n && isSeparator(i)) ++i;
    if (i >= n) {
        m_pos = n;
        return false;
    }
    int start = i++;
    while (i < n && !isSeparator(i)) ++i;
    word = m_text.substr(start, i - start);
    removeQuote(word);
    m_pos = i;
    return true;
}

void kvParse::removeQuote(kvString& word) {
    if (m_quote == -100) return;
    int at;
    while ((at = word.find("\"\"")) >= 0) word = word.substr(0, at) + word.substr(at + 1);
}

int kvParse::parse(kvStringList& words, const kvString& separators) {
    words.clear();
    initParse(separators);
    kvString w;
    int count = 0;
    while (nextWord(w)) {
        words.insert(words.end(), w);
        ++count;
    }
    return count;
}

int kvParse::parse(kvString& a, kvString& b, const kvString& separators) {
    kvString c;
    return parse(a, b, c, separators);
}

int kvParse::parse(kvString& a, kvString& b, kvString& c, const kvString& separators) {
    a = "";
    b = "";
    c = "";
    initParse(separators);
    kvString w;
    int count = 0;
    while (nextWord(w)) {
        if (count == 0) a = w;
        else if (count == 1) b = w;
        else if (count == 2) c = w;
        ++count;
    }
    return count;
}
