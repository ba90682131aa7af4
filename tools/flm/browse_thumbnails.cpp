#include "browse_thumbnails.h"

#include <utility>

namespace flm::tool {

void Thumbnails::SetSize(int width, int height) {
  if (width == width_ && height == height_) return;
  width_ = width;
  height_ = height;
  places_.clear();
  kept_.clear();
}

const Thumbnail& Thumbnails::Get(const ThumbnailKey& key) {
  const std::string name =
      std::to_string(key.size) + ":" + std::to_string(key.time) + ":" + key.path;
  const auto place = places_.find(name);
  if (place != places_.end()) {
    kept_.splice(kept_.begin(), kept_, place->second);
    return kept_.front().thumbnail;
  }
  ++reads_;
  kept_.push_front({name, ReadThumbnail(key.path, width_, height_)});
  places_[name] = kept_.begin();
  if (kept_.size() > room_) {
    places_.erase(kept_.back().name);
    kept_.pop_back();
  }
  return kept_.front().thumbnail;
}

}  // namespace flm::tool
