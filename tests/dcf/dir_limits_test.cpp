// Where reading a folder ends: at 32000 files, at a pool without units, at paths that are too long,
// and when more companions wait than the buffer holds. And when a folder counts as sorted.
#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <string>

#include "tests/dcf/dir_fixture.h"
#include "tests/fsio/scoped_os_calls.h"
#include "tests/support/fake_folders.h"

namespace {

using flm_test::Arg;
using flm_test::Lines;

class DirLimits : public flm_test::DirOnCard {};

TEST_F(DirLimits, OneFileFitsBehind31999Others) {
  Put({"CAM_0001.JPG", "CAM_0002.JPG", "CAM_0003.JPG"});
  EXPECT_EQ(1, Scan(4, 31999));
  EXPECT_EQ((Lines{"1 CAM_0001.JPG"}), Items());
}

TEST_F(DirLimits, TwoFilesFitBehind31998Others) {
  Put({"CAM_0001.JPG", "CAM_0002.JPG", "CAM_0003.JPG"});
  EXPECT_EQ(2, Scan(4, 31998));
}

TEST_F(DirLimits, TheLimitIsLookedAtOnlyBehindAFile) {
  Put({"CAM_0001.JPG", "CAM_0002.JPG", "CAM_0003.JPG"});
  EXPECT_EQ(1, Scan(4, 32000));
  EXPECT_EQ(1, Scan(4, 40000));
}

TEST_F(DirLimits, ARefusedNameDoesNotEndTheReading) {
  Put({"CAM_0001.TXT", "CAM_0002.JPG"});
  EXPECT_EQ(1, Scan(4, 32000));
  EXPECT_EQ((Lines{"2 CAM_0002.JPG"}), Items());
}

TEST_F(DirLimits, AWaitingCompanionEndsTheReadingToo) {
  Put({"CAM_0001.JPG", "CAM_0001.SRW", "CAM_0002.JPG"});
  EXPECT_EQ(1, Scan(4, 31999));
  EXPECT_EQ((Lines{"1 CAM_0001.JPG"}), Items());
}

TEST_F(DirLimits, ANegativeNumberOfOthersIsNoLimit) {
  Put({"CAM_0001.JPG", "CAM_0002.JPG"});
  EXPECT_EQ(2, Scan(4, -1));
  EXPECT_EQ(2, Scan(4, INT_MIN));
}

TEST_F(DirLimits, TheLargestNumberOfOthersEndsTheReadingBehindOneFile) {
  Put({"CAM_0001.JPG", "CAM_0002.JPG"});
  EXPECT_EQ(1, Scan(4, INT_MAX));
}

class DirOnASmallPool : public flm_test::DirOnCard {
 protected:
  DirOnASmallPool() : DirOnCard(100, "100PHOTO", 2) {}
};

TEST_F(DirOnASmallPool, FilesWithoutAUnitAreCountedButNotHeld) {
  Put({"CAM_0001.JPG", "CAM_0002.JPG", "CAM_0003.JPG", "CAM_0004.JPG"});
  EXPECT_EQ(4, Scan());
  EXPECT_EQ((Lines{"1 CAM_0001.JPG", "2 CAM_0002.JPG"}), Items());
  EXPECT_EQ(2, dir_.GetCount());
  EXPECT_TRUE(dir_.GetListup());
}

TEST_F(DirOnASmallPool, WithoutAPoolEveryFileIsCountedAndNoneHeld) {
  dir_.SetMemMgr(nullptr);
  Put({"CAM_0001.JPG", "CAM_0002.JPG"});
  EXPECT_EQ(2, Scan());
  EXPECT_EQ(Lines{}, Items());
}

// Hands the scan a folder of as many names as a test wants, without making files.
class ManyNames {
 public:
  // `count` names; name i is made by `name`. All pictures that companions ask for are there.
  ManyNames(int count, void (*name)(int i, char* out)) {
    count_ = count;
    name_ = name;
    flm_test::FakeFolders::Install([](const std::string&, std::vector<std::string>& names) {
      char made[flm::kEntryNameSize];
      for (int i = 0; i < count_; ++i) {
        name_(i, made);
        names.push_back(made);
      }
      return true;
    });
    flm::Os().Stat = [](const char*, struct stat*) { return 0; };
  }

