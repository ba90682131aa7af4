// Reading the names and paths of the camera file system (DCF, CIPA DC-009). Pure functions: no
// allocation, no file access, no state, and no byte past the end of a text is looked at.
//
// A file name        A whole path below the root (root of L characters, tree "DCIM")
//
//   QVX_0012.JPG       /mnt/mmc/DCIM/100PHOTO/QVX_0012.JPG
//   |   |    |         |       |     |        |   |    |
//   0   4    9         0       L    L+6       |   |    third-last character: extension
//   free     extension                        |  L+19: file number, 4 digits
//       number                                12 before the end: the four free characters
//
// In the tree "VIDEO" both numbers stand one place further back.
#ifndef FILELISTMANAGEMENT_DCF_DCF_NAME_H
#define FILELISTMANAGEMENT_DCF_DCF_NAME_H

namespace flm {

// Kinds of files, as the name checks tell them apart; negative results refuse a name.
constexpr int kKindMain = 0;
constexpr int kKindMp3 = 200;
constexpr int kKindWav = 201;
constexpr int kKindSrw = 202;
constexpr int kKindJpg = 203;
constexpr int kKindMpo = 204;

constexpr int kCameraNumber = 99;  // the "CAMERA" folder has no number of its own
constexpr int kFirstDirNumber = 100;
constexpr int kLastDirNumber = 999;
constexpr int kLastFileNumber = 9999;
constexpr int kFileIndexBase = 100000;  // a file index is directory number * this + file number

// Offsets of name parts.
constexpr int kNumberAt = 4;
constexpr int kNumberDigits = 4;
constexpr int kDirDigits = 3;

// Whether the file of this kind accompanies a main file of the same number.
bool IsCompanionKind(int kind);

// The check for files of numbered folders; the name is in upper case already. A kind, or -2 too
// short, -3 too long, -201 the first four neither letters nor "_" with no digit behind them, -104
// to -107 the fifth to eighth character is no digit, -100 unknown extension.
int CheckDcfName(const char* name);

// The same for a name that is known to have 12 characters.
int CheckDcfCharacters(const char* name);

// The check for files of the "CAMERA" folder: 12 to 40 characters, any extension. A kind or -3.
int CheckFreeName(const char* name);

// The check for folder names, in upper case: 0, or -2 not 8 characters, -100 to -102 the first to
// third character is no digit.
int CheckDirName(const char* name);

// The kind that characters 10 to 12 of a name stand for; -100 for none or a shorter name.
int DcfExtensionKind(const char* name);

// Whether a path contains "CAMERA" anywhere.
bool HasCameraWord(const char* path);

// Whether a folder name begins with "CAMERA" (its files need not follow DCF).
bool IsCameraName(const char* dirName);

// Decimal value of the fifth to eighth character of a file name.
int FileNumberInName(const char* name);

// Number of a folder: 99 for "CAMERA", else the value of its first three characters.
int DirNumberInName(const char* dirName);

// What follows the three digits of a folder name; "" for a shorter name.
const char* SuffixOfDirName(const char* dirName);

// The prefix code of the first four characters, compared exactly: "CAM_" 0, "HDV_" 1, "HDE_" 2,
// "HDA_" 3, "SDV_" 4, "SDE_" 5, "SDA_" 6; -1 for anything else.
int PrefixCode(const char* name);

// The first of the seven known prefixes found anywhere in a path; -1 for none.
int PrefixCodeInPath(const char* path);

// Directory and file number of a path below a root of rootLength characters, in the tree "DCIM"
// (stillTree) or "VIDEO". A path with "CAMERA" in it gives 99 and 0. A number for which the path is
// too short is left alone.
void NumbersInPath(const char* path, int rootLength, bool stillTree, int* dirNumber,
                   int* fileNumber);

// The same for a path of which it is known whether "CAMERA" is in it.
void NumbersInPath(const char* path, bool camera, int rootLength, bool stillTree, int* dirNumber,
                   int* fileNumber);

// What stands between the second '/' from the end and the end; null when there are not two.
const char* DirNameInPath(const char* path);

// What follows the last '/', the whole text without one.
const char* FileNameInPath(const char* path);

// The four free characters, 12 before the end of a path; null for a shorter path.
const char* PrefixInPath(const char* path);

// The last three characters of a path or name; null for a shorter one.
const char* ExtensionInPath(const char* path);

// Whether the path ends in exactly JPG.
bool EndsInJpg(const char* path);

}  // namespace flm

#endif
