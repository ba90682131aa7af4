// The paths that a catalogue writes: of files, of their companions, and of keys.
#include <gtest/gtest.h>

#include "dcf/CQDCFDir.h"
#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

constexpr int kUnknownSlot = -1;

DCFItem ItemNamed(const char* name) {
  DCFItem item = {};
  CQDCFDir dir;
  dir.SetFileName(&item, name);
  return item;
}

// A card with the folders CAMERA, 101ABCDE and 102PHOTO in the slots 0 to 2.
class CQDCFListPath : public testing::Test {
 protected:
  CQDCFListPath() {
    c.With({"DCIM/CAMERA/party at the lake.jpg", "DCIM/101ABCDE/QVX_0001.JPG",
            "DCIM/102PHOTO/QVX_0002.MP4"});
    c.ScanWithCamera();
  }
  std::string Full(int mode, int dirNumber, int fileNumber, int slot, const char* name) {
    c.list.SetMode(mode);
    char out[flm::kPathSize] = "untouched";
    const DCFItem item = ItemNamed(name);
    CQDCFList::GetFullPath(out, sizeof(out), dirNumber, fileNumber, slot, &item);
    return c.Relative(out);
  }
  std::string Object(int mode, int slot, char srw, char wav, char mpo) {
    c.list.SetMode(mode);
    char out[flm::kPathSize] = "untouched";
    DCFItem item = ItemNamed("QVX_0007.JPG");
    item.companionSrw = srw;
    item.companionWav = wav;
    item.companionMpo = mpo;
    c.list.GetObjectFullPath(out, sizeof(out), 101, 7, slot, &item);
    return c.Relative(out);
  }

  CardCatalogue c;
};

TEST_F(CQDCFListPath, AStillCardNamesFoldersAsTheyAreCalled) {
  EXPECT_EQ(Full(4, 101, 7, 1, "ABC_0001.MP4"), "DCIM/101ABCDE/ABC_0007.MP4");
  EXPECT_EQ(Full(4, 555, 7, 2, "ABC_0001.MP4"), "DCIM/102PHOTO/ABC_0007.MP4");
  EXPECT_EQ(Full(4, 99, 7, 0, "party at the lake.jpg"), "DCIM/CAMERA/party at the lake.jpg");
}

TEST_F(CQDCFListPath, AnUnknownSlotIsLookedUpByTheNumbers) {
  EXPECT_EQ(Full(4, 101, 1, kUnknownSlot, "ABC_0001.MP4"), "DCIM/101ABCDE/ABC_0001.MP4");
  EXPECT_EQ(Full(4, 99, 0, kUnknownSlot, "another name.jpg"), "DCIM/CAMERA/another name.jpg");
}

TEST_F(CQDCFListPath, AFolderThatIsNotHeldIsCalledPhoto) {
  EXPECT_EQ(Full(4, 101, 7, kUnknownSlot, "ABC_0001.MP4"), "DCIM/101PHOTO/ABC_0007.MP4");
  EXPECT_EQ(Full(4, 300, 1, kUnknownSlot, "ABC_0001.MP4"), "DCIM/300PHOTO/ABC_0001.MP4");
  EXPECT_EQ(Full(4, 99, 7, kUnknownSlot, "another name.jpg"), "DCIM/099PHOTO/another name.jpg");
}

TEST_F(CQDCFListPath, APlainStillCardAlwaysSaysPhotoAndJpg) {
  EXPECT_EQ(Full(0, 101, 7, 1, "ABC_0001.MP4"), "DCIM/101PHOTO/ABC_0007.JPG");
  EXPECT_EQ(Full(0, 101, 7, kUnknownSlot, "ABC_0001.MP4"), "DCIM/101PHOTO/ABC_0007.JPG");
  EXPECT_EQ(Full(0, 99, 7, 0, "party at the lake.png"), "DCIM/099PHOTO/party at the lake.png");
}

TEST_F(CQDCFListPath, AMovieCardAlwaysSaysVideoAndMp4) {
  for (int mode : {1, 2, 3, 5, -1}) {
    EXPECT_EQ(Full(mode, 101, 7, 1, "ABC_0001.AVI"), "VIDEO/101VIDEO/ABC_0007.MP4") << mode;
    EXPECT_EQ(Full(mode, 99, 7, 0, "party at the lake.avi"),
              "VIDEO/099VIDEO/party at the lake.avi");
  }
}

