// Thumbnails from files of all kinds, whole and broken.
#include "browse_picture.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>

#include "browse_thumbnails.h"
#include "tests/browse/sample_pictures.h"
#include "tests/support/card.h"

using flm::tool::Content;
using flm::tool::Picture;
using flm::tool::PromisedBy;
using flm::tool::ReadThumbnail;
using flm::tool::Reduced;
using flm::tool::Thumbnail;
using flm::tool::Thumbnails;
using flm::tool::Upright;

namespace {

constexpr int kWidth = 160;
constexpr int kHeight = 120;
constexpr char kName[] = "QVX_0001.JPG";

class BrowsePicture : public testing::Test {
 protected:
  Thumbnail Read(const std::string& content) {
    card_.WriteFile(kName, content);
    return ReadThumbnail(card_.Path(kName), kWidth, kHeight);
  }

  flm_test::Card card_;
};

// A file of one colour whose thumbnail has another one.
std::string RedWithBlueThumbnail(int orientation) {
  const std::string blue =
      flm_test::EncodeJpeg(flm_test::Plain(160, 120, 20, 20, 220), 160, 120, "", false);
  return flm_test::EncodeJpeg(flm_test::Plain(640, 480, 220, 20, 20), 640, 480,
                              flm_test::EncodeExif(orientation, blue), false);
}

bool IsMostly(const Picture& picture, size_t colour) {
  const size_t middle = picture.rgb.size() / 2 / 3 * 3;
  return picture.rgb[middle + colour] > 150 && picture.rgb[middle + (colour + 1) % 3] < 100;
}

// The start of a file that says it is so large; nothing follows.
std::string Claiming(int width, int height, bool progressive) {
  std::string bytes =
      flm_test::EncodeJpeg(flm_test::Plain(16, 16, 1, 2, 3), 16, 16, "", progressive);
  const size_t frame = bytes.find(progressive ? "\xFF\xC2" : "\xFF\xC0");
  bytes[frame + 5] = static_cast<char>(height >> 8);
  bytes[frame + 6] = static_cast<char>(height);
  bytes[frame + 7] = static_cast<char>(width >> 8);
  bytes[frame + 8] = static_cast<char>(width);
  return bytes;
}

TEST_F(BrowsePicture, ThumbnailOfTheCameraComesFirst) {
  const Thumbnail thumbnail = Read(RedWithBlueThumbnail(0));
  EXPECT_EQ(thumbnail.content, Content::kPicture);
  EXPECT_EQ(thumbnail.picture.width, 160);
  EXPECT_TRUE(IsMostly(thumbnail.picture, 2));
}

TEST_F(BrowsePicture, WithoutOneThePictureItselfIsScaledDown) {
  for (const bool progressive : {false, true}) {
    const Thumbnail thumbnail = Read(
        flm_test::EncodeJpeg(flm_test::Plain(1300, 970, 220, 20, 20), 1300, 970, "", progressive));
    ASSERT_EQ(thumbnail.content, Content::kPicture);
    EXPECT_TRUE(IsMostly(thumbnail.picture, 0));
    EXPECT_GE(thumbnail.picture.width, kWidth);
    EXPECT_LE(thumbnail.picture.width, 2 * kWidth);
    EXPECT_NEAR(thumbnail.picture.width * 97, thumbnail.picture.height * 130, 300);
  }
}

TEST_F(BrowsePicture, BrokenThumbnailGivesWayToThePicture) {
  std::string file = RedWithBlueThumbnail(0);
  const size_t thumbnail = file.find("\xFF\xD8", 2);
  file.replace(thumbnail, 2, "xx");
  EXPECT_TRUE(IsMostly(Read(file).picture, 0));
}

TEST_F(BrowsePicture, PictureIsTurnedAsTheCameraWasHeld) {
  const Thumbnail thumbnail = Read(RedWithBlueThumbnail(6));
  EXPECT_EQ(thumbnail.picture.width, 120);
  EXPECT_EQ(thumbnail.picture.height, 160);
}

TEST_F(BrowsePicture, FileThatEndsEarlyIsBroken) {
  const std::string whole = flm_test::SampleJpegFile({});
  for (const size_t part :
       {size_t{0}, size_t{1}, size_t{20}, whole.size() / 2, whole.size() - 500}) {
    EXPECT_EQ(Read(whole.substr(0, part)).content, Content::kBroken) << part;
  }
}

TEST_F(BrowsePicture, FileOfOtherContentIsBroken) {
  EXPECT_EQ(Read("a text that calls itself a picture").content, Content::kBroken);
  EXPECT_EQ(Read(std::string(300000, '\0')).content, Content::kBroken);
}

TEST_F(BrowsePicture, HugePictureIsRefusedWithoutTheMemoryForIt) {
  for (const bool progressive : {false, true}) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Read(Claiming(65500, 65500, progressive)).content, Content::kBroken);
    EXPECT_EQ(Read(Claiming(14000, 14000, progressive)).content, Content::kBroken);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  }
}

