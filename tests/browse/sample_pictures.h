// Pictures for the tests and for the picture of the contact sheet: small landscapes, each from a
// number, as JPEG files with and without what cameras write in front of them.
#ifndef FILELISTMANAGEMENT_TESTS_BROWSE_SAMPLE_PICTURES_H
#define FILELISTMANAGEMENT_TESTS_BROWSE_SAMPLE_PICTURES_H

#include <cstdint>
#include <string>
#include <vector>

namespace flm_test {

struct SamplePicture {
  int width = 320;
  int height = 240;
  int seed = 1;            // what it shows
  int thumbnailWidth = 0;  // of the EXIF thumbnail, three quarters as high; 0 for none
  int thumbnailSeed = 0;   // what that shows; 0: the same
  int orientation = 0;     // EXIF orientation; 0 for none
  bool progressive = false;
};

// A landscape: rows from the top, three bytes a pixel.
std::vector<uint8_t> Landscape(int width, int height, int seed);

// One colour: rows from the top, three bytes a pixel.
std::vector<uint8_t> Plain(int width, int height, uint8_t red, uint8_t green, uint8_t blue);

// The bytes of a JPEG file of these pixels, with an EXIF block unless it is empty.
std::string EncodeJpeg(const std::vector<uint8_t>& rgb, int width, int height,
                       const std::string& exif, bool progressive);

// An EXIF block with an orientation (0 for none) and a JPEG file as the thumbnail ("" for none).
std::string EncodeExif(int orientation, const std::string& thumbnail);

// The bytes of a whole file.
std::string SampleJpegFile(const SamplePicture& sample);

}  // namespace flm_test

#endif
