// The checks that decide which files belong to a directory, and what is read out of a name.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "dcf/CQDCFDir.h"
#include "tests/support/card.h"

namespace {

using flm_test::Arg;
using flm_test::Text;

struct NameCase {
  const char* name;
  int expected;
};

constexpr NameCase kDcfNames[] = {
    {"CAM_0001.JPG", 0},
    {"CAM_0001.MP4", 0},
    {"CAM_0001.AVI", 0},
    {"CAM_0001.3GP", 0},
    {"CAM_0001.MP3", 200},
    {"CAM_0001.WAV", 201},
    {"CAM_0001.SRW", 202},
    {"CAM_0001.MPO", 204},
    {"cam_0001.jpg", 0},
    {"cAm_0001.wAv", 201},
    {"QVX_0000.JPG", 0},
    {"QVX_9999.JPG", 0},
    {"____0001.JPG", 0},
    {"AZaz0001.JPG", 0},
    {"12340001.JPG", 0},
    {"CA-X0001.JPG", 0},
    {"    0001.JPG", 0},
    {"\xe4\xf6\xfc\xdf"
     "0001.JPG",
     0},
    {"CAM_0001XJPG", 0},
    {"CAM_00019JPG", 0},
    {"CAM_0001 JPG", 0},
    // Lengths are checked before anything else.
    {"", -2},
    {"CAM_001.JPG", -2},
    {"-", -2},
    {"CAM_0001.JPEG", -3},
    {"CAM_00001.JPG", -3},
    {"CAM_0001.JPG ", -3},
    // The free characters count only while no digit follows them.
    {"CAM_A001.JPG", -104},
    {"CAM__001.JPG", -104},
    {"cam_x001.jpg", -104},
    {"CAM_ 001.JPG", -104},
    {"CA-XA001.JPG", -201},
    {"1AM_A001.JPG", -201},
    {"CAM-A001.JPG", -201},
    {" AM_A001.JPG", -201},
    {"CAM\xc4"
     "A001.JPG",
     -201},
    {"CAM_0X01.JPG", -105},
    {"CAM_00X1.JPG", -106},
    {"CAM_000X.JPG", -107},
    {"CAM_0XX1.JPG", -105},
    {"CAM_00XX.TXT", -106},
    {"CAM_0-01.JPG", -105},
    {"CAM_0 01.JPG", -105},
    {"CAM_A0X1.TXT", -104},
    // Extensions.
    {"CAM_0001.TXT", -100},
    {"CAM_0001.JP ", -100},
    {"CAM_0001JPG.", -100},
    {"CAM_0001.PNG", -100},
    {"CAM_0001....", -100},
    {"CAM_0001.\xffPG", -100},
};

TEST(DcfFileName, IsAcceptedByItsKindOrRefusedByItsFirstFault) {
  CQDCFDir dir;
  for (const NameCase& c : kDcfNames) {
    EXPECT_EQ(c.expected, dir.CheckFileNameSyntax(Arg(c.name))) << '"' << c.name << '"';
  }
}

TEST(DcfFileName, ThatIsNullIsRefused) {
  CQDCFDir dir;
  EXPECT_EQ(-1, dir.CheckFileNameSyntax(nullptr));
}

TEST(DcfFileName, OfTwelveCharactersIsUpperCasedInPlace) {
  CQDCFDir dir;
  Text accepted("cam_0001.jpg");
  Text refused("cam_a001.txt");
  dir.CheckFileNameSyntax(accepted);
  dir.CheckFileNameSyntax(refused);
  EXPECT_EQ("CAM_0001.JPG", accepted.Now());
  EXPECT_EQ("CAM_A001.TXT", refused.Now());
}

TEST(DcfFileName, OfAnotherLengthStaysAsItWas) {
  CQDCFDir dir;
  for (const char* name : {"cam_001.jpg", "cam_0001.jpeg", ""}) {
    Text given(name);
    dir.CheckFileNameSyntax(given);
    EXPECT_EQ(name, given.Now());
  }
}

constexpr NameCase kFreeNames[] = {
    {"HOLIDAYS.JPG", 0},
    {"holidays.txt", 0},
    {"twelve chars", 0},
    {"twelve_c.wav", 201},  // twelve characters are upper-cased before the extension is read
    {"twelve_c.mp3", 200},
    {"twelve_c.srw", 202},
    {"twelve_c.mpo", 204},
    {"thirteen_.wav", 0},  // longer names are taken as they are
    {"thirteen_.WAV", 201},
    {"thirteen_.MP3", 200},
    {"thirteen_.SRW", 202},
    {"thirteen_.MPO", 204},
    {"thirteen_xWAV", 201},
    {"1234567890123456789012345678901234567890", 0},
    {"123456789012345678901234567890123456.SRW", 202},
    {"12345678901234567890123456789012345678901", -3},
    {"short_7.JPG", -3},
    {"", -3},
};

TEST(FreeFileName, IsAcceptedByItsLengthAndKnownByItsEnd) {
  CQDCFDir dir;
  for (const NameCase& c : kFreeNames) {
    EXPECT_EQ(c.expected, dir.CheckFileNameSyntaxNonDCF(Arg(c.name))) << '"' << c.name << '"';
  }
}

TEST(FreeFileName, ThatIsNullIsRefused) {
  CQDCFDir dir;
  EXPECT_EQ(-1, dir.CheckFileNameSyntaxNonDCF(nullptr));
}

TEST(FreeFileName, IsUpperCasedOnlyWhenItHasTwelveCharacters) {
  CQDCFDir dir;
  Text twelve("holidays.jpg");
  Text longer("holiday in rome.jpg");
  dir.CheckFileNameSyntaxNonDCF(twelve);
  dir.CheckFileNameSyntaxNonDCF(longer);
  EXPECT_EQ("HOLIDAYS.JPG", twelve.Now());
  EXPECT_EQ("holiday in rome.jpg", longer.Now());
}

TEST(DirUpperCase, ChangesNamesOfOneToTwelveCharacters) {
  CQDCFDir dir;
  struct {
    const char* given;
    const char* expected;
  } const cases[] = {{"a", "A"},
                     {"cam_0001.jpg", "CAM_0001.JPG"},
                     {"`az{\xe4", "`AZ{\xe4"},
                     {"cam_0001.jpeg", "cam_0001.jpeg"},
                     {"", ""}};
  for (const auto& c : cases) {
    Text name(c.given);
    dir.MakeUpperCase(name);
    EXPECT_EQ(c.expected, name.Now());
  }
  EXPECT_EQ(-1, dir.MakeUpperCase(nullptr));
}

TEST(DirFileNumber, IsTheFifthToEighthCharacter) {
  CQDCFDir dir;
  EXPECT_EQ(1, dir.GetFnumFromFileName(Arg("CAM_0001.JPG")));
  EXPECT_EQ(9999, dir.GetFnumFromFileName(Arg("CAM_9999.JPG")));
  EXPECT_EQ(0, dir.GetFnumFromFileName(Arg("CAM_0000.JPG")));
  EXPECT_EQ(1234, dir.GetFnumFromFileName(Arg("CAM_12345.JPG")));
  EXPECT_EQ(12, dir.GetFnumFromFileName(Arg("CAM_12AB.JPG")));
  EXPECT_EQ(0, dir.GetFnumFromFileName(Arg("HOLIDAYS.JPG")));
}

TEST(DirFileNumber, OfAShortNameIsReadNoFurtherThanTheName) {
  CQDCFDir dir;
  EXPECT_EQ(7, dir.GetFnumFromFileName(Arg("CAM_7")));
  EXPECT_EQ(0, dir.GetFnumFromFileName(Arg("CAM_")));
  EXPECT_EQ(0, dir.GetFnumFromFileName(Arg("CA")));
  EXPECT_EQ(0, dir.GetFnumFromFileName(Arg("")));
  EXPECT_GT(0, dir.GetFnumFromFileName(nullptr));
}

TEST(LastPartOfAPath, IsCopiedWithItsSlashAndWithoutATerminator) {
  CQDCFDir dir;
  char out[16];
  std::memset(out, 0x7e, sizeof(out));
  EXPECT_NE(nullptr, dir.GetFileName(Arg("/mnt/mmc/DCIM/f.JPG"), out));
  EXPECT_EQ("/f.JPG~~~~~~~~~~", std::string(out, sizeof(out)));
}

TEST(LastPartOfAPath, MayBeTheSlashAlone) {
  CQDCFDir dir;
  char out[2] = {'~', '~'};
  EXPECT_NE(nullptr, dir.GetFileName(Arg("/mnt/"), out));
  EXPECT_EQ("/~", std::string(out, 2));
}

TEST(LastPartOfAPath, WithoutASlashIsNone) {
  CQDCFDir dir;
  char out[2] = {'~', '~'};
  EXPECT_EQ(nullptr, dir.GetFileName(Arg("f.JPG"), out));
  EXPECT_EQ(nullptr, dir.GetFileName(Arg(""), out));
  EXPECT_EQ(nullptr, dir.GetFileName(nullptr, out));
  EXPECT_EQ("~~", std::string(out, 2));
}

TEST(LastPartOfAPath, IsCopiedUpTo127Characters) {
  CQDCFDir dir;
  char out[160];
  std::memset(out, '~', sizeof(out));
  const std::string fits = "/" + std::string(126, 'n');
  dir.GetFileName(Arg("/d" + fits), out);
  EXPECT_EQ(fits + "~", std::string(out, 128));
}

TEST(LastPartOfAPath, IsNotCopiedWhenItIsLonger) {
  CQDCFDir dir;
  char out[160];
  std::memset(out, '~', sizeof(out));
  dir.GetFileName(Arg("/d/" + std::string(127, 'n')), out);
  EXPECT_EQ(std::string(160, '~'), std::string(out, sizeof(out)));
}

TEST(LastPartOfAPath, IsNotCopiedToNowhere) {
  CQDCFDir dir;
  EXPECT_EQ(nullptr, dir.GetFileName(Arg("/d/f.JPG"), nullptr));
}

constexpr NameCase kPrefixes[] = {
    {"CAM_0001.JPG", 0},  {"HDV_0001.MP4", 1},  {"HDE_0001.MP4", 2}, {"HDA_0001.MP4", 3},
    {"SDV_0001.MP4", 4},  {"SDE_0001.MP4", 5},  {"SDA_", 6},         {"QVX_0001.JPG", -1},
    {"cam_0001.JPG", -1}, {"hdv_0001.MP4", -1}, {"HDV", -1},         {"", -1},
    {"XCAM_001.JPG", -1}, {"SDV-0001.MP4", -1},
};

TEST(PrefixCodeOfAName, IsFoundByExactComparison) {
  CQDCFDir dir;
  for (const NameCase& c : kPrefixes) {
    EXPECT_EQ(c.expected, dir.GetFileNameToPrefixCode(Arg(c.name))) << c.name;
  }
  EXPECT_EQ(-1, dir.GetFileNameToPrefixCode(nullptr));
}

TEST(BinaryDigitsOfAByte, AreWrittenTopFirstWithoutATerminator) {
  CQDCFDir dir;
  struct {
    unsigned char value;
    const char* expected;
  } const cases[] = {{0x00, "00000000~"},
                     {0x01, "00000001~"},
                     {0x80, "10000000~"},
                     {0xff, "11111111~"},
                     {0xa5, "10100101~"}};
  for (const auto& c : cases) {
    char out[9];
    std::memset(out, '~', sizeof(out));
    dir.GetBin(c.value, out);
    EXPECT_EQ(c.expected, std::string(out, sizeof(out)));
  }
  EXPECT_EQ(-1, dir.GetBin(1, nullptr));
}

}  // namespace
