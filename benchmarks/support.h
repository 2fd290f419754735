#pragma once

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

#include "base/result.h"

/// Shared by the benchmarks: results that have to be good, and a folder to work in.
namespace vanzet::benchmarks {

template <class T>
T Get(Result<T> result) {
  if (!result) throw std::runtime_error(result.fault().Message());
  return std::move(*result);
}

inline void Check(const Result<void>& done) {
  if (!done) throw std::runtime_error(done.fault().Message());
}

/// A folder that goes with its owner.
struct Folder {
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "vanzet-benchmark-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder could be made");
    path = name;
  }
  ~Folder() { std::filesystem::remove_all(path); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  std::filesystem::path path;
};

}  // namespace vanzet::benchmarks
