#include "tests/browse/sample_pictures.h"

#include <jpeglib.h>
#include <libexif/exif-data.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace flm_test {
namespace {

constexpr int kQuality = 88;

struct Colour {
  double red, green, blue;
};

Colour Mixed(const Colour& from, const Colour& to, double part) {
  const double p = std::clamp(part, 0.0, 1.0);
  return {from.red + (to.red - from.red) * p, from.green + (to.green - from.green) * p,
          from.blue + (to.blue - from.blue) * p};
}

struct Scene {
  Colour zenith, horizon, far, near, ground, sun;
};

constexpr Scene kScenes[] = {
    // Noon, sunset, dawn, dusk, desert, winter.
    {{38, 104, 196},
     {188, 220, 244},
     {116, 146, 178},
     {52, 98, 74},
     {98, 148, 66},
     {255, 250, 220}},
    {{52, 32, 92}, {252, 142, 62}, {150, 70, 92}, {62, 28, 62}, {32, 18, 42}, {255, 226, 140}},
    {{110, 150, 206},
     {255, 214, 196},
     {168, 150, 186},
     {92, 92, 132},
     {72, 98, 92},
     {255, 244, 226}},
    {{10, 14, 44}, {64, 78, 140}, {36, 44, 88}, {18, 24, 52}, {12, 16, 34}, {240, 240, 255}},
    {{72, 138, 204},
     {250, 226, 172},
     {212, 150, 98},
     {182, 108, 58},
     {224, 170, 98},
     {255, 246, 206}},
    {{120, 164, 206},
     {232, 240, 246},
     {172, 190, 210},
     {112, 136, 160},
     {240, 244, 248},
     {255, 255, 255}},
};

// A whole number between 0 and 1, always the same for the same numbers.
double Noise(int a, int b) {
  uint32_t value = static_cast<uint32_t>(a) * 374761393U + static_cast<uint32_t>(b) * 668265263U;
  value = (value ^ (value >> 13)) * 1274126177U;
  return static_cast<double>((value ^ (value >> 16)) & 0xFFFFU) / 65535.0;
}

// Height of a ridge at x (0 to 1), about 1 above and below 0.
double Ridge(double x, int seed, double roughness) {
  double height = 0;
  double size = 0.6;
  double waves = 2.3;
  for (int octave = 0; octave < 6; ++octave) {
    const double phase = Noise(seed, octave) * 6.28;
    height += size * std::sin(x * waves * 3.14 + phase);
    size *= roughness;
    waves *= 1.9;
  }
  return height;
}

Colour Sky(const Scene& scene, double x, double y, int seed) {
  Colour colour = Mixed(scene.zenith, scene.horizon, y / 0.62);
  const double sunX = 0.15 + 0.7 * Noise(seed, 77);
  const double sunY = 0.12 + 0.3 * Noise(seed, 78);
  const double away = std::hypot((x - sunX) * 1.33, y - sunY);
  colour = Mixed(scene.sun, colour, std::min(1.0, 0.35 + away * 2.2));
  if (away < 0.055) colour = scene.sun;
  const double cloud = Ridge(x * 0.9 + y * 0.5, seed + 11, 0.5) * Ridge(y * 2.6, seed + 12, 0.4);
  return Mixed(colour, {255, 255, 255}, std::clamp((cloud - 0.1) * 0.4, 0.0, 0.25));
}

Colour Water(const Scene& scene, double x, double y, double shore, int seed) {
  const Colour mirrored = Sky(scene, x, std::max(0.0, 2 * shore - y), seed);
  const double wave = 0.5 + 0.5 * std::sin(y * 160 + std::sin(x * 24 + seed) * 2.4);
  return Mixed(Mixed(mirrored, scene.near, 0.32), scene.zenith, wave * 0.22);
}

Colour At(const Scene& scene, double x, double y, int seed) {
  const double far = 0.48 + 0.09 * Ridge(x * 1.3, seed + 1, 0.55);
  const double near = 0.60 + 0.10 * Ridge(x, seed + 2, 0.5);
  const double ground = 0.74 + 0.04 * Ridge(x * 0.7, seed + 3, 0.35);
  const bool lake = seed % 3 == 0;
  if (y < std::min({far, near, ground})) return Sky(scene, x, y, seed);
  if (y >= ground) {
    if (lake) return Water(scene, x, y, ground, seed);
    const double light = 0.75 + 0.35 * Noise(static_cast<int>(x * 400), static_cast<int>(y * 300));
    const Colour colour = Mixed(scene.ground, scene.near, (y - ground) * 1.6);
    return {std::min(255.0, colour.red * light), std::min(255.0, colour.green * light),
            std::min(255.0, colour.blue * light)};
  }
  if (y >= near) return Mixed(scene.near, scene.ground, (y - near) * 1.4);
  const double snow = far < 0.44 && y < far + 0.04 ? 0.7 : 0;
  return Mixed(Mixed(scene.far, scene.horizon, (y - far) * 2.2), {250, 250, 252}, snow);
}

uint8_t Byte(double value) { return static_cast<uint8_t>(std::clamp(value, 0.0, 255.0)); }

}  // namespace

