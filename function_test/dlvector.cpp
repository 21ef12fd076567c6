// Test data vectors and matrices over the aligned allocator.
#include "dlvector.h"

#include <climits>
#include <cstddef>
#include <cstdlib>
#include <cstring>

#include "kvtest.h"

unsigned int dlVector::m_seed = 0;

dlVector::dlVector() : m_data(0), m_reserved(0), m_len(0), m_type(DL_TYPE_UNDEF) {}

dlVector::dlVector(dlType type) : m_data(0), m_reserved(0), m_len(0), m_type(DL_TYPE_UNDEF) {
    init(type);
}

dlVector::dlVector(const dlFunc& func, int n)
    : m_data(0), m_reserved(0), m_len(0), m_type(DL_TYPE_UNDEF) {
    init(func, n);
}

dlVector::dlVector(const dlFunc& func, dlArg arg)
    : m_data(0), m_reserved(0), m_len(0), m_type(DL_TYPE_UNDEF) {
    init(func, arg);
}

dlVector::~dlVector() {
    deleteVector();
}

// ---- type and creation ----

void dlVector::init(dlType type) {
    deleteVector();
    m_type = type;
    m_func = "_" + dlFunc::typeToString(type) + "_";
}

// The pseudo name keeps the channel form of the argument, so a vector of a
// multi-channel function still tells its channels.
void dlVector::init(const dlFunc& func, int n) {
    init(func.type(n));
    m_func += func.channelsName(n);
}

void dlVector::init(const dlFunc& func, dlArg arg) {
    init(func.type(arg));
    m_func += func.channelsName(arg);
}

int dlVector::item(const dlFunc& func) {
    dlType t = func.type(1);
    int bits = t & DL_TYPE_WIDTH;
    if (t & DL_TYPE_CPLX) bits *= 2;
    return bits / 8;
}

long long dlMaxBufferBytes() {
    return kvMaxBlockSize();
}

// The decimal text of a * b, exact for any two 64-bit factors.
static kvString productText(long long a, long long b) {
    __int128 p = (__int128)a * b;
    unsigned __int128 u = p < 0 ? -(unsigned __int128)p : (unsigned __int128)p;
    char digits[48];
    int i = sizeof digits;
    digits[--i] = 0;
    do {
        digits[--i] = (char)('0' + (int)(u % 10));
        u /= 10;
    } while (u != 0);
    if (p < 0) digits[--i] = '-';
    return kvString(digits + i);
}

void dlVector::refuseSize(long long count, long long item) {
    g_ostrm << ERR << "-- Memory error: can't allocate " << productText(count, item)
            << " bytes\n" << endMsg;
}

bool dlVector::allocateVector(long long size, int align, void* object) {
    deleteVector();
    if (size < 1 || size > dlMaxBufferBytes()) {
        refuseSize(size, 1);
        return false;
    }
    // A negative alignment is a count of the session's alignment units:
    // bytes, or elements of this vector.
    if (align < 0) align = kvGetAlignByByte() ? -1 : -item(m_func);
    void* p = kvTest::allocate((int)size, align, object ? object : static_cast<kvObject*>(this));
    if (!p) return false;
    memset(p, 0, (size_t)size);
    m_data = p;
    m_ptr.set(m_type, p);
    return true;
}

bool dlVector::createVector(long long len, int align) {
    return createVector(len, align, 0);
}

// The byte count is formed in 64 bits and checked before anything is made,
// so no length reaches the allocator wrapped.
bool dlVector::createVector(long long len, int align, void* object) {
    long long bytes = 0;
    if (__builtin_mul_overflow(len, (long long)item(m_func), &bytes)) {
        deleteVector();
        refuseSize(len, item(m_func));
        return false;
    }
    if (!allocateVector(bytes, align, object)) return false;
    m_len = (int)len;
    setConst();
    return true;
}

bool dlVector::createVector(long long len, SetMode mode, double a, double b) {
    if (!createVector(len, -1)) return false;
    setVector(mode, a, b);
    return true;
}

