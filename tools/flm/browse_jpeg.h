// JPEG data to pixels, with bounds for what foreign data may ask for.
#ifndef FILELISTMANAGEMENT_TOOLS_BROWSE_JPEG_H
#define FILELISTMANAGEMENT_TOOLS_BROWSE_JPEG_H

#include <cstdio>

#include "browse_picture.h"

namespace flm::tool {

// Decodes at the smallest scale (1, 1/2, 1/4, 1/8) that is at least as large as wanted. An empty
// picture for data that is no JPEG, is cut short or damaged, or asks for too much.
Picture DecodeJpeg(std::FILE* file, int width, int height);
Picture DecodeJpeg(const uint8_t* bytes, size_t size, int width, int height);

}  // namespace flm::tool

#endif
