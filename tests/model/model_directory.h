// The model's records and directories: plain vectors, looked through from the front every time.
#ifndef FILELISTMANAGEMENT_TESTS_MODEL_MODEL_DIRECTORY_H
#define FILELISTMANAGEMENT_TESTS_MODEL_MODEL_DIRECTORY_H

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "tests/model/model_world.h"

namespace flm_model {

constexpr int kItemBytes = 63;  // of which the last is a terminator that nobody reaches
constexpr int kPoolUnits = 32000;
constexpr int kSlots = 999;

// One file. The bytes stand where the info operations address them.
struct ModelItem {
  uint8_t raw[kItemBytes] = {};
  bool used = false;

  int Number() const { return Short(0); }
  void SetNumber(int value) { SetShort(0, value); }
  int DirNumber() const { return Short(20); }
  void SetDirNumber(int value) { SetShort(20, value); }
  unsigned int Time() const;
  void SetTime(unsigned int value);
  std::string Prefix() const { return Field(4, 4); }
  std::string Extension() const { return Field(8, 3); }
  std::string Name() const { return Field(22, 41); }
  bool Bit(int n) const { return n >= 0 && n <= 7 && (raw[3] & (0x80 >> n)) != 0; }
  void SetBit(int n, bool on);
  void SetName(const std::string& name);        // the name field alone
  void SetPrefixFrom(const std::string& name);  // prefix code, free characters, extension
  int Info(int index) const;                    // 255 for a negative number
  void SetInfo(int index, uint8_t value);
  std::string ObjectLetters() const;  // the three letters, blanks for zeros
  bool HasObjectLetters() const { return raw[11] != 0 || raw[12] != 0 || raw[13] != 0; }

 private:
  int Short(int at) const;
  void SetShort(int at, int value);
  std::string Field(int at, int size) const;
};

// Units handed out lowest first; a unit that comes back keeps what it holds.
class ModelPool {
 public:
  ModelItem* Take();  // bytes 0 to 15 cleared; null when all are taken
  void Give(ModelItem* item) { item->used = false; }

 private:
  std::deque<ModelItem> units_;
};

struct ModelDirectory {
  int number = -1;
  std::string name;
  bool listed = false;
  bool sorted = false;
  bool hasList = false;
  bool hasPool = false;
  std::vector<ModelItem*> items;

  ModelItem* First() const { return items.empty() ? nullptr : items.front(); }
  ModelItem* Last() const { return items.empty() ? nullptr : items.back(); }
  int PositionOf(const ModelItem* item) const;  // -1 when it is not here
  ModelItem* ByNumber(int number) const;
  ModelItem* ByPath(int number, const std::string& path) const;
  ModelItem* ByPathExactly(int number, const std::string& path) const;
  int PlaceOf(int number, const std::string& path) const;
  void Sort();
};

// 0, 200, 201, 202, 204 for a name that belongs to the catalogue, negative for any other.
int KindOfName(std::string* name);
int KindOfFreeName(std::string* name);

// The folder's names turned into items; the number of items added.
int ScanDirectory(World& world, ModelPool& pool, const std::string& root, int mode, int held,
                  ModelDirectory* dir);

}  // namespace flm_model

#endif
