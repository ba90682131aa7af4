// Ctrl-C: noted, and acted on at the next safe place.
#ifndef FILELISTMANAGEMENT_TOOLS_INTERRUPT_H
#define FILELISTMANAGEMENT_TOOLS_INTERRUPT_H

namespace flm::tool {

// From here on SIGINT ends the process at once, with the status that tells so: right for commands
// that leave the card alone.
void LeaveOnInterrupt();

// From here on SIGINT and SIGTERM only set a flag.
void CatchInterrupts();
bool Interrupted();

}  // namespace flm::tool

#endif