TEST_F(BrowsePicture, AnyChangedByteEndsInAPictureOrABrokenOne) {
  flm_test::SamplePicture sample;
  sample.width = 64;
  sample.height = 48;
  sample.thumbnailWidth = 32;
  sample.orientation = 8;
  const std::string whole = flm_test::SampleJpegFile(sample);
  unsigned int state = 7;
  for (int round = 0; round < 600; ++round) {
    std::string changed = whole;
    for (int i = 0; i < 1 + round % 4; ++i) {
      state = state * 1103515245U + 12345U;
      changed[(state >> 8) % changed.size()] = static_cast<char>(state >> 20);
    }
    const Thumbnail thumbnail = Read(changed);
    ASSERT_TRUE(thumbnail.content == Content::kPicture || thumbnail.content == Content::kBroken);
    ASSERT_EQ(thumbnail.picture.rgb.size(),
              static_cast<size_t>(thumbnail.picture.width) * thumbnail.picture.height * 3);
  }
}

TEST_F(BrowsePicture, WhatIsNoRegularFileIsNotOpened) {
  ASSERT_EQ(mkfifo(card_.Path(kName).c_str(), 0644), 0);
  EXPECT_EQ(ReadThumbnail(card_.Path(kName), 10, 10).content, Content::kNoFile);
  card_.MakeDir("QVX_0002.JPG");
  EXPECT_EQ(ReadThumbnail(card_.Path("QVX_0002.JPG"), 10, 10).content, Content::kNoFile);
  EXPECT_EQ(ReadThumbnail(card_.Path("QVX_0003.JPG"), 10, 10).content, Content::kNoFile);
}

TEST_F(BrowsePicture, FileThatMayNotBeReadIsToldFromABrokenOne) {
  card_.WriteFile(kName, flm_test::SampleJpegFile({}));
  card_.SetMode(".", 0755);  // the ordinary user gets as far as the file
  card_.SetMode(kName, 0);
  const flm_test::OrdinaryUser user;
  if (!user.Held()) GTEST_SKIP() << "this system does not let the test act as an ordinary user";
  EXPECT_EQ(ReadThumbnail(card_.Path(kName), 10, 10).content, Content::kUnreadable);
}

TEST_F(BrowsePicture, ReadingLeavesNoFileOpen) {
  const int before = flm_test::FdCount();
  Read(flm_test::SampleJpegFile({}));
  Read("broken");
  EXPECT_EQ(flm_test::FdCount(), before);
}

TEST(BrowseKinds, ExtensionSaysWhatAFileIs) {
  EXPECT_EQ(PromisedBy("./DCIM/100PHOTO/QVX_0001.JPG"), Content::kPicture);
  EXPECT_EQ(PromisedBy("./DCIM/CAMERA/holiday.jpg"), Content::kPicture);
  EXPECT_EQ(PromisedBy("QVX_0001.MPO"), Content::kPicture);
  EXPECT_EQ(PromisedBy("QVX_0001.MP4"), Content::kMovie);
  EXPECT_EQ(PromisedBy("QVX_0001.3GP"), Content::kMovie);
  EXPECT_EQ(PromisedBy("QVX_0001.WAV"), Content::kSound);
  EXPECT_EQ(PromisedBy("QVX_0001.SRW"), Content::kRaw);
  EXPECT_EQ(PromisedBy("./DCIM.JPG/notes"), Content::kOther);
}

