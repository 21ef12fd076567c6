// A work buffer of malloc'd elements for the length of a call or the life
// of an object, uninitialised; ok() is false when memory ran out. The
// library's own, so that no container instance leaves the library as an
// exported symbol.
#ifndef VDL_COMMON_BUFFER_H
#define VDL_COMMON_BUFFER_H

#include <cstddef>
#include <cstdlib>

#pragma GCC visibility push(hidden)

namespace vdl {

template <class T>
class Buffer {
public:
    Buffer() : m_data(nullptr) {}
    explicit Buffer(std::size_t count) : m_data(nullptr) { reset(count); }
    ~Buffer() { std::free(m_data); }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;

    void reset(std::size_t count)
    {
        std::free(m_data);
        m_data = static_cast<T*>(std::malloc(sizeof(T) * (count ? count : 1)));
    }
    bool ok() const { return m_data != nullptr; }
    T* data() const { return m_data; }
    T& operator[](std::size_t i) const { return m_data[i]; }

private:
    T* m_data;
};

} // namespace vdl

#pragma GCC visibility pop

#endif
