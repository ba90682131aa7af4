// Start and stop, and what every flat function answers whatever lies on the cards.
#include "api/CBIFileListManager.h"
#include "tests/api/flm_calls.h"
#include "tests/api/flm_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::FlatCall;
using flm_test::FlatIsSetUp;
using flm_test::FlatOutputs;
using flm_test::InChild;
using flm_test::kFlatCalls;

using Flat = flm_test::FlatTest;

// --- Before the start ---------------------------------------------------------------------------

class FlatBeforeInit : public testing::Test {
 protected:
  void SetUp() override {
    if (FlatIsSetUp()) {
      GTEST_SKIP() << "the functions are already set up in this process; "
                      "tests/support/with-cards --each gives every test its own";
    }
  }
  flm_test::Card mmc{"/mnt/mmc"};
  flm_test::Card sd0{"/opt/sd0"};
};

TEST_F(FlatBeforeInit, EveryFunctionSaysThatThereIsNoList) {
  mmc.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  const std::vector<std::string> tree = mmc.Tree();
  for (const FlatCall& f : kFlatCalls) {
    for (const FileListType type : {FILELIST_MMC, FILELIST_SD0}) {
      FlatOutputs out;
      EXPECT_EQ(f.call(type, out), 3) << f.name;
      EXPECT_TRUE(out.Untouched()) << f.name;
    }
  }
  EXPECT_EQ(mmc.Tree(), tree);
  EXPECT_TRUE(sd0.Tree().empty());
}

TEST_F(FlatBeforeInit, AWrongListIsStillAWrongList) {
  for (const FlatCall& f : kFlatCalls) {
    FlatOutputs out;
    EXPECT_EQ(f.call(flm_test::kNoType, out), 2) << f.name;
    EXPECT_TRUE(out.Untouched()) << f.name;
  }
}

TEST_F(FlatBeforeInit, AskingForAListSetsTheFunctionsUp) {
  EXPECT_EQ(InChild([] {
              IQFileList* const list = _flm_get_isfilelist(FILELIST_SD0);
              if (list == nullptr || std::strcmp(list->GetBaseURI(), "/opt/sd0") != 0) return 1;
              int count = 0;
              return flm_get_count(FILELIST_MMC, &count) == 0 && count == -1 ? 0 : 2;
            }),
            0);
}

TEST_F(FlatBeforeInit, AskingForAWrongListSetsTheFunctionsUpToo) {
  EXPECT_EQ(InChild([] {
              if (_flm_get_isfilelist(flm_test::kNoType) != nullptr) return 1;
              int count = 0;
              return flm_get_count(FILELIST_MMC, &count) == 0 ? 0 : 2;
            }),
            0);
}

// --- Start --------------------------------------------------------------------------------------

TEST_F(Flat, InitMakesAListForEachRoot) {
  for (const FileListType type : {FILELIST_MMC, FILELIST_SD0}) {
    IQFileList* const list = _flm_get_isfilelist(type);
    ASSERT_NE(list, nullptr);
    EXPECT_STREQ(list->GetBaseURI(), type == FILELIST_MMC ? "/mnt/mmc" : "/opt/sd0");
    EXPECT_EQ(list->GetType(), 4);
    EXPECT_FALSE(list->GetSeriesMode());
  }
}

TEST_F(Flat, InitRegistersTheListsWithTheManager) {
  EXPECT_EQ(CBIFileListManager::GetFileList(Arg("/mnt/mmc"), 4), _flm_get_isfilelist(FILELIST_MMC));
  EXPECT_EQ(CBIFileListManager::GetFileList(Arg("/opt/sd0"), 4), _flm_get_isfilelist(FILELIST_SD0));
  EXPECT_NE(CBIFileListManager::GetPageUtil(Arg("/mnt/mmc"), 4), nullptr);
  EXPECT_NE(CBIFileListManager::GetSelectedFileList(Arg("/opt/sd0"), 4), nullptr);
}

TEST_F(FlatBeforeInit, InitScansNothing) {
  mmc.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  const std::vector<std::string> tree = mmc.Tree();
  EXPECT_EQ(InChild([] {
              if (flm_init() != 0) return 1;
              int count = 0;
              return flm_get_count(FILELIST_MMC, &count) == 0 && count == -1 ? 0 : 2;
            }),
            0);
  EXPECT_EQ(mmc.Tree(), tree);
  EXPECT_TRUE(sd0.Tree().empty());
}

TEST_F(Flat, ASecondInitChangesNothing) {
  ScanFivePictures();
  IQFileList* const list = _flm_get_isfilelist(FILELIST_MMC);
  EXPECT_EQ(flm_init(), 0);
  EXPECT_EQ(_flm_get_isfilelist(FILELIST_MMC), list);
  EXPECT_EQ(flm_test::Count(), 5);
}

TEST_F(Flat, InitSetsThePrefixOfNewFiles) {
  ASSERT_EQ(flm_listup(FILELIST_MMC), 0);
  ASSERT_EQ(flm_listup(FILELIST_SD0), 0);
  EXPECT_EQ(flm_test::NewName(0, FILELIST_MMC), "/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG");
  EXPECT_EQ(flm_test::NewName(0, FILELIST_SD0), "/opt/sd0/DCIM/100PHOTO/QVX_0001.JPG");
}

