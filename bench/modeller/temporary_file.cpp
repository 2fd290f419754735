#include "modeller/temporary_file.h"

#include <stdlib.h>

#include <cerrno>
#include <fstream>
#include <iterator>

#include "vdm/system_reason.h"

namespace vanzet::modeller {

namespace fs = std::filesystem;

Result<TemporaryFile> TemporaryFile::Make(std::string_view ending) {
  std::error_code unknown;
  std::string folder = (fs::temp_directory_path(unknown) / "vanzet-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) {
    return Fault{"no temporary folder could be made: " + std::string(vdm::SystemReason(errno))};
  }
  return TemporaryFile(folder, fs::path(folder) / ("bodies" + std::string(ending)));
}

TemporaryFile::~TemporaryFile() {
  std::error_code unknown;
  if (!folder_.empty()) fs::remove_all(folder_, unknown);
}

Result<std::string> TemporaryFile::Content() const {
  std::ifstream bytes(path_, std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(bytes), {}};
  if (bytes.bad() || content.empty()) return Fault{"the exchange program wrote nothing"};
  return content;
}

}  // namespace vanzet::modeller
