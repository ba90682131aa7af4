// Choosing the arguments of a call: paths of the list, stale, foreign, truncated and mangled ones.
#include <cctype>

#include "tests/model/model_call.h"

namespace flm_model {
namespace {

std::string ListPath(Scene& scene, CQFileListItem* item) {
  ModelCatalogue* catalogue = scene.list.GetDCFList();
  if (catalogue == nullptr || scene.list.GetCount() < 1)
    return scene.root + "/DCIM/100PHOTO/QVX_0001.JPG";
  Doubt before = scene.world.doubt;
  char path[128] = "";
  char object[128] = "";
  catalogue->GetAt(scene.choice.Below(scene.list.GetCount()), path, 128, object, 128);
  scene.world.doubt = before;
  Put(item->filePath, 128, path);
  Put(item->objectPath, 128, object);
  if (path[0] != '\0' && scene.choice.Chance(20)) scene.stale.push_back(path);
  return path;
}

std::string PlaceOnCard(Scene& scene) {
  std::string at = scene.root;
  for (int depth = scene.choice.Range(1, 3); depth > 0; --depth) {
    std::vector<std::string> names;
    if (!scene.world.picture.List(at, &names) || names.empty()) break;
    at += "/" + scene.choice.From(names);
  }
  return at;
}

std::string Mangled(Choice& choice, std::string path) {
  if (path.empty()) return path;
  size_t at = static_cast<size_t>(choice.Below(static_cast<int>(path.size())));
  switch (choice.Below(8)) {
    case 0:
      return path.substr(0, at);
    case 1:
      path[at] = static_cast<char>(choice.Range(33, 126));
      return path;
    case 2:
      return path.insert(at, "/");
    case 3:
      path[at] = static_cast<char>(tolower(static_cast<unsigned char>(path[at])));
      return path;
    case 4:
      return path + std::string(static_cast<size_t>(choice.Below(110)), 'z');
    case 5:
      return path.erase(at, 1);
    case 6:
      if (path.size() > 12) path[path.size() - 5] = static_cast<char>('0' + choice.Below(10));
      return path;
    default:
      if (path.size() > 3) path.replace(path.size() - 3, 3, choice.Chance(50) ? "JPG" : "MPO");
      return path;
  }
}

std::string RandomPath(Scene& scene, CQFileListItem* item) {
  Choice& choice = scene.choice;
  std::string listed = ListPath(scene, item);
  int kind = choice.Below(100);
  if (kind < 60) return listed;
  if (kind < 72 && !scene.stale.empty()) return choice.From(scene.stale);
  if (kind < 82) return PlaceOnCard(scene);
  if (kind < 92) return Mangled(choice, listed);
  if (kind < 94) return scene.otherRoot + "/DCIM/100PHOTO/QVX_0001.JPG";
  if (kind < 96) return scene.root + "/DCIM/CAMERA/HOLIDAY1.JPG";
  static const std::vector<std::string> odd = {"",
                                               "x",
                                               "/",
                                               "CAMERA",
                                               "/DCIM/100PHOTO/QVX_0001.JPG",
                                               "no slash at all in this long text",
                                               "../DCIM/100PHOTO/QVX_0001.JPG",
                                               "/tmp/nowhere/DCIM/100PHOTO/ABCD0001.JPG"};
  return choice.From(odd);
}

int RandomSize(Choice& choice) {
  static const std::vector<int> sizes = {0, -1, 1, 2, 7, 13, 24, 40, 64, 99, 127, 396};
  return choice.Chance(60) ? 128 : choice.From(sizes);
}

}  // namespace

void ChooseArguments(Call& call, const Operation& operation, Scene& scene) {
  Choice& choice = scene.choice;
  call.path = RandomPath(scene, &call.item);
  // Among hundreds of files the same one would hardly be asked for again after it was changed.
  if (scene.large && !scene.last.empty() && choice.Chance(40)) {
    call.path = scene.last;
    Put(call.item.filePath, 128, call.path);
  }
  scene.last = call.path;
  if (choice.Chance(30)) {
    Put(call.item.filePath, 128, call.path);
  } else if (choice.Chance(5)) {
    Put(call.item.filePath, 128, "");
  }
  if (choice.Chance(30)) Put(call.item.objectPath, 128, "");
  int count = scene.list.GetCount();
  call.number[0] = choice.Range(-1, count > 0 ? count : 1);
  call.number[1] = choice.Range(-1, 8);
  call.number[2] = choice.Chance(80) ? choice.Range(0, 9) : choice.Range(-2, 300);
  call.number[3] = choice.Below(2);
  if (scene.large && choice.Chance(60)) call.number[3] = 0;  // a scan of everything
  call.on = choice.Chance(60);
  call.on2 = choice.Chance(40);
  call.size = RandomSize(choice);
  call.size2 = RandomSize(choice);
  call.text = choice.Chance(50) ? "QVX" : std::string(static_cast<size_t>(choice.Below(40)), 'c');
  call.cancelAt = choice.Chance(25) ? choice.Below(4) : choice.Range(-2, -1);
  if ((operation.flags & kNullItem) != 0) {
    call.hasItem = !choice.Chance(3);
    if (choice.Chance(1)) memset(call.item.filePath, 'x', 128);  // a path without an end
  }
  if ((operation.flags & kNullPath) != 0) call.hasPath = !choice.Chance(4);
  if (operation.arrange != nullptr) operation.arrange(call, scene);
}

}  // namespace flm_model
