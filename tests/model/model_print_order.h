// The model of the print order file: the whole text at once, written and read as one string.
#ifndef FILELISTMANAGEMENT_TESTS_MODEL_MODEL_PRINT_ORDER_H
#define FILELISTMANAGEMENT_TESTS_MODEL_MODEL_PRINT_ORDER_H

#include <string>

#include "tests/model/model_catalogue.h"

namespace flm_model {

int SavePrintOrder(World& world, const std::string& path, ModelCatalogue* catalogue,
                   const std::string& creator, int fileCount);
int LoadPrintOrder(World& world, const std::string& path, ModelCatalogue* catalogue);

}  // namespace flm_model

#endif
