#pragma once

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "vdm/vdm.h"

namespace vanzet::test {

/// The content of a VDM as plain values: records of items.
using Records = std::vector<std::vector<std::string>>;

inline vdm::Vdm VdmOf(const Records& records) {
  vdm::Vdm made;
  for (const auto& items : records) made.Insert(made.Size(), vdm::Record(items));
  return made;
}

inline std::vector<std::string> ItemsOf(const vdm::Record& record) {
  std::vector<std::string> items;
  for (std::size_t i = 0; i < record.Size(); ++i) items.push_back(record[i]);
  return items;
}

inline Records RecordsOf(const vdm::Vdm& content) {
  Records records;
  for (std::size_t i = 0; i < content.Size(); ++i) {
    const auto record = content.Read(i);
    if (!record) {
      ADD_FAILURE() << record.fault().Message();
      return records;
    }
    records.push_back(ItemsOf(**record));
  }
  return records;
}

/// The value of a result that must have one; the test ends here when it has none.
template <class T>
T Get(Result<T> result) {
  if (!result) throw std::runtime_error(result.fault().Message());
  return std::move(*result);
}

/// What went wrong, as it is told; empty when nothing did.
template <class T>
std::string Told(const Result<T>& result) {
  return result ? std::string() : result.fault().Message();
}

/// Dice with a known seed.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : engine_(seed) {}

  /// A number from 0 to `limit`, both included.
  std::size_t UpTo(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit)(engine_);
  }

  /// Up to `limit` bytes of any value but NUL.
  std::string Text(std::size_t limit) {
    std::string text(UpTo(limit), ' ');
    for (char& c : text) c = static_cast<char>(1 + UpTo(254));
    return text;
  }

 private:
  std::mt19937 engine_;
};

}  // namespace vanzet::test
