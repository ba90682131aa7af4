// Small pictures of the files of a card. The files are foreign: whatever they hold, reading one
// takes bounded memory and time and ends with a picture or with the reason why there is none.
#ifndef FILELISTMANAGEMENT_TOOLS_BROWSE_PICTURE_H
#define FILELISTMANAGEMENT_TOOLS_BROWSE_PICTURE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace flm::tool {

// Rows from the top, three bytes a pixel: red, green, blue.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<uint8_t> rgb;

  bool IsEmpty() const { return rgb.empty(); }
};

// What a thumbnail shows in the place of a picture, or that it is one.
enum class Content {
  kPicture,
  kMovie,
  kSound,
  kRaw,
  kOther,       // a file of another kind
  kBroken,      // a picture that cannot be decoded
  kUnreadable,  // a file that cannot be opened
  kNoFile       // nothing of that name, or no regular file
};

struct Thumbnail {
  Content content = Content::kOther;
  Picture picture;  // of kPicture
};

// What the file's extension promises: kPicture, kMovie, kSound, kRaw or kOther.
Content PromisedBy(const std::string& path);

// The thumbnail that the camera left in the file when there is one, else the picture itself, scaled
// down; turned as the camera was held. It is at most about twice as large as wanted.
Thumbnail ReadThumbnail(const std::string& path, int width, int height);

// A picture turned upright: `orientation` is the EXIF value, 1 to 8; any other one turns nothing.
Picture Upright(Picture picture, int orientation);

// A picture made smaller by a whole factor, as long as it stays at least as large as wanted.
Picture Reduced(Picture picture, int width, int height);

}  // namespace flm::tool

#endif
