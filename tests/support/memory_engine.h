#pragma once

#include <map>

#include "vdm/store_engine.h"

namespace vanzet::test {

/// A store that forgets everything with the process: the simplest one that keeps the contract of the engines.
class MemoryEngine : public vdm::StoreEngine {
 public:
  Result<std::vector<vdm::Number>> Numbers() override {
    std::vector<vdm::Number> numbers;
    for (const auto& [number, order] : orders_) numbers.push_back(number);
    return numbers;
  }

  Result<bool> Exists(vdm::Number number) override { return orders_.contains(number); }

  Result<std::optional<vdm::Vdm>> Open(vdm::Number number) override {
    const auto order = orders_.find(number);
    if (order == orders_.end()) return std::optional<vdm::Vdm>();
    return std::optional<vdm::Vdm>(vdm::Vdm(order->second, [this](vdm::RecordKey key) -> Result<vdm::Record> {
      if (!records_.contains(key)) return Fault{"a record is missing"};
      return records_.at(key);
    }));
  }

  Result<std::optional<vdm::Vdm>> Read(vdm::Number number) override {
    const auto opened = Open(number);
    if (!*opened) return std::optional<vdm::Vdm>();
    auto copy = (*opened)->Copy();
    if (!copy) return copy.fault();
    return std::optional<vdm::Vdm>(std::move(*copy));
  }

  Result<void> Write(vdm::Number number, const vdm::Vdm& content) override {
    auto records = records_;
    std::vector<vdm::RecordKey> order;
    for (std::size_t i = 0; i < content.Size(); ++i) {
      const auto& entry = content.EntryOf(i);
      if (entry.key && !records_.contains(*entry.key)) return Fault{"was changed by others"};
      order.push_back(entry.key.value_or(vdm::RecordKey{lastKey_ + 1}));
      if (!entry.key) ++lastKey_;
      if (entry.MustBeWritten()) records[order.back()] = *entry.content;
    }
    for (const auto key : orders_[number]) {
      if (std::find(order.begin(), order.end(), key) == order.end()) records.erase(key);
    }
    records_ = std::move(records);
    orders_[number] = std::move(order);
    return {};
  }

  Result<void> Remove(vdm::Number number) override {
    const auto order = orders_.find(number);
    if (order == orders_.end()) return {};
    for (const auto key : order->second) records_.erase(key);
    orders_.erase(order);
    return {};
  }

 private:
  std::map<vdm::Number, std::vector<vdm::RecordKey>> orders_;
  std::map<vdm::RecordKey, vdm::Record> records_;
  std::int64_t lastKey_ = 0;
};

}  // namespace vanzet::test
