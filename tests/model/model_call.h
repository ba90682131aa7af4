// One call of an operation: everything that goes in and everything that comes out. The same call is
// made on the model and on the library, each with a copy of its own, and the copies are compared.
#ifndef FILELISTMANAGEMENT_TESTS_MODEL_MODEL_CALL_H
#define FILELISTMANAGEMENT_TESTS_MODEL_MODEL_CALL_H

#include <cstring>
#include <string>
#include <vector>

#include "dcf/CQDCFList.h"
#include "dcf/DCFItem.h"
#include "filelist/CQFileList.h"
#include "tests/model/model_choice.h"
#include "tests/model/model_list.h"

namespace flm_model {

constexpr int kOutBytes = 512;
constexpr char kUntouched = '\xA5';

struct Call {
  // In.
  int number[4] = {0, 0, 0, 0};
  bool on = false;
  bool on2 = false;
  bool hasPath = true;
  bool hasItem = true;
  std::string text;
  int size = 128;
  int size2 = 128;
  int cancelAt = -1;  // which report cancels; -2 for no callback
  // In and out.
  std::string path;
  CQFileListItem item;
  std::vector<CQFileListItem> items;
  char out[kOutBytes];
  char out2[kOutBytes];
  int outNumber[2] = {-1, -1};
  // Out.
  bool exact = false;  // the first buffer is compared byte by byte
  int result = 0;
  std::string note;  // records handed out, progress reported

  Call() {
    memset(out, kUntouched, sizeof out);
    memset(out2, kUntouched, sizeof out2);
  }
  char* Path() { return hasPath ? path.data() : nullptr; }
  CQFileListItem* Item() { return hasItem ? &item : nullptr; }
  char* Text() { return on2 ? nullptr : text.data(); }
  unsigned int* Time() { return on2 ? nullptr : reinterpret_cast<unsigned int*>(&outNumber[0]); }
  ProgressCallback Callback();
};

// What the choice of arguments looks at.
struct Scene {
  Choice& choice;
  World& world;
  ModelList& list;
  std::string root;
  std::string otherRoot;
  std::vector<std::string>& stale;  // paths that some list handed out once
  bool large;                       // whether the cards hold hundreds of files
  std::string& last;                // the path of the call before
};

using Arrange = void (*)(Call&, Scene&);

enum : unsigned { kNullItem = 1, kNullPath = 2 };

struct Operation {
  const char* name;
  int weight;
  unsigned flags;
  Arrange arrange;
  void (*onModel)(Call&, ModelList&);
  void (*onLibrary)(Call&, CQFileList&);
  void (*onModelCatalogue)(Call&, ModelCatalogue&);
  void (*onLibraryCatalogue)(Call&, CQDCFList&);

  void Run(Call& call, ModelList& list) const {
    if (onModel != nullptr) return onModel(call, list);
    if (list.GetDCFList() != nullptr) onModelCatalogue(call, *list.GetDCFList());
  }
  void Run(Call& call, CQFileList& list) const {
    if (onLibrary != nullptr) return onLibrary(call, list);
    if (list.GetDCFList() != nullptr) onLibraryCatalogue(call, *list.GetDCFList());
  }
};

template <class Act>
Operation OnList(const char* name, int weight, Act act, unsigned flags = 0,
                 Arrange arrange = nullptr) {
  return {name, weight, flags, arrange, act, act, nullptr, nullptr};
}

template <class Act>
Operation OnCatalogue(const char* name, int weight, Act act, unsigned flags = 0,
                      Arrange arrange = nullptr) {
  return {name, weight, flags, arrange, nullptr, nullptr, act, act};
}

std::string Dump(const ModelItem* item);
std::string Dump(const DCFItem* item);

// The arguments of a call, as a line of the history.
std::string Describe(const Operation& operation, const Call& call);
// What the two answers differ in; empty when in nothing.
std::string Difference(const Call& model, const Call& library, const Doubt& doubt);

void ChooseArguments(Call& call, const Operation& operation, Scene& scene);

void AddedFile(Call& call, Scene& scene);

std::vector<Operation> ListOperations();
std::vector<Operation> MarkOperations();
std::vector<Operation> BulkOperations();
std::vector<Operation> CatalogueOperations();
std::vector<Operation> TableOperations();
std::vector<Operation> NumberingOperations();
std::vector<Operation> ManyFilesOperations();

}  // namespace flm_model

#endif
