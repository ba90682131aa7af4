// What the rows ask of a list. Each throws when the list does not do all of it.
#ifndef FILELISTMANAGEMENT_BENCH_OPERATIONS_H
#define FILELISTMANAGEMENT_BENCH_OPERATIONS_H

#include <string>
#include <vector>

#include "filelist/CQFileListItem.h"

class IQFileList;
class IQPageUtil;
class IQSelectedFileList;

namespace flm::bench {

class SampleCard;

void Scan(IQFileList& list, int files);        // everything
void ScanNewest(IQFileList& list, int files);  // the newest folder, which has `files`

// Every file, by index, forward or backward.
void GetEach(IQFileList& list, int files, bool withInfo);
void WalkForward(IQFileList& list, int files, bool withInfo);
void WalkBackward(IQFileList& list, int files, bool withInfo);
void ShowEachPage(IQPageUtil& pages, int files);

// That GetAt gives these paths, each at its index.
void CheckPaths(IQFileList& list, const std::vector<std::string>& paths);

// Three print jobs for every picture: copies, index and size.
void OrderEach(IQFileList& list);
void SaveOrder(IQFileList& list);
void LoadOrder(IQFileList& list);
void CheckOrder(IQFileList& list, int files);

// Selects one file in `step` and no other; gives their number.
int SelectEveryNth(IQFileList& list, const std::vector<std::string>& paths, size_t step);
void WalkSelected(IQSelectedFileList& list, int selected);

// Items of files that are picked at random, the same ones in every run.
std::vector<CQFileListItem> PickAtRandom(const std::vector<std::string>& paths, size_t count);
CQFileListItem ItemOf(const std::string& path);

}  // namespace flm::bench

#endif
