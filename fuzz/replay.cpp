// Runs a fuzzer's body once for each file named, and for each file of a folder named, for compilers
// that bring no fuzzer. Ends with a failure when there is nothing to run.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

namespace fs = std::filesystem;

// In an order that does not depend on the folder.
std::vector<std::string> FilesOf(const std::string& path) {
  if (!fs::is_directory(path)) return {path};
  std::vector<std::string> files;
  for (const auto& entry : fs::directory_iterator(path)) files.push_back(entry.path().string());
  std::sort(files.begin(), files.end());
  return files;
}

bool Replay(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return false;
  // A block of exactly the size, so that a sanitizer sees a read behind it.
  const std::vector<char> text((std::istreambuf_iterator<char>(file)),
                               std::istreambuf_iterator<char>());
  LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(text.data()), text.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  int inputs = 0;
  for (int i = 1; i < argc; ++i) {
    for (const std::string& file : FilesOf(argv[i])) {
      if (!Replay(file)) {
        std::fprintf(stderr, "%s cannot be read\n", file.c_str());
        return 1;
      }
      ++inputs;
    }
  }
  std::printf("%d inputs\n", inputs);
  return inputs == 0 ? 1 : 0;
}
