#include "modeller/description.h"

#include <fstream>

#include "modeller/answers.h"
#include "modeller/exchange_process.h"

namespace vanzet::modeller {

Result<FileDescription> DescribeFile(const std::filesystem::path& file, const Exchange& exchange) {
  VANZET_TRY(const auto parcel, MemoryFile::Make());
  const std::vector<std::string> arguments = {"describe", std::to_string(exchange.limits.seconds),
                                              std::to_string(exchange.limits.bytes), "", file.string()};
  const auto done = RunExchange(exchange, arguments, parcel);
  if (!done) return WithFile(done.fault(), file);
  std::ifstream bytes(parcel.Path(), std::ios::binary);
  auto description = UnpackDescription(bytes);
  if (!description) return WithFile(description.fault(), file);
  return description;
}

}  // namespace vanzet::modeller
