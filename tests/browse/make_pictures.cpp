// Writes sample pictures into files that are named on the command line, for tests that run the
// tool.
//
//   flm_sample_pictures WIDTHxHEIGHT FILE...
//
// Every file gets a landscape of its own; every second one carries an EXIF thumbnail.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "tests/browse/sample_pictures.h"

int main(int argc, char** argv) {
  flm_test::SamplePicture sample;
  char* end = nullptr;
  sample.width = argc > 2 ? static_cast<int>(std::strtol(argv[1], &end, 10)) : 0;
  sample.height = sample.width > 0 && *end == 'x' ? std::atoi(end + 1) : 0;
  if (sample.height <= 0) {
    std::fputs("usage: flm_sample_pictures WIDTHxHEIGHT FILE...\n", stderr);
    return 2;
  }
  constexpr int kThumbnailWidth = 160;
  for (int i = 2; i < argc; ++i) {
    sample.seed = i - 1;
    sample.thumbnailWidth = i % 2 == 0 ? kThumbnailWidth : 0;
    std::ofstream file(argv[i], std::ios::binary);
    file << flm_test::SampleJpegFile(sample);
    if (!file.flush()) {
      std::fprintf(stderr, "cannot write %s\n", argv[i]);
      return 1;
    }
  }
  return 0;
}
