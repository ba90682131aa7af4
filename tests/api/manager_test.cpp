// The owner of the process's lists: making, finding and destroying them.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <type_traits>

#include "api/CBIFileListManager.h"
#include "filelist/CQFileList.h"
#include "fsio/os_calls.h"
#include "tests/support/card.h"

namespace {

using flm_test::Arg;
using flm_test::Card;
using Manager = CBIFileListManager;

class FileListManager : public testing::Test {
 protected:
  FileListManager() {
    flm::Os().Sync = [] {};
  }
  ~FileListManager() override {
    Manager::Destroy();
    flm::ResetOsCalls();
  }

  static int Set(int position, const std::string& uri, int type, bool series = false) {
    return Manager::SetURIToFileList(position, Arg(uri), type, series);
  }
  static IQFileList* Find(const std::string& uri, int type) {
    return Manager::GetFileList(Arg(uri), type);
  }
  static void ExpectNothingFound(const std::string& uri, int type) {
    EXPECT_EQ(Manager::GetFileList(Arg(uri), type), nullptr) << uri << ' ' << type;
    EXPECT_EQ(Manager::GetSelectedFileList(Arg(uri), type), nullptr) << uri << ' ' << type;
    EXPECT_EQ(Manager::GetPageUtil(Arg(uri), type), nullptr) << uri << ' ' << type;
  }
};

TEST_F(FileListManager, IsEmptyAtFirst) {
  ExpectNothingFound("", 0);
  ExpectNothingFound("/mnt/mmc", 4);
}

TEST_F(FileListManager, ManyListsCanBeMade) {
  EXPECT_EQ(Manager::Create(20), 0);
  for (int i = 0; i < 20; ++i) Set(i, "/root" + std::to_string(i), i);
  for (int i = 0; i < 20; ++i) EXPECT_NE(Find("/root" + std::to_string(i), i), nullptr);
}

TEST_F(FileListManager, NoListsAreFoundAmongNone) {
  EXPECT_EQ(Manager::Create(0), 0);
  ExpectNothingFound("", 0);
  EXPECT_EQ(Manager::Destroy(), 0);
}

TEST_F(FileListManager, FreshListsHaveAnEmptyRootAndTypeZero) {
  ASSERT_EQ(Manager::Create(2), 0);
  IQFileList* const list = Find("", 0);
  ASSERT_NE(list, nullptr);
  EXPECT_STREQ(list->GetBaseURI(), "");
  EXPECT_EQ(list->GetType(), 0);
  EXPECT_EQ(list->GetCount(), -1);
}

TEST_F(FileListManager, AListIsFoundByRootAndType) {
  ASSERT_EQ(Manager::Create(2), 0);
  Set(0, "/mnt/mmc", 4);
  Set(1, "/opt/sd0", 4);
  IQFileList* const first = Find("/mnt/mmc", 4);
  IQFileList* const second = Find("/opt/sd0", 4);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  EXPECT_STREQ(first->GetBaseURI(), "/mnt/mmc");
  EXPECT_STREQ(second->GetBaseURI(), "/opt/sd0");
  EXPECT_EQ(first->GetType(), 4);
}

TEST_F(FileListManager, TheRootMustMatchExactly) {
  ASSERT_EQ(Manager::Create(1), 0);
  Set(0, "/mnt/mmc", 4);
  for (const char* uri : {"", "/mnt/mm", "/mnt/mmc/", "/MNT/MMC", "mnt/mmc", "/mnt/mmcx"}) {
    ExpectNothingFound(uri, 4);
  }
  ExpectNothingFound("/mnt/mmc", 0);
  ExpectNothingFound("/mnt/mmc", -4);
}

TEST_F(FileListManager, NoRootMatchesNothing) {
  ASSERT_EQ(Manager::Create(1), 0);
  EXPECT_EQ(Manager::GetFileList(nullptr, 0), nullptr);
  EXPECT_EQ(Manager::GetSelectedFileList(nullptr, 0), nullptr);
  EXPECT_EQ(Manager::GetPageUtil(nullptr, 0), nullptr);
}

TEST_F(FileListManager, ListsOfOneRootAreToldApartByType) {
  ASSERT_EQ(Manager::Create(2), 0);
  Set(0, "/mnt/mmc", 4);
  Set(1, "/mnt/mmc", 2);
  ASSERT_NE(Find("/mnt/mmc", 4), nullptr);
  EXPECT_EQ(Find("/mnt/mmc", 4)->GetType(), 4);
  ASSERT_NE(Find("/mnt/mmc", 2), nullptr);
  EXPECT_EQ(Find("/mnt/mmc", 2)->GetType(), 2);
}

TEST_F(FileListManager, OfTwoThatMatchTheLowerPositionIsMeant) {
  ASSERT_EQ(Manager::Create(3), 0);
  Set(0, "/opt/sd0", 4);
  Set(1, "/mnt/mmc", 4);
  IQFileList* const lower = Find("/mnt/mmc", 4);
  Set(2, "/mnt/mmc", 4);
  EXPECT_EQ(Find("/mnt/mmc", 4), lower);
}

TEST_F(FileListManager, TheThreeLookupsGiveOneList) {
  ASSERT_EQ(Manager::Create(2), 0);
  Set(1, "/mnt/mmc", 4);
  CQFileList* const list = static_cast<CQFileList*>(Find("/mnt/mmc", 4));
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(Manager::GetSelectedFileList(Arg("/mnt/mmc"), 4),
            static_cast<IQSelectedFileList*>(list));
  EXPECT_EQ(Manager::GetPageUtil(Arg("/mnt/mmc"), 4), static_cast<IQPageUtil*>(list));
}

TEST_F(FileListManager, AnInterfaceReachesItsList) {
  ASSERT_EQ(Manager::Create(1), 0);
  Set(0, "/mnt/mmc", 4);
  EXPECT_EQ(Manager::GetSelectedFileList(Arg("/mnt/mmc"), 4)->GetSelCount(), -6);
  EXPECT_EQ(Manager::GetPageUtil(Arg("/mnt/mmc"), 4)->GetCurPageNum(), -1);
}

// --- Roots --------------------------------------------------------------------------------------

TEST_F(FileListManager, RootsUpTo127CharactersAreTaken) {
  ASSERT_EQ(Manager::Create(1), 0);
  const std::string longest = "/" + std::string(126, 'd');
  Set(0, longest, 4);
  ASSERT_NE(Find(longest, 4), nullptr);
  EXPECT_EQ(Find(longest, 4)->GetBaseURI(), longest);
}

TEST_F(FileListManager, ALongerRootIsIgnoredAndTheTypeIsNot) {
  ASSERT_EQ(Manager::Create(1), 0);
  Set(0, "/mnt/mmc", 4);
  for (const size_t length : {128U, 129U, 5000U}) {
    Set(0, std::string(length, 'd'), 2);
    ASSERT_NE(Find("/mnt/mmc", 2), nullptr) << length;
    EXPECT_STREQ(Find("/mnt/mmc", 2)->GetBaseURI(), "/mnt/mmc");
    ExpectNothingFound(std::string(length, 'd'), 2);
    ExpectNothingFound(std::string(127, 'd'), 2);
  }
}

TEST_F(FileListManager, NoRootKeepsTheEarlierOne) {
  ASSERT_EQ(Manager::Create(1), 0);
  Set(0, "/mnt/mmc", 4);
  Manager::SetURIToFileList(0, nullptr, 4, false);
  EXPECT_NE(Find("/mnt/mmc", 4), nullptr);
}

TEST_F(FileListManager, ARootMayBeSetToItself) {
  ASSERT_EQ(Manager::Create(1), 0);
  Set(0, "/mnt/mmc", 4);
  IQFileList* const list = Find("/mnt/mmc", 4);
  Manager::SetURIToFileList(0, list->GetBaseURI(), 2, false);
  EXPECT_STREQ(list->GetBaseURI(), "/mnt/mmc");
}

TEST_F(FileListManager, AShorterRootReplacesALongerOne) {
  ASSERT_EQ(Manager::Create(1), 0);
  Set(0, "/mnt/memory/card", 4);
  Set(0, "/mnt", 4);
  ExpectNothingFound("/mnt/memory/card", 4);
  ASSERT_NE(Find("/mnt", 4), nullptr);
  EXPECT_STREQ(Find("/mnt", 4)->GetBaseURI(), "/mnt");
}

TEST_F(FileListManager, PositionsThatDoNotExistAreRefused) {
  EXPECT_LT(Set(0, "/mnt/mmc", 4), 0);
  ASSERT_EQ(Manager::Create(2), 0);
  for (const int position : {2, 3, -1, INT_MAX, INT_MIN})
    EXPECT_LT(Set(position, "/mnt/mmc", 4), 0);
  ExpectNothingFound("/mnt/mmc", 4);
}

TEST_F(FileListManager, TheSeriesModeIsLostBeforeTheFirstScan) {
  ASSERT_EQ(Manager::Create(1), 0);
  EXPECT_EQ(Set(0, "/mnt/mmc", 4, true), -1);
  EXPECT_FALSE(Find("/mnt/mmc", 4)->GetSeriesMode());
}

TEST_F(FileListManager, TheSeriesModeOfAScannedListIsKeptAndAnswered) {
  const Card card;
  ASSERT_EQ(Manager::Create(1), 0);
  Set(0, card.Root(), 4);
  ASSERT_EQ(Find(card.Root(), 4)->Listup(0), 0);
  EXPECT_EQ(Set(0, card.Root(), 4, true), 0);
  EXPECT_TRUE(Find(card.Root(), 4)->GetSeriesMode());
  EXPECT_EQ(Set(0, card.Root(), 4, false), 0);
  EXPECT_FALSE(Find(card.Root(), 4)->GetSeriesMode());
}

// --- New names ----------------------------------------------------------------------------------

TEST_F(FileListManager, WithoutAListNothingIsNamed) {
  char name[396] = "untouched";
  EXPECT_EQ(Manager::GetNewFileName(Arg("/mnt/mmc"), 4, name, 4), -1);
  ASSERT_EQ(Manager::Create(1), 0);
  Set(0, "/mnt/mmc", 4);
  EXPECT_EQ(Manager::GetNewFileName(Arg("/mnt/mmc"), 4, name, 0), -1);
  EXPECT_EQ(Manager::GetNewFileName(Arg("/opt/sd0"), 4, name, 4), -1);
  EXPECT_EQ(Manager::GetNewFileName(nullptr, 4, name, 4), -1);
  EXPECT_STREQ(name, "untouched");
}

TEST_F(FileListManager, AnUnscannedListNamesNothing) {
  ASSERT_EQ(Manager::Create(1), 0);
  Set(0, "/mnt/mmc", 4);
  char name[396] = "untouched";
  EXPECT_EQ(Manager::GetNewFileName(Arg("/mnt/mmc"), 0, name, 4), -1);
  EXPECT_STREQ(name, "untouched");
}

TEST_F(FileListManager, TheTypeIsTheKindOfTheNewFileToo) {
  const Card card;
  ASSERT_EQ(Manager::Create(2), 0);
  Set(0, card.Root(), 4);
  ASSERT_EQ(Find(card.Root(), 4)->Listup(0), 0);
  char name[396] = {};
  EXPECT_EQ(Manager::GetNewFileName(Arg(card.Root()), 0, name, 4), 0);
  EXPECT_EQ(name, card.Path("DCIM/100PHOTO/QVX_0001.MP3"));
  EXPECT_EQ(Manager::GetNewFileName(Arg(card.Root()), 2, name, 4), 0);
  EXPECT_EQ(name, card.Path("DCIM/100PHOTO/QVX_0002.MP3"));
  Set(1, card.Root(), 0);
  ASSERT_GE(Find(card.Root(), 0)->Listup(0), 0);
  EXPECT_EQ(Manager::GetNewFileName(Arg(card.Root()), 6, name, 0), 0);
  EXPECT_EQ(std::string(name).substr(std::string(name).size() - 4), ".JPG");
}

// --- End ----------------------------------------------------------------------------------------

TEST_F(FileListManager, DestroyForgetsEveryList) {
  ASSERT_EQ(Manager::Create(2), 0);
  Set(0, "/mnt/mmc", 4);
  EXPECT_EQ(Manager::Destroy(), 0);
  ExpectNothingFound("/mnt/mmc", 4);
  ExpectNothingFound("", 0);
}

TEST_F(FileListManager, DestroyTwiceIsFine) {
  ASSERT_EQ(Manager::Create(2), 0);
  EXPECT_EQ(Manager::Destroy(), 0);
  EXPECT_EQ(Manager::Destroy(), 0);
}

TEST_F(FileListManager, DestroyReleasesTheCatalogues) {
  Card card;
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
  ASSERT_EQ(Manager::Create(1), 0);
  Set(0, card.Root(), 4);
  ASSERT_EQ(Find(card.Root(), 4)->Listup(0), 3);
  EXPECT_EQ(Manager::Destroy(), 0);  // a leak is the sanitizers' to find
}

TEST_F(FileListManager, CreateAgainBeginsWithFreshLists) {
  Card card;
  card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  ASSERT_EQ(Manager::Create(2), 0);
  Set(0, card.Root(), 4);
  ASSERT_EQ(Find(card.Root(), 4)->Listup(0), 1);
  EXPECT_EQ(Manager::Create(3), 0);
  ExpectNothingFound(card.Root(), 4);
  Set(2, card.Root(), 4);
  ASSERT_NE(Find(card.Root(), 4), nullptr);
  EXPECT_EQ(Find(card.Root(), 4)->GetCount(), -1);
}

TEST_F(FileListManager, ListsCanBeMadeAgainAfterDestroy) {
  ASSERT_EQ(Manager::Create(1), 0);
  ASSERT_EQ(Manager::Destroy(), 0);
  EXPECT_EQ(Manager::Create(1), 0);
  EXPECT_NE(Find("", 0), nullptr);
}

TEST_F(FileListManager, ANegativeCountMakesNothing) {
  EXPECT_LT(Manager::Create(-1), 0);
  EXPECT_LT(Manager::Create(INT_MIN), 0);
  ExpectNothingFound("", 0);
}

TEST_F(FileListManager, ConstructingOneForgetsTheLists) {
  ASSERT_EQ(Manager::Create(2), 0);
  // The list at position 0 is where the lists begin; nobody owns them afterwards.
  CQFileList* const lists = static_cast<CQFileList*>(Find("", 0));
  ASSERT_NE(lists, nullptr);
  { const Manager manager; }
  ExpectNothingFound("", 0);
  EXPECT_EQ(Manager::Destroy(), 0);
  EXPECT_STREQ(lists[1].GetBaseURI(), "");  // still there
  delete[] lists;
}

TEST_F(FileListManager, IsDestroyedThroughAPointerToIt) {
  EXPECT_TRUE(std::has_virtual_destructor<Manager>::value);
  delete new Manager;
  ExpectNothingFound("", 0);
}

}  // namespace
