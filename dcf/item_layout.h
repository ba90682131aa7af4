// Which bit and which byte of a record carries which mark. Bits count from the most significant one
// of the item bits; bytes count from the front of the record.
#ifndef FILELISTMANAGEMENT_DCF_ITEM_LAYOUT_H
#define FILELISTMANAGEMENT_DCF_ITEM_LAYOUT_H

namespace flm {

constexpr int kItemBitCount = 8;
constexpr int kItemBitEnabled = 0;      // the record holds a file
constexpr int kItemBitPrefixFirst = 1;  // bits 1 to 3: prefix code, weights 4, 2, 1
constexpr int kPrefixBits = 3;
constexpr int kMarkBitWifi = 4;
constexpr int kMarkBitSelected = 5;
constexpr int kMarkBitVoiceRecCons = 7;  // voice memo and continuous capture: one mark, two names

constexpr int kMarkInfoDpofCopies = 2;
constexpr int kMarkInfoDpofEdit = 13;  // shares its byte with the multi-picture companion's letter
constexpr int kMarkInfoDpofIndex = 14;
constexpr int kMarkInfoDpofSize = 15;
constexpr int kInfoNoItem = 255;  // an info byte of a file that is not held

constexpr int kPrefixSize = 4;
constexpr int kExtensionSize = 3;

}  // namespace flm

#endif
