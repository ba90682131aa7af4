// Stands in for the contact sheet in a build without the libraries that it draws with.
#include "browse_options.h"
#include "failure.h"

namespace flm::tool {

int RunBrowse(const BrowseOptions& /*options*/) {
  throw Failure("this build of flm has no browse: it was made without chafa, libexif or libjpeg");
}

}  // namespace flm::tool
