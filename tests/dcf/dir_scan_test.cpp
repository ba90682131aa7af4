// Reading a numbered folder: which files become items, with which numbers and companions.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "tests/dcf/dir_fixture.h"
#include "tests/fsio/scoped_os_calls.h"

namespace {

using flm_test::Arg;
using flm_test::Lines;

class DirScan : public flm_test::DirOnCard {};

TEST_F(DirScan, GivesTheFilesInTheOrderOfTheirNumbers) {
  Put({"CAM_0010.JPG", "QVX_0002.JPG", "CAM_0002.MP4"});
  EXPECT_EQ(3, Scan());
  EXPECT_EQ((Lines{"2 QVX_0002.JPG", "2 CAM_0002.MP4", "10 CAM_0010.JPG"}), Items());
}

TEST_F(DirScan, TakesEveryKindOfMainFileAndSound) {
  Put({"CAM_0001.JPG", "CAM_0002.MP4", "CAM_0003.AVI", "CAM_0004.3GP", "CAM_0005.MP3"});
  EXPECT_EQ(5, Scan());
}

TEST_F(DirScan, PassesOverNamesThatAreNone) {
  Put({"CAM_0001.JPG", "CAM_0002.TXT", "CAM_003.JPG", "CAM_0004.JPEG", "CAM_A005.JPG", "THUMBS.DB",
       ".hidden_.JPG"});
  EXPECT_EQ(1, Scan());
  EXPECT_EQ((Lines{"1 CAM_0001.JPG"}), Items());
}

TEST_F(DirScan, PassesOverANameThatBeginsWithAPoint) {
  Put({".AM_0001.JPG"});
  EXPECT_EQ(0, Scan());
}

TEST_F(DirScan, StoresNamesInUpperCase) {
  Put({"cam_0001.jpg"});
  EXPECT_EQ(1, Scan());
  EXPECT_EQ((Lines{"1 CAM_0001.JPG"}), Items());
}

TEST_F(DirScan, TakesTheNumbers0To9999) {
  Put({"CAM_0000.JPG", "CAM_9999.JPG"});
  EXPECT_EQ(2, Scan());
  EXPECT_EQ((Lines{"0 CAM_0000.JPG", "9999 CAM_9999.JPG"}), Items());
}

TEST_F(DirScan, FillsItsItems) {
  Put({"HDV_0042.MP4"});
  ASSERT_EQ(1, Scan());
  const DCFItem* const item = dir_.GetFirstItem();
  EXPECT_EQ(100, item->dirNumber);
  EXPECT_EQ("HDV_", std::string(item->prefixChars, 4));
  EXPECT_EQ("MP4", std::string(item->extChars, 3));
  EXPECT_EQ(0x90, item->itemBits);
  EXPECT_EQ(0, item->companionSrw);
}

TEST_F(DirScan, ReadsNoTimes) {
  card_.MakeFile("DCIM/100PHOTO/CAM_0001.JPG", "x", 1500000000);
  ASSERT_EQ(1, Scan());
  EXPECT_EQ(0U, dir_.GetFirstItem()->fileTime);
}

TEST_F(DirScan, AsksTheSystemForNoStatusOfAMainFile) {
  const flm_test::ScopedOsCalls os;
  static int asked;
  asked = 0;
  flm::Os().Stat = [](const char* path, struct stat* status) {
    ++asked;
    return stat(path, status);
  };
  Put({"CAM_0001.JPG", "CAM_0002.MP4", "CAM_0002.SRW"});
  EXPECT_EQ(3, Scan());
  EXPECT_EQ(1, asked) << "one question for the one companion";
}

TEST_F(DirScan, MakesAnItemOfEveryFileOfOneNumber) {
  Put({"CAM_0001.JPG", "CAM_0001.MP4", "HDV_0001.AVI"});
  EXPECT_EQ(3, Scan());
  EXPECT_EQ((Lines{"1 HDV_0001.AVI", "1 CAM_0001.JPG", "1 CAM_0001.MP4"}), Items());
}

TEST_F(DirScan, ACompanionJoinsItsPicture) {
  Put({"CAM_0005.JPG", "CAM_0005.SRW", "CAM_0005.WAV", "CAM_0005.MPO", "CAM_0006.JPG"});
  EXPECT_EQ(2, Scan());
  EXPECT_EQ((Lines{"5 CAM_0005.JPG +SWM", "6 CAM_0006.JPG"}), Items());
}

TEST_F(DirScan, ACompanionWithoutItsPictureIsAFileOfItsOwn) {
  Put({"CAM_0005.JPG", "CAM_0005.WAV", "CAM_0007.WAV"});
  EXPECT_EQ(2, Scan());
  EXPECT_EQ((Lines{"5 CAM_0005.JPG +W", "7 CAM_0007.WAV"}), Items());
}

TEST_F(DirScan, ACompanionBehindManyFilesOfItsNumberIsStillAFileOfItsOwn) {
  Put({"CAM_0000.JPG", "CAM_0000.WAV"});
  for (char first = 'A'; first <= 'J'; ++first) {
    for (char second = 'A'; second <= 'J'; ++second) {
      Put({std::string{first, second} + "X_0001.JPG"});
    }
  }
  Put({"QVX_0001.SRW"});
  EXPECT_EQ(102, Scan()) << "101 pictures and the companion";
  EXPECT_EQ("0 CAM_0000.JPG +W", Items().front());
}

TEST_F(DirScan, EveryKindOfCompanionMayStandAlone) {
  Put({"CAM_0001.SRW", "CAM_0002.WAV", "CAM_0003.MPO"});
  EXPECT_EQ(3, Scan());
  EXPECT_EQ((Lines{"1 CAM_0001.SRW", "2 CAM_0002.WAV", "3 CAM_0003.MPO"}), Items());
}

TEST_F(DirScan, AMovieOfTheSameNameIsNoPicture) {
  Put({"CAM_0001.MP4", "CAM_0001.WAV"});
  EXPECT_EQ(2, Scan());
  EXPECT_EQ((Lines{"1 CAM_0001.MP4", "1 CAM_0001.WAV"}), Items());
}

TEST_F(DirScan, APictureOfAnotherPrefixIsNotTheCompanionsPicture) {
  Put({"CAM_0001.JPG", "QVX_0001.SRW"});
  EXPECT_EQ(2, Scan());
  EXPECT_EQ((Lines{"1 CAM_0001.JPG", "1 QVX_0001.SRW"}), Items());
}

TEST_F(DirScan, ACompanionIsMarkedOnTheFirstItemOfItsNumber) {
  Put({"HDV_0003.MP4", "CAM_0003.JPG", "CAM_0003.SRW"});
  EXPECT_EQ(2, Scan());
  EXPECT_EQ((Lines{"3 CAM_0003.JPG +S", "3 HDV_0003.MP4"}), Items());
}

TEST_F(DirScan, ACompanionIsMarkedOnAnEarlierItemOfAnotherExtension) {
  Put({"CAM_0003.AVI", "CAM_0003.JPG", "CAM_0003.SRW"});
  EXPECT_EQ(2, Scan());
  EXPECT_EQ((Lines{"3 CAM_0003.AVI +S", "3 CAM_0003.JPG"}), Items());
}

TEST_F(DirScan, ACompanionWithALowerCasePictureIsTakenByTheNamesOnTheCard) {
  // The picture is asked for in upper case, so on a card that tells cases apart it is not there.
  Put({"cam_0001.jpg", "CAM_0001.SRW"});
  EXPECT_EQ(2, Scan());
}

TEST_F(DirScan, AFolderNamedLikeAPictureIsTakenForOne) {
  card_.MakeDir("DCIM/100PHOTO/CAM_0001.JPG");
  EXPECT_EQ(1, Scan());
}

// The pictures are on the card, so that companions wait for them, but the listing does not hold
// them: as when a picture is copied onto the card between the listing and the check for it.
class DirScanWithoutPictures : public DirScan {
 protected:
  DirScanWithoutPictures() {
    flm::Os().Readdir = [](DIR* dir) {
      dirent* entry = readdir(dir);
      while (entry != nullptr && std::strstr(entry->d_name, ".JPG") != nullptr)
        entry = readdir(dir);
      return entry;
    };
  }
  flm_test::ScopedOsCalls os_;
};

TEST_F(DirScanWithoutPictures, AVoiceMemoWithoutItsMainFileIsDropped) {
  Put({"CAM_0001.JPG", "CAM_0001.WAV"});
  EXPECT_EQ(0, Scan());
  EXPECT_EQ(Lines{}, Items());
}

TEST_F(DirScanWithoutPictures, ARawOrMultiPictureFileBecomesAnItemBehindTheOthers) {
  Put({"CAM_0001.JPG", "CAM_0001.SRW", "CAM_0002.JPG", "CAM_0002.MPO", "CAM_0003.MP4"});
  EXPECT_EQ(3, Scan());
  EXPECT_EQ((Lines{"3 CAM_0003.MP4", "1 CAM_0001.SRW", "2 CAM_0002.MPO"}), Items());
}

TEST_F(DirScanWithoutPictures, TheNextCompanionJoinsTheOneThatBecameAnItem) {
  Put({"CAM_0001.JPG", "CAM_0001.MPO", "CAM_0001.SRW", "CAM_0001.WAV"});
  EXPECT_EQ(1, Scan());
  EXPECT_EQ((Lines{"1 CAM_0001.MPO +SW"}), Items());
}

TEST_F(DirScanWithoutPictures, ACompanionJoinsAnyMainFileOfItsNumber) {
  Put({"CAM_0001.JPG", "CAM_0001.WAV", "HDV_0001.MP4"});
  EXPECT_EQ(1, Scan());
  EXPECT_EQ((Lines{"1 HDV_0001.MP4 +W"}), Items());
}

class DirScanTree : public DirScan, public testing::WithParamInterface<int> {};

TEST_P(DirScanTree, OfTheModeIsRead) {
  card_.MakeFile("DCIM/100PHOTO/CAM_0001.JPG");
  card_.MakeFile("VIDEO/100PHOTO/HDV_0002.MP4");
  EXPECT_EQ(1, Scan(GetParam()));
  const bool still = GetParam() == 0 || GetParam() == 4;
  EXPECT_EQ((Lines{still ? "1 CAM_0001.JPG" : "2 HDV_0002.MP4"}), Items());
}

TEST_P(DirScanTree, GivesEveryFileWhateverItsPrefix) {
  for (const char* tree : {"DCIM", "VIDEO"}) {
    for (const char* name : {"CAM_0001.JPG", "HDV_0002.MP4", "SDA_0003.MP4", "QVX_0004.JPG"}) {
      card_.MakeFile(std::string(tree) + "/100PHOTO/" + name);
    }
  }
  EXPECT_EQ(4, Scan(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Modes, DirScanTree, testing::Values(0, 1, 2, 3, 4, 5, 10, 20, -1, 1000));

TEST_F(DirScan, MarksTheDirectoryListed) {
  Put({"CAM_0001.JPG"});
  EXPECT_FALSE(dir_.GetListup());
  Scan();
  EXPECT_TRUE(dir_.GetListup());
}

TEST_F(DirScan, AFolderThatCannotBeOpenedListsAsEmpty) {
  EXPECT_EQ(0, Scan());
  EXPECT_TRUE(dir_.GetListup());
  EXPECT_EQ(0, dir_.IsEmpty());
  EXPECT_EQ(0, dir_.GetCount());
}

TEST_F(DirScan, AFileNamedLikeTheFolderListsAsEmpty) {
  card_.MakeFile("DCIM/100PHOTO");
  EXPECT_EQ(0, Scan());
  EXPECT_TRUE(dir_.GetListup());
  EXPECT_EQ(Lines{}, Items());
}

TEST_F(DirScan, AnEmptyFolderListsAsEmpty) {
  card_.MakeDir("DCIM/100PHOTO");
  EXPECT_EQ(0, Scan());
  EXPECT_TRUE(dir_.GetListup());
}

TEST_F(DirScan, AgainStartsAnewAndGivesTheOldItemsBack) {
  Put({"CAM_0001.JPG", "CAM_0002.JPG"});
  Scan();
  dir_.SetItemBit(1, 5, true);
  card_.Remove("DCIM/100PHOTO/CAM_0002.JPG");
  EXPECT_EQ(1, Scan());
  EXPECT_EQ((Lines{"1 CAM_0001.JPG"}), Items());
  EXPECT_FALSE(dir_.GetItemBit(1, 5));
  EXPECT_EQ(1, pool_.FindEmptyBlock());
}

TEST_F(DirScan, AgainWithoutTheFolderForgetsTheItems) {
  Put({"CAM_0001.JPG"});
  Scan();
  card_.Remove("DCIM");
  EXPECT_EQ(0, Scan());
  EXPECT_EQ(Lines{}, Items());
  EXPECT_EQ(0, pool_.FindEmptyBlock());
}

TEST_F(DirScan, TheDirectoryNumberThatIsHandedInIsNotUsed) {
  Put({"CAM_0001.JPG"});
  EXPECT_EQ(1, dir_.Listup(Arg(card_.Root()), 4, 555, 0));
  EXPECT_EQ(100, dir_.GetDnum());
  EXPECT_EQ(100, dir_.GetFirstItem()->dirNumber);
}

TEST_F(DirScan, LeavesNothingOpen) {
  Put({"CAM_0001.JPG", "CAM_0001.SRW"});
  const int before = flm_test::FdCount();
  Scan();
  Scan();
  EXPECT_EQ(before, flm_test::FdCount());
}

TEST_F(DirScan, LeavesTheCardAsItWas) {
  Put({"cam_0001.jpg", "CAM_0001.SRW", "other.txt"});
  const Lines before = card_.Tree();
  Scan();
  EXPECT_EQ(before, card_.Tree());
}

}  // namespace
