#pragma once

#include <filesystem>
#include <fstream>
#include <memory>

#include <nlohmann/json.hpp>

#include "base/result.h"

namespace vanzet::api {

using Json = nlohmann::ordered_json;

/// Writes each host call as one JSON line, in order, on disk as soon as it is made:
/// {"call":"OrvoCommand","args":["win 0"],"result":null}. What a call wrote through pointers stands behind
/// the result under "out", in the order of the pointers. Bytes that are no UTF-8 become U+FFFD.
class Trace {
 public:
  static Result<std::unique_ptr<Trace>> To(const std::filesystem::path& file);

  void Write(const char* call, const Json& arguments, const Json& result, const Json& out);

 private:
  explicit Trace(std::ofstream stream) : stream_(std::move(stream)) {}

  std::ofstream stream_;
};

}  // namespace vanzet::api
