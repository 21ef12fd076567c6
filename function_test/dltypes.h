// Element types of test data and the one template family that fills, reads
// and prints them. Integer and float forms differ only in how a double
// becomes an element; complex forms only in that they write two components.
#ifndef DL_TYPES_H
#define DL_TYPES_H

#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <type_traits>

#include "dlfunc.h"
#include "kvstring.h"

template <class T>
struct dlComplex {
    T re;
    T im;
};

typedef unsigned char dl8u;
typedef unsigned short dl16u;
typedef unsigned int dl32u;
typedef unsigned long long dl64u;
typedef signed char dl8s;
typedef short dl16s;
typedef int dl32s;
typedef long long dl64s;
typedef float dl32f;
typedef double dl64f;
typedef dlComplex<dl8s> dl8sc;
typedef dlComplex<dl16s> dl16sc;
typedef dlComplex<dl16u> dl16uc;
typedef dlComplex<dl32s> dl32sc;
typedef dlComplex<dl64s> dl64sc;
typedef dlComplex<dl32f> dl32fc;
typedef dlComplex<dl64f> dl64fc;

// Half the square root of the greatest finite value, so that the product of
// two test values stays finite.
extern double MAXABS_32F;
extern double MAXABS_64F;

// ---- limits ----

template <class T>
double getMin() {
    if (std::is_same<T, float>::value) return -MAXABS_32F;
    if (std::is_same<T, double>::value) return -MAXABS_64F;
    return (double)std::numeric_limits<T>::min();
}

template <class T>
double getMax() {
    if (std::is_same<T, float>::value) return MAXABS_32F;
    if (std::is_same<T, double>::value) return MAXABS_64F;
    // The 64-bit limits are doubles: 2 to the 63rd power for both kinds.
    if (std::is_same<T, dl64u>::value) return 9223372036854775808.0;
    return (double)std::numeric_limits<T>::max();
}

// ---- double to element ----

// Truncation toward zero; out of range (and NaN) gives the processor's
// "integer indefinite", as the conversion instruction itself does.
inline long long dlTruncate(double x) {
    if (x >= -9223372036854775808.0 && x < 9223372036854775808.0) return (long long)x;
    return std::numeric_limits<long long>::min();
}

// Integers are truncated toward zero and then wrap to their width; floats
// are rounded by the store.
template <class T>
T toElement(double x) {
    if constexpr (std::is_floating_point<T>::value) {
        return (T)x;
    } else if constexpr (std::is_same<T, dl64u>::value) {
        const double half = 9223372036854775808.0;
        if (x < half) return (dl64u)dlTruncate(x);
        return (dl64u)dlTruncate(x - half) ^ (dl64u(1) << 63);
    } else {
        return (T)dlTruncate(x);
    }
}

// ---- element access ----

// Every element is stored and loaded through memcpy: a misaligned
// configuration puts a buffer at any byte, where a typed access is undefined.
// For a fixed size the copy is one move, as the typed access would be.
template <class E>
inline void dlStore(void* p, const E& v) {
    memcpy(p, &v, sizeof(E));
}

template <class E>
inline E dlLoad(const void* p) {
    E v;
    memcpy(&v, p, sizeof(E));
    return v;
}

// The address of element i of a buffer of E.
template <class E>
inline void* dlAt(void* p, int i) {
    return (char*)p + (ptrdiff_t)i * (ptrdiff_t)sizeof(E);
}

template <class E>
inline const void* dlAt(const void* p, int i) {
    return (const char*)p + (ptrdiff_t)i * (ptrdiff_t)sizeof(E);
}

// ---- fills on raw memory ----

template <class T>
void setReal(void* dst, int len, double re, double im) {
    (void)im;
    T v = toElement<T>(re);
    for (int i = 0; i < len; ++i) dlStore(dlAt<T>(dst, i), v);
}

template <class T>
void setComplex(void* dst, int len, double re, double im) {
    dlComplex<T> v = {toElement<T>(re), toElement<T>(im)};
    for (int i = 0; i < len; ++i) dlStore(dlAt<dlComplex<T> >(dst, i), v);
}

// The generator of all random test data: a subtract-with-borrow sequence
// added to a linear congruential one, both on 32-bit words with wrap-around.
// The state carried between calls is only `*seed`.
template <class T>
void setRandUniform(void* dst, int len, double low, double high, unsigned int* seed) {
    if (low < getMin<T>()) low = getMin<T>();
    if (high > getMax<T>()) high = getMax<T>();
    const double scale = (high - low) * 2.3283064365387e-10;
    const double shift = (high + low) * 0.5;
    unsigned int a = *seed;
    unsigned int b = a * 69069u + 1013904243u;
    unsigned int c = b * 69069u + 1013904243u;
    unsigned int z = 1131199209u;
    unsigned int carry = 0xFFFFFFFFu;  // -1
    for (int i = 0; i < len; ++i) {
        z = z * 69069u + 1013904243u;
        unsigned int t = b - c + carry;
        bool negative = (int)t < 0;
        carry = negative ? 0xFFFFFFFFu : 0u;
        unsigned int n = negative ? t - 18u : t;
        c = b;
        b = a;
        a = n;
        int r = (int)(z + n);
        dlStore(dlAt<T>(dst, i), toElement<T>(r * scale + shift));
    }
    *seed = a;
}

// A chirp: magnitude * sin(k * i * i) + offset with k = pi / 2 / len.
template <class T>
void setRealJaehne(void* dst, int len, double magnitude, double offset) {
    const double k = 1.5707963267948966 / len;
    for (int i = 0; i < len; ++i)
        dlStore(dlAt<T>(dst, i), toElement<T>(magnitude * sin(k * i * i) + offset));
}

