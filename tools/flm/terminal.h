// What is known about the terminal, if there is one.
#ifndef FILELISTMANAGEMENT_TOOLS_TERMINAL_H
#define FILELISTMANAGEMENT_TOOLS_TERMINAL_H

#include <cstddef>

namespace flm::tool {

// Whether standard output is a terminal.
bool OutputIsTerminal();

// Columns of the terminal on standard output: as it says, else as COLUMNS says, else 80.
size_t TerminalWidth();

// Whether the terminal can do no more than show lines one after the other.
bool TerminalIsDumb();

// Whether standard output is to be coloured, by --color, or on a terminal that can, unless NO_COLOR
// has a value.
bool ColorsAreWanted();

}  // namespace flm::tool

#endif
