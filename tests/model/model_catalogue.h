// The model of the catalogue. The operations have the names and arguments of CQDCFList, so that one
// piece of test code drives both; what they do is written down a second time, as plainly as can be.
#ifndef FILELISTMANAGEMENT_TESTS_MODEL_MODEL_CATALOGUE_H
#define FILELISTMANAGEMENT_TESTS_MODEL_MODEL_CATALOGUE_H

#include <string>
#include <vector>

#include "tests/model/model_directory.h"

class CQFileListItem;

namespace flm_model {

class ModelCatalogue {
 public:
  explicit ModelCatalogue(World& world);
  ~ModelCatalogue();
  ModelCatalogue(const ModelCatalogue&) = delete;
  ModelCatalogue& operator=(const ModelCatalogue&) = delete;

  // Properties and table.
  void Create();
  void FreeMem();
  int SetBaseURI(const char* uri);
  const char* GetBaseURI() const { return root_.c_str(); }
  void SetMode(int mode) { mode_ = mode; }
  int GetMode() const { return mode_; }
  int SetSeriesMode(bool on);
  bool GetSeriesMode() const { return series_; }
  int GetCount() const { return itemCount_; }
  int AddDir(int number);
  void FreeAllDir();
  int Listup(int stopAtFirst, bool withCamera);
  int SortItem();

  // Walks.
  int GetFirst(char* out, int outSize, char* objOut, int objSize, bool setCursor,
               unsigned int* time);
  int GetNext(char* out, int outSize, char* objOut, int objSize, unsigned int* time);
  int GetPrev(char* out, int outSize, char* objOut, int objSize);
  int GetLast(char* out, int outSize, char* objOut, int objSize);
  int GetCur(char* out, int outSize, char* objOut, int objSize);
  int GetAt(int position, char* out, int outSize, char* objOut, int objSize);
  ModelItem* GetFirstDCFItem();
  ModelItem* GetNextDCFItem();
  void InitCursor();
  void SetCurItem(int dirNumber, int fileNumber, int slot, ModelItem* item);
  int SetCurFile(const char* path);
  int IsLast(const char* path);
  std::string LastPath() const;

  // Marks.
  int GetBitFirst(char* out, int outSize, int bit);
  int GetBitNext(char* out, int outSize, int bit);
  int GetBitPrev(char* out, int outSize, int bit, char* objOut);
  int GetBitLast(char* out, int outSize, int bit);
  int SetCustomBit(const char* path, int bit, bool on);
  bool GetCustomBit(const char* path, int bit);
  int SetCustomBitAll(int bit, bool on);
  int GetCustomBitCount(int bit);
  int SetCustomInfo(const char* path, int byte, unsigned char value);
  int GetCustomInfo(const char* path, int byte);
  int SetCustomInfoAll(int byte, unsigned char value);

  // Lookup.
  void GetNum(const char* path, int* dirNumber, short* fileNumber);
  void GetNum(const ModelItem* item, int* ignored, short* dirNumber);
  int GetDidx(int dirNumber, const char* path);
  int GetDidx(int dirNumber, int fileNumber);
  int GetDnum(int slot) { return slot + 100; }
  int GetFnum(int slot, int n) { return n + ((slot + 100) % 100) * 100; }
  int GetFidx(int n) { return n >= 1 && n <= 99 ? n : n % 100; }
  int GetURIToKey(const char* path);
  int GetKeyToURI(int key, char* out, int outSize);
  int GetListIndex(const char* path);
  ModelItem* FindItem(const char* path);
  int IsExist(const char* path);
  int IsProtect(const char* path);
  int GetFileType(const ModelItem* item);
  int GetInfo(const char* path, CQFileListItem* info);
  int GetDcfNum(const ModelItem* item);
  void AskTime(ModelItem* item, unsigned int* time);
  void GetFullPath(char* out, int outSize, int dirNumber, int fileNumber, int slot,
                   const ModelItem* item);
  void GetObjectFullPath(char* out, int outSize, int dirNumber, int fileNumber, int slot,
                         const ModelItem* item);

  // Numbering and changes.
  int GetLastIndex();
  int UpdateLastIndex(bool noSeries);
  int UpdateLastIndexWithSeriesValue();
  int SetLastIndex(const char* path, bool force);
  int GetStoredLastIndex() const { return lastIndex_; }
  int ReadSeriesValue(int* out);
  int BackupSeriesValue(int* value);
  int GetNewFileName(const char* prefix, const char* ext, char* out, int outSize, bool noSeries,
                     const char* dirSuffix);
  int GetNewFileIndex_FromLastIndex();
  int CreateBaseDirectory();
  int CreateNewDirectory(int dirNumber, const char* dirSuffix);
  int AddFile(const char* path);
  int RemoveFile(const char* path);
  int AddItem(int dirNumber, const unsigned char* data);
  int SetObject(const char* path, int type, bool on);

 private:
  struct Found {
    int slot = -1;
    ModelItem* item = nullptr;
  };

  std::string Tree() const { return mode_ == 0 || mode_ == 4 ? "DCIM" : "VIDEO"; }
  bool HasSlot(int slot) const { return slot >= 0 && slot < kSlots; }
  int UsedSlots() const { return dirCount_ < kSlots ? dirCount_ : kSlots; }
  void TakeFolders(const std::vector<std::string>& names, bool withCamera);
  void SortFolders();
  void ReleaseItem(ModelItem* item);
  void FreeDirectory(int slot);
  void FreeOthers(int slot);
  void Enter(int slot);  // lists a directory that was not listed yet

  Found FirstFrom(int slot, int step, bool listing);
  Found Beside(Found from, int step, bool listing, bool* sameDirectory);
  std::vector<Found> All() const;
  Found Marked(Found from, int bit, int step);
  void SetCursor(Found found, int dirNumber);
  void SetBitCursor(Found found);

  std::string PathOf(int dirNumber, int fileNumber, int slot, const ModelItem* item);
  std::string PathOf(Found found);
  bool ObjectPathOf(int fileNumber, int slot, const ModelItem* item, std::string* path) const;
  void Write(Found found, char* out, int outSize);
  void WriteObject(Found found, char* objOut, int objSize);
  void WriteTime(ModelItem* item, unsigned int* time);

  Found LookUp(const char* path);
  ModelItem* CursorItemFor(const char* path);
  ModelItem* FindForInfo(const std::string& path, int dirNumber, int fileNumber, int* slot);
  int NextNumber(const std::string& suffix, int* dirNumber, int* fileNumber) const;
  int SlotNamed(int dirNumber, const std::string& suffix) const;
  void EnterNewFile(int slot, int dirNumber, int fileNumber, const char* prefix, const char* ext,
                    char* out, int outSize, const std::string& suffix);

  World& world_;
  ModelPool pool_;
  std::vector<ModelDirectory> dirs_;
  int dirCount_ = 0;
  int lastIndex_ = 0;
  std::string root_;
  int mode_ = 1;
  int itemCount_ = 0;
  bool series_ = false;
  int curDnum_ = -1;
  int curFnum_ = -1;
  int curSlot_ = -1;
  ModelItem* curItem_ = nullptr;
  int bitSlot_ = -1;
  ModelItem* bitItem_ = nullptr;
};

}  // namespace flm_model

#endif
