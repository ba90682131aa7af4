// Job types of a print order: their texts and what they mean when read.
#ifndef FILELISTMANAGEMENT_DPOF_DPOF_TYPES_H
#define FILELISTMANAGEMENT_DPOF_DPOF_TYPES_H

namespace flm {

constexpr char kTypeStandard[] = "STD";
constexpr char kTypeIndex[] = "IDX";

constexpr int kJobNone = -1;
constexpr int kJobStandard = 100;
constexpr int kJobIndex = 200;

// The text of a size code: 3, 4, 5 and 8 have one, any other an empty text.
const char* SizeTypeOf(int sizeCode);

// The code of a job type's text: kJobStandard, kJobIndex, a size code, or kJobNone.
int JobTypeOf(const char* text);

}  // namespace flm

#endif
