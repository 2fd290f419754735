#include "view/script/transcript.h"

#include <fstream>
#include <iostream>

#include "platform/files.h"

namespace vanzet::view {
namespace {

std::string Escaped(char c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  switch (c) {
    case '"': return "\\\"";
    case '\\': return "\\\\";
    case '\n': return "\\n";
    case '\r': return "\\r";
    case '\t': return "\\t";
    default: break;
  }
  const auto byte = static_cast<unsigned char>(c);
  if (byte >= 0x20) return {c};
  return std::string("\\u00") + kDigits[byte >> 4U] + kDigits[byte & 0xFU];
}

}  // namespace

std::string JsonString(std::string_view text) {
  std::string json = "\"";
  for (const char c : text) json += Escaped(c);
  return json + '"';
}

Transcript::Transcript(const std::string& file) {
  if (file.empty()) return;
  auto stream = std::make_unique<std::ofstream>(platform::FileOf(file), std::ios::binary);
  if (stream->is_open()) {
    file_ = std::move(stream);
  } else {
    std::cerr << file + ": the transcript cannot be written there; it goes to standard output\n";
  }
}

void Transcript::Box(const platform::MessageBox& message, std::int32_t answer) {
  Write(R"({"event":"box","caption":)" + JsonString(message.caption) + R"(,"text":)" +
        JsonString(message.text) + R"(,"type":)" + std::to_string(message.type) + R"(,"answer":)" +
        std::to_string(answer) + "}");
}

void Transcript::Error(int line, std::string_view text) {
  Write(R"({"event":"error","line":)" + std::to_string(line) + R"(,"text":)" + JsonString(text) + "}");
}

void Transcript::Write(const std::string& object) {
  (file_ ? *file_ : std::cout) << object + "\n" << std::flush;
}

}  // namespace vanzet::view
