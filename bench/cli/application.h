#pragma once

namespace vanzet::cli {

/// Runs the command line. The exit status: 0 done, 1 the work failed, 2 wrong usage.
int Run(int argc, const char* const* argv);

}  // namespace vanzet::cli
