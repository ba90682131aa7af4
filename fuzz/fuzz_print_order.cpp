// A print order of any bytes, read into a list of a few files: the reading ends and stays in
// bounds, and what it understood is the same after it has been written and read again.
#include <array>
#include <string>
#include <vector>

#include "filelist/CQFileList.h"
#include "fuzz/memory_card.h"

namespace {

constexpr int kListType = 4;
constexpr int kFiles = 6;
constexpr char kCopy[] = "/mnt/mmc/MISC/COPY.MRK";
constexpr char kOrder[] = "/mnt/mmc/MISC/AUTPRINT.MRK";

class Fixture {
 public:
  Fixture() {
    flm_fuzz::MemoryCard& card = flm_fuzz::MemoryCard::Get();
    for (const char* const file :
         {"/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG", "/mnt/mmc/DCIM/100PHOTO/QVX_0002.JPG",
          "/mnt/mmc/DCIM/100PHOTO/QVX_0002.WAV", "/mnt/mmc/DCIM/100PHOTO/QVX_0003.MP4",
          "/mnt/mmc/DCIM/101ABCDE/_QVX0001.JPG", "/mnt/mmc/DCIM/101ABCDE/S3D_0007.JPG",
          "/mnt/mmc/DCIM/999PHOTO/QVX_9999.JPG"}) {
      card.MakeFile(file);
    }
    card.MakeFolder("/mnt/mmc/MISC");
    card.Keep();
    list_.SetType(kListType);
    list_.SetBaseURI(flm_fuzz::kRoot);
    if (list_.Listup(0) != kFiles) flm_fuzz::Fail("the card lists wrongly");
    for (int i = 0; i < kFiles; ++i) list_.GetAt(i, &items_[static_cast<size_t>(i)], false);
  }
  ~Fixture() { list_.Destroy(); }

  // Copies, index and size of every file.
  using Marks = std::vector<int>;
  Marks Read() {
    Marks marks;
    for (CQFileListItem& item : items_) {
      marks.push_back(list_.GetDPOFNumOfCopy(&item));
      marks.push_back(list_.GetDPOFIndex(&item) ? 1 : 0);
      marks.push_back(list_.GetDPOFSize(&item));
    }
    return marks;
  }

  void ClearMarks() {
    list_.SetDPOFAll(0);
    list_.SetDPOFIndex(false);
    list_.SetDPOFSizeAll(0);
    list_.SetCur(nullptr);
  }

  void SaveAndLoad() {
    const Marks before = Read();
    std::string copy = kCopy;
    if (list_.SaveDPOFInfo(copy.data(), nullptr) != 0) flm_fuzz::Fail("no order was saved");
    ClearMarks();
    if (list_.LoadDPOFInfo(copy.data()) != 0) flm_fuzz::Fail("a saved order cannot be loaded");
    if (Read() != before) flm_fuzz::Fail("a saved order loads differently");
  }

  CQFileList& List() { return list_; }

 private:
  CQFileList list_;
  std::array<CQFileListItem, kFiles> items_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  flm_fuzz::MemoryCard& card = flm_fuzz::MemoryCard::Get();
  static Fixture fixture;
  card.Restore();
  card.MakeFile(kOrder, {reinterpret_cast<const char*>(data), data == nullptr ? 0 : size});
  fixture.ClearMarks();
  fixture.List().LoadDPOFInfo(nullptr);
  fixture.SaveAndLoad();
  if (!card.AllClosed()) flm_fuzz::Fail("a file stays open");
  return 0;
}
