#include "memory_exception.h"

#include <cstdio>
#include <cstdlib>

namespace Orsa {

void HandleMemoryException()
{
    // No allocation here: this runs when operator new has already failed.
    std::fputs("Orsa exits due to insufficient memory. Free up the memory and restart the tool.\n", stdout);
    std::fflush(stdout);
    std::exit(1);
}

} // namespace Orsa
