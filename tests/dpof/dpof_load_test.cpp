// Reading a print order back: each kind of line, and what carries over from line to line.
#include "tests/dpof/dpof_fixture.h"

namespace {

constexpr char kOne[] = "DCIM/100PHOTO/ABCD0001.JPG";
constexpr char kTwo[] = "DCIM/100PHOTO/ABCD0002.JPG";
constexpr char kThree[] = "DCIM/101PHOTO/ABCD0003.JPG";
constexpr char kMovie[] = "DCIM/101PHOTO/ABCD0004.MP4";
constexpr char kSourceOne[] = "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\r\n";
constexpr char kSourceTwo[] = "<IMG SRC=\"../DCIM/100PHOTO/ABCD0002.JPG\">\r\n";
constexpr char kSourceMovie[] = "<IMG SRC=\"../DCIM/101PHOTO/ABCD0004.MP4\">\r\n";

using flm_test::PrintOrderFile;

int TimesIn(const std::string& text, const std::string& part) {
  int times = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++times;
  return times;
}

class LoadedPrintOrder : public flm_test::PrintOrderFile {
 protected:
  LoadedPrintOrder() { EXPECT_EQ(4, With({kOne, kTwo, kThree, kMovie})); }
  // Loads a text in which each '|' stands for a line end.
  int LoadLines(std::string text) {
    for (size_t at = text.find('|'); at != std::string::npos; at = text.find('|')) {
      text.replace(at, 1, "\r\n");
    }
    return Load(text);
  }
};

TEST_F(LoadedPrintOrder, AStandardJobSetsThePrints) {
  EXPECT_EQ(0, LoadLines(std::string("[JOB]|PRT PID=001|PRT TYP=STD|PRT QTY=002|"
                                     "IMG FMT=EXIF2 -J|") +
                         kSourceOne));
  EXPECT_EQ(2, Copies(kOne));
  EXPECT_EQ(0, InIndex(kOne));
  EXPECT_EQ(0, Size(kOne));
  EXPECT_EQ(0, Copies(kTwo));
}

TEST_F(LoadedPrintOrder, AnIndexJobSetsTheIndexMark) {
  EXPECT_EQ(0, LoadLines(std::string("[JOB]|PRT PID=001|PRT TYP=IDX|PRT QTY=001>|") + kSourceOne +
                         kSourceTwo));
  EXPECT_EQ(1, InIndex(kOne));
  EXPECT_EQ(1, InIndex(kTwo));
  EXPECT_EQ(0, InIndex(kThree));
  EXPECT_EQ(0, Copies(kOne));
}

TEST_F(LoadedPrintOrder, ASizeJobSetsItsCode) {
  for (const int code : {3, 4, 5, 8}) {
    const std::string type = "PRT TYP=SIZ -0" + std::to_string(code) + "|";
    EXPECT_EQ(0, LoadLines("[JOB]|PRT PID=001|" + type + "PRT QTY=007|" + kSourceOne));
    EXPECT_EQ(code, Size(kOne));
    EXPECT_EQ(0, Copies(kOne));
    EXPECT_EQ(0, InIndex(kOne));
  }
}

TEST_F(LoadedPrintOrder, AnyOtherTypeSetsNothing) {
  for (const char* type : {"", "SIZ -06", "SIZ -3", "SIZ", "std", "STDX", "STD ", " STD", "IDX>",
                           "UNI", "MUL", "\"STD\""}) {
    EXPECT_EQ(0, LoadLines(std::string("[JOB]|PRT TYP=") + type + "|PRT QTY=002|" + kSourceOne))
        << type;
    EXPECT_EQ("0/0/0 0/0/0 0/0/0 0/0/0 ", AllMarks()) << type;
  }
}

TEST_F(LoadedPrintOrder, WithoutAnyTypeASourceSetsNothing) {
  EXPECT_EQ(0, LoadLines(std::string("[JOB]|PRT QTY=002|") + kSourceOne));
  EXPECT_EQ("0/0/0 0/0/0 0/0/0 0/0/0 ", AllMarks());
}

TEST_F(LoadedPrintOrder, WithoutAQuantityThePrintsAreNone) {
  Mark(kOne, 2, 9);
  EXPECT_EQ(0, LoadLines(std::string("[JOB]|PRT TYP=STD|") + kSourceOne));
  EXPECT_EQ(0, Copies(kOne));
}

TEST_F(LoadedPrintOrder, TypeAndQuantityCarryOverIntoTheNextJob) {
  EXPECT_EQ(0, LoadLines(std::string("[JOB]|PRT TYP=STD|PRT QTY=004|") + kSourceOne +
                         "[JOB]|PRT PID=002|" + kSourceTwo));
  EXPECT_EQ(4, Copies(kOne));
  EXPECT_EQ(4, Copies(kTwo));
}

TEST_F(LoadedPrintOrder, AJobMayHaveSeveralImages) {
  EXPECT_EQ(0, LoadLines(std::string("[JOB]|PRT TYP=STD|PRT QTY=004|") + kSourceOne + kSourceTwo +
                         "<IMG SRC=\"../DCIM/101PHOTO/ABCD0003.JPG\">|"));
  EXPECT_EQ("4/0/0 4/0/0 4/0/0 0/0/0 ", AllMarks());
}

TEST_F(LoadedPrintOrder, ALaterJobForTheSameFileWins) {
  EXPECT_EQ(0, LoadLines(std::string("PRT TYP=STD|PRT QTY=004|") + kSourceOne + "PRT QTY=006|" +
                         kSourceOne));
  EXPECT_EQ(6, Copies(kOne));
}

TEST_F(LoadedPrintOrder, MarksThatAreNotNamedStay) {
  Mark(kOne, 15, 5);
  Mark(kTwo, 2, 9);
  catalogue_.SetCustomInfoAll(14, 1);
  EXPECT_EQ(0, LoadLines(std::string("PRT TYP=STD|PRT QTY=004|") + kSourceOne));
  EXPECT_EQ("4/1/5 9/1/0 0/1/0 0/0/0 ", AllMarks());
}

TEST_F(LoadedPrintOrder, AQuantityIsItsLeadingDigits) {
  struct Row {
    const char* text;
    int copies;
  };
  for (const Row& row : {Row{"7", 7}, Row{"007", 7}, Row{"007>", 7}, Row{"12abc", 12}, Row{"", 0},
                         Row{" 7", 0}, Row{"-7", 0}, Row{"+7", 0}, Row{"x7", 0}, Row{"0", 0},
                         Row{"254", 254}, Row{"256", 0}, Row{"300", 44}, Row{"4294967301", 5},
                         Row{"000000000000000000000000000003", 3}, Row{"7=8", 7}, Row{"=7", 0}}) {
    ClearMarks();
    EXPECT_EQ(0, LoadLines(std::string("PRT TYP=STD|PRT QTY=") + row.text + "|" + kSourceOne))
        << row.text;
    EXPECT_EQ(row.copies, Copies(kOne)) << row.text;
  }
}

TEST_F(LoadedPrintOrder, TheValueBeginsBehindTheFirstEqualsSign) {
  EXPECT_EQ(0, LoadLines(std::string("PRT TYP and more=STD|PRT QTY =003|") + kSourceOne));
  EXPECT_EQ(3, Copies(kOne));
}

TEST_F(LoadedPrintOrder, ALineWithoutAnEqualsSignKeepsTheValueBefore) {
  EXPECT_EQ(0, LoadLines(std::string("PRT PID=STD|PRT TYP|PRT TYP STD|PRT QTY=003|") + kSourceOne));
  EXPECT_EQ(3, Copies(kOne));
}

TEST_F(LoadedPrintOrder, AQuantityWithoutAnEqualsSignReadsTheValueBefore) {
  EXPECT_EQ(0, LoadLines(std::string("PRT TYP=STD|PRT PID=005|PRT QTY nine|") + kSourceOne));
  EXPECT_EQ(5, Copies(kOne));
}

TEST_F(LoadedPrintOrder, OneOrTwoLineEndCharactersAreTakenOff) {
  for (const char* end : {"\n", "\r\n"}) {
    ClearMarks();
    const std::string text = std::string("PRT TYP=STD") + end + "PRT QTY=3" + end + kSourceOne;
    EXPECT_EQ(0, Load(text));
    EXPECT_EQ(3, Copies(kOne));
  }
  ClearMarks();
  EXPECT_EQ(0, Load(std::string("PRT TYP=STD\r\r\nPRT QTY=3\n") + kSourceOne));
  EXPECT_EQ("0/0/0 0/0/0 0/0/0 0/0/0 ", AllMarks());
}

TEST_F(LoadedPrintOrder, AValueOf127CharactersIsReadAndALongerOneEndsTheLoad) {
  const std::string start = std::string("PRT TYP=STD|PRT QTY=2|") + kSourceOne;
  const std::string behind = std::string("|PRT TYP=STD|") + kSourceTwo;
  EXPECT_EQ(0, LoadLines(start + "PRT ZZZ=" + std::string(127, 'v') + behind));
  EXPECT_EQ(2, Copies(kTwo));
  ClearMarks();
  EXPECT_EQ(-1, LoadLines(start + "PRT ZZZ=" + std::string(128, 'v') + behind));
  EXPECT_EQ(2, Copies(kOne));
  EXPECT_EQ(0, Copies(kTwo));
}

TEST_F(LoadedPrintOrder, ASourceLineMayBeginInTwoWays) {
  EXPECT_EQ(0, LoadLines("PRT TYP=STD|PRT QTY=2|IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\"|"
                         "<IMG SRX \"../DCIM/100PHOTO/ABCD0002.JPG\"|"));
  EXPECT_EQ(2, Copies(kOne));
  EXPECT_EQ(2, Copies(kTwo));
}

TEST_F(LoadedPrintOrder, AnotherKeyWithASourceSetsNothing) {
  EXPECT_EQ(0, LoadLines("PRT TYP=STD|PRT QTY=2|IMG FMT=\"../DCIM/100PHOTO/ABCD0001.JPG\"|"
                         "<img src=\"../DCIM/100PHOTO/ABCD0002.JPG\">|"
                         "<IMAGES=\"../DCIM/101PHOTO/ABCD0003.JPG\">|"));
  EXPECT_EQ("0/0/0 0/0/0 0/0/0 0/0/0 ", AllMarks());
}

TEST_F(LoadedPrintOrder, ASourceLineWithoutQuotesNamesTheSourceBefore) {
  EXPECT_EQ(0, LoadLines("PRT TYP=STD|PRT QTY=2|IMG FMT=\"../DCIM/100PHOTO/ABCD0002.JPG\"|"
                         "<IMG SRC=../DCIM/100PHOTO/ABCD0001.JPG>|"));
  EXPECT_EQ(0, Copies(kOne));
  EXPECT_EQ(2, Copies(kTwo));
}

TEST_F(LoadedPrintOrder, TheFirstThreeCharactersOfASourceAreDropped) {
  EXPECT_EQ(0, LoadLines("PRT TYP=STD|PRT QTY=2|<IMG SRC=\"???DCIM/100PHOTO/ABCD0001.JPG\">|"));
  EXPECT_EQ(2, Copies(kOne));
}

TEST_F(LoadedPrintOrder, ShortLinesArePassedOver) {
  EXPECT_EQ(0, Load(std::string("PRT TYP=STD\nPRT QTY=2\n\n\r\nPRT\nPRT T\n<I\n") + kSourceOne));
  EXPECT_EQ(2, Copies(kOne));
}

TEST_F(LoadedPrintOrder, TheShortestKeyLineIsRead) {
  EXPECT_EQ(0, Load(std::string("PRT PID=STD\nPRT TYP\nPRT QTY=2\n") + kSourceOne));
  EXPECT_EQ(2, Copies(kOne));
}

TEST_F(LoadedPrintOrder, AnEmptySourceIsNotTheSourceBefore) {
  EXPECT_EQ(0, LoadLines(std::string("PRT TYP=STD|PRT QTY=2|") + kSourceOne +
                         "PRT TYP=SIZ -03|<IMG SRC=\"\">|<IMG SRC=\"..\">|"));
  EXPECT_EQ("2/0/0 0/0/0 0/0/0 0/0/0 ", AllMarks());
}

TEST_F(LoadedPrintOrder, LinesInBracketsArePassedOver) {
  EXPECT_EQ(0, LoadLines(std::string("PRT TYP=STD|PRT QTY=2|[HDR] PRT QTY=9|[JOB]|") + kSourceOne));
  EXPECT_EQ(2, Copies(kOne));
}

TEST_F(LoadedPrintOrder, OtherLinesRepeatWhatTheLineBeforeThemDid) {
  EXPECT_EQ(0, LoadLines(std::string("PRT TYP=STD|PRT QTY=2|Pxx yyy=9|GEN CRT=\"CAM\"|") +
                         kSourceOne + "PXX YYY=5|VUQ RGN=BGN|"));
  EXPECT_EQ("2/0/0 0/0/0 0/0/0 0/0/0 ", AllMarks());
}

TEST_F(LoadedPrintOrder, ALastLineWithoutItsEndIsNotRead) {
  const std::string source = "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">";
  EXPECT_EQ(0, Load("PRT TYP=STD\r\nPRT QTY=2\r\n" + source));
  EXPECT_EQ(0, Copies(kOne));
  EXPECT_EQ(0, Load("PRT TYP=STD\r\nPRT QTY=2\r\n" + source + "\n"));
  EXPECT_EQ(2, Copies(kOne));
}

TEST_F(LoadedPrintOrder, MoviesAndUnknownFilesAreRefusedAndTheLoadGoesOn) {
  EXPECT_EQ(0, LoadLines(std::string("PRT TYP=STD|PRT QTY=2|") + kSourceMovie +
                         "<IMG SRC=\"../DCIM/100PHOTO/ABCD0099.JPG\">|"
                         "<IMG SRC=\"../DCIM/555PHOTO/ABCD0001.JPG\">|" +
                         kSourceOne));
  EXPECT_EQ("2/0/0 0/0/0 0/0/0 0/0/0 ", AllMarks());
}

TEST_F(LoadedPrintOrder, AMissingFileIsReported) { EXPECT_EQ(-1, LoadFile()); }

TEST_F(LoadedPrintOrder, ThePathMustHaveAMiscFolder) {
  card_.MakeFile("AUTPRINT.MRK", std::string("PRT TYP=STD\r\nPRT QTY=2\r\n") + kSourceOne);
  EXPECT_EQ(-1, dpof_.LoadDPOFInfo(card_.Path("AUTPRINT.MRK").c_str(), &catalogue_));
  EXPECT_EQ(0, Copies(kOne));
}

TEST_F(LoadedPrintOrder, TheFirstMiscInThePathEndsTheRoot) {
  card_.MakeFile("MISC/MISC/ORDER", std::string("PRT TYP=STD\r\nPRT QTY=2\r\n") + kSourceOne);
  EXPECT_EQ(0, dpof_.LoadDPOFInfo(card_.Path("MISC/MISC/ORDER").c_str(), &catalogue_));
  EXPECT_EQ(2, Copies(kOne));
  card_.MakeFile("MISCELLANY", std::string("PRT TYP=STD\r\nPRT QTY=3\r\n") + kSourceOne);
  EXPECT_EQ(0, dpof_.LoadDPOFInfo(card_.Path("MISCELLANY").c_str(), &catalogue_));
  EXPECT_EQ(3, Copies(kOne));
}

TEST_F(LoadedPrintOrder, BelowARootThatFillsAPathASourceNamesNoFile) {
  std::string deep = "deep";
  while (card_.Path(deep).size() < 126) deep += "/" + std::string(60, 'd');
  card_.MakeFile(deep + "/MISC", std::string("PRT TYP=STD\r\nPRT QTY=2\r\n") + kSourceOne);
  EXPECT_EQ(0, dpof_.LoadDPOFInfo(card_.Path(deep + "/MISC").c_str(), &catalogue_));
  EXPECT_EQ("0/0/0 0/0/0 0/0/0 0/0/0 ", AllMarks());
}

TEST_F(LoadedPrintOrder, NullArgumentsAreRefused) {
  EXPECT_EQ(-1, dpof_.LoadDPOFInfo(nullptr, &catalogue_));
  card_.WriteFile("MISC/AUTPRINT.MRK", "PRT TYP=STD\r\n");
  EXPECT_EQ(-1, dpof_.LoadDPOFInfo(OrderPath().c_str(), nullptr));
}

TEST_F(LoadedPrintOrder, WhatWasSavedComesBack) {
  Mark(kOne, 2, 2);
  Mark(kOne, 15, 4);
  Mark(kThree, 2, 99);
  Mark(kTwo, 15, 8);
  catalogue_.SetCustomInfoAll(14, 1);
  const std::string marks = AllMarks();
  const std::string text = Saved();
  ClearMarks();
  EXPECT_EQ(0, LoadFile());
  EXPECT_EQ(marks, AllMarks());
  EXPECT_EQ(text, Saved());
}

TEST_F(LoadedPrintOrder, ASizeWithoutATextDoesNotComeBack) {
  Mark(kOne, 15, 6);
  Saved();
  ClearMarks();
  EXPECT_EQ(0, LoadFile());
  EXPECT_EQ("0/0/0 0/0/0 0/0/0 0/0/0 ", AllMarks());
}

// A folder numbered 99 holds files of the layout, and its files are looked up by their names.
TEST_F(PrintOrderFile, OfAFolderNumbered99IsSavedAndReadBack) {
  ASSERT_EQ(3, With({"DCIM/099ABCDE/CAM_0007.JPG", "DCIM/099ABCDE/CAM_0008.JPG",
                     "DCIM/100PHOTO/CAM_0007.JPG"}));
  Mark("DCIM/099ABCDE/CAM_0008.JPG", 2, 3);
  Mark("DCIM/099ABCDE/CAM_0007.JPG", 14, 1);
  Mark("DCIM/099ABCDE/CAM_0007.JPG", 15, 4);
  const std::string marks = AllMarks();
  EXPECT_EQ("0/1/4 3/0/0 0/0/0 ", marks);
  const std::string order = Saved();
  EXPECT_EQ(1, TimesIn(order,
                       "QTY=003\r\nIMG FMT=EXIF2 -J\r\n"
                       "<IMG SRC=\"../DCIM/099ABCDE/CAM_0008.JPG\">\r\n"));
  EXPECT_EQ(2, TimesIn(order, "<IMG SRC=\"../DCIM/099ABCDE/CAM_0007.JPG\">\r\n"));
  EXPECT_EQ(3, TimesIn(order, "<IMG SRC="));
  ClearMarks();
  EXPECT_EQ(0, LoadFile());
  EXPECT_EQ(marks, AllMarks());
}

// Below such a root every path counts as one of free names, so a picture of another folder answers
// to its number only when that is 0.
TEST_F(PrintOrderFile, BelowARootNamedLikeTheCameraFolderIsSavedAndReadBack) {
  const std::string first = "CAMERA/DCIM/CAMERA01/first at sea.JPG";
  const std::string second = "CAMERA/DCIM/CAMERA01/second at sea.JPG";
  const std::string other = "CAMERA/DCIM/100PHOTO/QVX_0001.JPG";
  const std::string zeroth = "CAMERA/DCIM/101PHOTO/QVX_0000.JPG";
  for (const std::string& file : {first, second, other, zeroth}) card_.MakeFile(file);
  card_.MakeDir("CAMERA/MISC");
  catalogue_.Create();
  catalogue_.SetMode(4);
  ASSERT_EQ(0, catalogue_.SetBaseURI(card_.Path("CAMERA").c_str()));
  ASSERT_EQ(0, catalogue_.Listup(0, true));
  ASSERT_EQ(4, catalogue_.GetCount());
  Mark(second, 2, 3);
  Mark(zeroth, 2, 4);
  EXPECT_EQ(-1, catalogue_.SetCustomInfo(card_.Path(other).c_str(), 2, 5));
  const std::string order = card_.Path("CAMERA/MISC/AUTPRINT.MRK");
  EXPECT_EQ(0, dpof_.SaveDPOFInfo(order.c_str(), &catalogue_, "CAM", 4));
  const std::string text = card_.ReadFile("CAMERA/MISC/AUTPRINT.MRK");
  EXPECT_EQ(1, TimesIn(text,
                       "QTY=003\r\nIMG FMT=EXIF2 -J\r\n"
                       "<IMG SRC=\"../DCIM/CAMERA01/second at sea.JPG\">\r\n"));
  EXPECT_EQ(1, TimesIn(text,
                       "QTY=004\r\nIMG FMT=EXIF2 -J\r\n"
                       "<IMG SRC=\"../DCIM/101PHOTO/QVX_0000.JPG\">\r\n"));
  EXPECT_EQ(2, TimesIn(text, "<IMG SRC="));
  const std::string marks = AllMarks();
  ClearMarks();
  EXPECT_EQ("0/0/0 0/0/0 0/0/0 0/0/0 ", AllMarks());
  EXPECT_EQ(0, dpof_.LoadDPOFInfo(order.c_str(), &catalogue_));
  EXPECT_EQ(marks, AllMarks());
  EXPECT_EQ(3, Copies(second));
  EXPECT_EQ(4, Copies(zeroth));
}

class QuotedText : public testing::Test {
 protected:
  std::string Get(const std::string& line) {
    char out[64] = "before";
    dpof_.GetPath(line.c_str(), out);
    return out;
  }
  CQDPOF dpof_;
};

TEST_F(QuotedText, IsWhatStandsBetweenTheFirstTwoQuotes) {
  EXPECT_EQ("../A", Get("<IMG SRC=\"../A\">"));
  EXPECT_EQ("at the start", Get("\"at the start\" and on"));
  EXPECT_EQ("a", Get("x\"a\"b\"c\""));
  EXPECT_EQ("", Get("x\"\"y"));
}

TEST_F(QuotedText, WithoutTwoQuotesNothingChanges) {
  EXPECT_EQ("before", Get("no quotes"));
  EXPECT_EQ("before", Get("one \" quote"));
  EXPECT_EQ("before", Get("\""));
  EXPECT_EQ("before", Get(""));
}

TEST_F(QuotedText, NullArgumentsAreRefused) {
  char out[8] = "before";
  EXPECT_EQ(-1, dpof_.GetPath(nullptr, out));
  EXPECT_EQ(-1, dpof_.GetPath("\"a\"", nullptr));
  EXPECT_STREQ("before", out);
}

}  // namespace
