#include "api/trace.h"

namespace vanzet::api {

Result<std::unique_ptr<Trace>> Trace::To(const std::filesystem::path& file) {
  std::ofstream stream(file, std::ios::binary);
  if (!stream.is_open()) return Fault{"the trace cannot be written there", file.string()};
  return std::unique_ptr<Trace>(new Trace(std::move(stream)));
}

void Trace::Write(const char* call, const Json& arguments, const Json& result, const Json& out) {
  Json line = {{"call", call}, {"args", arguments}, {"result", result}};
  if (!out.empty()) line["out"] = out;
  stream_ << line.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n' << std::flush;
}

}  // namespace vanzet::api
