#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "define/check.h"

namespace vanzet::test {

/// Forms against a machine that has all, two spurs, a catalogue, and files of every sort.
class FormTest : public testing::Test {
 protected:
  FormTest();

  /// What is refused of a form, a line each: "$.spurs[0].main: must be an object".
  std::vector<std::string> RefusedOf(const std::string& json);

  /// The same of spur 0 with these keys, and of its main spindle; paths are those below it.
  std::vector<std::string> RefusedOfSpur(const std::string& keys);
  std::vector<std::string> RefusedOfMain(const std::string& keys);

  /// The form as the check completes it. Requires: nothing is refused.
  define::Json Completed(const std::string& json);

  define::Surroundings surroundings;
};

}  // namespace vanzet::test