std::vector<uint8_t> Landscape(int width, int height, int seed) {
  const Scene& scene = kScenes[static_cast<size_t>(seed) % (sizeof(kScenes) / sizeof(kScenes[0]))];
  std::vector<uint8_t> rgb;
  rgb.reserve(static_cast<size_t>(width) * static_cast<size_t>(height) * 3);
  for (int row = 0; row < height; ++row) {
    for (int column = 0; column < width; ++column) {
      const Colour colour = At(scene, (column + 0.5) / width, (row + 0.5) / height, seed);
      rgb.push_back(Byte(colour.red));
      rgb.push_back(Byte(colour.green));
      rgb.push_back(Byte(colour.blue));
    }
  }
  return rgb;
}

std::vector<uint8_t> Plain(int width, int height, uint8_t red, uint8_t green, uint8_t blue) {
  std::vector<uint8_t> rgb;
  for (int i = 0; i < width * height; ++i) rgb.insert(rgb.end(), {red, green, blue});
  return rgb;
}

std::string EncodeJpeg(const std::vector<uint8_t>& rgb, int width, int height,
                       const std::string& exif, bool progressive) {
  jpeg_compress_struct info = {};
  jpeg_error_mgr errors = {};
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&info, &bytes, &size);
  info.image_width = static_cast<JDIMENSION>(width);
  info.image_height = static_cast<JDIMENSION>(height);
  info.input_components = 3;
  info.in_color_space = JCS_RGB;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, kQuality, TRUE);
  if (progressive) jpeg_simple_progression(&info);
  info.write_JFIF_header = exif.empty() ? TRUE : FALSE;
  jpeg_start_compress(&info, TRUE);
  if (!exif.empty()) {
    jpeg_write_marker(&info, JPEG_APP0 + 1, reinterpret_cast<const JOCTET*>(exif.data()),
                      static_cast<unsigned int>(exif.size()));
  }
  while (info.next_scanline < info.image_height) {
    const size_t at = static_cast<size_t>(info.next_scanline) * static_cast<size_t>(width) * 3;
    JSAMPROW row = const_cast<JSAMPROW>(rgb.data() + at);
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  const std::string out(reinterpret_cast<const char*>(bytes), size);
  jpeg_destroy_compress(&info);
  std::free(bytes);
  return out;
}

std::string EncodeExif(int orientation, const std::string& thumbnail) {
  ExifData* const exif = exif_data_new();
  exif_data_set_byte_order(exif, EXIF_BYTE_ORDER_INTEL);
  if (orientation > 0) {
    ExifEntry* const entry = exif_entry_new();
    exif_content_add_entry(exif->ifd[EXIF_IFD_0], entry);
    exif_entry_initialize(entry, EXIF_TAG_ORIENTATION);
    exif_set_short(entry->data, EXIF_BYTE_ORDER_INTEL, static_cast<ExifShort>(orientation));
    exif_entry_unref(entry);
  }
  if (!thumbnail.empty()) {
    // The block frees its thumbnail by the means of the C library.
    exif->data = static_cast<unsigned char*>(std::malloc(thumbnail.size()));
    exif->size = static_cast<unsigned int>(thumbnail.size());
    std::memcpy(exif->data, thumbnail.data(), thumbnail.size());
  }
  unsigned char* bytes = nullptr;
  unsigned int size = 0;
  exif_data_save_data(exif, &bytes, &size);
  const std::string out(reinterpret_cast<const char*>(bytes), size);
  std::free(bytes);
  exif_data_unref(exif);
  return out;
}

std::string SampleJpegFile(const SamplePicture& sample) {
  std::string thumbnail;
  if (sample.thumbnailWidth > 0) {
    const int height = sample.thumbnailWidth * 3 / 4;
    const int seed = sample.thumbnailSeed > 0 ? sample.thumbnailSeed : sample.seed;
    thumbnail = EncodeJpeg(Landscape(sample.thumbnailWidth, height, seed), sample.thumbnailWidth,
                           height, "", false);
  }
  const bool plain = sample.orientation == 0 && thumbnail.empty();
  return EncodeJpeg(Landscape(sample.width, sample.height, sample.seed), sample.width,
                    sample.height, plain ? "" : EncodeExif(sample.orientation, thumbnail),
                    sample.progressive);
}

}  // namespace flm_test
