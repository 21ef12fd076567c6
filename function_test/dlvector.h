// dlVector and dlrMatrice: the typed test buffers that hold every argument of
// a library function under test. A vector takes its element type from a
// function name, lives in a block of the aligned allocator, fills itself
// with deterministic patterns, prints itself, and can save and restore its
// contents.
#ifndef DL_VECTOR_H
#define DL_VECTOR_H

#include "dlfunc.h"
#include "dltypes.h"
#include "kvmemory.h"
#include "kvstream.h"
#include "kvstring.h"

// The way of filling a vector.
typedef int SetMode;
enum {
    SET_DEFAULT = 0,   // the default constant
    SET_ZERO = 1,
    SET_ONE = 2,       // 1 in the real part, 0 in the imaginary part
    SET_MAX = 3,       // the type's greatest value
    SET_MIN = 4,       // the type's smallest value
    SET_VALUE = 5,     // the two arguments as real and imaginary part
    SET_RANDOM = 6,    // random; equal arguments mean the default range
    SET_SEQUENCE = 7   // ascending from the first to the second argument
};

// The largest buffer of one vector or matrix: its size is an int wherever
// the framework records it.
long long dlMaxBufferBytes();

// a * b in 64 bits, for element counts formed from two parameters.
inline long long dlProduct(int a, int b) { return (long long)a * b; }

template <class T, int Depth>
struct dlPointerTo {
    typedef typename dlPointerTo<T, Depth - 1>::type* type;
};

template <class T>
struct dlPointerTo<T, 0> {
    typedef T type;
};

// One pointer per element type; only the one of the owner's type is set.
// Depth 1 holds element pointers, depth 2 row-pointer tables.
template <int Depth>
struct dlTypedPointers {
    typename dlPointerTo<dl8u, Depth>::type p8u;
    typename dlPointerTo<dl16u, Depth>::type p16u;
    typename dlPointerTo<dl32u, Depth>::type p32u;
    typename dlPointerTo<dl64u, Depth>::type p64u;
    typename dlPointerTo<dl8s, Depth>::type p8s;
    typename dlPointerTo<dl16s, Depth>::type p16s;
    typename dlPointerTo<dl32s, Depth>::type p32s;
    typename dlPointerTo<dl64s, Depth>::type p64s;
    typename dlPointerTo<dl8sc, Depth>::type p8sc;
    typename dlPointerTo<dl16sc, Depth>::type p16sc;
    typename dlPointerTo<dl16uc, Depth>::type p16uc;
    typename dlPointerTo<dl32sc, Depth>::type p32sc;
    typename dlPointerTo<dl64sc, Depth>::type p64sc;
    typename dlPointerTo<dl32f, Depth>::type p32f;
    typename dlPointerTo<dl64f, Depth>::type p64f;
    typename dlPointerTo<dl32fc, Depth>::type p32fc;
    typename dlPointerTo<dl64fc, Depth>::type p64fc;

    dlTypedPointers() { clear(); }
    void clear() { set(DL_TYPE_UNDEF, 0); }

    // Clears all and points the one of `type` at `p`.
    void set(dlType type, void* p) {
        p8u = 0; p16u = 0; p32u = 0; p64u = 0; p8s = 0; p16s = 0; p32s = 0; p64s = 0;
        p8sc = 0; p16sc = 0; p16uc = 0; p32sc = 0; p64sc = 0;
        p32f = 0; p64f = 0; p32fc = 0; p64fc = 0;
        switch (type) {
        case DL_8U: p8u = (decltype(p8u))p; break;
        case DL_16U: p16u = (decltype(p16u))p; break;
        case DL_32U: p32u = (decltype(p32u))p; break;
        case DL_64U: p64u = (decltype(p64u))p; break;
        case DL_8S: p8s = (decltype(p8s))p; break;
        case DL_16S: p16s = (decltype(p16s))p; break;
        case DL_32S: p32s = (decltype(p32s))p; break;
        case DL_64S: p64s = (decltype(p64s))p; break;
        case DL_8SC: p8sc = (decltype(p8sc))p; break;
        case DL_16SC: p16sc = (decltype(p16sc))p; break;
        case DL_16UC: p16uc = (decltype(p16uc))p; break;
        case DL_32SC: p32sc = (decltype(p32sc))p; break;
        case DL_64SC: p64sc = (decltype(p64sc))p; break;
        case DL_32F: p32f = (decltype(p32f))p; break;
        case DL_64F: p64f = (decltype(p64f))p; break;
        case DL_32FC: p32fc = (decltype(p32fc))p; break;
        case DL_64FC: p64fc = (decltype(p64fc))p; break;
        default: break;
        }
    }
};

