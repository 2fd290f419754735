#include "modeller/device_package.h"

#include <fstream>

#include "base/quote.h"
#include "modeller/answers.h"
#include "modeller/exchange_process.h"
#include "modeller/temporary_file.h"

namespace vanzet::modeller {

namespace fs = std::filesystem;

Result<DevicePackage> ReadDevicePackage(const fs::path& file, const Exchange& exchange) {
  VANZET_TRY(const auto parcel, MemoryFile::Make());
  const std::vector<std::string> arguments = {"read-package", std::to_string(exchange.limits.seconds),
                                              std::to_string(exchange.limits.bytes), "", file.string()};
  const auto done = RunExchange(exchange, arguments, parcel);
  if (!done) return WithFile(done.fault(), file);
  std::ifstream bytes(parcel.Path(), std::ios::binary);
  auto package = UnpackPackage(bytes);
  if (!package) return WithFile(package.fault(), file);
  return package;
}

Result<void> CheckModel(const PackageModel& model, const fs::path& package, const Exchange& exchange) {
  VANZET_TRY(const auto copy, TemporaryFile::Make(".step"));
  std::ofstream bytes(copy.path(), std::ios::binary);
  bytes << model.step;
  bytes.close();
  if (!bytes) return Fault{.text = "cannot be written", .file = copy.path(), .kind = FaultKind::kSystem};
  const auto body = ImportBody(copy.path(), exchange);
  if (body) return {};
  return Fault{.text = Quoted(model.file) + ": " + body.fault().text, .file = package.string()};
}

}  // namespace vanzet::modeller
