// Writing the paths of the camera file system. Every path that the library forms is formed here.
//
//   shape                          example
//   root/word                      /mnt/mmc/MISC
//   root/tree/folder               /mnt/mmc/DCIM/100PHOTO
//   root/tree/NNNsuffix            /mnt/mmc/DCIM/100PHOTO   (the number printed, not the name)
//   folder/prefixNNNN.ext          /mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG
//   folder/name                    /mnt/mmc/DCIM/CAMERA/party at the lake.jpg
//   root/MISC/AUTPRINT.MRK         the print order
//
// Widths are minimums: a number 10000 prints with five digits, -1 as "-001".
#ifndef FILELISTMANAGEMENT_DCF_DCF_PATH_H
#define FILELISTMANAGEMENT_DCF_DCF_PATH_H

#include "base/bounded_text.h"

namespace flm {

constexpr char kStillTree[] = "DCIM";
constexpr char kMovieTree[] = "VIDEO";
constexpr char kMiscFolder[] = "MISC";
constexpr char kStillSuffix[] = "PHOTO";
constexpr char kMovieSuffix[] = "VIDEO";
constexpr char kPrintOrderFile[] = "AUTPRINT.MRK";
constexpr char kStillExtension[] = "JPG";
constexpr char kMovieExtension[] = "MP4";

// Modes of a catalogue. The modes without a name list movies too.
constexpr int kModeStillPlain = 0;  // folders spelled with their number and "PHOTO"
constexpr int kModeMovie = 2;
constexpr int kModeStillNamed = 4;  // folders spelled with their real names

bool IsStillMode(int mode);         // whether the mode lists "DCIM"
const char* ScannedTree(int mode);  // the tree that is listed
const char* MadeTree(int mode);     // the tree that is made on an empty card: not always the same

// A part of a file name that is a field without a terminator, or a text with a maximum.
struct NamePart {
  const char* text;
  size_t maxLength;
};
NamePart WholeText(const char* text);

BoundedText& AppendRootFolder(BoundedText& out, const char* root, const char* word);
BoundedText& AppendNamedFolder(BoundedText& out, const char* root, const char* tree,
                               const char* folder);
BoundedText& AppendNumberedFolder(BoundedText& out, const char* root, const char* tree,
                                  int dirNumber, const char* suffix);
// "prefixNNNN.ext"
BoundedText& AppendNumberedName(BoundedText& out, NamePart prefix, int fileNumber, NamePart ext);
BoundedText& AppendPrintOrder(BoundedText& out, const char* root);

}  // namespace flm

#endif