template <class T>
void setCplxJaehne(void* dst, int len, double magnitude, double offset) {
    const double k = 1.5707963267948966 / len;
    for (int i = 0; i < len; ++i) {
        T v = toElement<T>(magnitude * sin(k * i * i) + offset);
        dlComplex<T> e = {v, v};
        dlStore(dlAt<dlComplex<T> >(dst, i), e);
    }
}

// Ascending from `start` by `step`; past `stop` it starts again (wrap not 0)
// or stays at `stop`. The running value is held in extended precision, as
// an x87 register holds it: a double accumulator drifts past `stop` for a
// step such as 10/19 and would wrap one element early.
template <class T, class E, void (*put)(void*, T)>
void fillSequence(void* dst, int len, double start, double stop, double step, double wrap) {
    if (start < getMin<T>()) start = getMin<T>();
    if (stop > getMax<T>()) stop = getMax<T>();
    long double x = start;
    for (int i = 0; i < len; ++i) {
        put(dlAt<E>(dst, i), toElement<T>((double)x));
        x += step;
        if (x > stop) x = wrap != 0.0 ? start : stop;
    }
}

template <class T>
void putReal(void* e, T v) {
    dlStore(e, v);
}

template <class T>
void putCplx(void* e, T v) {
    dlComplex<T> c = {v, v};
    dlStore(e, c);
}

template <class T>
void setRealSeq(void* dst, int len, double start, double stop, double step, double wrap) {
    fillSequence<T, T, putReal<T> >(dst, len, start, stop, step, wrap);
}

template <class T>
void setCplxSeq(void* dst, int len, double start, double stop, double step, double wrap) {
    fillSequence<T, dlComplex<T>, putCplx<T> >(dst, len, start, stop, step, wrap);
}

// ---- reading ----

template <class T>
void getReal(const void* p, double& re, double& im) {
    (void)im;
    re = (double)dlLoad<T>(p);
}

template <class T>
void getComplex(const void* p, double& re, double& im) {
    dlComplex<T> e = dlLoad<dlComplex<T> >(p);
    re = (double)e.re;
    im = (double)e.im;
}

// ---- printing ----

// The printf argument of a component: small integers promoted with their
// sign, 64-bit integers as they are, floats widened to double.
template <class T>
struct dlPrintArg {
    typedef typename std::conditional<
        std::is_floating_point<T>::value, double,
        typename std::conditional<(sizeof(T) == 8), T,
                                  typename std::conditional<std::is_signed<T>::value, int,
                                                            unsigned int>::type>::type>::type type;
};

// The format of one component: "%4u" for 8u up to "%24lld" for 64s; the
// widths keep joined elements apart.
template <class T>
kvString Format() {
    if (std::is_floating_point<T>::value) return sizeof(T) == 4 ? "%14.6g" : "%20.12g";
    static const int unsignedWidth[] = {0, 4, 6, 0, 11, 0, 0, 0, 24};
    int width = unsignedWidth[sizeof(T)];
    if (std::is_signed<T>::value && sizeof(T) < 8) ++width;
    kvString f = kvString::format("%%%d", width);
    if (sizeof(T) == 8) f += kvString::prefixI64();
    f += std::is_signed<T>::value ? "d" : "u";
    return f;
}

template <class T>
kvString vectorStringReal(const void* p, int len) {
    kvString f = Format<T>();
    kvString s;
    for (int i = 0; i < len; ++i)
        s += kvString::format(f.c_str(), (typename dlPrintArg<T>::type)dlLoad<T>(dlAt<T>(p, i)));
    return s;
}

template <class T>
kvString vectorStringCplx(const void* p, int len) {
    kvString f = " (" + Format<T>() + "," + Format<T>() + ")";
    kvString s;
    for (int i = 0; i < len; ++i) {
        dlComplex<T> e = dlLoad<dlComplex<T> >(dlAt<dlComplex<T> >(p, i));
        s += kvString::format(f.c_str(), (typename dlPrintArg<T>::type)e.re,
                              (typename dlPrintArg<T>::type)e.im);
    }
    return s;
}

// ---- the table of element types ----

// What the data functions need of one element type. Complex types fill
// their random values through the component's generator over twice the
// length (`parts`), so that both parts are drawn independently.
struct dlTypeOps {
    dlType type;
    int bytes;
    int parts;
    double (*minValue)();
    double (*maxValue)();
    void (*setConst)(void* dst, int len, double re, double im);
    void (*setRandom)(void* dst, int len, double low, double high, unsigned int* seed);
    void (*setJaehne)(void* dst, int len, double magnitude, double offset);
    void (*setSequence)(void* dst, int len, double start, double stop, double step, double wrap);
    void (*getElement)(const void* p, double& re, double& im);
    kvString (*toString)(const void* p, int len);
};

template <class T>
constexpr dlTypeOps realOps(dlType type) {
    return {type, (int)sizeof(T), 1, getMin<T>, getMax<T>, setReal<T>, setRandUniform<T>,
            setRealJaehne<T>, setRealSeq<T>, getReal<T>, vectorStringReal<T>};
}

template <class T>
constexpr dlTypeOps cplxOps(dlType type) {
    return {type, 2 * (int)sizeof(T), 2, getMin<T>, getMax<T>, setComplex<T>, setRandUniform<T>,
            setCplxJaehne<T>, setCplxSeq<T>, getComplex<T>, vectorStringCplx<T>};
}

// The entry of a type, or null for an unknown one.
const dlTypeOps* dlFindType(dlType type);

#endif
