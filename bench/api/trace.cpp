#include "api/trace.h"

#include <fstream>
#include <iostream>

#include <nlohmann/json.hpp>

namespace vanzet::api {

Result<std::unique_ptr<Trace>> Trace::To(const std::filesystem::path& file) {
  std::error_code unknown;
  if (std::filesystem::is_fifo(file, unknown))
    return Fault{"is a pipe; a trace cannot be written to it", file.string()};
  if (file == "-") {
    return std::unique_ptr<Trace>(
        new Trace("standard output", std::make_unique<std::ostream>(std::cout.rdbuf())));
  }
  auto stream = std::make_unique<std::ofstream>(file, std::ios::binary);
  if (!stream->is_open())
    return Fault{.text = "the trace cannot be written", .file = file.string(), .kind = FaultKind::kSystem};
  return std::unique_ptr<Trace>(new Trace(file.string(), std::move(stream)));
}

Result<void> Trace::Write(const char* call, const Json& arguments, const Json& result, const Json& out) {
  if (!*stream_) return {};
  Json line = {{"call", call}, {"args", arguments}, {"result", result}};
  if (!out.empty()) line["out"] = out;
  *stream_ << line.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n' << std::flush;
  if (*stream_) return {};
  return Fault{.text = "the trace cannot be continued", .file = file_, .kind = FaultKind::kSystem};
}

}  // namespace vanzet::api
