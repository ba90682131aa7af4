// Paths of companions, prefix codes and keys: what can be read out of a path alone.
#include <climits>

#include "tests/filelist/core_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::ItemOf;
using flm_test::SetObjectPath;

constexpr char kStem[] = "/mnt/mmc/DCIM/100PHOTO/QVX_0001.";

struct CompanionCase {
  const char* letters;
  int kind;
  int result;
  const char* extension;  // null: the output is all zero
};

const CompanionCase kCompanions[] = {
    {"S  ", 1, 1, "SRW"},         {"s  ", 1, 1, "SRW"},    {" W ", 5, 5, "WAV"},
    {" w ", 5, 5, "WAV"},         {"  M", 6, 6, "MPO"},    {"  m", 6, 6, "MPO"},
    {"SWM", 1, 1, "SRW"},         {"SWM", 5, 5, "WAV"},    {"SWM", 6, 6, "MPO"},
    {" WM", 1, -1, nullptr},      {"S M", 5, -5, nullptr}, {"S  ", 5, -5, nullptr},
    {"SW ", 6, -6, nullptr},      {"   ", 1, -1, nullptr}, {"   ", 5, -5, nullptr},
    {"   ", 6, -6, nullptr},      {"WSM", 1, -1, nullptr}, {"JPG", 1, -1, nullptr},
    {"MP4", 1, -1, nullptr},      {"MP4", 5, -5, nullptr}, {"MP4", 6, -6, nullptr},
    {"SWM", 3, 0, nullptr},       {"SWM", 0, 0, nullptr},  {"SWM", 2, 0, nullptr},
    {"SWM", 4, 0, nullptr},       {"SWM", 7, 0, nullptr},  {"SWM", -1, 0, nullptr},
    {"SWM", INT_MAX, 0, nullptr},
};

TEST(FileListObjectPath, LettersNameTheCompanions) {
  CQFileList list;
  for (const CompanionCase& c : kCompanions) {
    CQFileListItem item = ItemOf("/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG");
    SetObjectPath(&item, std::string(kStem) + c.letters);
    char out[128];
    std::memset(out, 'z', sizeof(out));
    EXPECT_EQ(list.GetObjectFullPath(&item, static_cast<eFileType>(c.kind), out, 128), c.result)
        << '"' << c.letters << "\" " << c.kind;
    EXPECT_EQ(std::string(out), c.extension == nullptr ? "" : std::string(kStem) + c.extension);
    EXPECT_EQ(item.objectPath, std::string(kStem) + c.letters);
    for (size_t i = std::strlen(out); i < sizeof(out); ++i) ASSERT_EQ(out[i], '\0');
  }
}

TEST(FileListObjectPath, AnItemWithoutCompanionsHasNone) {
  CQFileList list;
  CQFileListItem item = ItemOf("/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG");
  char out[] = "untouched";
  for (const int kind : {1, 5, 6, 3}) {
    EXPECT_EQ(list.GetObjectFullPath(&item, static_cast<eFileType>(kind), out, sizeof(out)), -1);
  }
  EXPECT_STREQ(out, "untouched");
}

TEST(FileListObjectPath, AFieldWithoutATerminatorIsRefused) {
  CQFileList list;
  CQFileListItem item;
  std::memset(item.objectPath, 'S', sizeof(item.objectPath));
  item.year = 0;
  char out[] = "untouched";
  EXPECT_EQ(list.GetObjectFullPath(&item, FILE_TYPE_RAW, out, sizeof(out)), -1);
  EXPECT_STREQ(out, "untouched");
}

TEST(FileListObjectPath, TheLongestPathIsGivenWhole) {
  CQFileList list;
  CQFileListItem item;
  SetObjectPath(&item, std::string(124, 'a') + "SWM");
  char out[128];
  EXPECT_EQ(list.GetObjectFullPath(&item, FILE_TYPE_VOICE_MEMO, out, sizeof(out)), 5);
  EXPECT_EQ(out, std::string(124, 'a') + "WAV");
}

TEST(FileListObjectPath, ShortFieldsAreRefusedWithoutReadingBeforeThem) {
  CQFileList list;
  for (const char* text : {"S", "SW"}) {
    CQFileListItem item;
    SetObjectPath(&item, text);
    char out[16];
    EXPECT_LT(list.GetObjectFullPath(&item, FILE_TYPE_RAW, out, sizeof(out)), 0) << text;
  }
}

