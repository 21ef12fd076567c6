#include <cstdlib>

#include "vdls.h"

namespace {

// A cache line on every current processor, and the widest vector register.
constexpr std::size_t alignment = 64;

} // namespace

extern "C" {

void* vdlsMalloc_8u(int len)
{
    if (len < 1)
        return nullptr;
    void* ptr = nullptr;
    if (posix_memalign(&ptr, alignment, static_cast<std::size_t>(len)) != 0)
        return nullptr;
    return ptr;
}

void vdlsFree(void* ptr)
{
    std::free(ptr);
}

} // extern "C"
