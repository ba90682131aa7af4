// A sample card in a private folder, removed together with the object.
#ifndef FILELISTMANAGEMENT_BENCH_CARD_H
#define FILELISTMANAGEMENT_BENCH_CARD_H

#include <string>
#include <vector>

namespace flm::bench {

constexpr int kFirstFolder = 100;

// What a card holds: pictures QVX_0001.JPG and on in the folders 100PHOTO and on.
struct CardLayout {
  int folders;
  int picturesPerFolder;
  bool rawCompanions;  // a file .SRW beside each picture
};

// `files` pictures, an equal share in each of four folders: with 32 000 files the folders hold 8
// 000 each, and a row that grows with the size of a folder cannot hide behind more folders.
CardLayout EvenLayout(int files);

class SampleCard {
 public:
  SampleCard(std::string root, const CardLayout& layout);
  ~SampleCard();
  SampleCard(const SampleCard&) = delete;
  SampleCard& operator=(const SampleCard&) = delete;

  const std::string& Root() const { return root_; }
  const CardLayout& Layout() const { return layout_; }
  int Pictures() const { return layout_.folders * layout_.picturesPerFolder; }
  std::string Tree() const { return root_ + "/DCIM"; }
  std::string PrintOrder() const { return root_ + "/MISC/AUTPRINT.MRK"; }
  std::vector<std::string> Folders() const;  // paths, oldest first
  std::vector<std::string> Paths() const;    // of the pictures, in list order
  int CountFiles() const;                    // what the folders hold now

 private:
  void Fill(const std::string& folder) const;

  std::string root_;
  CardLayout layout_;
};

// A new name for a card's root below `parent`.
std::string NewRoot(const std::string& parent);

}  // namespace flm::bench

#endif