// Two rows of three pixels, each told by its red.
Picture SixPixels() {
  Picture picture;
  picture.width = 3;
  picture.height = 2;
  for (uint8_t i = 1; i <= 6; ++i) picture.rgb.insert(picture.rgb.end(), {i, 0, 0});
  return picture;
}

std::string Reds(const Picture& picture) {
  std::string text;
  for (size_t i = 0; i < picture.rgb.size(); i += 3) {
    if (i > 0 && i / 3 % static_cast<size_t>(picture.width) == 0) text += '/';
    text += static_cast<char>('0' + picture.rgb[i]);
  }
  return text;
}

TEST(BrowseUpright, EveryOrientationTurnsAsItsValueSays) {
  const char* const expected[] = {"123/456",  "123/456",  "321/654",  "654/321", "456/123",
                                  "14/25/36", "41/52/63", "63/52/41", "36/25/14"};
  for (int orientation = 0; orientation <= 8; ++orientation) {
    EXPECT_EQ(Reds(Upright(SixPixels(), orientation)), expected[orientation]) << orientation;
  }
  EXPECT_EQ(Reds(Upright(SixPixels(), 9)), "123/456");
}

TEST(BrowseReduced, PixelsAreMixedByWholeFactorsAndNoneIsLeftOut) {
  Picture picture;
  picture.width = 4;
  picture.height = 2;
  for (const int red : {2, 4, 8, 8, 2, 4, 8, 8}) {
    picture.rgb.insert(picture.rgb.end(), {static_cast<uint8_t>(red), 0, 0});
  }
  EXPECT_EQ(Reds(Reduced(picture, 2, 1)), "38");
  EXPECT_EQ(Reds(Reduced(picture, 4, 2)), "2488/2488");
}

TEST(BrowseReduced, ThinPictureKeepsItsLine) {
  Picture line;
  line.width = 100;
  line.height = 1;
  line.rgb.resize(300);
  EXPECT_EQ(Reduced(line, 10, 10).height, 1);
}

TEST(BrowseThumbnails, FileIsReadOnceUntilItChanges) {
  flm_test::Card card;
  card.WriteFile(kName, flm_test::SampleJpegFile({}));
  Thumbnails thumbnails(2);
  thumbnails.SetSize(kWidth, kHeight);
  thumbnails.Get({card.Path(kName), 10, 20});
  thumbnails.Get({card.Path(kName), 10, 20});
  EXPECT_EQ(thumbnails.Reads(), 1);
  thumbnails.Get({card.Path(kName), 10, 21});
  EXPECT_EQ(thumbnails.Reads(), 2);
  thumbnails.SetSize(kWidth, kHeight);
  thumbnails.Get({card.Path(kName), 10, 20});
  EXPECT_EQ(thumbnails.Reads(), 2);
  thumbnails.SetSize(kWidth / 2, kHeight);
  EXPECT_EQ(thumbnails.Kept(), 0U);
}

TEST(BrowseThumbnails, TheOneUnseenForLongestGoesFirst) {
  Thumbnails thumbnails(2);
  thumbnails.Get({"a", 0, 0});
  thumbnails.Get({"b", 0, 0});
  thumbnails.Get({"a", 0, 0});
  thumbnails.Get({"c", 0, 0});
  EXPECT_EQ(thumbnails.Kept(), 2U);
  thumbnails.Get({"a", 0, 0});
  EXPECT_EQ(thumbnails.Reads(), 3);
  thumbnails.Get({"b", 0, 0});
  EXPECT_EQ(thumbnails.Reads(), 4);
}

}  // namespace
