// Print orders as other makers write them, and files that are no print orders at all: what can be
// understood is, and the rest does no harm.
#include <sys/stat.h>
#include <unistd.h>

#include <iterator>
#include <random>

#include "tests/dpof/dpof_fixture.h"

namespace {

constexpr char kOne[] = "DCIM/100PHOTO/ABCD0001.JPG";
constexpr char kTwo[] = "DCIM/100PHOTO/ABCD0002.JPG";
constexpr char kNothing[] = "0/0/0 0/0/0 ";

class ForeignPrintOrder : public flm_test::PrintOrderFile {
 protected:
  ForeignPrintOrder() { EXPECT_EQ(2, With({kOne, kTwo})); }
  // A text with line ends of one character becomes one with CR LF.
  static std::string CrLf(const std::string& text) {
    std::string out;
    for (const char c : text) out += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return out;
  }
};

constexpr char kSeveralJobs[] =
    "[HDR]\n"
    "GEN REV = 01.10\n"
    "GEN CRT = \"Some \\maker, model 5\" -02\n"
    "GEN DTM = 2009:12:24:18:00:00\n"
    "USR NAM = \"A. Person\"\n"
    "\n"
    "[JOB]\n"
    "PRT PID=001\n"
    "PRT TYP=STD\n"
    "PRT QTY=003\n"
    "IMG FMT=EXIF2 -J\n"
    "CFG DSC=\"2009:12:24\" -ATR DTM\n"
    "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\n"
    "\n"
    "[JOB]\n"
    "PRT PID=002\n"
    "PRT TYP=IDX\n"
    "PRT QTY=001\n"
    "IMG FMT=EXIF2 -J\n"
    "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\n"
    "<IMG SRC=\"../DCIM/100PHOTO/ABCD0002.JPG\">\n"
    "\n"
    "[JOB]\n"
    "PRT PID=003\n"
    "PRT TYP=SIZ -05\n"
    "PRT QTY=001\n"
    "VUQ RGN=BGN\n"
    "VUQ DSP=\"\"\n"
    "VUQ RGN=END\n"
    "<IMG SRC=\"../DCIM/100PHOTO/ABCD0002.JPG\">\n";

TEST_F(ForeignPrintOrder, LineEndsOfOneCharacterAreRead) {
  EXPECT_EQ(0, Load(kSeveralJobs));
  EXPECT_EQ("3/1/0 0/1/5 ", AllMarks());
}

TEST_F(ForeignPrintOrder, LineEndsOfTwoCharactersAreRead) {
  EXPECT_EQ(0, Load(CrLf(kSeveralJobs)));
  EXPECT_EQ("3/1/0 0/1/5 ", AllMarks());
}

TEST_F(ForeignPrintOrder, LineEndsMayBeMixed) {
  EXPECT_EQ(0, Load("PRT TYP=STD\r\nPRT QTY=003\n<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\r\n"
                    "<IMG SRC=\"../DCIM/100PHOTO/ABCD0002.JPG\">\n"));
  EXPECT_EQ("3/0/0 3/0/0 ", AllMarks());
}

TEST_F(ForeignPrintOrder, CarriageReturnsAloneAreOneLineThatSaysNothing) {
  std::string text = kSeveralJobs;
  for (char& c : text) c = c == '\n' ? '\r' : c;
  EXPECT_EQ(0, Load(text));
  EXPECT_EQ(kNothing, AllMarks());
}

TEST_F(ForeignPrintOrder, BlanksAroundTheEqualsSignMakeAnUnknownTypeAndNoQuantity) {
  EXPECT_EQ(0, Load("[JOB]\r\nPRT PID = 001\r\nPRT TYP = STD\r\nPRT QTY = 003\r\n"
                    "<IMG SRC = \"../DCIM/100PHOTO/ABCD0001.JPG\">\r\n"));
  EXPECT_EQ(kNothing, AllMarks());
}

TEST_F(ForeignPrintOrder, QuotedNamesWithWordsOfTheFileSayNothing) {
  EXPECT_EQ(0, Load("[HDR]\r\nGEN CRT=\"PRT TYP=STD\"\r\nGEN CRT=\"[JOB]\"\r\n"
                    "GEN CRT=\"../DCIM/100PHOTO/ABCD0001.JPG\"\r\n"));
  EXPECT_EQ(kNothing, AllMarks());
}

TEST_F(ForeignPrintOrder, UnknownKeysArePassedOver) {
  EXPECT_EQ(0, Load("[HDR]\r\nXYZ ABC=1\r\n[JOB]\r\nPRT ABC=STD\r\nPRT TYP=STD\r\nPRT QTY=3\r\n"
                    "PRT RNG=ALL\r\nIMG ROT=90\r\nIMG SIZ=4\r\nATR DTM=1\r\n\xEF\xBB\xBF\r\n"
                    "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\" -ATR FRM>\r\n[END]\r\n"));
  EXPECT_EQ("3/0/0 0/0/0 ", AllMarks());
}

TEST_F(ForeignPrintOrder, PathsInLowerCaseNameNoFile) {
  for (const char* source : {"../dcim/100photo/abcd0001.jpg", "../DCIM/100PHOTO/abcd0001.jpg",
                             "../DCIM/100PHOTO/ABCD0001.jpg", "../DCIM/100photo/ABCD0001.JPG"}) {
    EXPECT_EQ(0, Load(std::string("PRT TYP=STD\r\nPRT QTY=3\r\n<IMG SRC=\"") + source + "\">\r\n"))
        << source;
    EXPECT_EQ(kNothing, AllMarks()) << source;
  }
}

TEST_F(ForeignPrintOrder, SourcesOfNoUseNameNoFile) {
  const std::string sources[] = {"",
                                 "x",
                                 "..",
                                 "../",
                                 "/",
                                 "//////",
                                 "../..",
                                 "../../../etc/passwd",
                                 "/etc/passwd",
                                 "C:\\DCIM\\100PHOTO\\ABCD0001.JPG",
                                 "..\\DCIM\\100PHOTO\\ABCD0001.JPG",
                                 "../DCIM/100PHOTO",
                                 "../DCIM/100PHOTO/",
                                 "../DCIM//ABCD0001.JPG",
                                 "../DCIM/100PHOTO/ABCD0001.JPGG",
                                 "../DCIM/100PHOTO/ABCD.JPG",
                                 "../CAMERA/CAMERA/CAMERA.JPG",
                                 "%s%s%n%n",
                                 std::string(100, '/'),
                                 "../DCIM/100PHOTO/" + std::string(80, 'a') + "ABCD0001.JPG",
                                 "../" + std::string(200, 'a') + "/DCIM/100PHOTO/ABCD0001.JPG",
                                 std::string(1900, 'b')};
  for (const int type : {0, 1, 2}) {
    const char* const types[] = {"STD", "IDX", "SIZ -03"};
    for (const std::string& source : sources) {
      ClearMarks();
      EXPECT_EQ(0, Load(std::string("PRT TYP=") + types[type] + "\r\nPRT QTY=3\r\n<IMG SRC=\"" +
                        source + "\">\r\n"))
          << source;
      EXPECT_EQ(kNothing, AllMarks()) << source;
    }
  }
}

TEST_F(ForeignPrintOrder, AnOverlongSourceDoesNotNameTheFileOfItsFirstPart) {
  // Cut to the size of a path the source would end in the name of a file.
  const std::string tail = "/DCIM/100PHOTO/ABCD0001.JPG";
  const size_t room = 127 - card_.Root().size() - tail.size();
  for (const size_t more : {0u, 1u, 5u, 500u}) {
    EXPECT_EQ(0, Load("PRT TYP=STD\r\nPRT QTY=3\r\n<IMG SRC=\"../" + std::string(room, 'a') + tail +
                      std::string(more, 'x') + "\">\r\n"));
  }
  EXPECT_EQ(kNothing, AllMarks());
}

TEST_F(ForeignPrintOrder, ASourceThatFitsAPathOnlyWhenCutNamesNoFile) {
  const std::string start = "DCIM/100PHOTO/ABCD0001";
  const std::string tail = "/100PHOTO/ABCD0001.JPG";
  const size_t filler = 127 - card_.Root().size() - 1 - start.size() - tail.size();
  EXPECT_EQ(0, Load("PRT TYP=STD\r\nPRT QTY=3\r\n<IMG SRC=\"../" + start +
                    std::string(filler, 'a') + tail + "x\">\r\n"));
  EXPECT_EQ(kNothing, AllMarks());
}

TEST_F(ForeignPrintOrder, TheLongestLineIsReadAndALongerOneEndsTheLoad) {
  const std::string start = "PRT TYP=STD\nPRT QTY=3\n<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\n";
  const std::string behind = "<IMG SRC=\"../DCIM/100PHOTO/ABCD0002.JPG\">\n";
  EXPECT_EQ(0, Load(start + "GEN " + std::string(2042, 'x') + "\n" + behind));
  EXPECT_EQ("3/0/0 3/0/0 ", AllMarks());
  for (const size_t length : {2043u, 2044u, 2045u, 2046u, 5000u, 8192u, 100000u}) {
    ClearMarks();
    EXPECT_EQ(0, Load(start + "GEN " + std::string(length, 'x') + "\n" + behind)) << length;
    EXPECT_EQ("3/0/0 0/0/0 ", AllMarks()) << length;
  }
}

TEST_F(ForeignPrintOrder, ALongSourceLineIsReadWhole) {
  const std::string line = "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\"";
  EXPECT_EQ(0,
            Load("PRT TYP=STD\nPRT QTY=3\n" + line + std::string(2046 - line.size(), '>') + "\n"));
  EXPECT_EQ("3/0/0 0/0/0 ", AllMarks());
}

TEST_F(ForeignPrintOrder, LinesAcrossTheReadersBlocksAreWhole) {
  for (size_t filler = 8192 - 60; filler <= 8192; ++filler) {
    ClearMarks();
    std::string text;
    while (text.size() + 1000 < filler) text += "GEN " + std::string(995, 'x') + "\n";
    text += "GEN " + std::string(filler - text.size() - 5, 'x') + "\n";
    ASSERT_EQ(filler, text.size());
    EXPECT_EQ(0, Load(text + "PRT TYP=STD\nPRT QTY=3\n"
                             "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\n"));
    EXPECT_EQ("3/0/0 0/0/0 ", AllMarks()) << filler;
  }
}

TEST_F(ForeignPrintOrder, NulBytesHideTheRestOfTheirLineAndNoMore) {
  using std::string_literals::operator""s;
  EXPECT_EQ(0, Load("\0PRT TYP=IDX\nPRT TYP=STD\n\0\0\0\nPRT QTY=3\nPRT \0QTY=9\n"
                    "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\n"
                    "<IMG SRC=\"../DCIM\0/100PHOTO/ABCD0002.JPG\">\n"s));
  EXPECT_EQ("3/0/0 0/0/0 ", AllMarks());
}

TEST_F(ForeignPrintOrder, ABlockOfNulBytesDoesNotEndTheFile) {
  std::string text;
  for (int i = 0; i < 20; ++i) text += std::string(1000, '\0') + "\n";
  EXPECT_EQ(0, Load(text + "PRT TYP=STD\nPRT QTY=3\n"
                           "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\n"));
  EXPECT_EQ("3/0/0 0/0/0 ", AllMarks());
}

TEST_F(ForeignPrintOrder, ANulAtTheStartOfABlockIsAByteLikeAnyOther) {
  std::string text;
  while (text.size() < 8192) text += std::string(1023, 'x') + "\n";
  ASSERT_EQ(8192u, text.size());
  text += std::string("\0\n", 2);
  EXPECT_EQ(0, Load(text + "PRT TYP=STD\nPRT QTY=3\n"
                           "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\n"));
  EXPECT_EQ("3/0/0 0/0/0 ", AllMarks());
}

TEST_F(ForeignPrintOrder, AnEmptyFileIsRead) {
  EXPECT_EQ(0, Load(""));
  EXPECT_EQ(0, Load("\n"));
  EXPECT_EQ(0, Load(std::string(1, '\0')));
  EXPECT_EQ(kNothing, AllMarks());
}

TEST_F(ForeignPrintOrder, AFolderReadsAsAFileThatCannotBeOpened) {
  card_.MakeDir("MISC/AUTPRINT.MRK");
  EXPECT_EQ(-1, LoadFile());
  EXPECT_EQ(-1, Save("CAM"));
  EXPECT_TRUE(card_.Exists("MISC/AUTPRINT.MRK"));
}

TEST_F(ForeignPrintOrder, APipeReadsAsAFileThatCannotBeOpenedAndIsNotWaitedFor) {
  ASSERT_EQ(0, mkfifo(OrderPath().c_str(), 0644));
  EXPECT_EQ(-1, LoadFile());
  EXPECT_EQ(-1, Save("CAM"));
  EXPECT_EQ(kNothing, AllMarks());
}

TEST_F(ForeignPrintOrder, NoDescriptorIsLost) {
  const int before = flm_test::FdCount();
  Load(kSeveralJobs);
  Load("PRT TYP=" + std::string(200, 'v') + "\n");
  dpof_.LoadDPOFInfo(card_.Path("MISC").c_str(), &catalogue_);
  card_.MakeFile("outside");
  dpof_.LoadDPOFInfo(card_.Path("outside").c_str(), &catalogue_);
  EXPECT_EQ(before, flm_test::FdCount());
}

TEST_F(ForeignPrintOrder, AFileThatShrinksWhileItIsReadEnds) {
  static int reads;
  reads = 0;
  flm::Os().Read = [](int, void*, size_t) -> ssize_t { return reads++ == 0 ? 0 : -1; };
  EXPECT_EQ(0, Load(kSeveralJobs));
  EXPECT_EQ(kNothing, AllMarks());
}

TEST_F(ForeignPrintOrder, ReadingInSmallPiecesGivesTheSameMarks) {
  flm::Os().Read = [](int descriptor, void* buffer, size_t size) -> ssize_t {
    return read(descriptor, buffer, size < 7 ? size : 7);
  };
  EXPECT_EQ(0, Load(kSeveralJobs));
  EXPECT_EQ("3/1/0 0/1/5 ", AllMarks());
}

TEST_F(ForeignPrintOrder, RandomBytesEnd) {
  std::mt19937 random(20091224);
  for (int round = 0; round < 40; ++round) {
    std::string bytes(random() % 20000, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random() % 256);
    EXPECT_EQ(0, Load(bytes)) << round;
  }
  EXPECT_EQ(kNothing, AllMarks());
}

// Texts made of the words of print orders, in any order: the reader stays within bounds, and only
// files of the catalogue are ever marked.
TEST_F(ForeignPrintOrder, RandomWordsEndAtAStatedCode) {
  using std::string_literals::operator""s;
  const std::string words[] = {"[JOB]",
                               "[HDR]",
                               "PRT",
                               "PRT TYP",
                               "PRT QTY",
                               "PRT PID",
                               "=",
                               "STD",
                               "IDX",
                               "SIZ -05",
                               "<IMG SRC",
                               "IMG SRC",
                               "IMG FMT",
                               "<I",
                               "IM",
                               "P",
                               "\"",
                               "../",
                               "DCIM/",
                               "100PHOTO/",
                               "ABCD0001.JPG",
                               "ABCD0002.JPG",
                               "\n",
                               "\n",
                               "\n",
                               "\r\n",
                               "\r\n",
                               "\r",
                               "\0"s,
                               "99999999999",
                               "003",
                               std::string(130, 'v'),
                               std::string(1000, 'w'),
                               "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\n"};
  std::mt19937 random(1224);
  const std::vector<std::string> tree = card_.Tree();
  for (int round = 0; round < 150; ++round) {
    std::string text;
    for (auto i = random() % 60; i > 0; --i) text += words[random() % std::size(words)];
    const int result = Load(text);
    EXPECT_TRUE(result == 0 || result == -1) << result;
  }
  EXPECT_EQ(2, catalogue_.GetCount());
  EXPECT_EQ(tree.size() + 1, card_.Tree().size());
}

}  // namespace
