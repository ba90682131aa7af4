#include "browse_picture.h"

#include <fcntl.h>
#include <libexif/exif-data.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <utility>

#include "browse_jpeg.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr size_t kBytesPerPixel = 3;
constexpr size_t kHeaderSize = 192 << 10;  // EXIF is one segment of at most 64 KiB near the start

struct KindOfFile {
  const char* extension;
  Content content;
};

constexpr KindOfFile kKinds[] = {{"JPG", Content::kPicture}, {"MPO", Content::kPicture},
                                 {"MP4", Content::kMovie},   {"AVI", Content::kMovie},
                                 {"3GP", Content::kMovie},   {"MP3", Content::kSound},
                                 {"WAV", Content::kSound},   {"SRW", Content::kRaw}};

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, FileCloser>;

struct ExifFreer {
  void operator()(ExifData* data) const { exif_data_unref(data); }
};
using Exif = std::unique_ptr<ExifData, ExifFreer>;

bool IsRegular(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

// A pipe or a device of a picture's name must not stop the screen, not even when it takes the place
// of the file between two calls.
OpenFile Open(const std::string& path) {
  const int number = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (number < 0) return nullptr;
  struct stat status;
  OpenFile file;
  if (fstat(number, &status) == 0 && S_ISREG(status.st_mode)) file.reset(fdopen(number, "rb"));
  if (file == nullptr) close(number);
  return file;
}

// What the camera noted at the start of the file. Null when it noted nothing.
Exif ReadExif(std::FILE* file) {
  std::vector<uint8_t> header(kHeaderSize);
  const size_t count = std::fread(header.data(), 1, header.size(), file);
  std::rewind(file);
  Exif exif(exif_data_new());
  if (exif != nullptr) {
    exif_data_load_data(exif.get(), header.data(), static_cast<unsigned int>(count));
  }
  return exif;
}

int OrientationOf(ExifData* exif) {
  const ExifEntry* const entry =
      exif_content_get_entry(exif->ifd[EXIF_IFD_0], EXIF_TAG_ORIENTATION);
  if (entry == nullptr || entry->format != EXIF_FORMAT_SHORT || entry->size < sizeof(ExifShort)) {
    return 1;
  }
  return exif_get_short(entry->data, exif_data_get_byte_order(exif));
}

Picture ReadPicture(std::FILE* file, int width, int height) {
  const Exif exif = ReadExif(file);
  Picture picture;
  if (exif != nullptr && exif->data != nullptr) {
    picture = DecodeJpeg(exif->data, exif->size, width, height);
  }
  if (picture.IsEmpty()) picture = DecodeJpeg(file, width, height);
  picture = Reduced(std::move(picture), width, height);
  return exif == nullptr ? picture : Upright(std::move(picture), OrientationOf(exif.get()));
}

// Where the pixel at x, y of the upright picture lies in the one that was recorded.
std::pair<int, int> Recorded(const Picture& from, int orientation, int x, int y) {
  const int right = from.width - 1;
  const int bottom = from.height - 1;
  switch (orientation) {
    case 2:
      return {right - x, y};
    case 3:
      return {right - x, bottom - y};
    case 4:
      return {x, bottom - y};
    case 5:
      return {y, x};
    case 6:
      return {y, bottom - x};
    case 7:
      return {right - y, bottom - x};
    default:
      return {right - y, x};
  }
}

size_t PlaceOf(const Picture& picture, int x, int y) {
  return (static_cast<size_t>(y) * static_cast<size_t>(picture.width) + static_cast<size_t>(x)) *
         kBytesPerPixel;
}

// The mean of one colour over a square.
uint8_t Mean(const Picture& picture, size_t first, int factor) {
  unsigned int sum = 0;
  const size_t stride = static_cast<size_t>(picture.width) * kBytesPerPixel;
  for (int row = 0; row < factor; ++row) {
    const uint8_t* at = picture.rgb.data() + first + static_cast<size_t>(row) * stride;
    for (int column = 0; column < factor; ++column, at += kBytesPerPixel) sum += *at;
  }
  return static_cast<uint8_t>(sum / static_cast<unsigned int>(factor * factor));
}

}  // namespace

Content PromisedBy(const std::string& path) {
  const std::string name = Upper(BaseName(path));
  const std::string extension = name.substr(std::min(name.size(), name.rfind('.') + 1));
  for (const KindOfFile& kind : kKinds) {
    if (extension == kind.extension) return kind.content;
  }
  return Content::kOther;
}

Thumbnail ReadThumbnail(const std::string& path, int width, int height) {
  Thumbnail thumbnail;
  thumbnail.content = Content::kNoFile;
  if (!IsRegular(path)) return thumbnail;
  thumbnail.content = PromisedBy(path);
  if (thumbnail.content != Content::kPicture) return thumbnail;
  const OpenFile file = Open(path);
  if (file == nullptr) {
    thumbnail.content = Content::kUnreadable;
    return thumbnail;
  }
  thumbnail.picture = ReadPicture(file.get(), width, height);
  if (thumbnail.picture.IsEmpty()) thumbnail.content = Content::kBroken;
  return thumbnail;
}

Picture Upright(Picture picture, int orientation) {
  constexpr int kFirstTurned = 2;
  constexpr int kFirstSideways = 5;
  constexpr int kLast = 8;
  if (orientation < kFirstTurned || orientation > kLast) return picture;
  const bool sideways = orientation >= kFirstSideways;
  Picture turned;
  turned.width = sideways ? picture.height : picture.width;
  turned.height = sideways ? picture.width : picture.height;
  turned.rgb.reserve(picture.rgb.size());
  for (int y = 0; y < turned.height; ++y) {
    for (int x = 0; x < turned.width; ++x) {
      const auto [fromX, fromY] = Recorded(picture, orientation, x, y);
      const uint8_t* const pixel = picture.rgb.data() + PlaceOf(picture, fromX, fromY);
      turned.rgb.insert(turned.rgb.end(), pixel, pixel + kBytesPerPixel);
    }
  }
  return turned;
}

Picture Reduced(Picture picture, int width, int height) {
  const int across = picture.width / std::max(width, 1);
  const int down = picture.height / std::max(height, 1);
  // The picture fits into the room as a whole, so its larger side decides; but nothing may vanish.
  const int factor =
      std::min({std::max(across, down), std::max(picture.width, 1), std::max(picture.height, 1)});
  if (factor < 2) return picture;
  Picture reduced;
  reduced.width = picture.width / factor;
  reduced.height = picture.height / factor;
  for (int y = 0; y < reduced.height; ++y) {
    for (int x = 0; x < reduced.width; ++x) {
      const size_t first = PlaceOf(picture, x * factor, y * factor);
      for (size_t colour = 0; colour < kBytesPerPixel; ++colour) {
        reduced.rgb.push_back(Mean(picture, first + colour, factor));
      }
    }
  }
  return reduced;
}

}  // namespace flm::tool
