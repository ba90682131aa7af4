// How much of the heap a list uses: in the making, in browsing and marking, and when it is full. A
// camera has little of it, and memory in many small pieces never comes back whole.
#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "dcf/DCFItem.h"
#include "filelist/CQFileList.h"
#include "fsio/os_calls.h"
#include "tests/memory/heap_count.h"

namespace {

using flm_test::HeapBytes;
using flm_test::HeapRequests;

constexpr int kRequestsOfFolder = 32;  // in a scan, reading the folder's entries included
constexpr int kMostOfPoolPercent = 125;
constexpr int kStillNamed = 4;

// A card in memory where the system has such a place: tens of thousands of names are made.
class LargeCard {
 public:
  LargeCard() {
    std::string root = access("/dev/shm", W_OK) == 0 ? "/dev/shm/flmXXXXXX" : "/tmp/flmXXXXXX";
    root_ = mkdtemp(root.data());
    for (const char* folder : {"/DCIM", "/MISC"}) mkdir((root_ + folder).c_str(), 0755);
  }
  ~LargeCard() { std::filesystem::remove_all(root_); }
  LargeCard(const LargeCard&) = delete;
  LargeCard& operator=(const LargeCard&) = delete;

  const std::string& Root() const { return root_; }
  void AddFolders(int count, int filesInEach) {
    for (int i = 0; i < count; ++i) AddFolder(100 + i, filesInEach);
  }

 private:
  // One empty file under many names.
  void AddFolder(int number, int files) {
    const std::string folder = root_ + "/DCIM/" + std::to_string(number) + "PHOTO";
    mkdir(folder.c_str(), 0755);
    const int descriptor = open(folder.c_str(), O_DIRECTORY | O_RDONLY | O_CLOEXEC);
    for (int i = 1; i <= files; ++i) {
      const std::string name = "QVX_" + std::to_string(10000 + i).substr(1) + ".JPG";
      close(openat(descriptor, name.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644));
    }
    close(descriptor);
  }

  std::string root_;
};

class HeapUse : public testing::Test {
 protected:
  HeapUse() {
    // Flushing the whole machine can take seconds.
    flm::Os().Sync = [] {};
    tzset();  // the first local time of a program reads the zone into the heap
  }
  ~HeapUse() override {
    list_.reset();
    flm::ResetOsCalls();
  }

  int Scan(const LargeCard& card) {
    list_ = std::unique_ptr<CQFileList, Destroyer>(new CQFileList);
    list_->SetBaseURI(card.Root().c_str());
    list_->SetType(kStillNamed);
    return list_->Listup(0);
  }

  long RequestsOfScan(int folders, int files) {
    LargeCard card;
    card.AddFolders(folders, files);
    const long before = HeapRequests();
    EXPECT_EQ(folders * files, Scan(card));
    const long requests = HeapRequests() - before;
    list_.reset();
    return requests;
  }

  // What each further folder adds to the requests of a scan; its entry in the tree is part of it.
  long RequestsOfFolder(int folders, int files) {
    const long few = RequestsOfScan(folders, files);
    const long requests = (RequestsOfScan(2 * folders, files) - few) / folders;
    RecordProperty("requests_of_folder", std::to_string(requests));
    return requests;
  }

  void ExpectNoRequest(const char* what, int (*act)(CQFileList& list, CQFileListItem* item)) {
    CQFileListItem item;
    const int files = list_->GetCount();
    for (int index : {0, files / 2, files - 1, 7, files - 50}) {
      ASSERT_LE(0, list_->GetAt(index, &item, false));
      ASSERT_EQ(0, list_->SetCur(item.filePath)) << item.filePath;
      const long before = HeapRequests();
      act(*list_, &item);
      EXPECT_EQ(0, HeapRequests() - before) << what << " at " << index;
    }
  }

