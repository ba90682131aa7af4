// How the card is mounted, as far as that decides whether its files can be protected. It is read
// from what the system says about its mounts; nothing is tried out on the card.
#ifndef FILELISTMANAGEMENT_TOOLS_CARD_MOUNT_H
#define FILELISTMANAGEMENT_TOOLS_CARD_MOUNT_H

#include <sys/types.h>

#include <istream>
#include <string>

namespace flm::tool {

struct CardMount {
  std::string type;      // of the file system; "" when the mount is not known
  bool hasMask = false;  // whether it says which permissions files never have
  mode_t fileMask = 0;   // these permissions
};

// The mount of a device among the lines of /proc/self/mountinfo.
CardMount FindMount(std::istream& mounts, dev_t device);

// Why files on such a mount can be neither protected nor unprotected; "" when nothing speaks
// against it.
std::string ProtectionTrouble(const CardMount& mount);

// The same for the mount that a file or folder lies on.
std::string ProtectionTroubleAt(const std::string& path);

}  // namespace flm::tool

#endif