// --- Checks -------------------------------------------------------------------------------------

TEST_F(Flat, OnlyTwoListNumbersAreInRange) {
  for (const int type : {0, 1}) EXPECT_EQ(_flm_range_check(type), 1) << type;
  for (const int type : {-1, 2, 3, 256, INT_MAX, INT_MIN}) {
    EXPECT_EQ(_flm_range_check(type), 0) << type;
  }
}

TEST_F(Flat, ThePointerCheckTellsNullFromTheRest) {
  int anything = 0;
  EXPECT_EQ(_flm_null_check(&anything), 1);
  EXPECT_EQ(_flm_null_check(nullptr), 0);
}

TEST_F(Flat, AWrongListNumberHasNoList) {
  for (const int type : {-1, 2, INT_MAX, INT_MIN}) {
    EXPECT_EQ(_flm_get_isfilelist(static_cast<FileListType>(type)), nullptr) << type;
  }
}

TEST_F(Flat, EveryFunctionRefusesAWrongListNumber) {
  ScanFivePictures();
  ASSERT_EQ(flm_set_cursor(FILELIST_MMC, 2), 0);
  const std::vector<std::string> tree = mmc.Tree();
  for (const FlatCall& f : kFlatCalls) {
    for (const int type : {-1, 2, 3, INT_MAX, INT_MIN}) {
      FlatOutputs out;
      EXPECT_EQ(f.call(static_cast<FileListType>(type), out), 2) << f.name << ' ' << type;
      EXPECT_TRUE(out.Untouched()) << f.name << ' ' << type;
    }
  }
  EXPECT_EQ(mmc.Tree(), tree);
  EXPECT_EQ(flm_test::Count(), 5);
  EXPECT_EQ(flm_test::Cursor(), 2);
}

TEST_F(Flat, EveryFunctionSucceedsOnAScannedList) {
  for (const FlatCall& f : kFlatCalls) {
    ScanFivePictures();
    FlatOutputs out;
    EXPECT_EQ(f.call(FILELIST_MMC, out), 0) << f.name;
  }
}

TEST_F(Flat, EveryFunctionSucceedsOnAnEmptyList) {
  ASSERT_EQ(flm_listup(FILELIST_SD0), 0);
  for (const FlatCall& f : kFlatCalls) {
    FlatOutputs out;
    EXPECT_EQ(f.call(FILELIST_SD0, out), 0) << f.name;
  }
}

TEST_F(Flat, AFailureOfTheListIsNotTheFunctions) {
  sd0.WriteFile("DCIM", "not a folder");
  ASSERT_EQ(flm_listup(FILELIST_SD0), 4);
  for (const FlatCall& f : kFlatCalls) {
    FlatOutputs out;
    if (std::strcmp(f.name, "flm_listup") == 0) continue;
    EXPECT_EQ(f.call(FILELIST_SD0, out), 0) << f.name;
  }
}

TEST_F(Flat, AnyIndexIsHarmless) {
  ScanFivePictures();
  const std::vector<std::string> tree = mmc.Tree();
  for (const int index : {5, -1, INT_MAX, INT_MIN}) {
    EXPECT_EQ(flm_remove_file_from_list(FILELIST_MMC, index), 0);
    EXPECT_EQ(flm_set_cursor(FILELIST_MMC, index), 0);
    EXPECT_EQ(flm_set_selection(FILELIST_MMC, index, 1), 0);
    EXPECT_EQ(flm_set_protection(FILELIST_MMC, index, 1), 0);
    EXPECT_EQ(flm_set_dpof(FILELIST_MMC, index, 1), 0);
    EXPECT_EQ(flm_set_dpof_size(FILELIST_MMC, index, 1), 0);
    EXPECT_EQ(flm_test::At(index), "");
  }
  EXPECT_EQ(mmc.Tree(), tree);
  EXPECT_EQ(flm_test::Count(), 5);
  EXPECT_EQ(All(flm_get_selection), std::vector<int>(5, 0));
  EXPECT_EQ(All(flm_get_dpof), std::vector<int>(5, 0));
}

// --- Stop ---------------------------------------------------------------------------------------

TEST_F(Flat, DeinitEndsTheLists) {
  EXPECT_EQ(InChild([] {
              if (flm_deinit() != 0) return 1;
              return CBIFileListManager::GetFileList(Arg("/mnt/mmc"), 4) == nullptr ? 0 : 2;
            }),
            0);
}

TEST_F(Flat, AfterDeinitTheListsAreNotMadeAgain) {
  EXPECT_EQ(InChild([] {
              flm_deinit();
              if (flm_init() != 0) return 1;
              if (CBIFileListManager::GetFileList(Arg("/mnt/mmc"), 4) != nullptr) return 2;
              return CBIFileListManager::GetFileList(Arg("/opt/sd0"), 4) == nullptr ? 0 : 3;
            }),
            0);
}

TEST_F(Flat, DeinitReleasesScannedLists) {
  ScanFivePictures();
  EXPECT_EQ(InChild([] { return flm_deinit(); }), 0);
  EXPECT_EQ(InChild([] { return flm_deinit() + flm_deinit(); }), 0);
}

TEST_F(FlatBeforeInit, DeinitWithoutInitDoesNothing) {
  EXPECT_EQ(InChild([] { return flm_deinit(); }), 0);
}

}  // namespace
