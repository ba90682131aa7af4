// Operations on many files at once: what one call changes in a large folder is seen in the order,
// the look-ups and the marks of many others.
#include <algorithm>

#include "tests/model/model_call.h"

namespace flm_model {
namespace {

constexpr int kPathBytes = 128;

enum Argument { kFirst = 0, kStep = 1, kBitOrByte = 2, kCount = 3 };

// The paths of every `step`-th file from `first`, taken before anything changes.
template <class Catalogue>
std::vector<std::string> Chosen(const Call& call, Catalogue& catalogue) {
  std::vector<std::string> paths;
  for (int i = 0; i < call.number[kCount]; ++i) {
    char path[kPathBytes] = "";
    char object[kPathBytes] = "";
    int position = call.number[kFirst] + i * call.number[kStep];
    if (catalogue.GetAt(position, path, kPathBytes, object, kPathBytes) != 0) break;
    paths.push_back(path);
  }
  return paths;
}

void ChooseMany(Call& call, Scene& scene, int most) {
  int held = std::max(scene.list.GetCount(), 1);
  call.number[kStep] = scene.choice.Chance(40) ? 1 : scene.choice.Range(2, 20);
  call.number[kFirst] = scene.choice.Chance(30) ? 0 : scene.choice.Below(held);
  call.number[kCount] = scene.choice.Range(1, most);
}

void ManyFiles(Call& call, Scene& scene) {
  ChooseMany(call, scene, 60);
  static const std::vector<int> bytes = {2, 3, 11, 12, 13, 14, 15, 0, 1, 4, 8, 20, 22};
  call.number[kBitOrByte] = scene.choice.From(bytes);
}

void ManyMarks(Call& call, Scene& scene) {
  ChooseMany(call, scene, scene.choice.Chance(40) ? 3 : 80);
  if (scene.choice.Chance(15)) call.number[kCount] = 500;
  call.on = scene.choice.Chance(80);
  call.number[kBitOrByte] = scene.choice.Chance(70) ? 5 : scene.choice.Below(8);
}

void ManyLookups(Call& call, Scene& scene) {
  ChooseMany(call, scene, 30);
  call.number[kBitOrByte] = scene.choice.Below(8);
}

void LongWalk(Call& call, Scene& scene) {
  call.number[kBitOrByte] = scene.choice.Chance(80) ? 5 : scene.choice.Below(8);
  call.number[kCount] = scene.choice.Chance(30) ? 100000 : scene.choice.Range(1, 120);
}

void ManyNewFiles(Call& call, Scene& scene) {
  static const std::vector<std::string> folders = {"100PHOTO", "100PHOXX", "101ABCDE", "CAMERA"};
  static const std::vector<std::string> prefixes = {"QVX_", "CAM_", "HDE_"};
  static const std::vector<std::string> extensions = {".JPG", ".MP4", ".MPO", ".jpg"};
  call.number[kCount] = scene.choice.Range(2, 45);
  call.number[kFirst] = scene.choice.Chance(60) ? scene.choice.Below(450) : 9970;
  size_t slash = call.path.rfind('/');
  bool own = slash != std::string::npos && slash > scene.root.size() && scene.choice.Chance(60);
  call.path = own ? call.path.substr(0, slash + 1)
                  : scene.root + "/DCIM/" + scene.choice.From(folders) + "/";
  call.path += scene.choice.From(prefixes);
  call.text = scene.choice.From(extensions);
}

void RawItems(Call& call, Scene& scene) {
  call.number[kFirst] = scene.choice.Chance(90) ? scene.choice.Range(100, 108) : 1098;
  call.number[kStep] = scene.choice.Below(450);
  call.number[kCount] = scene.choice.Range(1, 40);
}

void NewNames(Call& call, Scene& scene) {
  static const std::vector<std::string> suffixes = {"PHOTO", "PHOTO", "PHOXX", "ABCDE"};
  call.text = scene.choice.From(suffixes);
  call.number[kCount] = scene.choice.Range(1, 40);
}

// Every answer of a walk, one after the other, up to its end.
template <class Step>
void NoteWalk(Call& call, Step step) {
  for (int i = 0; i < call.number[kCount]; ++i) {
    char path[kPathBytes] = "";
    char object[kPathBytes] = "";
    int result = step(path, object);
    call.note += Format("%d ", result) + path + " " + object + "\n";
    if (result != 0) return;
  }
}

template <class Catalogue>
void NoteFile(Call& call, Catalogue& k, const std::string& path) {
  CQFileListItem info;
  int result = k.GetInfo(path.c_str(), &info);
  call.note +=
      path + Format(" at %d exist %d slot %d last %d info %d %s copies %d bit %d ",
                    k.GetListIndex(path.c_str()), k.IsExist(path.c_str()),
                    k.GetDidx(0, path.c_str()), k.IsLast(path.c_str()), result, info.objectPath,
                    info.dpofCopies, k.GetCustomBit(path.c_str(), call.number[kBitOrByte]) ? 1 : 0);
  int dirNumber = -1;
  short fileNumber = -1;
  k.GetNum(path.c_str(), &dirNumber, &fileNumber);
  call.note += Dump(k.FindItem(path.c_str())) + Format(" %d\n", k.GetDidx(dirNumber, fileNumber));
}

std::vector<Operation> ChangesOfMany() {
  return {
      OnCatalogue(
          "many marks", 70,
          [](Call& c, auto& k) {
            for (const std::string& path : Chosen(c, k)) {
              c.result += k.SetCustomBit(path.c_str(), c.number[kBitOrByte], c.on);
            }
          },
          0, ManyMarks),
      OnCatalogue(
          "many bytes", 14,
          [](Call& c, auto& k) {
            int value = c.on ? 1 : 200;
            for (const std::string& path : Chosen(c, k)) {
              if (c.on2) ++value;
              c.result += k.SetCustomInfo(path.c_str(), c.number[kBitOrByte],
                                          static_cast<unsigned char>(value));
            }
          },
          0, ManyFiles),
      OnCatalogue(
          "many forgotten", 16,
          [](Call& c, auto& k) {
            for (const std::string& path : Chosen(c, k)) c.result += k.RemoveFile(path.c_str());
          },
          0, ManyFiles),
      OnCatalogue(
          "many entered", 16,
          [](Call& c, auto& k) {
            for (int i = 0; i < c.number[kCount]; ++i) {
              int number = (c.number[kFirst] + (c.on ? i : i / 3)) % 10000;
              c.result += k.AddFile((c.path + Format("%04d", number) + c.text).c_str());
            }
          },
          0, ManyNewFiles),
      OnCatalogue(
          "many raw items", 5,
          [](Call& c, auto& k) {
            for (int i = 0; i < c.number[kCount]; ++i) {
              int number = c.number[kStep] + (c.on ? i : 0);
              unsigned char data[4] = {static_cast<unsigned char>(number & 255),
                                       static_cast<unsigned char>(number >> 8), 0,
                                       static_cast<unsigned char>(c.on2 ? 0x84 : 0x80)};
              c.result += k.AddItem(c.number[kFirst], data);
            }
          },
          0, RawItems),
      OnCatalogue(
          "many new names", 8,
          [](Call& c, auto& k) {
            for (int i = 0; i < c.number[kCount]; ++i) {
              char out[396] = "";
              c.result += k.GetNewFileName("QVX_", "JPG", out, 396, c.on, c.text.c_str());
              c.note += std::string(out) + "\n";
            }
          },
          0, NewNames),
  };
}

std::vector<Operation> WalksOverMany() {
  return {
      OnCatalogue(
          "many looked up", 40,
          [](Call& c, auto& k) {
            NoteFile(c, k, c.path);
            for (const std::string& path : Chosen(c, k)) NoteFile(c, k, path);
          },
          0, ManyLookups),
      OnCatalogue(
          "marks forward", 24,
          [](Call& c, auto& k) {
            char first[kPathBytes] = "";
            c.result = c.on ? k.GetBitFirst(first, kPathBytes, c.number[kBitOrByte]) : 0;
            c.note = first;
            NoteWalk(c, [&](char* path, char*) {
              return k.GetBitNext(path, kPathBytes, c.number[kBitOrByte]);
            });
          },
          0, LongWalk),
      OnCatalogue(
          "marks backward", 24,
          [](Call& c, auto& k) {
            char last[kPathBytes] = "";
            c.result = c.on ? k.GetBitLast(last, kPathBytes, c.number[kBitOrByte]) : 0;
            c.note = last;
            NoteWalk(c, [&](char* path, char* object) {
              return k.GetBitPrev(path, kPathBytes, c.number[kBitOrByte], object);
            });
          },
          0, LongWalk),
      OnCatalogue(
          "files forward", 14,
          [](Call& c, auto& k) {
            NoteWalk(c, [&](char* path, char* object) {
              return k.GetNext(path, kPathBytes, object, kPathBytes, nullptr);
            });
          },
          0, LongWalk),
      OnCatalogue(
          "files backward", 14,
          [](Call& c, auto& k) {
            NoteWalk(c, [&](char* path, char* object) {
              return k.GetPrev(path, kPathBytes, object, kPathBytes);
            });
          },
          0, LongWalk),
      OnCatalogue("all marks counted", 10,
                  [](Call& c, auto& k) {
                    for (int bit = -1; bit <= 8; ++bit) {
                      c.note += Format("%d ", k.GetCustomBitCount(bit));
                    }
                  }),
  };
}

}  // namespace

std::vector<Operation> ManyFilesOperations() {
  std::vector<Operation> table = ChangesOfMany();
  for (const Operation& operation : WalksOverMany()) table.push_back(operation);
  return table;
}

}  // namespace flm_model
