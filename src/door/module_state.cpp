#include "door/module_state.h"

#include <string>

namespace vanzet {

// Set up in this order when the module is loaded, before any export runs.
CvanzetApp theApp;
extern const std::string attributeMark;
/// Set up with the rest and read by nobody.
const std::string attributeMark = "#ATTRIB#";

}  // namespace vanzet
