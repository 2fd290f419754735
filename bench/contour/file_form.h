#pragma once

#include <istream>
#include <streambuf>
#include <string>

/// The form of a file of contours, by its first bytes.
namespace vanzet::contour {

enum class FileForm { kText, kDrawing, kXml };

/// A drawing begins with the mark of a binary one or with the number of a group, XML with "<", the text form
/// with "k" or "rem". The ending of the name decides about other files.
FileForm FormOf(std::string_view head, const std::string& name);

/// A stream whose first bytes can be looked at before it is read. It may be one that cannot go back.
class HeadedStream : public std::istream {
 public:
  /// Reads the first bytes. The source must outlive the stream.
  explicit HeadedStream(std::istream& source);

  const std::string& head() const { return buffer_.head; }

 private:
  class Buffer : public std::streambuf {
   public:
    explicit Buffer(std::istream& from) : source(from) {}
    std::istream& source;
    std::string head;

    /// Goes on with `bytes`.
    void Offer(std::string& bytes) { setg(bytes.data(), bytes.data(), bytes.data() + bytes.size()); }

   protected:
    int_type underflow() override;

   private:
    std::string block_;
  };

  Buffer buffer_;
};

}  // namespace vanzet::contour
