// How often operations ask the card: a card is slow, and every call that is spared counts.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

#include "tests/filelist/core_fixture.h"

namespace {

// Counts what reaches the card, and does it.
struct CardCalls {
  CardCalls() {
    statuses = 0;
    folders = 0;
    flm::Os().Stat = [](const char* path, struct stat* status) {
      ++statuses;
      return stat(path, status);
    };
    flm::Os().Opendir = [](const char* path) {
      ++folders;
      return opendir(path);
    };
    flm::Os().StartThread = [](pthread_t*, const pthread_attr_t*, void* (*)(void*), void*) {
      return 0;
    };
  }
  static void Restart() {
    statuses = 0;
    folders = 0;
  }
  inline static int statuses = 0;
  inline static int folders = 0;
};

class CardAccess : public flm_test::FileListTest {
 protected:
  static constexpr int kFiles = 100;  // in each of two folders

  void ScanTwoFolders() {
    card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, kFiles, "JPG");
    card.MakeFiles("DCIM/101PHOTO", "QVX_", 1, kFiles, "JPG");
    ASSERT_EQ(2 * kFiles, Scan());
    CardCalls::Restart();
  }
  CardCalls calls_;
};

TEST_F(CardAccess, AScanOfPicturesReadsNoStatus) {
  ScanTwoFolders();
  ASSERT_EQ(2 * kFiles, list.Listup(0));
  EXPECT_EQ(0, CardCalls::statuses);
  EXPECT_EQ(3, CardCalls::folders);
}

TEST_F(CardAccess, AFileWithInformationIsReadOnce) {
  ScanTwoFolders();
  CQFileListItem item;
  for (int i = 0; i < 2 * kFiles; ++i) ASSERT_EQ(0, list.GetAt(i, &item, true));
  EXPECT_EQ(2 * kFiles, CardCalls::statuses);
}

TEST_F(CardAccess, AFileWithoutInformationIsNotRead) {
  ScanTwoFolders();
  CQFileListItem item;
  for (int i = 0; i < 2 * kFiles; ++i) ASSERT_EQ(0, list.GetAt(i, &item, false));
  EXPECT_EQ(0, CardCalls::statuses);
}

TEST_F(CardAccess, TheFirstWalkReadsTimeAndInformationOfAFileAtOnce) {
  ScanTwoFolders();
  CQFileListItem item;
  ASSERT_EQ(0, list.GetFirst(&item, true));
  while (list.GetNext(&item, true) == 0) {
    struct stat status;
    ASSERT_EQ(0, stat(item.filePath, &status));
    ASSERT_EQ(static_cast<int32_t>(status.st_mtime), item.modTime);
  }
  EXPECT_EQ(2 * kFiles, CardCalls::statuses);
}

TEST_F(CardAccess, PagesReadEachFileOnce) {
  ScanTwoFolders();
  constexpr int kOnPage = 20;
  std::vector<CQFileListItem> items(kOnPage);
  list.InitPage(kOnPage);
  int shown = list.GetFirstPage(items.data());
  while (shown < 2 * kFiles) shown += list.GetNextPage(items.data());
  EXPECT_EQ(2 * kFiles, shown);
  // The first file of each further page is read a second time, for the record of its time.
  EXPECT_EQ(2 * kFiles + 2 * kFiles / kOnPage - 1, CardCalls::statuses);
}

TEST_F(CardAccess, DeletingAllReadsEachFileOnceAndNoFolderThatIsNotEmpty) {
  ScanTwoFolders();
  EXPECT_GT(list.DeleteAll(false, nullptr), 0);
  EXPECT_FALSE(card.Exists("DCIM/100PHOTO"));
  EXPECT_TRUE(card.Exists("DCIM/101PHOTO"));
  EXPECT_EQ(2 * kFiles, CardCalls::statuses);
  EXPECT_EQ(1, CardCalls::folders);
}

TEST_F(CardAccess, DeletingSelectedFilesReadsAFolderOnlyWhenItMayBeEmpty) {
  ScanTwoFolders();
  list.SetSelAll(true);
  list.DeleteSel(false, nullptr);
  EXPECT_EQ(0, list.GetCount());
  EXPECT_LE(CardCalls::folders, 3);
}

TEST_F(CardAccess, OnlyTheFirstListedPictureOfAFolderIsLookedForByPath) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, kFiles, "JPG");
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, kFiles, "SRW");
  Prepare();
  ASSERT_EQ(kFiles, list.Listup(0));
  EXPECT_EQ(1, CardCalls::statuses);
}

TEST_F(CardAccess, APictureThatIsADeadLinkIsNoPicture) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 1, "JPG");
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 2, "SRW");
  ASSERT_EQ(0, symlink("nowhere", card.Path("DCIM/100PHOTO/QVX_0002.JPG").c_str()));
  // The raw file of the dead link is a file of its own; the link itself is listed like any name.
  ASSERT_EQ(3, Scan());
  EXPECT_EQ(On("DCIM/100PHOTO/QVX_0002.SRW"), PathAt(2));
}

TEST_F(CardAccess, APictureInSmallLettersIsNoPictureWhereTheCardTellsThemApart) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 1, "JPG");
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 2, "SRW");
  card.MakeFile("DCIM/100PHOTO/QVX_0002.jpg");
  EXPECT_EQ(3, Scan());
}

TEST_F(CardAccess, NoListedPictureIsTakenToBeThereWhenPathsOfTheFolderFail) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "SRW");
  flm::Os().Stat = [](const char*, struct stat*) { return -1; };
  EXPECT_EQ(6, Scan());
}

}  // namespace
