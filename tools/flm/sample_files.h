// The contents of the files that mkcard makes.
#ifndef FILELISTMANAGEMENT_TOOLS_SAMPLE_FILES_H
#define FILELISTMANAGEMENT_TOOLS_SAMPLE_FILES_H

#include <string>

namespace flm::tool {

// A valid baseline JPEG of 8 by 8 grey pixels with `comment` in it (at most 1000 characters are
// kept), so that two files made with different comments differ.
std::string SampleJpeg(const std::string& comment);

}  // namespace flm::tool

#endif