  // From the very first call after a change on, before any other.
  void ExpectNoRequestInBrowsing() {
    CQFileListItem item;
    const long before = HeapRequests();
    list_->GetAt(list_->GetCount() / 2, &item, false);
    list_->IsExist(item.filePath);
    list_->SetSel(&item, true);
    list_->IsSel(&item);
    EXPECT_EQ(0, HeapRequests() - before) << "the first calls of all";
    ExpectNoRequest("GetAt with info",
                    [](CQFileList& list, CQFileListItem* at) { return list.GetAt(5, at, true); });
    ExpectNoRequest("GetAt",
                    [](CQFileList& list, CQFileListItem* at) { return list.GetAt(5, at, false); });
    ExpectNoRequest("GetNext with info",
                    [](CQFileList& list, CQFileListItem* at) { return list.GetNext(at, true); });
    ExpectNoRequest("GetNext",
                    [](CQFileList& list, CQFileListItem* at) { return list.GetNext(at, false); });
    ExpectNoRequest("GetPrev with info",
                    [](CQFileList& list, CQFileListItem* at) { return list.GetPrev(at, true); });
    ExpectNoRequest("GetPrev",
                    [](CQFileList& list, CQFileListItem* at) { return list.GetPrev(at, false); });
    ExpectNoRequest("SetSel",
                    [](CQFileList& list, CQFileListItem* at) { return list.SetSel(at, true); });
    ExpectNoRequest("IsSel",
                    [](CQFileList& list, CQFileListItem* at) { return list.IsSel(at) ? 1 : 0; });
    ExpectNoRequest(
        "IsExist", [](CQFileList& list, CQFileListItem* at) { return list.IsExist(at->filePath); });
  }

  // What a list holds after its scan and after every kind of look-up has been made.
  void ExpectSlimWhenFull(int folders, int files) {
    LargeCard card;
    card.AddFolders(folders, files);
    const long before = HeapBytes();
    ASSERT_EQ(32000, Scan(card));
    CQFileListItem item;
    for (int index = 0; index < 32000; index += 100) {
      list_->GetAt(index, &item, true);
      list_->SetSel(&item, true);
      list_->GetFileListIndex(&item);
    }
    list_->GetSelFirst(&item);
    list_->SortItem();
    const long held = HeapBytes() - before;
    const long pool = 32000L * static_cast<long>(sizeof(DCFItem));
    RecordProperty("held_percent_of_pool", std::to_string(held * 100 / pool));
    EXPECT_LE(held, pool / 100 * kMostOfPoolPercent);
    EXPECT_LE(pool, held) << "the pool itself is counted";
  }

  // The destructor of a list releases nothing.
  struct Destroyer {
    void operator()(CQFileList* list) const {
      list->Destroy();
      delete list;
    }
  };
  std::unique_ptr<CQFileList, Destroyer> list_;
};

TEST_F(HeapUse, CountsWhatThePlatformAsksForWhenItReadsAFolder) {
  LargeCard card;
  const long requests = HeapRequests();
  const long bytes = HeapBytes();
  DIR* const dir = opendir(card.Root().c_str());
  EXPECT_LT(requests, HeapRequests());
  EXPECT_LT(bytes, HeapBytes());
  closedir(dir);
  EXPECT_EQ(bytes, HeapBytes());
}

TEST_F(HeapUse, AScanOfSmallFoldersMakesFewRequestsAFolder) {
  EXPECT_GE(kRequestsOfFolder, RequestsOfFolder(20, 8));
}

TEST_F(HeapUse, AScanOfFoldersOfHundredsMakesFewRequestsAFolder) {
  EXPECT_GE(kRequestsOfFolder, RequestsOfFolder(5, 300));
}

TEST_F(HeapUse, AScanOfFoldersOfThousandsMakesFewRequestsAFolder) {
  EXPECT_GE(kRequestsOfFolder, RequestsOfFolder(2, 3000));
}

TEST_F(HeapUse, BrowsingAndMarkingAfterAScanMakeNoRequest) {
  LargeCard card;
  card.AddFolders(3, 200);
  ASSERT_EQ(600, Scan(card));
  ExpectNoRequestInBrowsing();
}

TEST_F(HeapUse, BrowsingAndMarkingAfterAHundredNewFilesMakeNoRequest) {
  LargeCard card;
  card.AddFolders(3, 200);
  ASSERT_EQ(600, Scan(card));
  for (int i = 0; i < 100; ++i) {
    char name[flm::kNewNameSize] = "";
    ASSERT_LE(0, list_->GetNewFileName(name, 0));
  }
  ASSERT_EQ(700, list_->DCF_GetCount());
  ExpectNoRequestInBrowsing();
}

TEST_F(HeapUse, AFullListOfLargeFoldersHoldsLittleMoreThanItsPool) { ExpectSlimWhenFull(4, 8000); }

TEST_F(HeapUse, AFullListOfSmallFoldersHoldsLittleMoreThanItsPool) { ExpectSlimWhenFull(640, 50); }

}  // namespace
