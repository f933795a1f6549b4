#ifndef ORSA_BOUNDED_MEMORY_H
#define ORSA_BOUNDED_MEMORY_H

// The bounded memory functions of C11 Annex K, which the GNU C library does not provide.
// Every length is checked before anything is written; on a runtime-constraint violation the
// function returns a non-zero error code and, where the destination is usable, clears it.

#include <cstddef>

using errno_t = int;
using rsize_t = std::size_t;

// Largest size accepted; larger values are taken as negative numbers converted to size_t.
constexpr rsize_t RSIZE_MAX_BYTES = static_cast<rsize_t>(-1) >> 1;

// Sets the first n bytes of s to c; never optimised away. With n > smax it sets smax bytes
// and reports the violation.
errno_t memset_s(void* s, rsize_t smax, int c, rsize_t n);

// Copies n bytes; the regions must not overlap.
errno_t memcpy_s(void* dest, rsize_t destsz, const void* src, rsize_t n);

// Copies n bytes; the regions may overlap.
errno_t memmove_s(void* dest, rsize_t destsz, const void* src, rsize_t n);

#endif
