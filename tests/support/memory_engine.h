#pragma once

#include <algorithm>
#include <map>

#include "vdm/store_engine.h"

namespace vanzet::test {

/// A store that forgets everything with the process: the simplest one that keeps the contract of the engines.
class MemoryEngine : public vdm::StoreEngine {
 public:
  MemoryEngine() = default;

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

  Result<std::map<vdm::Number, vdm::Vdm>> Read(const std::vector<vdm::Number>& numbers) override {
    std::map<vdm::Number, vdm::Vdm> contents;
    for (const vdm::Number number : numbers) {
      const auto opened = Open(number);
      if (!*opened) continue;
      auto copy = (*opened)->Copy();
      if (!copy) return copy.fault();
      contents.emplace(number, std::move(*copy));
    }
    return contents;
  }

  Result<std::map<vdm::Number, vdm::RecordHeads>> ReadHeads(
      const std::vector<vdm::Number>& numbers) override {
    std::map<vdm::Number, vdm::RecordHeads> heads;
    for (const vdm::Number number : numbers) {
      if (!orders_.contains(number)) continue;
      auto& all = heads[number];
      for (const auto key : orders_.at(number)) {
        VANZET_TRY(auto head, HeadOf(records_.at(key)));
        all.push_back(std::move(head));
      }
    }
    return heads;
  }

  Result<void> Apply(const vdm::NewGeneration& next) override {
    MemoryEngine after = *this;
    for (const auto& [number, content] : next.vdms) {
      VANZET_DO(content ? after.Write(number, *content) : after.Remove(number));
    }
    if (next.file != nullptr) after.file_ = *next.file;
    if (next.lastStep) VANZET_DO(next.lastStep());
    orders_ = std::move(after.orders_);
    records_ = std::move(after.records_);
    file_ = std::move(after.file_);
    lastKey_ = after.lastKey_;
    return {};
  }

  Result<std::optional<vdm::TextFile>> UnfinishedFile() override { return file_; }

  Result<void> FinishFile() override {
    file_.reset();
    return {};
  }

 private:
  MemoryEngine(const MemoryEngine& other)
      : StoreEngine(),
        orders_(other.orders_),
        records_(other.records_),
        file_(other.file_),
        lastKey_(other.lastKey_) {}

  static Result<vdm::RecordHead> HeadOf(const vdm::Record& record) {
    return vdm::RecordHeadFrom(vdm::BytesOf(record).substr(0, vdm::kHeadBytes),
                               static_cast<std::int64_t>(record.Size()));
  }

  Result<void> Write(vdm::Number number, const vdm::Vdm& content) {
    std::vector<vdm::RecordKey> order;
    for (std::size_t i = 0; i < content.Size(); ++i) {
      const auto& entry = content.EntryOf(i);
      if (entry.key && !records_.contains(*entry.key)) return Fault{"was changed by others"};
      order.push_back(entry.key.value_or(vdm::RecordKey{lastKey_ + 1}));
      if (!entry.key) ++lastKey_;
      if (entry.MustBeWritten()) records_[order.back()] = *entry.content;
    }
    for (const auto key : orders_[number]) {
      if (std::find(order.begin(), order.end(), key) == order.end()) records_.erase(key);
    }
    orders_[number] = std::move(order);
    return {};
  }

  Result<void> Remove(vdm::Number number) {
    const auto order = orders_.find(number);
    if (order == orders_.end()) return {};
    for (const auto key : order->second) records_.erase(key);
    orders_.erase(order);
    return {};
  }

  std::map<vdm::Number, std::vector<vdm::RecordKey>> orders_;
  std::map<vdm::RecordKey, vdm::Record> records_;
  std::optional<vdm::TextFile> file_;
  std::int64_t lastKey_ = 0;
};

}  // namespace vanzet::test
