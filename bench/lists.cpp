#include "bench/lists.h"

#include "api/CBIFileListManager.h"
#include "bench/card.h"
#include "bench/measure.h"
#include "filelist/IQFileList.h"
#include "filelist/IQPageUtil.h"
#include "filelist/IQSelectedFileList.h"

namespace flm::bench {
namespace {

constexpr int kRealFolderNames = 4;  // list type

}  // namespace

Lists::Lists(std::initializer_list<const SampleCard*> cards) {
  for (const SampleCard* card : cards) roots_.push_back(card->Root());
  Require(CBIFileListManager::Create(static_cast<int>(roots_.size())) == 0, "no lists");
  int position = 0;
  for (std::string& root : roots_) {
    CBIFileListManager::SetURIToFileList(position++, root.data(), kRealFolderNames, false);
  }
}

Lists::~Lists() { CBIFileListManager::Destroy(); }

IQFileList& Lists::Files(size_t card) {
  return *CBIFileListManager::GetFileList(roots_.at(card).data(), kRealFolderNames);
}

IQPageUtil& Lists::Pages() {
  return *CBIFileListManager::GetPageUtil(roots_.at(0).data(), kRealFolderNames);
}

IQSelectedFileList& Lists::Selected(size_t card) {
  return *CBIFileListManager::GetSelectedFileList(roots_.at(card).data(), kRealFolderNames);
}

}  // namespace flm::bench
