// The lists of one or more cards, made by the manager and given back with the object.
#ifndef FILELISTMANAGEMENT_BENCH_LISTS_H
#define FILELISTMANAGEMENT_BENCH_LISTS_H

#include <initializer_list>
#include <string>
#include <vector>

class IQFileList;
class IQPageUtil;
class IQSelectedFileList;

namespace flm::bench {

class SampleCard;

// The manager is one for the process, so there is at most one such object at a time.
class Lists {
 public:
  Lists(std::initializer_list<const SampleCard*> cards);
  explicit Lists(const SampleCard& card) : Lists({&card}) {}
  ~Lists();
  Lists(const Lists&) = delete;
  Lists& operator=(const Lists&) = delete;

  IQFileList& Files(size_t card = 0);
  IQPageUtil& Pages();
  IQSelectedFileList& Selected(size_t card = 0);

 private:
  std::vector<std::string> roots_;
};

}  // namespace flm::bench

#endif
