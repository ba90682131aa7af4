// Random cards with hundreds of files: folders of 40 to 400 beside small ones.
#ifndef FILELISTMANAGEMENT_TESTS_MODEL_MODEL_LARGE_CARDS_H
#define FILELISTMANAGEMENT_TESTS_MODEL_MODEL_LARGE_CARDS_H

#include <string>

#include "tests/model/model_choice.h"

namespace flm_model {

void MakeLargeCard(Choice& choice, const std::string& root);

}  // namespace flm_model

#endif
