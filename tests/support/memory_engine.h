#pragma once

#include <algorithm>
#include <map>
#include <utility>

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
    VANZET_DO(after.Note(next));
    for (const auto& [number, content] : next.vdms) {
      VANZET_DO(content ? after.Write(number, *content) : after.Remove(number));
    }
    if (next.file != nullptr) after.file_ = *next.file;
    if (next.lastStep) VANZET_DO(next.lastStep());
    orders_ = std::move(after.orders_);
    records_ = std::move(after.records_);
    file_ = std::move(after.file_);
    lastKey_ = after.lastKey_;
    past_ = std::move(after.past_);
    cut_ = std::move(after.cut_);
    last_ = after.last_;
    return {};
  }

  Result<std::vector<vdm::VdmChange>> ListChanges(std::optional<vdm::Number> only) override {
    std::vector<vdm::VdmChange> changes;
    VANZET_DO(Visit(only, [&](const vdm::PastGeneration& past) -> Result<void> {
      for (const auto& [number, content] : past.vdms) changes.push_back({past.generation, number, !content});
      return {};
    }));
    return changes;
  }

  Result<std::map<vdm::Number, vdm::Vdm>> ReadAt(std::int64_t generation,
                                                 std::optional<vdm::Number> only) override {
    const Fault missing{.text = "no such generation", .kind = FaultKind::kMissing};
    if (generation < 1 || generation > last_) return missing;
    for (const auto& [number, first] : cut_) {
      if ((!only || *only == number) && generation < first) return missing;
    }
    std::map<vdm::Number, vdm::Vdm> contents;
    VANZET_DO(Visit(only, [&](const vdm::PastGeneration& past) -> Result<void> {
      if (past.generation.number > generation) return {};
      for (const auto& [number, content] : past.vdms) {
        contents.erase(number);
        if (content) contents.emplace(number, *content);
      }
      return {};
    }));
    return contents;
  }

  Result<void> Visit(std::optional<vdm::Number> only, const vdm::GenerationVisitor& visitor) override {
    for (const auto& [number, past] : past_) {
      vdm::PastGeneration visited = past;
      if (only) std::erase_if(visited.vdms, [&](const auto& each) { return each.first != *only; });
      visited.cut.clear();
      for (const auto& [vdm, first] : cut_) {
        if (first == number && visited.vdms.contains(vdm)) visited.cut.push_back(vdm);
      }
      if (!visited.vdms.empty()) VANZET_DO(visitor(visited));
    }
    return {};
  }

  Result<void> Fill(const vdm::GenerationSource& source) override {
    if (last_ != 0) return Fault{"has generations already"};
    return source([&](const vdm::PastGeneration& past) -> Result<void> {
      vdm::Changes copies;
      for (const auto& [number, content] : past.vdms) {
        if (!content) {
          copies.emplace(number, std::nullopt);
          continue;
        }
        VANZET_TRY(auto copy, content->Copy());
        copies.emplace(number, std::move(copy));
      }
      VANZET_DO(Apply({copies, nullptr, past.generation.occasion, {}}));
      const std::int64_t number = past.generation.number;
      auto filled = past_.extract(std::exchange(last_, number));
      filled.key() = number;
      filled.mapped().generation = past.generation;
      past_.insert(std::move(filled));
      for (const vdm::Number each : past.cut) cut_[each] = number;
      return {};
    });
  }

  std::string Name() const override { return "memory"; }

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
        lastKey_(other.lastKey_),
        past_(other.past_),
        cut_(other.cut_),
        last_(other.last_) {}

  /// Adds the generation to the past ones, and forgets those that need not be kept.
  Result<void> Note(const vdm::NewGeneration& next) {
    vdm::PastGeneration past{
        {++last_, "2026-11-22T09:00:00Z", "user", "host", "program", next.occasion}, {}, {}};
    for (const auto& [number, content] : next.vdms) {
      if (!content && !orders_.contains(number)) continue;
      past.vdms.emplace(number, std::nullopt);
      if (!content) continue;
      VANZET_TRY(past.vdms[number], content->Copy());
    }
    past_.emplace(last_, std::move(past));
    for (const auto& [number, content] : next.vdms) Forget(number, std::max<std::int64_t>(next.keep, 1));
    return {};
  }

  void Forget(vdm::Number number, std::int64_t keep) {
    std::int64_t later = 0;
    for (auto each = past_.rbegin(); each != past_.rend(); ++each) {
      auto& [generation, past] = *each;
      if (!past.vdms.contains(number)) continue;
      if (++later == keep) cut_[number] = generation;
      if (later > keep) past.vdms.erase(number);
    }
  }

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
  std::map<std::int64_t, vdm::PastGeneration> past_;
  std::map<vdm::Number, std::int64_t>
      cut_;                ///< the oldest generation of those whose older ones are forgotten
  std::int64_t last_ = 0;  ///< generation
};

}  // namespace vanzet::test
