// One directory of the catalogue: a numbered folder such as 100PHOTO, or the "CAMERA" folder.
//
// Map of the sources
//   CQDCFDir.cpp        construction, properties, adding and removing items, companions
//   CQDCFDir_item.cpp   the fields of one item: name, prefix, bits, info bytes
//   CQDCFDir_lookup.cpp walking and looking items up
//   CQDCFDir_scan.cpp   reading the folder
#ifndef FILELISTMANAGEMENT_DCF_CQDCFDIR_H
#define FILELISTMANAGEMENT_DCF_CQDCFDIR_H

#include <cstddef>
#include <cstdint>

#include "base/fixed_sizes.h"
#include "dcf/CQDCFItemList.h"
#include "dcf/DCFItem.h"

class CQDCFMemManager;

// A null item or text is refused by every operation: nothing changes, and the result is the one
// given for "none", -1 where nothing else is said.
class CQDCFDir {
 public:
  CQDCFDir();
  virtual ~CQDCFDir();
  CQDCFDir(const CQDCFDir&) = delete;
  CQDCFDir& operator=(const CQDCFDir&) = delete;

  // --- Construction and storage -----------------------------------------------------------------
  int SetMemMgr(CQDCFMemManager* memManager);  // the pool, lent
  CQDCFMemManager* GetMemMgr() const { return memManager_; }
  int SetDnum(short dirNumber);  // negative: the slot is free
  int GetDnum() const { return dirNumber_; }
  // At most 98 characters; a longer name is ignored (-1).
  int SetDirName(const char* name);
  const char* GetDirName() const { return dirName_; }
  int SetListup(bool listedUp);
  bool GetListup() const { return listedUp_; }
  // Makes the item list when there is none and lends it the pool. 0; -1 without memory.
  int GetMem();
  // Releases the item list with all items. Returns 0.
  int FreeMem();
  // A new item at the end, null when the pool is exhausted.
  DCFItem* AddItem();
  // 1 when there is no item list; a list without items is not empty in this sense.
  int IsEmpty() const;
  // Number of items, counted; GetCountVariable answers from the stored count.
  int GetCount();
  int GetCountVariable() const;

  // --- Names ------------------------------------------------------------------------------------
  // Upper-cases a name of 1 to 12 characters in place; a longer one is left as it is.
  int MakeUpperCase(char* name);
  // What kind of file a name is, after upper-casing it in place: 0 JPG, MP4, AVI, 3GP; 200 MP3; 201
  // WAV; 202 SRW; 204 MPO. Refused: -1 null, -2 below and -3 above 12 characters, -201 the first
  // four are neither letters nor "_" and no digit follows, -104 to -107 no digit where the number
  // stands, -100 another extension. The point is not looked at.
  int CheckFileNameSyntax(char* name);
  // The same for the "CAMERA" folder: 12 to 40 characters (else -3), any other extension is 0.
  int CheckFileNameSyntaxNonDCF(char* name);
  // Decimal value of the fifth to eighth character.
  int GetFnumFromFileName(const char* name);
  // Copies what follows the last '/' of path, the '/' included and without a terminator, into out;
  // nothing when that is longer than 127 characters. Returns out, null when there is no '/'.
  char* GetFileName(const char* path, char* out);
  // Code of the first four characters: "CAM_" 0, "HDV_" 1, "HDE_" 2, "HDA_" 3, "SDV_" 4, "SDE_" 5,
  // "SDA_" 6; -1 for anything else.
  int GetFileNameToPrefixCode(const char* name);
  // Writes the eight binary digits of v, without a terminator.
  int GetBin(unsigned char v, char* out);

  // --- Fields of an item ------------------------------------------------------------------------
  int SetPrefix(DCFItem* item, int code);          // codes 1 to 6; any other clears the bits
  int SetPrefix(DCFItem* item, const char* name);  // code, free characters and extension of a name
  int GetPrefix(DCFItem* item);
  int GetPrefixCode(DCFItem* item);
  // Stores a name (cut to 40 characters), its prefix and extension, and enables the item.
  int SetFileName(DCFItem* item, const char* name);
  bool GetItemBit(DCFItem* item, int n);  // false for a bit outside 0 to 7
  int SetItemBit(DCFItem* item, int n, bool on);
  // Byte `index` of the record: 0 for a null item or outside the record, 255 when the item's file
  // number is negative.
  int GetItemInfo(DCFItem* item, int index);
  // Writes a byte of the record when the directory has an item list. Returns IsEmpty().
  int SetItemInfo(DCFItem* item, int index, unsigned char v);
  int SetFnum(DCFItem* item, short fileNumber);
  // Gives the item this directory's own number; the second argument is ignored.
  int SetDnum(DCFItem* item, short ignored);
  int GetFnum(DCFItem* item);

