// Item bits and info bytes of the files of a catalogue.
#include <gtest/gtest.h>

#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

constexpr char kA1[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kA2[] = "DCIM/100PHOTO/QVX_0002.JPG";
constexpr char kMovie[] = "DCIM/105ABCDE/QVX_0003.MP4";
constexpr char kMissing[] = "DCIM/100PHOTO/QVX_0009.JPG";
constexpr char kNoFolder[] = "DCIM/300PHOTO/QVX_0001.JPG";

class CQDCFListMarks : public testing::Test {
 protected:
  CQDCFListMarks() { c.With({kA1, kA2, kMovie}); }
  int SetInfo(const char* file, int byte, unsigned char value) {
    return c.list.SetCustomInfo(c.Path(file), byte, value);
  }

  CardCatalogue c;
};

TEST_F(CQDCFListMarks, AMarkIsSetAndTakenAway) {
  for (int bit = 4; bit < 8; ++bit) {
    EXPECT_EQ(c.list.SetCustomBit(c.Path(kA2), bit, true), 0);
    EXPECT_TRUE(c.Bit(kA2, bit));
    EXPECT_EQ(c.list.GetCustomBitCount(bit), 1);
    EXPECT_EQ(c.list.SetCustomBit(c.Path(kA2), bit, false), 0);
    EXPECT_FALSE(c.Bit(kA2, bit));
  }
}

TEST_F(CQDCFListMarks, AMarkTouchesNothingElse) {
  c.SetBit(kA2, 5);
  EXPECT_FALSE(c.Bit(kA1, 5));
  EXPECT_FALSE(c.Bit(kMovie, 5));
  for (int bit : {1, 2, 3, 4, 6, 7}) EXPECT_FALSE(c.Bit(kA2, bit)) << bit;
  EXPECT_TRUE(c.Bit(kA2, 0)) << "the file stays enabled";
}

TEST_F(CQDCFListMarks, AFileThatIsNotHeldTakesNoMark) {
  EXPECT_EQ(c.SetBit(kMissing, 5), -1);
  EXPECT_EQ(c.SetBit(kNoFolder, 5), -1);
  EXPECT_EQ(c.list.SetCustomBit(nullptr, 5, true), -1);
  EXPECT_EQ(c.list.SetCustomBit(Arg(""), 5, true), -1);
  EXPECT_EQ(c.list.GetCustomBitCount(5), 0);
}

TEST_F(CQDCFListMarks, AFileThatIsNotHeldHasNoMark) {
  c.list.SetCustomBitAll(5, true);
  EXPECT_FALSE(c.Bit(kMissing, 5));
  EXPECT_FALSE(c.Bit(kNoFolder, 5));
  EXPECT_FALSE(c.list.GetCustomBit(nullptr, 5));
  EXPECT_FALSE(c.list.GetCustomBit(Arg(""), 5));
}

TEST_F(CQDCFListMarks, AllFilesAreMarkedTogether) {
  EXPECT_EQ(c.list.SetCustomBitAll(4, true), 0);
  EXPECT_EQ(c.list.GetCustomBitCount(4), 3);
  EXPECT_EQ(c.list.GetCustomBitCount(5), 0);
  EXPECT_EQ(c.list.SetCustomBitAll(4, false), 0);
  EXPECT_EQ(c.list.GetCustomBitCount(4), 0);
  EXPECT_EQ(c.list.GetCustomBitCount(0), 3);
}

TEST_F(CQDCFListMarks, MarksThatDoNotExistChangeNothing) {
  for (int bit : {-2147483647 - 1, -1, 8, 100, 2147483647}) {
    c.SetBit(kA1, bit);
    c.list.SetCustomBitAll(bit, true);
    EXPECT_FALSE(c.Bit(kA1, bit));
  }
  for (int bit = 1; bit < 8; ++bit) EXPECT_EQ(c.list.GetCustomBitCount(bit), 0) << bit;
  for (int byte : {2, 13, 14, 15}) EXPECT_EQ(c.Info(kA1, byte), 0) << byte;
}

TEST_F(CQDCFListMarks, FilesOfOneNumberAreMarkedApart) {
  const Names files = {"DCIM/105ABCDE/QVX_0007.JPG", "DCIM/105ABCDE/QVX_0007.MP4",
                       "DCIM/105ABCDE/XYZ_0007.JPG"};
  c.With(files);
  for (const std::string& file : files) {
    EXPECT_EQ(c.SetBit(file, 5), 0);
    for (const std::string& other : files) EXPECT_EQ(c.Bit(other, 5), other == file);
    c.list.SetCustomBitAll(5, false);
  }
}

TEST_F(CQDCFListMarks, FilesOfTheCameraFolderAreMarkedApart) {
  const Names free = {"DCIM/CAMERA/another party.jpg", "DCIM/CAMERA/party at the lake.jpg"};
  c.With(free);
  c.ScanWithCamera();
  EXPECT_EQ(c.SetBit(free[1], 5), 0);
  EXPECT_FALSE(c.Bit(free[0], 5));
  EXPECT_TRUE(c.Bit(free[1], 5));
}

// The current file answers for every path with the numbers of the cursor.
TEST_F(CQDCFListMarks, TheCurrentFileAnswersForItsNumbers) {
  c.SetBit(kA2, 5);
  SetInfo(kA2, 14, 9);
  c.SetCur(kA2);
  EXPECT_TRUE(c.Bit("DCIM/100XXXXX/ABC_0002.MP4", 5));
  EXPECT_EQ(c.Info("DCIM/100XXXXX/ABC_0002.MP4", 14), 9);
  c.list.InitCursor();
  EXPECT_FALSE(c.Bit("DCIM/100XXXXX/ABC_0002.MP4", 5));
  EXPECT_EQ(c.Info("DCIM/100XXXXX/ABC_0002.MP4", 14), 255);
}

TEST_F(CQDCFListMarks, AnUnsetCursorAnswersForNothing) {
  c.list.InitCursor();
  EXPECT_FALSE(c.list.GetCustomBit(Arg("x"), 0));
  EXPECT_EQ(c.list.GetCustomInfo(Arg("x"), 14), 255);
}

TEST_F(CQDCFListMarks, TheBytesOfAPictureAreStored) {
  for (int byte : {2, 13, 14, 15}) {
    EXPECT_EQ(SetInfo(kA2, byte, 200), 0) << byte;
    EXPECT_EQ(c.Info(kA2, byte), 200) << byte;
    EXPECT_EQ(c.Info(kA1, byte), 0) << byte;
  }
}

TEST_F(CQDCFListMarks, PrintBytesOfAMovieAreRefused) {
  EXPECT_EQ(SetInfo(kMovie, 2, 1), -200);
  EXPECT_EQ(SetInfo(kMovie, 14, 1), -201);
  EXPECT_EQ(SetInfo(kMovie, 15, 1), -202);
  for (int byte : {2, 14, 15}) EXPECT_EQ(c.Info(kMovie, byte), 0) << byte;
}

TEST_F(CQDCFListMarks, OtherBytesOfAMovieAreStored) {
  EXPECT_EQ(SetInfo(kMovie, 13, 7), 0);
  EXPECT_EQ(c.Info(kMovie, 13), 7);
}

TEST_F(CQDCFListMarks, AFileThatIsNotHeldTakesNoByte) {
  EXPECT_EQ(SetInfo(kMissing, 14, 1), -1);
  EXPECT_EQ(SetInfo("DCIM/100PHOTO/QVX_0001.MP4", 14, 1), -1) << "not found before the kind";
  EXPECT_EQ(SetInfo(kNoFolder, 14, 1), -1);
  EXPECT_EQ(c.list.SetCustomInfo(nullptr, 14, 1), -1);
  EXPECT_EQ(c.list.SetCustomInfo(Arg(""), 14, 1), -1);
  EXPECT_EQ(c.Info(kA1, 14), 0);
}

TEST_F(CQDCFListMarks, AFolderThatIsNotHeldReadsAs255) {
  EXPECT_EQ(c.Info(kNoFolder, 14), 255);
  EXPECT_EQ(c.list.GetCustomInfo(nullptr, 14), 255);
  EXPECT_EQ(c.list.GetCustomInfo(Arg(""), 14), 255);
}

TEST_F(CQDCFListMarks, AFileThatIsNotHeldReadsAs0) {
  c.list.SetCustomInfoAll(14, 3);
  EXPECT_EQ(c.Info(kMissing, 14), 0);
}

TEST_F(CQDCFListMarks, ANegativeFileNumberReadsAs255) {
  DCFItem* item = c.Find(kA1);
  ASSERT_NE(item, nullptr);
  c.SetCur(kA1);
  item->fileNumber = -5;
  EXPECT_EQ(c.Info(kA1, 14), 255);
}

TEST_F(CQDCFListMarks, BytesOutsideTheRecordChangeNothing) {
  for (int byte : {-2147483647 - 1, -1, 200, 4096, 2147483647}) {
    SetInfo(kA1, byte, 77);
    c.list.SetCustomInfoAll(byte, 77);
    EXPECT_EQ(c.Info(kA1, byte), 0) << byte;
  }
  EXPECT_EQ(c.Held().size(), 3u);
}

TEST_F(CQDCFListMarks, PrintBytesOfAllPicturesAreSetTogether) {
  for (int byte : {2, 14, 15}) {
    EXPECT_EQ(c.list.SetCustomInfoAll(byte, 6), 0);
    EXPECT_EQ(c.Info(kA1, byte), 6) << byte;
    EXPECT_EQ(c.Info(kA2, byte), 6) << byte;
    EXPECT_EQ(c.Info(kMovie, byte), 0) << byte;
  }
}

TEST_F(CQDCFListMarks, OtherBytesOfAllFilesAreSetTogether) {
  EXPECT_EQ(c.list.SetCustomInfoAll(13, 6), 0);
  for (const char* file : {kA1, kA2, kMovie}) EXPECT_EQ(c.Info(file, 13), 6) << file;
}

TEST(CQDCFListMarksNothing, WithoutAScanNothingIsMarked) {
  CardCatalogue c;
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(c.SetBit(kA1, 5), -1);
    EXPECT_FALSE(c.Bit(kA1, 5));
    c.list.SetCustomBitAll(5, true);
    EXPECT_EQ(c.list.GetCustomBitCount(5), 0);
    EXPECT_EQ(c.list.SetCustomInfo(c.Path(kA1), 14, 1), -1);
    EXPECT_EQ(c.Info(kA1, 14), 255);
    c.list.SetCustomInfoAll(14, 1);
    c.list.Destroy();
  }
}

}  // namespace
}  // namespace flm_test
