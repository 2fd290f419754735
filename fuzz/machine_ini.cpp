#include "project/machine_ini.h"

#include <cstdlib>

#include "fuzz/fuzz.h"
#include "fuzz/input_file.h"
#include "platform/private_profile.h"

/// The workbench takes a number of spurs within its range, and the module reads any key of the same file.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vanzet;
  static const fuzz::InputFile file("machine.ini");
  const std::string path = file.Of(fuzz::TextOf(data, size)).string();
  const auto spurs = project::CountSpindleSpurs(path, "machine.ini");
  if (spurs && (*spurs < 1 || *spurs > 50)) std::abort();
  static_cast<void>(platform::ReadProfileText("COMMON", "NR_SPINDEL_SPUR", "-1", path));
  return 0;
}
