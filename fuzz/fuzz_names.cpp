// Names and paths of any bytes through everything that reads or writes them. No function may look
// behind the terminating NUL; every text lies in a block of exactly its size, so that a sanitizer
// sees it.
//
// Input: a number, a name, and behind a NUL another text (a folder's name, an extension).
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "base/bounded_text.h"
#include "base/fixed_sizes.h"
#include "dcf/CQDCFDir.h"
#include "dcf/CQDCFList.h"
#include "dcf/CQDCFMemManager.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "fuzz/fail.h"
#include "fuzz/input.h"

namespace {

constexpr int kPoolUnits = 2;
constexpr size_t kMostShown = 127;

// A text in a block of its own that ends with its NUL.
class Block {
 public:
  explicit Block(std::string_view text) : chars_(text.begin(), text.end()) {
    chars_.push_back('\0');
    chars_.shrink_to_fit();
  }
  char* Text() { return chars_.data(); }
  size_t Length() const { return std::strlen(chars_.data()); }

 private:
  std::vector<char> chars_;
};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

void Require(bool holds, const char* message, const char* name) {
  if (!holds) flm_fuzz::Fail(message, name);
}

// Everything that dcf_name reads out of a text as it stands.
void ReadEverything(const char* text) {
  flm::CheckDcfName(text);
  flm::CheckFreeName(text);
  flm::CheckDirName(text);
  flm::DcfExtensionKind(text);
  flm::IsCameraName(text);
  flm::PrefixCode(text);
  flm::DirNumberInName(text);
  flm::SuffixOfDirName(text);
  flm::DirNameInPath(text);
  flm::FileNameInPath(text);
  flm::PrefixInPath(text);
  flm::ExtensionInPath(text);
  flm::EndsInJpg(text);
  flm::PrefixCodeInPath(text);
  int dirNumber = -1;
  int fileNumber = -1;
  for (const int rootLength : {0, 1, 8, 97}) {
    flm::NumbersInPath(text, rootLength, rootLength != 8, &dirNumber, &fileNumber);
  }
}

// What an accepted name promises to everybody who reads it later.
void CheckFileName(CQDCFDir& dir, std::string_view text) {
  Block name(text);
  const int kind = dir.CheckFileNameSyntax(name.Text());
  if (kind < 0) return;
  Require(name.Length() == flm::kDcfNameLength, "a name of another length", name.Text());
  Require(std::all_of(name.Text() + flm::kNumberAt, name.Text() + 8, IsDigit), "no number",
          name.Text());
  const int number = dir.GetFnumFromFileName(name.Text());
  Require(number >= 0 && number <= flm::kLastFileNumber, "a number out of range", name.Text());
  Require(flm::DcfExtensionKind(name.Text()) == kind, "another kind", name.Text());
  Require(dir.CheckFileNameSyntax(name.Text()) == kind, "judged differently again", name.Text());
}

void CheckFolderName(CQDCFList& list, std::string_view text) {
  Block name(text);
  if (list.CheckDirNameSyntax(name.Text()) < 0) return;
  const int number = list.GetDnum(name.Text());
  Require(number >= 0 && number <= flm::kLastDirNumber, "a folder number out of range",
          name.Text());
  Require(list.CheckDirNameSyntax(name.Text()) == 0, "judged differently again", name.Text());
}

// An item of that name, written and read back.
void KeepName(CQDCFDir& dir, int number, std::string_view text) {
  Block name(text);
  int added = 0;
  DCFItem* const item = dir.AddFile(nullptr, number, name.Text(), &added, 0);
  if (item == nullptr) flm_fuzz::Fail("no item for", name.Text());
  dir.SetFileName(item, name.Text());
  const std::string kept(name.Text(), std::min<size_t>(name.Length(), flm::kFileNameSize - 1));
  Require(kept == item->fileName, "a name is kept differently:", name.Text());
  dir.SetPrefix(item, name.Text());
  dir.SetObject(name.Text());
  dir.GetPrefixCode(item);
  dir.GetItem(number, name.Text());
  dir.GetFidx(number, name.Text());
  dir.RemoveItem(item);
}

void ShowName(CQDCFDir& dir, std::string_view text) {
  Block path(text);
  std::vector<char> out(kMostShown, '\0');
  dir.GetFileName(path.Text(), out.data());
  dir.GetFileNameToPrefixCode(path.Text());
  dir.MakeUpperCase(path.Text());
  dir.CheckFileNameSyntaxNonDCF(path.Text());
}

// Every shape of path into a buffer of exactly `size` bytes.
void WritePaths(int number, const char* first, const char* second, int size) {
  std::vector<char> out(static_cast<size_t>(std::max(size, 1)));
  flm::BoundedText folder(out.data(), size);
  flm::AppendNamedFolder(folder, first, flm::kStillTree, second);
  flm::BoundedText name(out.data(), size);
  flm::AppendNumberedFolder(name, first, flm::kMovieTree, number, second).Char('/');
  flm::AppendNumberedName(name, {first, 4}, number, {second, 3});
  flm::AppendNumberedName(name, flm::WholeText(first), number, flm::WholeText(second));
  flm::BoundedText order(out.data(), size);
  flm::AppendPrintOrder(order, first);
  Require(size < 1 || std::memchr(out.data(), '\0', out.size()) != nullptr, "no end in", first);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static CQDCFMemManager pool;
  static CQDCFDir dir;
  static CQDCFList list;
  if (!pool.HasPool()) {
    pool.Create(sizeof(DCFItem), kPoolUnits, 0);
    dir.SetMemMgr(&pool);
  }
  flm_fuzz::Input input(data, size);
  const int number = input.Number();
  const std::string_view rest = input.Rest();
  const size_t end = std::min(rest.find('\0'), rest.size());
  const std::string_view name = rest.substr(0, end);
  const std::string_view other = rest.substr(std::min(end + 1, rest.size()));

  Block text(name);
  Block otherText(other);
  ReadEverything(text.Text());
  ReadEverything(otherText.Text());
  CheckFileName(dir, name);
  CheckFolderName(list, other);
  dir.SetDnum(static_cast<short>(number));
  KeepName(dir, number, name);
  ShowName(dir, name);
  WritePaths(number, text.Text(), otherText.Text(), number & 0xFF);
  dir.FreeMem();
  return 0;
}
