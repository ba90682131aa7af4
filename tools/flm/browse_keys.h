// Keys, from the bytes that a terminal sends for them.
#ifndef FILELISTMANAGEMENT_TOOLS_BROWSE_KEYS_H
#define FILELISTMANAGEMENT_TOOLS_BROWSE_KEYS_H

#include <cstddef>
#include <optional>
#include <string>

namespace flm::tool {

enum class KeyKind {
  kCharacter,  // one of ASCII, control characters included
  kUp,
  kDown,
  kLeft,
  kRight,
  kPageUp,
  kPageDown,
  kHome,
  kEnd,
  kEscape,
  kHelp,
  kUnknown
};

struct Key {
  KeyKind kind = KeyKind::kUnknown;
  char character = '\0';  // of kCharacter
};

// A terminal sends one byte for a letter and several, beginning with ESC, for an arrow. The key Esc
// sends ESC alone, which only time tells from the beginning of an arrow: whoever reads the terminal
// calls GiveUp when nothing followed for a while.
class KeyParser {
 public:
  void Feed(const char* bytes, size_t count);

  // The next key that is there as a whole.
  std::optional<Key> Next();

  // Whether the beginning of a sequence stands there, and what it is when nothing follows.
  bool IsWaiting() const { return !bytes_.empty(); }
  std::optional<Key> GiveUp();

 private:
  Key Take(size_t length, Key key);
  std::optional<Key> NextOfSequence();
  std::optional<Key> NextOfCsi();
  std::optional<Key> NextOfSs3();

  std::string bytes_;
};

}  // namespace flm::tool

#endif
