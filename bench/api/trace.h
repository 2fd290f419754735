#pragma once

#include <filesystem>
#include <fstream>
#include <memory>

#include <nlohmann/json_fwd.hpp>

#include "base/result.h"

namespace vanzet::api {

using Json = nlohmann::ordered_json;

/// Whoever is told each host call when it has been made.
class CallLog {
 public:
  virtual ~CallLog() = default;

  /// What the call wrote through pointers is in `out`, in the order of the pointers. A fault once when no
  /// more can be written down.
  virtual Result<void> Write(const char* call, const Json& arguments, const Json& result,
                             const Json& out) = 0;
};

/// Writes each host call as one JSON line, in order, on disk as soon as it is made:
/// {"call":"OrvoCommand","args":["win 0"],"result":null}. What a call wrote through pointers stands behind
/// the result under "out", in the order of the pointers. Bytes that are no UTF-8 become U+FFFD.
class Trace final : public CallLog {
 public:
  /// Refused for what would keep a writer waiting, as a pipe does.
  static Result<std::unique_ptr<Trace>> To(const std::filesystem::path& file);

  /// A fault the first time that a line cannot be written; what follows is not written any more.
  Result<void> Write(const char* call, const Json& arguments, const Json& result, const Json& out) override;

 private:
  Trace(std::string file, std::ofstream stream) : file_(std::move(file)), stream_(std::move(stream)) {}

  std::string file_;
  std::ofstream stream_;
};

}  // namespace vanzet::api