class dlVector : public kvObject {
public:
    dlVector();
    explicit dlVector(dlType type);
    dlVector(const dlFunc& func, int n);
    dlVector(const dlFunc& func, dlArg arg);
    virtual ~dlVector();

    // kvObject: the vector's data and its saved copy.
    virtual int objectSize() const;
    virtual kvString objectInfo() const;
    virtual bool reserveCopy();
    virtual bool setReservedCopy();
    virtual void deleteReservedCopy();

    virtual void deleteVector();
    virtual void setConst();
    virtual void setConst(double re, double im);
    virtual void setMinValue();
    virtual void setMaxValue();
    virtual void setJaehne();
    virtual void setJaehne(double magnitude);
    virtual void setSequence(double start, double stop);
    virtual void setSequence(double start, double stop, double step, bool wrap);
    virtual void setRandom();
    virtual void setRandom(double low, double high);
    virtual void setRandom(double low, double high, unsigned int seed);
    virtual kvString getString() const;
    virtual int size() const;
    virtual void* getReservedData();
    virtual void setVector(SetMode mode, double a, double b);
    virtual void setIndex(int index, SetMode mode, double a, double b);
    virtual double getIndex(int index) const;
    virtual void getIndex(int index, double& re, double& im) const;
    // The default constant: 1.00001 for a float type, 2.0 for the others.
    virtual double getDataConst() const;

    void init(dlType type);
    void init(const dlFunc& func, int n);
    void init(const dlFunc& func, dlArg arg);

    // The length is taken in 64 bits, so that a caller may pass a product
    // such as rows times stride without wrapping it; a buffer beyond
    // dlMaxBufferBytes() is refused with the memory error line.
    bool createVector(long long len, int align);
    bool createVector(long long len, int align, void* object);
    bool createVector(long long len, SetMode mode, double a, double b);
    bool createVectorExt(long long len, int ignored, SetMode mode, double a, double b);

    // Bytes of one element of the function's first type.
    static int item(const dlFunc& func);
    void* getPointerAt(int index);
    const void* getPointerAt(int index) const;
    void getElement(const void* p, double& re, double& im) const;
    double getElement(const void* p) const;
    double minValue() const;
    double maxValue() const;
    static double getMinValue(dlType type);
    static double getMaxValue(dlType type);

    // Fills of raw memory of the vector's type; all forms end here.
    void setDataConst(void* dst, int len, double re, double im) const;
    void setDataRandom(void* dst, int len, double low, double high) const;
    void setDataSequence(void* dst, int len, double start, double stop, double step,
                         double wrap) const;
    void setVectorJaehne(void* dst, int len, double magnitude) const;
    // False for a negative magnitude; else clamps it and gives the offset.
    bool updateJaehneMagn(double& magnitude, double& offset) const;

    static kvString getByteString(const void* p, int n);
    kvString getDataString(const void* p, int len) const;
    static kvString getDataString(dlType type, const void* p, int len);

    // The data as the library takes it; null unless the vector is of that type.
    operator dl8u*() const { return m_ptr.p8u; }
    operator dl16u*() const { return m_ptr.p16u; }
    operator dl32u*() const { return m_ptr.p32u; }
    operator dl64u*() const { return m_ptr.p64u; }
    operator dl8s*() const { return m_ptr.p8s; }
    operator dl16s*() const { return m_ptr.p16s; }
    operator dl32s*() const { return m_ptr.p32s; }
    operator dl64s*() const { return m_ptr.p64s; }
    operator dl8sc*() const { return m_ptr.p8sc; }
    operator dl16sc*() const { return m_ptr.p16sc; }
    operator dl16uc*() const { return m_ptr.p16uc; }
    operator dl32sc*() const { return m_ptr.p32sc; }
    operator dl64sc*() const { return m_ptr.p64sc; }
    operator dl32f*() const { return m_ptr.p32f; }
    operator dl64f*() const { return m_ptr.p64f; }
    operator dl32fc*() const { return m_ptr.p32fc; }
    operator dl64fc*() const { return m_ptr.p64fc; }

    void* m_data;
    void* m_reserved;
    int m_len;
    dlFunc m_func;   // pseudo name such as "_32f_" or "_16s_C3"
    dlType m_type;
    dlTypedPointers<1> m_ptr;

