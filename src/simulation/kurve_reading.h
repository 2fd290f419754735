#pragma once

#include <cstdint>
#include <utility>

#include "host/host_functions.h"

namespace vanzet::simulation {

/// A contour that the host has opened for reading. It is given back when it is closed, or at the latest when
/// the reading goes.
class KurveReading {
 public:
  explicit KurveReading(std::int32_t handle) : handle_(handle) {}
  ~KurveReading() { Close(); }
  KurveReading(const KurveReading&) = delete;
  KurveReading& operator=(const KurveReading&) = delete;

  bool IsOpen() const { return handle_ >= 1; }
  std::int32_t handle() const { return handle_; }

  void Close() {
    if (IsOpen()) host::hostFunctions.OrvoVdmClose(std::exchange(handle_, 0));
  }

 private:
  std::int32_t handle_;
};

}  // namespace vanzet::simulation
