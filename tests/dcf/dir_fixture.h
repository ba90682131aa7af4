// One directory of a catalogue on a card of its own, and its items in words.
#ifndef FILELISTMANAGEMENT_TESTS_DCF_DIR_FIXTURE_H
#define FILELISTMANAGEMENT_TESTS_DCF_DIR_FIXTURE_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dcf/CQDCFDir.h"
#include "dcf/CQDCFMemManager.h"
#include "tests/support/card.h"

namespace flm_test {

using Lines = std::vector<std::string>;

// An item as "number name" and, behind it, the letters of its companions.
inline std::string InWords(const DCFItem* item) {
  if (item == nullptr) return "none";
  std::string words = std::to_string(item->fileNumber) + " " + item->fileName;
  std::string companions;
  for (const char letter : {item->companionSrw, item->companionWav, item->companionMpo}) {
    if (letter != ' ' && letter != '\0') companions += letter;
  }
  return companions.empty() ? words : words + " +" + companions;
}

class DirOnCard : public testing::Test {
 protected:
  explicit DirOnCard(short number = 100, const char* name = "100PHOTO", int units = 100) {
    pool_.Create(static_cast<int>(sizeof(DCFItem)), units, 0);
    dir_.SetMemMgr(&pool_);
    Call(number, name);
  }
  ~DirOnCard() override { dir_.FreeMem(); }

  // Gives the directory another number and name.
  void Call(short number, const char* name) {
    dir_.SetDnum(number);
    dir_.SetDirName(Arg(name));
  }

  // Makes empty files in the directory's folder below "DCIM".
  void Put(const Lines& names, Where where = Where()) {
    for (const std::string& name : names) card_.MakeFile(FolderPath() + name, "", 0, where);
  }
  std::string FolderPath() const { return std::string("DCIM/") + dir_.GetDirName() + "/"; }

  // Scans the folder for a catalogue that holds `held` items already.
  int Scan(int mode = 4, int held = 0) {
    return dir_.Listup(Arg(card_.Root()), mode, dir_.GetDnum(), held);
  }

  // Adds an item as the numbering of new files does.
  DCFItem* Add(int number, const std::string& name) {
    int added = 0;
    return dir_.AddFile(nullptr, number, Arg(name), &added, 0);
  }

  Lines Items() const {
    Lines lines;
    for (const DCFItem* item = dir_.GetFirstItem(); item != nullptr; item = item->next) {
      lines.push_back(InWords(item));
    }
    return lines;
  }

  Card card_;
  CQDCFMemManager pool_;
  CQDCFDir dir_;
};

}  // namespace flm_test

#endif