 private:
  flm_test::ScopedOsCalls os_;
  inline static int count_ = 0;
  inline static void (*name_)(int, char*) = nullptr;
};

class DirOfMany : public flm_test::DirOnCard {
 protected:
  DirOfMany() : DirOnCard(100, "100PHOTO", 32000) {}
  int CountOf(char letter) const {
    int count = 0;
    for (const DCFItem* item = dir_.GetFirstItem(); item != nullptr; item = item->next) {
      if (item->companionSrw == letter) ++count;
    }
    return count;
  }
};

TEST_F(DirOfMany, NoMoreThan32000FilesAreRead) {
  const ManyNames names(32005, [](int i, char* out) {
    std::snprintf(out, 32, "%04d%04d.JPG", i / 10000, i % 10000);
  });
  EXPECT_EQ(32000, Scan());
  EXPECT_EQ(32000, dir_.GetCount());
}

// One picture and one raw file for every number: more wait than the buffer's 5461.
TEST_F(DirOfMany, CompanionsBeyondTheBufferJoinTheirPicturesAllTheSame) {
  const ManyNames names(20000, [](int i, char* out) {
    std::snprintf(out, 32, "CAM_%04d.%s", i / 2, i % 2 == 0 ? "JPG" : "SRW");
  });
  EXPECT_EQ(10000, Scan());
  EXPECT_EQ(10000, CountOf('S'));
}

TEST_F(DirOfMany, CompanionsBeyondTheBufferAreHandledAsTheWaitingOnes) {
  // No picture is listed, so raw files become items and voice memos are dropped.
  const ManyNames raw(6000, [](int i, char* out) { std::snprintf(out, 32, "CAM_%04d.SRW", i); });
  EXPECT_EQ(6000, Scan());
  EXPECT_EQ(6000, dir_.GetCount());
  const ManyNames memos(6000, [](int i, char* out) { std::snprintf(out, 32, "CAM_%04d.WAV", i); });
  EXPECT_EQ(0, Scan());
  EXPECT_EQ(0, dir_.GetCount());
}

TEST_F(DirOfMany, ExactlyTheBuffersNumberOfCompanionsWaits) {
  // The 5461 waiting ones come behind the later ones, which are handled at once.
  const ManyNames raw(5463, [](int i, char* out) { std::snprintf(out, 32, "CAM_%04d.SRW", i); });
  EXPECT_EQ(5463, Scan());
  EXPECT_EQ(5461, dir_.GetFirstItem()->fileNumber);
  EXPECT_EQ(5460, dir_.GetLastItem()->fileNumber);
}

// A folder whose whole path has the wanted length; a path has room for 98 characters.
class DeepFolder : public DirLimits {
 protected:
  int ScanAt(size_t length, const Lines& names) {
    const size_t below = card_.Root().size() + 1;
    const std::string sub(length - below - std::string("/DCIM/100PHOTO").size(), 'r');
    for (const std::string& name : names) card_.MakeFile(sub + "/DCIM/100PHOTO/" + name);
    return dir_.Listup(Arg(card_.Path(sub)), 4, 100, 0);
  }
};

TEST_F(DeepFolder, OfTheLongestPathIsRead) { EXPECT_EQ(1, ScanAt(98, {"CAM_0001.JPG"})); }

TEST_F(DeepFolder, OfALongerPathListsAsEmpty) {
  EXPECT_EQ(0, ScanAt(99, {"CAM_0001.JPG"}));
  EXPECT_TRUE(dir_.GetListup());
  EXPECT_EQ(0, dir_.Listup(Arg(std::string(5000, 'r')), 4, 100, 0));
}

TEST_F(DeepFolder, HidesAPictureFromItsCompanionWhenThePathOfThePictureIsCut) {
  EXPECT_EQ(2, ScanAt(86, {"CAM_0001.JPG", "CAM_0001.SRW"}));
  EXPECT_EQ((Lines{"1 CAM_0001.JPG", "1 CAM_0001.SRW"}), Items());
}

TEST_F(DeepFolder, ShowsThePictureWhenItsPathJustFits) {
  EXPECT_EQ(1, ScanAt(85, {"CAM_0001.JPG", "CAM_0001.SRW"}));
  EXPECT_EQ((Lines{"1 CAM_0001.JPG +S"}), Items());
}

TEST_F(DirLimits, ANameOf128CharactersOrMoreIsNoFile) {
  Put({std::string(128, 'n'), std::string(255, 'n')});
  EXPECT_EQ(0, Scan());
  Call(99, "CAMERA");
  Put({std::string(128, 'n'), std::string(255, 'n')});
  EXPECT_EQ(0, Scan());
}

TEST_F(DirLimits, SortingOrdersWhatWasAdded) {
  Add(3, "CAM_0003.JPG");
  Add(1, "CAM_0001.JPG");
  dir_.Sort();
  EXPECT_EQ((Lines{"1 CAM_0001.JPG", "3 CAM_0003.JPG"}), Items());
}

TEST_F(DirLimits, ASortedDirectoryIsNotSortedAgain) {
  Add(3, "CAM_0003.JPG");
  dir_.Sort();
  Add(1, "CAM_0001.JPG");
  dir_.Sort();
  EXPECT_EQ((Lines{"3 CAM_0003.JPG", "1 CAM_0001.JPG"}), Items());
}

TEST_F(DirLimits, AScannedDirectoryCountsAsSorted) {
  Put({"CAM_0003.JPG"});
  Scan();
  Add(1, "CAM_0001.JPG");
  dir_.Sort();
  EXPECT_EQ((Lines{"3 CAM_0003.JPG", "1 CAM_0001.JPG"}), Items());
}

TEST_F(DirLimits, SortingWithoutAListIsHarmlessAndSortsLater) {
  dir_.Sort();
  Add(3, "CAM_0003.JPG");
  Add(1, "CAM_0001.JPG");
  dir_.Sort();
  EXPECT_EQ((Lines{"1 CAM_0001.JPG", "3 CAM_0003.JPG"}), Items());
}

TEST_F(DirLimits, FreeMemDoesNotChangeWhetherTheDirectoryIsSorted) {
  Add(3, "CAM_0003.JPG");
  dir_.Sort();
  dir_.FreeMem();
  Add(3, "CAM_0003.JPG");
  Add(1, "CAM_0001.JPG");
  dir_.Sort();
  EXPECT_EQ((Lines{"3 CAM_0003.JPG", "1 CAM_0001.JPG"}), Items());
}

}  // namespace
