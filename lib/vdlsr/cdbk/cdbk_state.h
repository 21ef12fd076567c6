// The codebook state: codewords row by row, the same component-major for
// the search kernels, and the weights of a weighted codebook.
#ifndef VDL_CDBK_STATE_H
#define VDL_CDBK_STATE_H

#include <cstddef>
#include <cstdlib>

#include "vdlargcheck.h"
#include "vdlbuffer.h"
#include "vdlcore.h"
#include "vdlstate.h"

namespace vdl {

// Plain data, so that it emits no symbol; visible as the public state types
// that hold it must be.
template <class T>
struct Codebook {
    unsigned tag;  // element type, against a cast from another kind
    int width;
    int size;
    T* words;      // size rows of width
    T* wordsT;     // width rows of size: component k of every codeword
    T* weights;    // width weights, or null for L2
};

} // namespace vdl

// The public state types; callers only ever see pointers to them.
struct VdlsCdbkState_16s {
    vdl::Codebook<Vdl16s> body;
};
struct VdlsCdbkState_32f {
    vdl::Codebook<Vdl32f> body;
};

#pragma GCC visibility push(hidden)

namespace vdl {

template <class T>
const T* codeword(const Codebook<T>& cb, int j)
{
    return cb.words + static_cast<std::ptrdiff_t>(j) * cb.width;
}

// Rebuilds the component-major copy after the codewords changed.
template <class T>
void transposeCodebook(Codebook<T>& cb)
{
    for (int j = 0; j < cb.size; ++j)
        for (int k = 0; k < cb.width; ++k)
            cb.wordsT[static_cast<std::ptrdiff_t>(k) * cb.size + j] = codeword(cb, j)[k];
}

template <class T>
void copyRow(T* dst, const T* src, int width)
{
    for (int k = 0; k < width; ++k)
        dst[k] = src[k];
}

// Sums of distances: exact double for 16-bit data, float for float data.
template <class T>
struct AccOf {
    using type = double;
};
template <>
struct AccOf<Vdl32f> {
    using type = float;
};

template <class T>
struct StateOf;
template <>
struct StateOf<Vdl16s> {
    using type = VdlsCdbkState_16s;
};
template <>
struct StateOf<Vdl32f> {
    using type = VdlsCdbkState_32f;
};

template <class T>
constexpr unsigned codebookTag()
{
    return 0x43424B00u + static_cast<unsigned>(sizeof(T));
}

// The codebook of a handle, or the status that refuses it.
template <class T>
VdlStatus checkCodebook(const typename StateOf<T>::type* state)
{
    return checkState(state, codebookTag<T>());
}

// Every codebook of a table, and the widths of their codewords together.
template <class T>
VdlStatus checkCodebooks(const typename StateOf<T>::type* const* table, int count,
                         long long* widthSum)
{
    if (table == nullptr)
        return vdlStsNullPtrErr;
    *widthSum = 0;
    for (int c = 0; c < count; ++c) {
        if (VdlStatus s = checkCodebook<T>(table[c]))
            return s;
        *widthSum += table[c]->body.width;
    }
    return vdlStsNoErr;
}

template <class T>
void releaseCodebook(typename StateOf<T>::type* state)
{
    releaseState(state, state->body.words, state->body.wordsT, state->body.weights);
}

// A state with room for size codewords of width and, if weighted, the
// weights; null when memory runs out.
template <class T>
typename StateOf<T>::type* allocateCodebook(int width, int size, bool weighted)
{
    using State = typename StateOf<T>::type;
    auto* state = newState<State>();
    if (state == nullptr)
        return nullptr;
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(size);
    state->body.words = static_cast<T*>(std::malloc(sizeof(T) * count));
    state->body.wordsT = static_cast<T*>(std::malloc(sizeof(T) * count));
    if (weighted)
        state->body.weights = static_cast<T*>(std::malloc(sizeof(T) * width));
    if (state->body.words == nullptr || state->body.wordsT == nullptr ||
        (weighted && state->body.weights == nullptr)) {
        releaseCodebook<T>(state);
        return nullptr;
    }
    state->body.width = width;
    state->body.size = size;
    state->body.tag = codebookTag<T>();
    return state;
}

template <class T>
VdlStatus freeCodebook(typename StateOf<T>::type* state)
{
    if (VdlStatus s = checkCodebook<T>(state))
        return s;
    releaseCodebook<T>(state);
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
