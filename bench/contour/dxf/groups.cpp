#include "contour/dxf/groups.h"

#include <bit>
#include <cstdint>
#include <istream>
#include <limits>
#include <utility>

#include "base/number_text.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "base/text_line_reader.h"

namespace vanzet::contour {
namespace {

std::string_view WithoutBlanks(std::string_view text) {
  while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
  return text;
}

class TextGroups final : public DxfGroups {
 public:
  TextGroups(std::istream& text, const std::string& name) : lines_(text, name) {}

  Result<bool> Next(DxfGroup& group) override {
    VANZET_TRY(const bool hasCode, lines_.Next(code_));
    group.place = lines_.LineNumber();
    if (!hasCode) return false;
    VANZET_TRY(const bool hasValue, lines_.Next(value_));
    group.place = lines_.LineNumber();
    if (!hasValue) return false;
    group.value = WithoutBlanks(value_);
    const auto number = WholeInteger(code_);
    if (!number) return lines_.AtLine(group.place - 1, "expected a group code, found " + Quoted(code_));
    group.code = *number;
    return true;
  }

  Fault At(int place, std::string text) const override { return lines_.AtLine(place, std::move(text)); }

 private:
  TextLineReader lines_;
  std::string code_, value_;
};

/// The forms of values in a binary drawing, by the codes of their groups.
enum class Form { kText, kReal, kInteger8, kInteger16, kInteger32, kInteger64, kChunk };
constexpr struct {
  int last;
  Form form;
} kForms[] = {
    {9, Form::kText},         {59, Form::kReal},        {79, Form::kInteger16},  {99, Form::kInteger32},
    {109, Form::kText},       {149, Form::kReal},       {169, Form::kInteger64}, {179, Form::kInteger16},
    {209, Form::kText},       {239, Form::kReal},       {269, Form::kText},      {289, Form::kInteger16},
    {299, Form::kInteger8},   {309, Form::kText},       {319, Form::kChunk},     {369, Form::kText},
    {389, Form::kInteger16},  {399, Form::kText},       {409, Form::kInteger16}, {419, Form::kText},
    {429, Form::kInteger32},  {439, Form::kText},       {459, Form::kInteger32}, {469, Form::kReal},
    {1003, Form::kText},      {1004, Form::kChunk},     {1009, Form::kText},     {1059, Form::kReal},
    {1070, Form::kInteger16}, {1071, Form::kInteger32},
};

class BinaryGroups final : public DxfGroups {
 public:
  /// The mark has been read.
  BinaryGroups(std::istream& bytes, std::string name) : bytes_(bytes), name_(std::move(name)) {}

  Result<bool> Next(DxfGroup& group) override {
    if (place_ == 0) FindCodeSize();
    VANZET_TRY(const bool hasCode, TakeCode(group.code));
    group.place = Place();
    if (!hasCode) return false;
    VANZET_TRY(group.value, TakeValue(group.code));
    return true;
  }

  Fault At(int place, std::string text) const override {
    return Fault{"byte " + std::to_string(place) + ": " + std::move(text), name_};
  }

 private:
  int Place() const { return static_cast<int>(kBinaryDxfMark.size()) + place_; }
  Fault CutShort() const { return At(Place(), "the drawing is cut short"); }

  /// A drawing begins with the group 0 or the remark 999. In codes of two bytes, the second one of the group
  /// 0 is 0 as well, and the first one of the group 999 is not 255.
  void FindCodeSize() {
    const int first = bytes_.get(), second = bytes_.get();
    isWide_ = first == 0 ? second == 0 : first != 255;
    if (second != std::char_traits<char>::eof()) bytes_.unget();
    bytes_.clear();
    held_ = first;
  }

  Result<unsigned> TakeByte() {
    const int byte = held_ >= 0 ? std::exchange(held_, -1) : bytes_.get();
    if (byte == std::char_traits<char>::eof()) return CutShort();
    if (place_ == std::numeric_limits<int>::max() - 64) return At(Place(), "the drawing is too large");
    ++place_;
    return static_cast<unsigned>(byte);
  }

  Result<std::uint64_t> TakeBytes(int count) {
    std::uint64_t value = 0;
    for (int i = 0; i < count; ++i) {
      VANZET_TRY(const std::uint64_t byte, TakeByte());
      value |= byte << (8 * i);
    }
    return value;
  }

  Result<bool> TakeCode(int& code) {
    if (held_ < 0 && bytes_.peek() == std::char_traits<char>::eof()) return false;
    VANZET_TRY(const std::uint64_t first, TakeBytes(isWide_ ? 2 : 1));
    code = static_cast<int>(first);
    if (isWide_ || first != 255) return true;
    VANZET_TRY(const std::uint64_t wide, TakeBytes(2));
    code = static_cast<int>(wide);
    return true;
  }

  Result<std::string> TakeText() {
    std::string text;
    while (true) {
      VANZET_TRY(const unsigned byte, TakeByte());
      if (byte == 0) return std::string(WithoutBlanks(text));
      if (text.size() == TextLineReader::kLongestLine) return At(Place(), "a text is too long");
      text += static_cast<char>(byte);
    }
  }

  /// A chunk of bytes, which no entity with a shape has.
  Result<std::string> TakeChunk() {
    VANZET_TRY(const unsigned size, TakeByte());
    for (unsigned i = 0; i < size; ++i) VANZET_DO(Skip());
    return std::string();
  }
  Result<void> Skip() {
    VANZET_TRY([[maybe_unused]] const unsigned byte, TakeByte());
    return {};
  }

  template <class Integer>
  Result<std::string> TakeInteger() {
    VANZET_TRY(const std::uint64_t bytes, TakeBytes(sizeof(Integer)));
    return std::to_string(static_cast<Integer>(bytes));
  }

  Result<std::string> TakeValue(int code) {
    constexpr int kDigits = 17;
    for (const auto& row : kForms) {
      if (code > row.last && code != 999) continue;
      switch (code == 999 ? Form::kText : row.form) {
        case Form::kText: return TakeText();
        case Form::kInteger8: return TakeInteger<std::uint8_t>();
        case Form::kInteger16: return TakeInteger<std::int16_t>();
        case Form::kInteger32: return TakeInteger<std::int32_t>();
        case Form::kInteger64: return TakeInteger<std::int64_t>();
        case Form::kChunk: return TakeChunk();
        case Form::kReal: {
          VANZET_TRY(const std::uint64_t bits, TakeBytes(8));
          return NumberText(std::bit_cast<double>(bits), kDigits);
        }
      }
    }
    return At(Place(), "expected a group code, found " + std::to_string(code));
  }

  std::istream& bytes_;
  std::string name_;
  bool isWide_ = true;
  int place_ = 0;  ///< bytes taken after the mark
  int held_ = -1;  ///< a byte that was looked at and not taken
};

}  // namespace

Result<std::unique_ptr<DxfGroups>> DxfGroups::Open(std::istream& bytes, const std::string& name) {
  if (bytes.peek() != kBinaryDxfMark.front()) {
    return std::unique_ptr<DxfGroups>(std::make_unique<TextGroups>(bytes, name));
  }
  std::string mark(kBinaryDxfMark.size(), '\0');
  bytes.read(mark.data(), static_cast<std::streamsize>(mark.size()));
  if (mark != kBinaryDxfMark) return Fault{"not a DXF drawing", name};
  return std::unique_ptr<DxfGroups>(std::make_unique<BinaryGroups>(bytes, name));
}

}  // namespace vanzet::contour
