// The least that an operation must do, written with the system's calls alone.
#ifndef FILELISTMANAGEMENT_BENCH_FLOORS_H
#define FILELISTMANAGEMENT_BENCH_FLOORS_H

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace flm::bench {

class SampleCard;

// Entries that scandir finds in the folders, in the order of the catalogue.
int ScandirEach(const std::vector<std::string>& folders);

// Names read with readdir and sorted, in one folder.
int ReadAndSort(const std::string& folder);

// Characters of every path, each printed once into one buffer.
long PrintEachPath(const SampleCard& card);

// Files whose status could be read, first to last or last to first.
int StatEach(const std::vector<std::string>& paths);
int StatEachBackwards(const std::vector<std::string>& paths);

// Source lines of a print order that name a file of `known` (keys: the texts between the quotes).
using KnownSources = std::unordered_map<std::string_view, int>;
int LookUpSources(const std::string& printOrder, const KnownSources& known);

// Prints the blocks of an order with three jobs a file into `room` and writes them in one go:
// kCopies prints, a place in the index, and the size of code kSizeCode, ordered by kCreator.
constexpr int kCopies = 2;
constexpr int kSizeCode = 4;
constexpr char kCreator[] = "bench";
void PrintAndWriteOrder(const std::string& printOrder, const std::vector<std::string>& sources,
                        std::vector<char>& room);
void WriteText(const std::string& path, std::string_view text);

void StatAndUnlinkEach(const std::vector<std::string>& paths);

// Of one file.
void StatUnlinkFlushRewrite(const std::string& path, const std::string& header);
void StatProtectFlush(const std::string& path);

}  // namespace flm::bench

#endif
