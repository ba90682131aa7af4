// An application that has the library's tree inside its own reaches the headers both ways.
#include <filelistmanagement/flm.h>

#include "api/flm.h"

int main() { return _flm_range_check(FILELIST_MMC) == 1 ? 0 : 1; }
