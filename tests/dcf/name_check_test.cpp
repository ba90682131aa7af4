// Reading names: which are accepted, which nearly are, and what stands in them.
#include <gtest/gtest.h>

#include <string>

#include "dcf/dcf_name.h"

namespace {

struct Case {
  const char* name;
  int expected;
};

constexpr Case kDcfNames[] = {
    {"CAM_0001.JPG", flm::kKindMain},
    {"CAM_0001.MP3", flm::kKindMp3},
    {"CAM_0001.WAV", flm::kKindWav},
    {"CAM_0001.SRW", flm::kKindSrw},
    {"CAM_0001.MPO", flm::kKindMpo},
    {"cam_0001.JPG", flm::kKindMain},
    {"cam_A001.JPG", -201},
    {"CAM_a001.JPG", -104},
    {"CAM_0001.jpg", -100},
    {"CAM_001.JPG", -2},
    {"CAM_0001.JPEG", -3},
    {"", -2},
};

TEST(DcfName, IsCheckedAsItStands) {
  for (const Case& c : kDcfNames) EXPECT_EQ(c.expected, flm::CheckDcfName(c.name)) << c.name;
}

TEST(DcfName, EveryByteMayStandBeforeTheNumberAndInThePlaceOfThePoint) {
  for (int c = 1; c < 256; ++c) {
    std::string name = "CAM_0001.JPG";
    for (const size_t place : {0U, 1U, 2U, 3U, 8U}) name[place] = static_cast<char>(c);
    EXPECT_EQ(0, flm::CheckDcfName(name.c_str())) << c;
  }
}

TEST(DcfName, OnlyDigitsMayStandInTheNumber) {
  for (int place = 4; place < 8; ++place) {
    for (int c = 1; c < 256; ++c) {
      std::string name = "CAM_0001.JPG";
      name[static_cast<size_t>(place)] = static_cast<char>(c);
      const int expected = c >= '0' && c <= '9' ? 0 : -100 - place;
      EXPECT_EQ(expected, flm::CheckDcfName(name.c_str())) << place << ' ' << c;
    }
  }
}

TEST(DcfName, WithoutANumberOnlyLettersAndLowLinesMayStandBeforeIt) {
  for (int place = 0; place < 4; ++place) {
    for (int c = 1; c < 256; ++c) {
      std::string name = "CAM_A001.JPG";
      name[static_cast<size_t>(place)] = static_cast<char>(c);
      const int expected = (c >= 'A' && c <= 'Z') || c == '_' ? -104 : -201;
      EXPECT_EQ(expected, flm::CheckDcfName(name.c_str())) << place << ' ' << c;
    }
  }
}

constexpr Case kFreeNames[] = {
    {"twelve__.txt", 0},
    {"twelve__.WAV", 201},
    {"twelve__.wav", 0},
    {"eleven_.WAV", -3},
    {"a longer name.MP3", 200},
    {"123456789012345678901234567890123456.MPO", 204},
    {"1234567890123456789012345678901234567.MPO", -3},
    {"", -3},
};

TEST(FreeName, IsCheckedByItsLengthAndItsLastThreeCharacters) {
  for (const Case& c : kFreeNames) EXPECT_EQ(c.expected, flm::CheckFreeName(c.name)) << c.name;
}

constexpr Case kDirNames[] = {
    {"100PHOTO", 0},    {"100ABCDE", 0},    {"999     ", 0},
    {"000PHOTO", 0},    {"1000ABCD", 0},    {"100\xe4\xf6\xfc\xdf\xff", 0},
    {"CAMERA", 0},      {"CAMERA01", 0},    {"CAMERA and a long name behind it", 0},
    {"", -2},           {"100PHOT", -2},    {"100PHOTOS", -2},
    {"CAMER", -2},      {"ABC", -2},        {"ABC12345", -100},
    {"1BCDEFGH", -101}, {"10ABCDEF", -102}, {" 100ABCD", -100},
    {"camera01", -100}, {"XCAMERA1", -100},
};

TEST(DirName, HasEightCharactersAndBeginsWithThreeDigits) {
  for (const Case& c : kDirNames) EXPECT_EQ(c.expected, flm::CheckDirName(c.name)) << c.name;
}

constexpr Case kDirNumbers[] = {
    {"100PHOTO", 100}, {"999ABCDE", 999}, {"099XXXXX", 99}, {"1000ABCD", 100}, {"CAMERA", 99},
    {"CAMERAXY", 99},  {"CAMER", 0},      {"12", 12},       {"", 0},           {"7X", 7},
};

TEST(DirName, GivesItsNumber) {
  for (const Case& c : kDirNumbers) EXPECT_EQ(c.expected, flm::DirNumberInName(c.name)) << c.name;
}

TEST(DirName, OfTheCameraFolderBeginsWithItsWord) {
  EXPECT_TRUE(flm::IsCameraName("CAMERA"));
  EXPECT_TRUE(flm::IsCameraName("CAMERAS"));
  EXPECT_FALSE(flm::IsCameraName("CAMER"));
  EXPECT_FALSE(flm::IsCameraName("camera"));
  EXPECT_FALSE(flm::IsCameraName("100CAMERA"));
  EXPECT_FALSE(flm::IsCameraName(""));
}

TEST(DirName, HasASuffixBehindItsThreeDigits) {
  EXPECT_STREQ("PHOTO", flm::SuffixOfDirName("100PHOTO"));
  EXPECT_STREQ("", flm::SuffixOfDirName("100"));
  EXPECT_STREQ("", flm::SuffixOfDirName("10"));
  EXPECT_STREQ("", flm::SuffixOfDirName(""));
}

constexpr Case kNumbers[] = {
    {"CAM_0001.JPG", 1},
    {"CAM_9999.JPG", 9999},
    {"CAM_00019JPG", 1},
    {"CAM_-012.JPG", -12},
    {"CAM_", 0},
    {"CAM", 0},
    {"", 0},
    {"CAM_12", 12},
};

TEST(FileNumber, StandsBehindTheFreeCharacters) {
  for (const Case& c : kNumbers) EXPECT_EQ(c.expected, flm::FileNumberInName(c.name)) << c.name;
}

constexpr Case kExtensions[] = {
    {"CAM_0001.JPG", 0},    {"CAM_0001.MP4", 0},
    {"CAM_0001.AVI", 0},    {"CAM_0001.3GP", 0},
    {"CAM_0001.MP3", 200},  {"CAM_0001.WAV", 201},
    {"CAM_0001.SRW", 202},  {"CAM_0001.MPO", 204},
    {"CAM_0001.SRWX", 202}, {"CAM_0001.srw", -100},
    {"CAM_0001.SR", -100},  {"CAM_0001.", -100},
    {"CAM_0001", -100},     {"", -100},
};

TEST(ExtensionKind, IsThatOfTheTenthToTwelfthCharacter) {
  for (const Case& c : kExtensions) EXPECT_EQ(c.expected, flm::DcfExtensionKind(c.name)) << c.name;
}

TEST(ExtensionKind, OfACompanionIsRawVoiceOrMultiPicture) {
  for (int kind = -300; kind < 300; ++kind) {
    EXPECT_EQ(kind == 201 || kind == 202 || kind == 204, flm::IsCompanionKind(kind)) << kind;
  }
}

constexpr Case kPrefixes[] = {
    {"CAM_", 0},          {"HDV_", 1},          {"HDE_", 2}, {"HDA_", 3},
    {"SDV_", 4},          {"SDE_", 5},          {"SDA_", 6}, {"SDA_0001.MP4", 6},
    {"QVX_0001.JPG", -1}, {"hdv_0001.MP4", -1}, {"HDV", -1}, {"", -1},
};

TEST(Prefix, IsOneOfTheSevenKnown) {
  for (const Case& c : kPrefixes) EXPECT_EQ(c.expected, flm::PrefixCode(c.name)) << c.name;
}

constexpr Case kPrefixPaths[] = {
    {"/mnt/mmc/DCIM/100PHOTO/HDV_0001.MP4", 1},
    {"/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG", -1},
    {"SDA_", 6},
    {"xxSDE_", 5},
    {"", -1},
    {"HDE_CAM_", 0},
    {"/cam_/", -1},
};

TEST(Prefix, IsFoundAnywhereInAPathInTheOrderOfTheCodes) {
  for (const Case& c : kPrefixPaths) {
    EXPECT_EQ(c.expected, flm::PrefixCodeInPath(c.name)) << c.name;
  }
}

}  // namespace
