// The thumbnails that were seen last, so that stepping back a page reads nothing again.
#ifndef FILELISTMANAGEMENT_TOOLS_BROWSE_THUMBNAILS_H
#define FILELISTMANAGEMENT_TOOLS_BROWSE_THUMBNAILS_H

#include <cstdint>
#include <ctime>
#include <list>
#include <string>
#include <unordered_map>

#include "browse_picture.h"

namespace flm::tool {

// What a thumbnail is kept by: a file that was written again is another one.
struct ThumbnailKey {
  std::string path;
  int64_t size = 0;
  std::time_t time = 0;
};

class Thumbnails {
 public:
  explicit Thumbnails(size_t room) : room_(room) {}

  // Pixels that thumbnails should have from now on; those of another size are forgotten.
  void SetSize(int width, int height);

  // Reads the file unless its thumbnail is kept. Good until the next call.
  const Thumbnail& Get(const ThumbnailKey& key);

  size_t Kept() const { return kept_.size(); }
  int Reads() const { return reads_; }

 private:
  struct Entry {
    std::string name;
    Thumbnail thumbnail;
  };

  size_t room_;
  int width_ = 0;
  int height_ = 0;
  int reads_ = 0;
  std::list<Entry> kept_;  // the one seen last in front
  std::unordered_map<std::string, std::list<Entry>::iterator> places_;
};

}  // namespace flm::tool

#endif
