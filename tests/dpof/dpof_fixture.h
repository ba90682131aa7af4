// A scanned catalogue and print orders for it.
#ifndef FILELISTMANAGEMENT_TESTS_DPOF_DPOF_FIXTURE_H
#define FILELISTMANAGEMENT_TESTS_DPOF_DPOF_FIXTURE_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dcf/CQDCFList.h"
#include "dpof/CQDPOF.h"
#include "fsio/os_calls.h"
#include "tests/support/card.h"

namespace flm_test {

class PrintOrderFile : public testing::Test {
 protected:
  PrintOrderFile() {
    flm::Os().Sync = [] {};
  }
  ~PrintOrderFile() override { flm::ResetOsCalls(); }

  // Makes the files and scans the card. The number of files.
  int With(const std::vector<std::string>& files, int mode = 4) {
    card_.MakeDir("MISC");
    for (const std::string& file : files) card_.MakeFile(file);
    catalogue_.Create();
    catalogue_.SetMode(mode);
    catalogue_.SetBaseURI(card_.Root().c_str());
    EXPECT_EQ(0, catalogue_.Listup(0, true));
    return catalogue_.GetCount();
  }
  void Mark(const std::string& file, int byte, int value) {
    EXPECT_EQ(0, catalogue_.SetCustomInfo(card_.Path(file).c_str(), byte,
                                          static_cast<unsigned char>(value)))
        << file;
  }
  int Copies(const std::string& file) { return MarkOf(file, 2); }
  int InIndex(const std::string& file) { return MarkOf(file, 14); }
  int Size(const std::string& file) { return MarkOf(file, 15); }
  void ClearMarks() {
    for (const int byte : {2, 14, 15}) catalogue_.SetCustomInfoAll(byte, 0);
  }
  // All print marks of all files, for showing that nothing changed: "copies/index/size " each.
  std::string AllMarks() {
    std::string text;
    char path[128];
    char objects[128];
    for (int i = 0; catalogue_.GetAt(i, path, 128, objects, 128) == 0; ++i) {
      for (const int byte : {2, 14, 15}) {
        text += std::to_string(catalogue_.GetCustomInfo(path, byte)) + (byte == 15 ? " " : "/");
      }
    }
    return text;
  }

  std::string OrderPath() const { return card_.Path("MISC/AUTPRINT.MRK"); }
  int Save(const char* creator) {
    return dpof_.SaveDPOFInfo(OrderPath().c_str(), &catalogue_, creator, catalogue_.GetCount());
  }
  std::string Saved(const char* creator = "CAM") {
    EXPECT_EQ(0, Save(creator));
    return card_.ReadFile("MISC/AUTPRINT.MRK");
  }
  int LoadFile() { return dpof_.LoadDPOFInfo(OrderPath().c_str(), &catalogue_); }
  int Load(const std::string& content) {
    card_.WriteFile("MISC/AUTPRINT.MRK", content);
    return LoadFile();
  }

  Card card_;
  CQDCFList catalogue_;
  CQDPOF dpof_;

 private:
  int MarkOf(const std::string& file, int byte) {
    catalogue_.InitCursor();
    return catalogue_.GetCustomInfo(card_.Path(file).c_str(), byte);
  }
};

}  // namespace flm_test

#endif