bool dlVector::createVectorExt(long long len, int ignored, SetMode mode, double a, double b) {
    (void)ignored;
    return createVector(len, mode, a, b);
}

void dlVector::deleteVector() {
    if (m_data) {
        kvTest::deallocate(m_data);
        m_data = 0;
    }
    m_len = 0;
    deleteReservedCopy();
    m_ptr.clear();
}

// ---- kvObject ----

int dlVector::size() const {
    return m_len * item(m_func);
}

int dlVector::objectSize() const {
    return size();
}

kvString dlVector::objectInfo() const {
    kvString s("Vector ");
    s << dlFunc::typeToString(m_type) << " len=" << m_len;
    return s;
}

bool dlVector::reserveCopy() {
    if (!m_data) return false;
    deleteReservedCopy();
    if (size() > 0) m_reserved = calloc(size(), 1);
    if (!m_reserved) return false;
    memcpy(m_reserved, m_data, size());
    return true;
}

bool dlVector::setReservedCopy() {
    if (!m_reserved || !m_data) return false;
    memcpy(m_data, m_reserved, size());
    return true;
}

void dlVector::deleteReservedCopy() {
    free(m_reserved);
    m_reserved = 0;
}

void* dlVector::getReservedData() {
    return m_reserved;
}

// ---- limits and defaults ----

double dlVector::getMinValue(dlType type) {
    const dlTypeOps* t = dlFindType(type);
    return t ? t->minValue() : 0.0;
}

double dlVector::getMaxValue(dlType type) {
    const dlTypeOps* t = dlFindType(type);
    return t ? t->maxValue() : 1.0;
}

double dlVector::minValue() const {
    return getMinValue(m_type);
}

double dlVector::maxValue() const {
    return getMaxValue(m_type);
}

double dlVector::getDataConst() const {
    return isFloat() ? 1.00001 : 2.0;
}

double dlVector::defaultMagnitude() const {
    return isFloat() ? 1.0 : (maxValue() - minValue()) / 2;
}

// ---- fills of the whole vector ----

void dlVector::setConst() {
    setConst(getDataConst(), getDataConst());
}

void dlVector::setConst(double re, double im) {
    setDataConst(m_data, m_len, re, im);
}

void dlVector::setMinValue() {
    setConst(minValue(), minValue());
}

void dlVector::setMaxValue() {
    setConst(maxValue(), maxValue());
}

void dlVector::setJaehne() {
    setJaehne(defaultMagnitude());
}

void dlVector::setJaehne(double magnitude) {
    setVectorJaehne(m_data, m_len, magnitude);
}

// The step makes the last element `stop`.
void dlVector::setSequence(double start, double stop) {
    if (m_len == 1)
        setConst(start, 0);
    else
        setSequence(start, stop, (stop - start) / (m_len - 1), true);
}

void dlVector::setSequence(double start, double stop, double step, bool wrap) {
    setDataSequence(m_data, m_len, start, stop, step, wrap ? 1.0 : 0.0);
}

void dlVector::setRandom() {
    if (isFloat())
        setRandom(-1.0, 1.0);
    else
        setRandom(minValue(), maxValue());
}

void dlVector::setRandom(double low, double high) {
    setDataRandom(m_data, m_len, low, high);
}

void dlVector::setRandom(double low, double high, unsigned int seed) {
    m_seed = seed;
    setRandom(low, high);
}

void dlVector::setVector(SetMode mode, double a, double b) {
    switch (mode) {
    case SET_DEFAULT: setConst(); break;
    case SET_ZERO: setConst(0, 0); break;
    case SET_ONE: setConst(1, 0); break;
    case SET_MAX: setMaxValue(); break;
    case SET_MIN: setMinValue(); break;
    case SET_VALUE: setConst(a, b); break;
    case SET_RANDOM:
        if (a == b)
            setRandom();
        else
            setRandom(a, b);
        break;
    case SET_SEQUENCE: {
        // The divisor is the length, so the sequence stops one step short
        // of `b`; integers step at least by 1 and wrap instead.
        int n = m_len > 0 ? m_len : 256;
        double step = (b - a) / n;
        if (!isFloat() && step < 1) step = 1;
        setSequence(a, b, step, true);
        break;
    }
    default: break;
    }
}