  // --- Adding and removing ----------------------------------------------------------------------
  // Fills an item, or a new one when it is null; *added grows by one for every attempt at a new
  // one, also when the pool is exhausted (the scan's limit counts attempts). Null without an item.
  DCFItem* AddFile(DCFItem* item, int fileNumber, const char* name, int* added, unsigned int time);
  // Clears and releases an item. 0, or -1.
  int RemoveItem(DCFItem* item);
  // Marks a companion, by its name, on the first item of its number. 0; -1 when there is none.
  int SetObject(const char* name);
  // Null when byte fileNumber of flags is 0; else the first item of that number when the name
  // begins with SDC1 in either case.
  DCFItem* CheckDup(const char* flags, int fileNumber, const char* name);
  // The list of deferred companions: 12 bytes of name and 4 bytes of time an entry. The number of
  // entries after adding; -1 to -4 for a null names, count, name or times.
  int ObjTmpListAdd(char* names, int* count, const char* name, unsigned char* times,
                    unsigned int time);
  // Entry i, the name terminated in 13 bytes of out. 0; -1 for a null argument. i is not checked.
  int ObjTmpListAt(const char* names, int i, char* out, const unsigned char* times,
                   unsigned int* time);

  // --- Walking and looking up -------------------------------------------------------------------
  DCFItem* GetFirstItem() const;
  DCFItem* GetNextItem(DCFItem* item) const;
  DCFItem* GetPrevItem(DCFItem* item) const;
  DCFItem* GetLastItem() const;
  // The first item of a file number, or null.
  DCFItem* GetItem(int fileNumber) const;
  // The item of a path: in a directory numbered 99 by its whole name, elsewhere by number, the four
  // free characters and the first character of the extension. Null when there is none.
  DCFItem* GetItem(int fileNumber, const char* path) const;
  bool GetItemBit(int fileNumber, int n);
  int SetItemBit(int fileNumber, int n, bool on);
  bool IsEnabledItem(int fileNumber);
  // -1 a free slot, -2 no enabled item of that number, else number + (directory % 100) * 100.
  int GetFnum(int fileNumber);
  // Position of the first item of that number and first extension character, from 0. When the path
  // contains "CAMERA" instead the file number of the first item whose name occurs in it. 0 without
  // a list, -1 when nothing matches.
  int GetFidx(int fileNumber, const char* path) const;

  // GetFidx for a caller who knows whether the path contains "CAMERA".
  int PositionIn(int fileNumber, const char* path, bool free) const;
  // GetItem and GetFidx of one path of a known length without "CAMERA", in one search.
  struct Located {
    DCFItem* item;
    int position;
  };
  Located Locate(int fileNumber, const char* path, int length) const;
  // What the catalogue's walks ask; null, 0 or none without a list.
  bool IsWalked() const { return items_ == nullptr || items_->IsWalked(); }
  DCFItem* GetItemAt(int position) const;
  DCFItem* NextWith(const DCFItem* from, flm::ItemFlags flags) const;
  DCFItem* PreviousWith(const DCFItem* from, flm::ItemFlags flags) const;
  int PositionOf(const DCFItem* item) const;
  int CountOfBit(int bit) const;
  // The first item of a number with these free characters.
  DCFItem* FindItem(int fileNumber, const char* prefix) const;
  // The first item that says it lies in a folder of free names and whose name occurs in the path,
  // or that does not say so and has the number.
  DCFItem* FindForInfo(int fileNumber, const char* path) const;

  // --- Scan and order ---------------------------------------------------------------------------
  // Reads the folder and makes its items; catalogueItems is the number of items that the catalogue
  // holds already, and 32000 in all end the reading. A folder that cannot be opened has no files.
  // The number of items added; -1 or -100 when memory is short.
  int Listup(const char* baseURI, int mode, int dirNumber, int catalogueItems);
  // Sorts the items unless they are in order. Returns 0.
  int Sort();

 private:
  struct Scan;  // the state of one reading of the folder

  // Every write into an item goes through here, so that look-ups know of it.
  template <typename Write>
  void Change(DCFItem* item, bool renames, Write change) {
    if (items_ == nullptr) {
      change();
    } else {
      items_->Change(item, renames, change);
    }
  }
  static void StorePrefix(DCFItem* item, const char* name, size_t length);
  static void StoreFileName(DCFItem* item, const char* name, size_t length);
  static void StorePrefixCode(DCFItem* item, int code);
  void Fill(DCFItem* item, int fileNumber, const char* name, size_t length,
            unsigned int time) const;

  void ScanEntries(Scan& scan);
  bool TakeEntry(Scan& scan, int entry);
  void AddScanned(Scan& scan, int fileNumber, const char* name, size_t length);
  void TakeCompanion(Scan& scan, int entry, const char* name, size_t length, int fileNumber);
  static bool IsThere(Scan& scan, int entry, const char* path, const char* name);
  void JoinDeferred(Scan& scan);
  void JoinCompanion(Scan& scan, const char* name, unsigned int time);

  CQDCFMemManager* memManager_;      // where items come from; not owned
  int16_t dirNumber_;                // 100 to 999, 99 for "CAMERA", negative for a free slot
  char dirName_[flm::kDirNameSize];  // the folder's name
  bool listedUp_;                    // a Listup has completed
  bool sorted_;                      // items stand in file-number order
  CQDCFItemList* items_;             // owned; null while there is no list
};

#endif
