// What the scenarios are made of: cards, and what may come of each operation when a call fails, by
// what the headers say of it.
#ifndef FILELISTMANAGEMENT_TESTS_FAULTS_FAULT_PARTS_H
#define FILELISTMANAGEMENT_TESTS_FAULTS_FAULT_PARTS_H

#include "tests/faults/fault_world.h"

namespace flm_faults {

// Places of the cards and numbers of the store that operations and outcomes share.
inline constexpr char kPrintOrder[] = "MISC/AUTPRINT.MRK";
constexpr int kSeriesCategory = 1;
constexpr int kSeriesKey = 856;
constexpr int kOtherCategory = 2;
constexpr int kOtherKey = 3;
constexpr int kOtherValue = 4711;

inline constexpr char kChosen[] = "DCIM/100PHOTO/QVX_0002.JPG";  // has a raw companion and a memo
inline constexpr char kProtected[] = "DCIM/100PHOTO/QVX_0003.JPG";  // alone
inline constexpr char kLonely[] = "DCIM/102LONEL/QVX_0001.JPG";     // the only file of its folder

// --- Cards ---------------------------------------------------------------------------------------
std::vector<FaultCard::Entry> MixedCard();
std::vector<FaultCard::Entry> FullFolderCard();
std::vector<FaultCard::Entry> EmptyCard();
std::vector<FaultCard::Entry> LargeCard();

// --- Results -------------------------------------------------------------------------------------
Complaint JudgeScan(const Aftermath& after);
Complaint JudgeSame(const Aftermath& after);
Complaint JudgeWalk(const Aftermath& after);
Complaint JudgeNames(const Aftermath& after);
Complaint JudgeImport(const Aftermath& after);
Complaint JudgeDeletion(const Aftermath& after);
Complaint JudgeRefusedDeletion(const Aftermath& after);
Complaint JudgeDeleteAll(const Aftermath& after);
Complaint JudgeDeleteSelected(const Aftermath& after);
Complaint JudgeProtection(const Aftermath& after);
Complaint JudgeProtectAll(const Aftermath& after);
Complaint JudgeToggle(const Aftermath& after);
Complaint JudgeSave(const Aftermath& after);
Complaint JudgeLoad(const Aftermath& after);
Complaint JudgeSeries(const Aftermath& after);

// --- What an operation may touch -----------------------------------------------------------------
bool Never(World& world, const std::string& path);
bool IsInTree(World& world, const std::string& path);
bool IsTreeFolder(World& world, const std::string& path);
bool IsPrintOrder(World& world, const std::string& path);
bool IsNew(World& world, const std::string& path);
bool IsOfItem(World& world, const std::string& path);
bool IsDeletable(World& world, const std::string& path);
bool IsSelectedOrFolder(World& world, const std::string& path);
bool IsSelectedUnprotected(World& world, const std::string& path);
bool IsOrderOrInTree(World& world, const std::string& path);

}  // namespace flm_faults

#endif