TEST(FileListObjectPath, OnlyTheGivenSizeIsWritten) {
  CQFileList list;
  CQFileListItem item;
  SetObjectPath(&item, std::string(kStem) + "SWM");
  for (const int size : {0, 1, 2, 3, 10, 34, 35, 36}) {
    char out[64];
    std::memset(out, 'z', sizeof(out));
    EXPECT_EQ(list.GetObjectFullPath(&item, FILE_TYPE_RAW, out, size), 1) << size;
    for (int i = size; i < 64; ++i) ASSERT_EQ(out[i], 'z') << size;
    if (size > 0) {
      EXPECT_EQ(out, (std::string(kStem) + "SRW").substr(0, static_cast<size_t>(size - 1)));
    }
  }
}

TEST(FileListObjectPath, ANegativeSizeWritesNothing) {
  CQFileList list;
  CQFileListItem item;
  SetObjectPath(&item, std::string(kStem) + "SWM");
  char out[] = "untouched";
  for (const int size : {-1, INT_MIN}) {
    list.GetObjectFullPath(&item, FILE_TYPE_RAW, out, size);
    EXPECT_STREQ(out, "untouched");
  }
}

TEST(FileListObjectPath, NullArgumentsAreRefused) {
  CQFileList list;
  CQFileListItem item;
  SetObjectPath(&item, std::string(kStem) + "SWM");
  char out[128] = "untouched";
  EXPECT_LT(list.GetObjectFullPath(nullptr, FILE_TYPE_RAW, out, sizeof(out)), 0);
  EXPECT_LT(list.GetObjectFullPath(&item, FILE_TYPE_RAW, nullptr, 128), 0);
  EXPECT_STREQ(out, "untouched");
}

// --- Prefix codes -------------------------------------------------------------------------------

struct PrefixCase {
  const char* path;
  int code;
};

const PrefixCase kPrefixes[] = {
    {"/mnt/mmc/DCIM/100PHOTO/CAM_0001.JPG", 0},
    {"/mnt/mmc/DCIM/100PHOTO/HDV_0001.MP4", 1},
    {"/mnt/mmc/DCIM/100PHOTO/HDE_0001.MP4", 2},
    {"/mnt/mmc/DCIM/100PHOTO/HDA_0001.MP4", 3},
    {"/mnt/mmc/DCIM/100PHOTO/SDV_0001.MP4", 4},
    {"/mnt/mmc/DCIM/100PHOTO/SDE_0001.MP4", 5},
    {"/mnt/mmc/DCIM/100PHOTO/SDA_0001.MP4", 6},
    {"/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG", -1},
    {"/mnt/mmc/DCIM/100PHOTO/sda_0001.MP4", -1},
    {"/mnt/SDA_/DCIM/100PHOTO/QVX_0001.JPG", 6},
    {"/mnt/SDA_/DCIM/100PHOTO/HDV_0001.JPG", 1},
    {"/SDA_CAM_", 0},
    {"SDE_SDV_", 4},
    {"CAM_", 0},
    {"CAM", -1},
    {"_CAM_", 0},
    {"", -1},
};

TEST(FileListPrefixCode, IsTheFirstKnownPrefixAnywhereInThePath) {
  CQFileList list;
  for (const PrefixCase& c : kPrefixes) {
    EXPECT_EQ(list.GetPrefixEnum(Arg(c.path)), c.code) << c.path;
    CQFileListItem item = ItemOf(c.path);
    EXPECT_EQ(list.GetPrefix(&item), c.code) << c.path;
  }
}

TEST(FileListPrefixCode, OfNothingIsNone) {
  CQFileList list;
  EXPECT_EQ(list.GetPrefix(nullptr), -1);
  EXPECT_EQ(list.GetPrefixEnum(nullptr), -1);
}

// --- Keys ---------------------------------------------------------------------------------------

struct KeyCase {
  const char* path;
  int key;
};

const KeyCase kKeys[] = {
    {"/mnt/mmc/DCIM/123ABCDE/ABCD0456.JPG", 1230456},
    {"123ABCDE/ABCD0456.JPG", 1230456},
    {"/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG", 1000001},
    {"/opt/sd0/DCIM/999PHOTO/QVX_9999.MP4", 9999999},
    {"/opt/sd0/VIDEO/100VIDEO/S3D_0000.MP4", 1000000},
};

TEST(FileListKey, IsFolderTimesTenThousandPlusFile) {
  CQFileList list;
  for (const KeyCase& c : kKeys) EXPECT_EQ(list.GetIndexKey(Arg(c.path)), c.key) << c.path;
}

TEST(FileListKey, OfAnOddPathReadsNothingOutsideIt) {
  CQFileList list;
  for (const char* path : {"", "a", "1234567", "12345678", "12345678901234567890"}) {
    // A buffer of exactly the text, so that a step outside is seen.
    const std::vector<char> text(path, path + std::strlen(path) + 1);
    list.GetIndexKey(text.data());
  }
  EXPECT_LT(list.GetIndexKey(nullptr), 0);
}

}  // namespace
