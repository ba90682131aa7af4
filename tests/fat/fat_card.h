// Cards on a mounted FAT. The machine in which these tests run has one at /tmp, where every Card
// lies; how it is mounted stands in the environment (see tests/fat/inside).
#ifndef FILELISTMANAGEMENT_TESTS_FAT_FAT_CARD_H
#define FILELISTMANAGEMENT_TESTS_FAT_FAT_CARD_H

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "filelist/CQFileList.h"
#include "tests/support/card.h"

namespace flm_test {

// The permissions that the mount takes from every file and folder.
unsigned int MountMask();

// A file of a FAT has one bit of protection, so its three write permissions go together: taking the
// owner's alone is protection only where the mask has taken the other two already. Elsewhere the
// system says that it did, and does nothing.
bool OwnerWriteIsProtection();

// Takes the card out of the machine and puts it back: what is read next comes from the card. Every
// file must be closed.
void TakeOutAndPutBack();

// What a power cut leaves: the card as its device has it now, without what the system still keeps
// in memory. To be read only.
class AfterPowerCut {
 public:
  AfterPowerCut();
  ~AfterPowerCut();
  AfterPowerCut(const AfterPowerCut&) = delete;
  AfterPowerCut& operator=(const AfterPowerCut&) = delete;

  bool Has(const std::string& path) const;  // a whole path, as it was before
  bool IsReadOnly(const std::string& path) const;
  std::string Content(const std::string& path) const;  // "" of a missing file too
};

// A file list on a card, with all its calls to the system. It is not scanned until Scan.
class OnFat : public testing::Test {
 protected:
  OnFat();
  ~OnFat() override;

  // The number of files.
  int Scan() { return list.Listup(0); }
  // Forgets everything, takes the card out and puts it back, and scans it. The number of files.
  int ScanAgain();
  // The files of the list, in order, relative to the root.
  std::vector<std::string> Files();
  // What the card has in its tree, sorted, relative to the root. In capitals, since the mount may
  // show small letters.
  std::vector<std::string> Tree() const;
  // The item at an index, with marks, protection, time and companions.
  CQFileListItem At(int index);
  CQFileListItem Item(const std::string& relative) const;
  std::string Relative(const std::string& path) const;
  // Sets the read-only bit of a file's directory entry, as another device does.
  void SetReadOnlyBit(const std::string& relative, bool on);

  Card card;
  CQFileList list;
};

}  // namespace flm_test

#endif
