// Reading the "CAMERA" folder, whose files have free names and running numbers.
#include <gtest/gtest.h>

#include <string>

#include "tests/dcf/dir_fixture.h"

namespace {

using flm_test::Lines;

class CameraScan : public flm_test::DirOnCard {
 protected:
  CameraScan() : DirOnCard(99, "CAMERA") {}
};

TEST_F(CameraScan, NumbersFilesFromZeroInTheirOrder) {
  Put({"a picture.jpg", "b picture.jpg", "c picture.jpg"});
  EXPECT_EQ(3, Scan());
  EXPECT_EQ((Lines{"0 a picture.jpg", "1 b picture.jpg", "2 c picture.jpg"}), Items());
}

TEST_F(CameraScan, TakesAnyExtension) {
  Put({"1 document.txt", "2 no extension", "3 picture.JPEG", "4 sound.MP3.."});
  EXPECT_EQ(4, Scan());
}

TEST_F(CameraScan, TakesNamesOf12To40Characters) {
  Put({"eleven_.txt", "twelve__.txt", std::string(40, 'n'), std::string(41, 'o')});
  EXPECT_EQ(2, Scan());
  EXPECT_EQ((Lines{"0 " + std::string(40, 'n'), "1 TWELVE__.TXT"}), Items());
}

TEST_F(CameraScan, UpperCasesOnlyNamesOfTwelveCharacters) {
  Put({"holidays.jpg", "in_rome_.jpeg"});
  EXPECT_EQ(2, Scan());
  const Lines items = Items();
  ASSERT_EQ(2U, items.size());
  EXPECT_EQ("0 HOLIDAYS.JPG", items[0]);
  EXPECT_EQ("1 in_rome_.jpeg", items[1]);
}

TEST_F(CameraScan, PassesOverNamesThatBeginWithAPointWithoutCountingThem) {
  Put({".hidden picture.jpg", "a picture.jpg", "short.jpg", "visible.picture"});
  EXPECT_EQ(2, Scan());
  EXPECT_EQ((Lines{"0 a picture.jpg", "1 visible.picture"}), Items());
}

TEST_F(CameraScan, GivesTheItemsTheNumberOfTheFolder) {
  Put({"a picture.jpg"});
  ASSERT_EQ(1, Scan());
  EXPECT_EQ(99, dir_.GetFirstItem()->dirNumber);
  EXPECT_EQ("a pi", std::string(dir_.GetFirstItem()->prefixChars, 4));
  EXPECT_EQ("jpg", std::string(dir_.GetFirstItem()->extChars, 3));
}

TEST_F(CameraScan, ReadsEveryFolderWhoseNameBeginsSo) {
  Call(99, "CAMERA01");
  Put({"a picture.jpg"});
  EXPECT_EQ(1, Scan());
}

TEST_F(CameraScan, ReadsAFolderOfAnotherNameByTheOtherRuleWhateverItsNumber) {
  Call(99, "099XXXXX");
  Put({"a picture.jpg", "CAM_0007.JPG"});
  EXPECT_EQ(1, Scan());
  EXPECT_EQ((Lines{"7 CAM_0007.JPG"}), Items());
}

TEST_F(CameraScan, ACompanionWithoutItsPictureIsAFileOfItsOwn) {
  Put({"a picture.jpg", "raw file one.SRW"});
  EXPECT_EQ(2, Scan());
  EXPECT_EQ((Lines{"0 a picture.jpg", "1 raw file one.SRW"}), Items());
}

TEST_F(CameraScan, ACompanionOfALongNameLooksForThePictureOfItsFirstEightCharacters) {
  Put({"PICT0000.JPG", "PICT0000 in raw.SRW"});
  EXPECT_EQ(1, Scan());
}

TEST_F(CameraScan, ACompanionJoinsTheItemOfTheNumberInItsName) {
  Put({"AAAA0000.JPG", "AAAA0000.SRW"});
  EXPECT_EQ(1, Scan());
  EXPECT_EQ((Lines{"0 AAAA0000.JPG +S"}), Items());
}

TEST_F(CameraScan, TheNumberInTheNameIsComparedWithTheRunningNumbers) {
  // The picture has 0 and its raw file took 1 while it waited, so 2 is another picture.
  Put({"AAAA0002.JPG", "AAAA0002.SRW", "BBBB0003.JPG"});
  EXPECT_EQ(2, Scan());
  EXPECT_EQ((Lines{"0 AAAA0002.JPG", "2 BBBB0003.JPG +S"}), Items());
}

TEST_F(CameraScan, AWaitingCompanionTakesARunningNumberInBothPasses) {
  // In listing order: picture 0, its raw file waits and takes 1, the text has 2. When the companion
  // pass comes, no item is numbered 9999, so the raw file becomes one: 4, since the pass adds one
  // first.
  Put({"AAAA9999.JPG", "AAAA9999.SRW", "a text of mine"});
  EXPECT_EQ(3, Scan());
  EXPECT_EQ((Lines{"0 AAAA9999.JPG", "2 a text of mine", "4 AAAA9999.SRW"}), Items());
}

TEST_F(CameraScan, AWaitingVoiceMemoWithoutAnItemIsDropped) {
  Put({"AAAA9999.JPG", "AAAA9999.WAV"});
  EXPECT_EQ(1, Scan());
  EXPECT_EQ((Lines{"0 AAAA9999.JPG"}), Items());
}

TEST_F(CameraScan, AWaitingNameIsCutToTwelveCharacters) {
  Put({"AAAA9999.JPG", "AAAA9999.SRW and more.MPO"});
  EXPECT_EQ(2, Scan());
  const Lines items = Items();
  ASSERT_EQ(2U, items.size());
  EXPECT_EQ("AAAA9999.SRW", items[1].substr(items[1].find(' ') + 1));
}

TEST_F(CameraScan, AWaitingNameWhoseExtensionWasCutOffIsDropped) {
  Put({"AAAA9999.JPG", "AAAA9999 in raw.SRW"});
  EXPECT_EQ(1, Scan());
}

}  // namespace
