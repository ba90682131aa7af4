// A card of numbered pictures, cut into pages.
#ifndef FILELISTMANAGEMENT_TESTS_FILELIST_PAGES_FIXTURE_H
#define FILELISTMANAGEMENT_TESTS_FILELIST_PAGES_FIXTURE_H

#include <gtest/gtest.h>

#include "tests/filelist/marks_fixture.h"

namespace flm_test {

// Files 1, 2, 3... of one folder; a page is described by their numbers, as "1 2 3".
class Pages : public testing::Test {
 protected:
  void With(int files, int pageSize) {
    if (files > 0) at_.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, files, "JPG");
    ASSERT_EQ(files, at_.Scan());
    ASSERT_EQ(0, at_.list.InitPage(pageSize));
  }
  // The numbers of the filled items: those whose path is not empty.
  std::string Shown() const {
    std::string text;
    for (const CQFileListItem& item : items_) {
      const std::string path = item.filePath;
      if (path.empty()) continue;
      text +=
          (text.empty() ? "" : " ") + std::to_string(std::stoi(path.substr(path.size() - 8, 4)));
    }
    return text;
  }
  // Calls an operation that fills a page, with fresh items.
  template <typename Call>
  int Show(Call call) {
    items_.assign(30, CQFileListItem());
    return call(items_.data());
  }
  int First() {
    return Show([this](CQFileListItem* items) { return at_.list.GetFirstPage(items); });
  }
  int Next() {
    return Show([this](CQFileListItem* items) { return at_.list.GetNextPage(items); });
  }
  int Prev() {
    return Show([this](CQFileListItem* items) { return at_.list.GetPrevPage(items); });
  }
  int Last() {
    return Show([this](CQFileListItem* items) { return at_.list.GetLastPage(items); });
  }
  int At(int page) {
    return Show([this, page](CQFileListItem* items) { return at_.list.GetPageAt(page, items); });
  }
  int Page() { return at_.list.GetCurPageNum(); }
  static std::string File(int number) {
    const std::string digits = std::to_string(10000 + number).substr(1);
    return "DCIM/100PHOTO/QVX_" + digits + ".JPG";
  }
  // Takes files out of the list; the pages are not told.
  void Forget(int from, int to) {
    for (int number = from; number <= to; ++number) {
      EXPECT_EQ(0, at_.list.RemoveFileFromList(Arg(at_.card.Path(File(number))))) << number;
    }
  }

  ListedCard at_;
  std::vector<CQFileListItem> items_;
};

}  // namespace flm_test

#endif
