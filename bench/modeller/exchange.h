#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "base/result.h"
#include "modeller/body.h"

/// Files of other programs are read, and STEP, IGES, glTF and 3MF files written, by a separate program,
/// `vanzet-exchange`: a broken or malicious file ends that program and nothing else.
namespace vanzet::modeller {

/// The limits of that program; when it exceeds one it is ended.
struct ExchangeLimits {
  int seconds = 120;  ///< of the processor, so that a busy machine does not change the outcome
  int patience = 10;  ///< the time by the clock, as a multiple of these
  std::uint64_t bytes = std::uint64_t{4} << 30;
};

/// The most seconds that can be allowed: a day.
inline constexpr int kMostSeconds = 86'400;

/// Called now and then with the fraction that is done, from 0 to 1. Returning false cancels the work, as
/// Ctrl-C does.
using Progress = std::function<bool(double done)>;

/// The location of the program, its limits, and the receiver of its progress.
struct Exchange {
  std::filesystem::path program;
  ExchangeLimits limits;
  Progress progress = {};  ///< empty: progress is not reported

  /// The program next to the running one, or the one that the environment variable VANZET_EXCHANGE names.
  /// VANZET_EXCHANGE_SECONDS and VANZET_EXCHANGE_MEMORY, in gibibytes, are its limits; what is not a number
  /// becomes a limit of 0, with which the program is not run.
  static Exchange OfProcess();
};

/// The questions that will be asked about a body: the process that reads its file then answers them, too. Any
/// other question takes a process of its own.
struct Foresight {
  bool extents = false, measures = false;
  bool mesh = false;        ///< with the usual tolerance
  bool coarseMesh = false;  ///< made before that one, to be seen until it is there

  bool operator==(const Foresight&) const = default;
};

/// Reads the body of a file: `.step`, `.stp`, `.iges`, `.igs`, `.brep`, `.stl` or `.3mf`, in upper or lower
/// case. The result is in millimetres, whatever the unit of the file; STL and BREP files have none and are
/// taken to be in millimetres.
///
/// Errors   a fault with the name of the file and the message of Open CASCADE: `kMissing` when it does not
///          exist; another ending, broken, without a body, beyond the limits, cancelled
Result<Body> ImportBody(const std::filesystem::path& file, const Exchange& exchange,
                        const Foresight& foresight = {});

/// Is given the body of a file while its mesh is still made: what foresight asks for is known of it, and a
/// coarse mesh answers for the usual one.
using TakeCoarse = std::function<void(const Body&)>;

/// The same for someone who looks on. A body of facets, and one that cannot be meshed coarsely, comes only
/// whole.
Result<Body> ImportBodyInSteps(const std::filesystem::path& file, const Exchange& exchange,
                               Foresight foresight, const TakeCoarse& takeCoarse);

/// Reads the bodies of several files, in their order, by one process. When that process fails at one of
/// them, each of the rest gets a process of its own.
std::vector<Result<Body>> ImportBodies(const std::vector<std::filesystem::path>& files,
                                       const Exchange& exchange, const Foresight& foresight);

/// A face set of a VRML text, as a body of facets.
struct VrmlBody {
  std::string name;  ///< of the nearest named node around it
  Body body;
};

/// Reads the face sets of a VRML 2.0 text, in its order, placed by its transforms; millimetres. A text
/// that has only what modules write is read at once, any other by the exchange program. A text without face
/// sets has no bodies.
///
/// Errors   a fault without a place: not a VRML text, a face with a point that does not exist, beyond the
///          limits
Result<std::vector<VrmlBody>> ImportVrml(const std::string& text, const Exchange& exchange);

}  // namespace vanzet::modeller
