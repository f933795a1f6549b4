#include "bounded_memory.h"

#include <cerrno>
#include <cstring>

namespace {

// Writes through a volatile pointer so that wiping a buffer that is not read again stays.
void VolatileSet(void* s, int c, rsize_t n)
{
    volatile unsigned char* bytes = static_cast<volatile unsigned char*>(s);
    for (rsize_t i = 0; i < n; ++i) {
        bytes[i] = static_cast<unsigned char>(c);
    }
}

bool Overlap(const void* a, const void* b, rsize_t n)
{
    const auto* first = static_cast<const unsigned char*>(a);
    const auto* second = static_cast<const unsigned char*>(b);
    return (first <= second && second < first + n) || (second <= first && first < second + n);
}

// Common checks of the copy functions; clears the destination when it can be written.
errno_t CheckCopy(void* dest, rsize_t destsz, const void* src, rsize_t n)
{
    if (dest == nullptr || destsz > RSIZE_MAX_BYTES) {
        return EINVAL;
    }
    if (src == nullptr || n > RSIZE_MAX_BYTES || n > destsz) {
        VolatileSet(dest, 0, destsz);
        return src == nullptr ? EINVAL : ERANGE;
    }
    return 0;
}

} // namespace

errno_t memset_s(void* s, rsize_t smax, int c, rsize_t n)
{
    if (s == nullptr || smax > RSIZE_MAX_BYTES) {
        return EINVAL;
    }
    if (n > RSIZE_MAX_BYTES || n > smax) {
        VolatileSet(s, c, smax);
        return ERANGE;
    }
    VolatileSet(s, c, n);
    return 0;
}

errno_t memcpy_s(void* dest, rsize_t destsz, const void* src, rsize_t n)
{
    const errno_t checked = CheckCopy(dest, destsz, src, n);
    if (checked != 0) {
        return checked;
    }
    if (Overlap(dest, src, n)) {
        VolatileSet(dest, 0, destsz);
        return EINVAL;
    }
    std::memcpy(dest, src, n);
    return 0;
}

errno_t memmove_s(void* dest, rsize_t destsz, const void* src, rsize_t n)
{
    const errno_t checked = CheckCopy(dest, destsz, src, n);
    if (checked != 0) {
        return checked;
    }
    std::memmove(dest, src, n);
    return 0;
}
