#ifndef ORSA_MEMORY_EXCEPTION_H
#define ORSA_MEMORY_EXCEPTION_H

namespace Orsa {

// New-handler: tells the user that memory ran out and ends the process with status 1.
void HandleMemoryException();

} // namespace Orsa

#endif
