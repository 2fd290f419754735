#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host_extensions.h"

namespace vanzet::test {

/// Takes the host's part while it exists: gathers what the module reports to the host.
class ReportedFaults {
 public:
  ReportedFaults() { platform::extensionFinder = Find; }
  ~ReportedFaults() {
    platform::extensionFinder = former_;
    faults_.clear();
  }
  ReportedFaults(const ReportedFaults&) = delete;
  ReportedFaults& operator=(const ReportedFaults&) = delete;

  const std::vector<Fault>& faults() const { return faults_; }

  std::vector<std::string> Messages() const {
    std::vector<std::string> messages;
    for (const Fault& fault : faults_) messages.push_back(fault.Message());
    return messages;
  }

 private:
  static void Take(const char* text, const char* file, std::int32_t line, std::int32_t column,
                   const char* source, std::int32_t kind) {
    faults_.push_back({.text = text,
                       .file = file,
                       .line = line,
                       .column = column,
                       .kind = static_cast<FaultKind>(kind),
                       .source = source});
  }
  static void* Find(void* /*module*/, const char* name) {
    return name == std::string_view("VanzetReportFault") ? reinterpret_cast<void*>(&Take) : nullptr;
  }

  inline static std::vector<Fault> faults_;
  const platform::ExtensionFinder former_ = platform::extensionFinder;
};

}  // namespace vanzet::test
