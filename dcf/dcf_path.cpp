// Tested by path_shapes_test: every shape, every size and the odd numbers, compared with snprintf.
#include "dcf/dcf_path.h"

namespace flm {
namespace {

constexpr int kDirNumberWidth = 3;
constexpr int kFileNumberWidth = 4;

}  // namespace

bool IsStillMode(int mode) { return mode == kModeStillPlain || mode == kModeStillNamed; }

const char* ScannedTree(int mode) { return IsStillMode(mode) ? kStillTree : kMovieTree; }

const char* MadeTree(int mode) { return mode == kModeMovie ? kMovieTree : kStillTree; }

NamePart WholeText(const char* text) { return {text, static_cast<size_t>(-1)}; }

BoundedText& AppendRootFolder(BoundedText& out, const char* root, const char* word) {
  return out.Text(root).Char('/').Text(word);
}

BoundedText& AppendNamedFolder(BoundedText& out, const char* root, const char* tree,
                               const char* folder) {
  return AppendRootFolder(out, root, tree).Char('/').Text(folder);
}

BoundedText& AppendNumberedFolder(BoundedText& out, const char* root, const char* tree,
                                  int dirNumber, const char* suffix) {
  return AppendRootFolder(out, root, tree)
      .Char('/')
      .Number(dirNumber, kDirNumberWidth)
      .Text(suffix);
}

BoundedText& AppendNumberedName(BoundedText& out, NamePart prefix, int fileNumber, NamePart ext) {
  return out.Text(prefix.text, prefix.maxLength)
      .Number(fileNumber, kFileNumberWidth)
      .Char('.')
      .Text(ext.text, ext.maxLength);
}

BoundedText& AppendPrintOrder(BoundedText& out, const char* root) {
  return AppendRootFolder(out, root, kMiscFolder).Char('/').Text(kPrintOrderFile);
}

}  // namespace flm
