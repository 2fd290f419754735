#pragma once

#include <cstdio>
#include <sstream>
#include <string>

#include "support/temporary_folder.h"

namespace geometry::testing {

using Folder = vanzet::test::TemporaryFolder;
using vanzet::test::ReadBytes;

/// The text that `write` puts into a stream.
template <class WriteTo>
std::string Streamed(WriteTo&& write) {
  std::FILE* const stream = std::tmpfile();
  write(stream);
  std::rewind(stream);
  std::string text;
  for (int c = 0; (c = std::fgetc(stream)) != EOF;) text += static_cast<char>(c);
  std::fclose(stream);
  return text;
}

/// The result of `read` from a stream with that text.
template <class ReadFrom>
auto FromStream(const std::string& text, ReadFrom&& read) {
  std::FILE* const stream = std::tmpfile();
  std::fwrite(text.data(), 1, text.size(), stream);
  std::rewind(stream);
  auto result = read(stream);
  std::fclose(stream);
  return result;
}

inline std::wstring Wide(const std::filesystem::path& ascii) {
  return ascii.wstring();
}

}  // namespace geometry::testing
