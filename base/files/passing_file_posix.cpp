#include "base/files/passing_file.h"

#include <fcntl.h>

#include <cerrno>

#include "base/files/descriptor_posix.h"
#include "base/files/system_fault.h"

namespace vanzet::files {

Result<void> WritePassingFile(const std::filesystem::path& file, std::string_view bytes) {
  constexpr mode_t kOwner = 0600;
  const Descriptor opened(file, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK, kOwner);
  if (opened && opened.Write(bytes)) return {};
  return SystemFault("cannot be written", errno, file);
}

}  // namespace vanzet::files
