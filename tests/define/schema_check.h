#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace vanzet::test {

/// The path of the first value that the schema refuses, with the keyword that refuses it; empty when it takes
/// the value. Knows the keywords that the form's schema uses; any other one is a failure of the test.
std::string RefusedBySchema(const nlohmann::ordered_json& schema, const nlohmann::ordered_json& value);

}  // namespace vanzet::test
