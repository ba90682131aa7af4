// The decoder is C: it reports an error by a function that must not come back, and it must not be
// left by an exception. So an error jumps, and every object lives outside of the function that the
// jump leaves.
#include "browse_jpeg.h"

#include <jpeglib.h>

#include <algorithm>
#include <csetjmp>
// Needs the types of the header above.
#include <jerror.h>

namespace flm::tool {
namespace {

constexpr int64_t kMostPixels = 200000000;  // no camera makes a file of more
constexpr long kMostMemory = 256L << 20;    // for a progressive picture, which is kept as a whole
constexpr int kMostScans = 64;              // of a progressive picture; encoders make about ten
constexpr unsigned int kSmallestScale = 8;
constexpr int kBytesPerPixel = 3;

struct Source {
  std::FILE* file = nullptr;
  const uint8_t* bytes = nullptr;
  size_t size = 0;
};

struct Decoder {
  Decoder() = default;
  ~Decoder() { jpeg_destroy_decompress(&info); }
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;

  jpeg_decompress_struct info = {};
  jpeg_error_mgr errors = {};
  jpeg_progress_mgr progress = {};
  jmp_buf back = {};
  bool damaged = false;
};

Decoder& DecoderOf(j_common_ptr info) { return *static_cast<Decoder*>(info->client_data); }

[[noreturn]] void JumpBack(j_common_ptr info) {
  // There is no other way out of the decoder.
  longjmp(DecoderOf(info).back, 1);  // NOLINT(cert-err52-cpp)
}

// Warnings that say nothing about the pixels.
bool IsHarmless(int warning) {
  return warning == JWRN_EXTRANEOUS_DATA || warning == JWRN_ADOBE_XFORM ||
         warning == JWRN_JFIF_MAJOR || warning == JWRN_TOO_MUCH_DATA;
}

void TakeMessage(j_common_ptr info, int level) {
  constexpr int kWarning = -1;
  if (level == kWarning && !IsHarmless(info->err->msg_code)) DecoderOf(info).damaged = true;
}

void StaySilent(j_common_ptr /*info*/) {}

// A few bytes can ask for thousands of scans of a large picture.
void CountScans(j_common_ptr info) {
  if (DecoderOf(info).info.input_scan_number > kMostScans) JumpBack(info);
}

void SetUp(Decoder& decoder) {
  decoder.info.err = jpeg_std_error(&decoder.errors);
  decoder.errors.error_exit = JumpBack;
  decoder.errors.emit_message = TakeMessage;
  decoder.errors.output_message = StaySilent;
  decoder.info.client_data = &decoder;
  decoder.progress.progress_monitor = CountScans;
}

void Open(Decoder& decoder, const Source& source) {
  jpeg_create_decompress(&decoder.info);
  decoder.info.mem->max_memory_to_use = kMostMemory;
  decoder.info.progress = &decoder.progress;
  if (source.file != nullptr) {
    jpeg_stdio_src(&decoder.info, source.file);
  } else {
    jpeg_mem_src(&decoder.info, source.bytes, source.size);
  }
  jpeg_read_header(&decoder.info, TRUE);
}

bool IsTooLarge(const jpeg_decompress_struct& info) {
  return static_cast<int64_t>(info.image_width) * info.image_height > kMostPixels;
}

void ChooseScale(jpeg_decompress_struct& info, int width, int height) {
  const unsigned int across = info.image_width / static_cast<unsigned int>(std::max(width, 1));
  const unsigned int down = info.image_height / static_cast<unsigned int>(std::max(height, 1));
  unsigned int scale = 1;
  while (scale < kSmallestScale && scale * 2 <= std::max(across, down)) scale *= 2;
  info.scale_num = 1;
  info.scale_denom = scale;
  info.out_color_space = JCS_RGB;
  info.dct_method = JDCT_IFAST;
}

void ReadRows(jpeg_decompress_struct& info, Picture& picture) {
  jpeg_start_decompress(&info);
  picture.width = static_cast<int>(info.output_width);
  picture.height = static_cast<int>(info.output_height);
  const size_t stride = static_cast<size_t>(picture.width) * kBytesPerPixel;
  picture.rgb.resize(stride * info.output_height);
  while (info.output_scanline < info.output_height) {
    JSAMPROW row = picture.rgb.data() + stride * info.output_scanline;
    jpeg_read_scanlines(&info, &row, 1);
  }
  jpeg_finish_decompress(&info);
}

// Whether the picture is whole. Owns nothing, since an error leaves it by a jump.
bool DecodeInto(Decoder& decoder, const Source& source, int width, int height, Picture& picture) {
  if (setjmp(decoder.back) != 0) return false;  // NOLINT(cert-err52-cpp): see JumpBack
  Open(decoder, source);
  if (IsTooLarge(decoder.info)) return false;
  ChooseScale(decoder.info, width, height);
  ReadRows(decoder.info, picture);
  return !decoder.damaged;
}

Picture Decode(const Source& source, int width, int height) {
  Decoder decoder;
  SetUp(decoder);
  Picture picture;
  return DecodeInto(decoder, source, width, height, picture) ? picture : Picture();
}

}  // namespace

Picture DecodeJpeg(std::FILE* file, int width, int height) {
  Source source;
  source.file = file;
  return Decode(source, width, height);
}

Picture DecodeJpeg(const uint8_t* bytes, size_t size, int width, int height) {
  Source source;
  source.bytes = bytes;
  source.size = size;
  return Decode(source, width, height);
}

}  // namespace flm::tool
