// The text files of this folder, which hold what applications rely on in binary form.
#ifndef FILELISTMANAGEMENT_TESTS_ABI_ABI_TEXT_H
#define FILELISTMANAGEMENT_TESTS_ABI_ABI_TEXT_H

#include <fstream>
#include <string>
#include <vector>

#include "flm_test_places.h"

namespace flm_test {

// The lines of tests/abi/<name> that are neither empty nor comments.
inline std::vector<std::string> AbiLines(const std::string& name) {
  std::ifstream file(std::string(kSourceRoot) + "/tests/abi/" + name);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line[0] != '#') lines.push_back(line);
  }
  return lines;
}

}  // namespace flm_test

#endif
