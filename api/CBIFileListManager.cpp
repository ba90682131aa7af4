#include "api/CBIFileListManager.h"

#include <cstring>

#include "filelist/CQFileList.h"

int32_t CBIFileListManager::listCount = 0;
CQFileList* CBIFileListManager::fileLists = nullptr;
uint32_t CBIFileListManager::reservedWord = 0;

CBIFileListManager::CBIFileListManager() {
  listCount = 0;
  fileLists = nullptr;
  reservedWord = 0;
}

CBIFileListManager::~CBIFileListManager() = default;

int CBIFileListManager::Create(int count) {
  if (count < 0) return -1;
  if (fileLists != nullptr && Destroy() < 0) return -1;
  fileLists = new CQFileList[static_cast<size_t>(count)];
  listCount = count;
  // A list that could not prepare itself stays: its operations say so themselves.
  for (int i = 0; i < listCount; ++i) fileLists[i].Create();
  return 0;
}

int CBIFileListManager::Destroy() {
  if (fileLists == nullptr) return 0;
  for (int i = 0; i < listCount; ++i) fileLists[i].Destroy();
  delete[] fileLists;
  fileLists = nullptr;
  listCount = 0;
  return 0;
}

CQFileList* CBIFileListManager::Find(const char* uri, int type) {
  if (uri == nullptr) return nullptr;
  for (int i = 0; i < listCount; ++i) {
    CQFileList& list = fileLists[i];
    if (std::strcmp(list.GetBaseURI(), uri) == 0 && list.GetType() == type) return &list;
  }
  return nullptr;
}

IQFileList* CBIFileListManager::GetFileList(char* uri, int type) { return Find(uri, type); }

IQSelectedFileList* CBIFileListManager::GetSelectedFileList(char* uri, int type) {
  return Find(uri, type);
}

IQPageUtil* CBIFileListManager::GetPageUtil(char* uri, int type) { return Find(uri, type); }

int CBIFileListManager::SetURIToFileList(int position, char* uri, int type, bool seriesMode) {
  if (position < 0 || position >= listCount) return -1;
  CQFileList& list = fileLists[position];
  list.SetBaseURI(uri);
  list.SetType(type);
  return list.SetSeriesMode(seriesMode);
}

int CBIFileListManager::GetNewFileName(char* uri, int /*ignored*/, char* name, int type) {
  CQFileList* const list = Find(uri, type);
  // The type says which list and which kind of file at once; its callers use the one for the other.
  return list == nullptr ? -1 : list->GetNewFileName(name, type);
}