    // State of the random generator; each function test restarts it at 7.
    static unsigned int m_seed;

protected:
    bool allocateVector(long long size, int align, void* object);
    // The memory error line for a request of `count` elements of `item`
    // bytes, with the exact product even where it passes 64 bits.
    static void refuseSize(long long count, long long item);
    const dlTypeOps* ops() const { return dlFindType(m_type); }
    bool isFloat() const { return (m_type & DL_TYPE_FLOAT) != 0; }
    double defaultMagnitude() const;

private:
    dlVector(const dlVector&);
    dlVector& operator=(const dlVector&);
};

// Two-dimensional data: one block of rows, `stride` bytes apart, and a table
// of row pointers for the library's row-pointer calls. `m_len` stays 0, so a
// matrix keeps no reserved copy.
class dlrMatrice : public dlVector {
public:
    dlrMatrice() : m_rows(0), m_cols(0), m_stride(0), m_rowArray(0) {}
    explicit dlrMatrice(dlType type)
        : dlVector(type), m_rows(0), m_cols(0), m_stride(0), m_rowArray(0) {}
    dlrMatrice(const dlFunc& func, int n)
        : dlVector(func, n), m_rows(0), m_cols(0), m_stride(0), m_rowArray(0) {}
    dlrMatrice(const dlFunc& func, dlArg arg)
        : dlVector(func, arg), m_rows(0), m_cols(0), m_stride(0), m_rowArray(0) {}

    virtual int objectSize() const;
    virtual kvString objectInfo() const;
    virtual ~dlrMatrice();
    // The forms without arguments take the vector's defaults and land in
    // the row-wise forms below.
    using dlVector::setConst;
    using dlVector::setJaehne;
    using dlVector::setSequence;
    using dlVector::setRandom;
    // The fills work row by row over the columns, so the spare bytes at the
    // end of a row keep their zeros.
    virtual void setConst(double re, double im);
    virtual void setJaehne(double magnitude);
    virtual void setSequence(double start, double stop, double step, bool wrap);
    virtual void setRandom(double low, double high);

    virtual void deleteMatrice();
    virtual void setMatriceAt(int row, int col, double re, double im);
    virtual void getMatriceAt(int row, int col, double& re, double& im) const;
    virtual double getMatriceAt(int row, int col) const;
    virtual void setMatrice(SetMode mode, double a, double b);

    // A stride below 1 means the smallest multiple of 16 bytes that holds a row.
    bool createMatrice(int rows, int cols, int stride, int align);
    bool createMatrice(int rows, int cols, SetMode mode, double a, double b);
    bool createMatriceExt(int rows, int cols, int ignored, SetMode mode, double a, double b);

    int rows() const { return m_rows; }
    int columns() const { return m_cols; }
    int stride() const { return m_stride; }
    void* rowAt(int row) const { return m_rowArray ? m_rowArray[row] : 0; }

    operator dl8u**() const { return m_rowPtr.p8u; }
    operator dl16u**() const { return m_rowPtr.p16u; }
    operator dl32u**() const { return m_rowPtr.p32u; }
    operator dl64u**() const { return m_rowPtr.p64u; }
    operator dl8s**() const { return m_rowPtr.p8s; }
    operator dl16s**() const { return m_rowPtr.p16s; }
    operator dl32s**() const { return m_rowPtr.p32s; }
    operator dl64s**() const { return m_rowPtr.p64s; }
    operator dl8sc**() const { return m_rowPtr.p8sc; }
    operator dl16sc**() const { return m_rowPtr.p16sc; }
    operator dl16uc**() const { return m_rowPtr.p16uc; }
    operator dl32sc**() const { return m_rowPtr.p32sc; }
    operator dl64sc**() const { return m_rowPtr.p64sc; }
    operator dl32f**() const { return m_rowPtr.p32f; }
    operator dl64f**() const { return m_rowPtr.p64f; }
    operator dl32fc**() const { return m_rowPtr.p32fc; }
    operator dl64fc**() const { return m_rowPtr.p64fc; }

    int m_rows;
    int m_cols;
    int m_stride;
    void** m_rowArray;
    dlTypedPointers<2> m_rowPtr;

private:
    // Applies a raw fill to each row; nothing without data.
    template <class Fill>
    void eachRow(Fill fill) const {
        if (!m_data || !m_rowArray) return;
        for (int i = 0; i < m_rows; ++i) fill(m_rowArray[i]);
    }

    dlrMatrice(const dlrMatrice&);
    dlrMatrice& operator=(const dlrMatrice&);
};

// One line per row.
kvOStream& operator<<(kvOStream& s, const dlrMatrice& m);

#endif
