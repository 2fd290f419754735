#pragma once

#include <nlohmann/json.hpp>

#include "cli/run_vanzet.h"

namespace vanzet::test {

/// The program on contours, in a folder with a slot of 60 x 20 mm about the origin, clockwise.
class ContourCommandTest : public CommandLineTest {
 protected:
  ContourCommandTest() {
    WriteBytes(folder / "slot.txt",
               "k1 e x-20 y10\nx20 y10\ntx20 y-10 x20 y0\nx-20 y-10\ntx-20 y10 x-20 y0\nek\n");
  }

  /// Runs an operation that has to succeed, and gives its JSON.
  nlohmann::json Json(const std::string& arguments, const std::string& input = "") {
    const Outcome run = Vanzet("contour " + arguments + " --json", "", input);
    EXPECT_EQ(run.status, 0) << arguments << ": " << run.err;
    return nlohmann::json::parse(run.out, nullptr, false);
  }

  /// Runs an operation that has to fail, and gives what it tells.
  std::string Fault(const std::string& arguments, const std::string& input = "") {
    const Outcome run = Vanzet("contour " + arguments, "", input);
    EXPECT_EQ(run.status, 1) << arguments;
    EXPECT_EQ(run.out, "") << arguments;
    return run.err;
  }
};

inline constexpr double kPi = 3.14159265358979323846;

}  // namespace vanzet::test