// ---- one element ----

void dlVector::setIndex(int index, SetMode mode, double a, double b) {
    if (!m_data) return;
    void* p = getPointerAt(index);
    switch (mode) {
    case SET_DEFAULT: setDataConst(p, 1, getDataConst(), getDataConst()); break;
    case SET_ZERO: setDataConst(p, 1, 0, 0); break;
    case SET_ONE: setDataConst(p, 1, 1, 0); break;
    case SET_MAX: setDataConst(p, 1, maxValue(), 0); break;
    case SET_MIN: setDataConst(p, 1, minValue(), 0); break;
    case SET_VALUE: setDataConst(p, 1, a, b); break;
    case SET_RANDOM:
        if (a == b)
            setDataRandom(p, 1, minValue(), maxValue());
        else
            setDataRandom(p, 1, a, b);
        break;
    case SET_SEQUENCE: setDataConst(p, 1, a, 0); break;
    default: break;
    }
}

void* dlVector::getPointerAt(int index) {
    return m_data ? (char*)m_data + (ptrdiff_t)index * item(m_func) : 0;
}

const void* dlVector::getPointerAt(int index) const {
    return m_data ? (const char*)m_data + (ptrdiff_t)index * item(m_func) : 0;
}

void dlVector::getElement(const void* p, double& re, double& im) const {
    const dlTypeOps* t = ops();
    if (p && t) t->getElement(p, re, im);
}

double dlVector::getElement(const void* p) const {
    double re = 0, im = 0;
    getElement(p, re, im);
    return re;
}

double dlVector::getIndex(int index) const {
    return getElement(getPointerAt(index));
}

void dlVector::getIndex(int index, double& re, double& im) const {
    getElement(getPointerAt(index), re, im);
}

// ---- raw fills ----

void dlVector::setDataConst(void* dst, int len, double re, double im) const {
    const dlTypeOps* t = ops();
    if (dst && t) t->setConst(dst, len, re, im);
}

void dlVector::setDataRandom(void* dst, int len, double low, double high) const {
    const dlTypeOps* t = ops();
    if (dst && t) t->setRandom(dst, len * t->parts, low, high, &m_seed);
}

void dlVector::setDataSequence(void* dst, int len, double start, double stop, double step,
                               double wrap) const {
    const dlTypeOps* t = ops();
    if (dst && t) t->setSequence(dst, len, start, stop, step, wrap);
}

void dlVector::setVectorJaehne(void* dst, int len, double magnitude) const {
    const dlTypeOps* t = ops();
    double offset = 0;
    if (!dst || !t || !updateJaehneMagn(magnitude, offset)) return;
    t->setJaehne(dst, len, magnitude, offset);
}

// Unsigned types swing around the middle of their range.
bool dlVector::updateJaehneMagn(double& magnitude, double& offset) const {
    if (magnitude < 0) return false;
    double half = (maxValue() - minValue()) / 2;
    if (magnitude > half) magnitude = half;
    bool isUnsigned = (m_type & (DL_TYPE_SIGNED | DL_TYPE_FLOAT)) == 0;
    offset = isUnsigned ? (maxValue() + minValue()) / 2 : 0.0;
    return true;
}

// ---- text ----

kvString dlVector::getString() const {
    return getDataString(m_data, m_len);
}

kvString dlVector::getByteString(const void* p, int n) {
    kvString s;
    if (!p) return s;
    const unsigned char* b = (const unsigned char*)p;
    for (int i = 0; i < n; ++i) s += kvString::format(" %02X", b[i]);
    return s;
}

kvString dlVector::getDataString(const void* p, int len) const {
    return getDataString(m_type, p, len);
}

kvString dlVector::getDataString(dlType type, const void* p, int len) {
    const dlTypeOps* t = dlFindType(type);
    if (!p || len < 1 || !t) return kvString();
    return t->toString(p, len);
}

// ---- matrices ----

