// How a command ends other than well: a message for people and the status of the process.
#ifndef FILELISTMANAGEMENT_TOOLS_FAILURE_H
#define FILELISTMANAGEMENT_TOOLS_FAILURE_H

#include <stdexcept>
#include <string>

namespace flm::tool {

constexpr int kStatusDone = 0;
constexpr int kStatusFailed = 1;      // the operation failed, or there is something to report
constexpr int kStatusUsage = 2;       // the command line makes no sense
constexpr int kStatusNothing = 3;     // no file of the card is what was asked for
constexpr int kStatusUnreadable = 4;  // the card, or a part that the command needs, is unreadable
constexpr int kStatusInterrupted = 130;  // 128 + SIGINT, as shells expect

// The message is one line without a final full stop; parts of it that come from the card or from
// the command line have gone through Printable.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& message, int status = kStatusFailed)
      : std::runtime_error(message), status_(status) {}
  int Status() const { return status_; }

 private:
  int status_;
};

// "what: reason", with the system's text for an error number.
std::string WithReason(const std::string& what, int error);

}  // namespace flm::tool

#endif
