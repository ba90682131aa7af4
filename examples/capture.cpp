// Capture: ask for the next name, write the picture, then a voice memo for it.
//
//   capture ROOT

#include <cstdio>
#include <cstring>

#include <filelistmanagement/CBIFileListManager.h>
#include <filelistmanagement/IQFileList.h>

namespace {

constexpr int kNameSize = 396;  // what GetNewFileName writes to
constexpr int kJpg = 0;
constexpr int kListType = 4;

bool WriteFile(const char* path, const char* content) {
  std::FILE* const file = std::fopen(path, "wb");
  if (file == nullptr) return false;
  const bool written = std::fputs(content, file) >= 0;
  return std::fclose(file) == 0 && written;
}

int Capture(IQFileList& list) {
  if (list.Listup(0) < 0) return 1;
  std::printf("%d pictures can still be named\n", list.GetAvailNumOfPhoto());

  char picture[kNameSize] = "";
  if (list.GetNewFileName(picture, kJpg) < 0) return 1;
  if (!WriteFile(picture, "a picture\n")) {
    // The name was entered before the file existed: take it back.
    list.RemoveFileFromList(picture);
    return 1;
  }
  std::printf("picture    %s\n", picture);

  char memo[kNameSize] = "";
  if (list.GetLatestFileName(memo, FILE_ADD_VOICE_MEMO) < 0) return 1;
  if (!WriteFile(memo, "a voice memo\n")) return 1;
  std::printf("voice memo %s\n", memo);
  std::printf("%d files\n", list.GetCount());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: capture ROOT\n");
    return 2;
  }
  CBIFileListManager::Create(1);
  CBIFileListManager::SetURIToFileList(0, argv[1], kListType, false);
  IQFileList* const list = CBIFileListManager::GetFileList(argv[1], kListType);
  const int status = list == nullptr ? 1 : Capture(*list);
  if (status != 0) std::fprintf(stderr, "capture: cannot record on %s\n", argv[1]);
  CBIFileListManager::Destroy();
  return status;
}
