// The marks and companions of a file as text for people.
#ifndef FILELISTMANAGEMENT_TOOLS_MARKS_TEXT_H
#define FILELISTMANAGEMENT_TOOLS_MARKS_TEXT_H

#include <string>

#include "entries.h"

namespace flm::tool {

// What the letters of the short forms mean, for the help.
extern const char kMarksLegend[];

std::string ShortMarks(const Entry& entry);       // "P x2", "-" for none
std::string LongMarks(const Entry& entry);        // "protected,copies=2", "-" for none
std::string ShortCompanions(const Entry& entry);  // "SRW WAV", "-" for none
std::string LongCompanions(const Entry& entry);   // "QVX_0001.SRW,QVX_0001.WAV", "-" for none

}  // namespace flm::tool

#endif