TEST_F(CQDCFListPath, WidthsAreMinimums) {
  EXPECT_EQ(Full(0, 5, 12345, 0, "ABC_0001.JPG"), "DCIM/005PHOTO/ABC_12345.JPG");
  EXPECT_EQ(Full(0, 1000, -1, 0, "ABC_0001.JPG"), "DCIM/1000PHOTO/ABC_-001.JPG");
}

TEST_F(CQDCFListPath, ASlotThatCannotExistIsSafe) {
  for (int slot : {-2147483647 - 1, -2, 998, 999, 100000, 2147483647}) {
    const std::string path = Full(4, 101, 1, slot, "ABC_0001.MP4");
    EXPECT_LT(path.size(), 128u);
  }
}

TEST_F(CQDCFListPath, APathIsCutAndTerminated) {
  const std::string whole = c.card.Path("DCIM/101ABCDE/ABC_0007.MP4");
  const DCFItem item = ItemNamed("ABC_0001.MP4");
  for (int size = 1; size <= 60; ++size) {
    std::string out(80, '#');
    CQDCFList::GetFullPath(&out[0], size, 101, 7, 1, &item);
    EXPECT_EQ(std::string(out.c_str()), whole.substr(0, size - 1));
    EXPECT_EQ(out.find_last_not_of('#'), std::strlen(out.c_str()));
  }
}

TEST_F(CQDCFListPath, WithoutRoomNothingIsWritten) {
  char out[4] = "##";
  const DCFItem item = ItemNamed("ABC_0001.MP4");
  CQDCFList::GetFullPath(out, 0, 101, 7, 1, &item);
  CQDCFList::GetFullPath(out, -1, 101, 7, 1, &item);
  CQDCFList::GetFullPath(nullptr, 128, 101, 7, 1, &item);
  EXPECT_STREQ(out, "##");
}

TEST_F(CQDCFListPath, WithoutAnItemNothingBreaks) {
  char out[flm::kPathSize] = "untouched";
  for (int mode : {0, 2, 4}) {
    c.list.SetMode(mode);
    CQDCFList::GetFullPath(out, sizeof(out), 101, 7, 1, nullptr);
    CQDCFList::GetFullPath(out, sizeof(out), 99, 7, kUnknownSlot, nullptr);
  }
  EXPECT_LT(std::strlen(out), sizeof(out));
  char object[flm::kPathSize] = "untouched";
  c.list.GetObjectFullPath(object, sizeof(object), 101, 7, 1, nullptr);
  EXPECT_STREQ(object, "untouched");
}

TEST_F(CQDCFListPath, CompanionsAreNamedByTheirLetters) {
  EXPECT_EQ(Object(4, 1, 'S', 0, 0), "DCIM/101ABCDE/QVX_0007.S  ");
  EXPECT_EQ(Object(4, 1, 0, 'W', 0), "DCIM/101ABCDE/QVX_0007. W ");
  EXPECT_EQ(Object(4, 1, 0, 0, 'M'), "DCIM/101ABCDE/QVX_0007.  M");
  EXPECT_EQ(Object(4, 1, 'S', 'W', 'M'), "DCIM/101ABCDE/QVX_0007.SWM");
  EXPECT_EQ(Object(4, 1, 'S', ' ', 'M'), "DCIM/101ABCDE/QVX_0007.S M");
}

TEST_F(CQDCFListPath, APlainStillCardNamesTheRealFolderOfCompanions) {
  EXPECT_EQ(Object(0, 1, 'S', 0, 0), "DCIM/101ABCDE/QVX_0007.S  ");
}

TEST_F(CQDCFListPath, CompanionsOfAMovieCardAreMp4) {
  for (int mode : {1, 2, 3}) {
    EXPECT_EQ(Object(mode, 1, 'S', 0, 0), "VIDEO/101ABCDE/QVX_0007.MP4") << mode;
  }
}

TEST_F(CQDCFListPath, AFileWithoutCompanionsLeavesTheObject) {
  for (int mode : {0, 2, 4}) EXPECT_EQ(Object(mode, 1, 0, 0, 0), kUntouched) << mode;
}

TEST_F(CQDCFListPath, ABlankIsALetterOfItsOwn) {
  EXPECT_EQ(Object(4, 1, ' ', 0, 0), "DCIM/101ABCDE/QVX_0007.   ");
}

TEST_F(CQDCFListPath, CompanionsOfASlotThatCannotExistAreSafe) {
  for (int slot : {-2147483647 - 1, -1, 998, 999, 2147483647}) {
    EXPECT_LT(Object(4, slot, 'S', 0, 0).size(), 128u) << slot;
    EXPECT_LT(Object(2, slot, 'S', 0, 0).size(), 128u) << slot;
  }
}

