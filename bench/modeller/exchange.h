#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "base/result.h"
#include "modeller/body.h"

/// Files of other programs are read, and STEP and glTF written, by a program of its own, `vanzet-exchange`: a
/// file that is broken or made to do harm ends that program and nothing else.
namespace vanzet::modeller {

/// What that program may take before it is ended.
struct ExchangeLimits {
  int seconds = 120;
  std::uint64_t bytes = std::uint64_t{4} << 30;
};

/// Told now and then with what is done, from 0 to 1. False ends the work, as Ctrl-C does meanwhile.
using Progress = std::function<bool(double done)>;

/// Where the program is, what it may take, and who waits for it.
struct Exchange {
  std::filesystem::path program;
  ExchangeLimits limits;
  Progress progress = {};  ///< empty: nobody is told

  /// Beside the running program, or where the environment variable VANZET_EXCHANGE says.
  static Exchange OfProcess();
};

/// The body of a file: `.step`, `.stp`, `.stl`, `.brep`, in any case; millimetres, whatever unit a STEP file
/// is in. STL and BREP are taken to be in millimetres.
///
/// Errors   a fault with the file's name and what Open CASCADE says of it: not there, another ending, broken,
///          without a body, too large for the limits, cancelled
Result<Body> ImportBody(const std::filesystem::path& file, const Exchange& exchange);

/// A face set of a VRML text, as a body of facets.
struct VrmlBody {
  std::string name;  ///< of the nearest named node that it stands in
  Body body;
};

/// The face sets of a VRML 2.0 text, in its order, where its transforms put them; millimetres. Read by the
/// exchange program. A text without any has no bodies.
///
/// Errors   a fault without a place: what is no VRML, faces and points that cannot be, the limits
Result<std::vector<VrmlBody>> ImportVrml(const std::string& text, const Exchange& exchange);

}  // namespace vanzet::modeller