dlrMatrice::~dlrMatrice() {
    deleteMatrice();
}

int dlrMatrice::objectSize() const {
    long long bytes = (long long)m_rows * m_cols * item(m_func);
    return bytes > dlMaxBufferBytes() ? (int)dlMaxBufferBytes() : (int)bytes;
}

kvString dlrMatrice::objectInfo() const {
    kvString s("rMatrix ");
    s << dlFunc::typeToString(m_type) << " rows=" << m_rows << " columns=" << m_cols;
    return s;
}

// Rows, row table and stride are sized in 64 bits; a stride or a block that
// does not fit an int is refused with the memory error line of its bytes.
bool dlrMatrice::createMatrice(int rows, int cols, int stride, int align) {
    deleteMatrice();
    m_rows = rows;
    m_cols = cols;
    long long rowBytes = stride < 1 ? ((long long)cols * item(m_func) + 15) & ~15LL : stride;
    if (rowBytes > INT_MAX) {
        refuseSize(rows, rowBytes);
        return false;
    }
    m_stride = (int)rowBytes;
    long long tableBytes = (long long)rows * (long long)sizeof(void*);
    if (tableBytes < 0 || tableBytes > dlMaxBufferBytes()) {
        refuseSize(rows, sizeof(void*));
        return false;
    }
    m_rowArray = (void**)kvMalloc((int)tableBytes, 0, 0, 0);
    if (!m_rowArray) return false;
    if (!allocateVector((long long)rows * m_stride, align, static_cast<kvObject*>(this)))
        return false;
    for (int i = 0; i < rows; ++i) m_rowArray[i] = (char*)m_data + (ptrdiff_t)i * m_stride;
    m_rowPtr.set(m_type, m_rowArray);
    return true;
}

bool dlrMatrice::createMatrice(int rows, int cols, SetMode mode, double a, double b) {
    if (!createMatrice(rows, cols, -1, -1)) return false;
    setMatrice(mode, a, b);
    return true;
}

bool dlrMatrice::createMatriceExt(int rows, int cols, int ignored, SetMode mode, double a,
                                  double b) {
    (void)ignored;
    return createMatrice(rows, cols, mode, a, b);
}

void dlrMatrice::deleteMatrice() {
    if (!m_rowArray) return;
    kvFree(m_rowArray);
    m_rows = 0;
    m_cols = 0;
    m_stride = 0;
    m_rowArray = 0;
    m_rowPtr.clear();
    deleteVector();
}

void dlrMatrice::setConst(double re, double im) {
    eachRow([&](void* row) { setDataConst(row, m_cols, re, im); });
}

// The chirp starts again in each row.
void dlrMatrice::setJaehne(double magnitude) {
    eachRow([&](void* row) { setVectorJaehne(row, m_cols, magnitude); });
}

void dlrMatrice::setSequence(double start, double stop, double step, bool wrap) {
    eachRow([&](void* row) { setDataSequence(row, m_cols, start, stop, step, wrap ? 1.0 : 0.0); });
}

void dlrMatrice::setRandom(double low, double high) {
    eachRow([&](void* row) { setDataRandom(row, m_cols, low, high); });
}

void dlrMatrice::setMatriceAt(int row, int col, double re, double im) {
    if (m_rowArray) setDataConst((char*)m_rowArray[row] + (ptrdiff_t)col * item(m_func), 1, re, im);
}

void dlrMatrice::getMatriceAt(int row, int col, double& re, double& im) const {
    if (m_rowArray)
        getElement((const char*)m_rowArray[row] + (ptrdiff_t)col * item(m_func), re, im);
}

double dlrMatrice::getMatriceAt(int row, int col) const {
    double re = 0, im = 0;
    getMatriceAt(row, col, re, im);
    return re;
}

void dlrMatrice::setMatrice(SetMode mode, double a, double b) {
    setVector(mode, a, b);
}

kvOStream& operator<<(kvOStream& s, const dlrMatrice& m) {
    for (int i = 0; i < m.rows(); ++i) s << m.getDataString(m.rowAt(i), m.columns()) << "\n";
    return s;
}
