#pragma once

#include <filesystem>
#include <memory>
#include <ostream>
#include <string>
#include <utility>

#include <nlohmann/json_fwd.hpp>

#include "base/result.h"

namespace vanzet::api {

using Json = nlohmann::ordered_json;

/// The receiver of each host call after it was made.
class CallLog {
 public:
  virtual ~CallLog() = default;

  /// `out` is what the call wrote through pointers, in the order of the pointers. Fails once when calls can
  /// no longer be recorded.
  virtual Result<void> Write(const char* call, const Json& arguments, const Json& result,
                             const Json& out) = 0;
};

/// Writes each host call to a file as one JSON line, as soon as it is made:
/// {"call":"OrvoCommand","args":["win 0"],"result":null}. What a call wrote through pointers follows as
/// "out", in the order of the pointers. Bytes that are not UTF-8 become U+FFFD.
class Trace final : public CallLog {
 public:
  /// Opens the file; "-" is standard output. Fails for a pipe, which could block the writer.
  static Result<std::unique_ptr<Trace>> To(const std::filesystem::path& file);

  /// Fails the first time that a line cannot be written; later lines are dropped.
  Result<void> Write(const char* call, const Json& arguments, const Json& result, const Json& out) override;

 private:
  Trace(std::string file, std::unique_ptr<std::ostream> stream)
      : file_(std::move(file)), stream_(std::move(stream)) {}

  std::string file_;
  std::unique_ptr<std::ostream> stream_;
};

}  // namespace vanzet::api