TEST_F(CQDCFListPath, CompanionsAreCutAndTerminated) {
  char out[8] = "#######";
  c.list.GetObjectFullPath(out, 5, 101, 1, 1, c.Find("DCIM/101ABCDE/QVX_0001.JPG"));
  EXPECT_STREQ(out, "#######") << "no companions";
  c.list.SetObject(c.Path("DCIM/101ABCDE/QVX_0001.JPG"), 202, true);
  c.list.GetObjectFullPath(out, 0, 101, 1, 1, c.Find("DCIM/101ABCDE/QVX_0001.JPG"));
  EXPECT_STREQ(out, "#######");
  c.list.GetObjectFullPath(out, 5, 101, 1, 1, c.Find("DCIM/101ABCDE/QVX_0001.JPG"));
  EXPECT_EQ(std::string(out), c.card.Root().substr(0, 4));
}

// Two folders; the file under the cursor lends its prefix and extension.
class CQDCFListKey : public testing::Test {
 protected:
  CQDCFListKey() {
    c.With({"DCIM/100PHOTO/QVX_0005.JPG", "DCIM/101ABCDE/ABC_0007.MP4"});
    c.SetCur("DCIM/100PHOTO/QVX_0005.JPG");
  }
  Step PathOf(int key, const std::string& text) {
    char out[flm::kPathSize] = "";
    text.copy(out, sizeof(out) - 1);
    const int result = c.list.GetKeyToURI(key, out, sizeof(out));
    return {result, c.Relative(out)};
  }
  std::string In(const char* relative) { return c.card.Path(relative); }

  CardCatalogue c;
};

// The slot stands in the place of the file number, the key's file part in that of the slot.
TEST_F(CQDCFListKey, TheSlotIsPrintedAndTheFilePartNamesTheFolder) {
  EXPECT_EQ(PathOf(10100000, In("DCIM/101ABCDE/ABC_0007.MP4")),
            (Step{0, "DCIM/100PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(PathOf(10000001, In("DCIM/100PHOTO/QVX_0005.JPG")),
            (Step{0, "DCIM/101ABCDE/QVX_0000.JPG"}));
}

TEST_F(CQDCFListKey, APlainStillCardPrintsTheFolderOfTheText) {
  c.list.SetMode(0);
  EXPECT_EQ(PathOf(10100000, In("DCIM/101ABCDE/ABC_0007.MP4")),
            (Step{0, "DCIM/101PHOTO/QVX_0001.JPG"}));
}

TEST_F(CQDCFListKey, ATextWithoutAKnownFolderIsRefused) {
  const std::string text = In("DCIM/300PHOTO/QVX_0005.JPG");
  EXPECT_EQ(PathOf(30000005, text), (Step{-4, "DCIM/300PHOTO/QVX_0005.JPG"}));
  EXPECT_EQ(PathOf(10000005, ""), (Step{-4, ""}));
  EXPECT_LT(c.list.GetKeyToURI(10000005, nullptr, 128), 0);
}

TEST_F(CQDCFListKey, AFolderWithoutAListIsRefused) {
  c.list.FreeMem();
  EXPECT_EQ(PathOf(10000005, In("DCIM/100PHOTO/QVX_0005.JPG")),
            (Step{-2, "DCIM/100PHOTO/QVX_0005.JPG"}));
}

TEST_F(CQDCFListKey, WithoutATableNothingIsFound) {
  c.list.Destroy();
  const Step step = PathOf(10000005, In("DCIM/100PHOTO/QVX_0005.JPG"));
  EXPECT_LT(step.result, 0);
  EXPECT_EQ(step.path, "DCIM/100PHOTO/QVX_0005.JPG");
}

TEST_F(CQDCFListKey, AnyKeyIsSafe) {
  for (int key : {-2147483647 - 1, -1, 0, 99999, 10009999, 2147483647}) {
    EXPECT_EQ(PathOf(key, In("DCIM/100PHOTO/QVX_0005.JPG")).result, 0) << key;
  }
  c.list.InitCursor();
  EXPECT_LE(PathOf(10000001, In("DCIM/100PHOTO/QVX_0005.JPG")).result, 0);
}

TEST_F(CQDCFListKey, ThePathIsCutToTheGivenSize) {
  Text text(In("DCIM/100PHOTO/QVX_0005.JPG"));
  EXPECT_EQ(c.list.GetKeyToURI(10000000, text, 5), 0);
  EXPECT_EQ(text.Now(), c.card.Root().substr(0, 4));
}

}  // namespace
}  // namespace flm_test
