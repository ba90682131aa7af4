// Tested by path_shapes_test: every shape, every size and the odd numbers, compared with snprintf.
#include "dcf/dcf_path.h"

#include "base/fixed_sizes.h"
#include "dcf/dcf_name.h"
#include "dcf/item_layout.h"

namespace flm {
namespace {

constexpr int kDirNumberWidth = 3;
constexpr int kFileNumberWidth = 4;

// Adds a field's characters at a place; the place behind them.
char* PutField(char* at, NamePart field) {
  if (field.text == nullptr) return at;
  for (size_t i = 0; i < field.maxLength && field.text[i] != '\0'; ++i) *at++ = field.text[i];
  return at;
}

// Writes the name of a file of the camera's own numbering; its length.
size_t PutNumberedName(char* name, NamePart prefix, int fileNumber, NamePart ext) {
  char* const number = PutField(name, prefix);
  int rest = fileNumber;
  for (int digit = kFileNumberWidth - 1; digit >= 0; --digit, rest /= 10) {
    number[digit] = static_cast<char>('0' + rest % 10);
  }
  number[kFileNumberWidth] = '.';
  return static_cast<size_t>(PutField(number + kFileNumberWidth + 1, ext) - name);
}

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
  // Nearly every path ends in such a name, which is put together at once.
  if (prefix.maxLength <= kPrefixSize && ext.maxLength <= kExtensionSize && fileNumber >= 0 &&
      fileNumber <= kLastFileNumber) {
    char name[kDcfNameLength];
    return out.Bytes(name, PutNumberedName(name, prefix, fileNumber, ext));
  }
  return out.Text(prefix.text, prefix.maxLength)
      .Number(fileNumber, kFileNumberWidth)
      .Char('.')
      .Text(ext.text, ext.maxLength);
}

BoundedText& AppendPrintOrder(BoundedText& out, const char* root) {
  return AppendRootFolder(out, root, kMiscFolder).Char('/').Text(kPrintOrderFile);
}

}  // namespace flm
