#pragma once

#include <cstdint>
#include <string>

/// The host's numbered stores of text ("VDM"), from single items up to the definition of a clamp.
namespace vanzet::OrvoApi {

/// The bytes that a host may write when it reads an item, its NUL included. Items longer than that cannot be
/// kept: the host is given the place without its size.
inline constexpr std::size_t kItemBytes = 5000;

/// One VDM, held open for one piece of work.
///
/// Shape    records from 0, each a list of text items from 0; the host keeps one position for each handle
/// Owns     the host's handle; the destructor closes what is still open, and reports an exception of the host
/// Errors   false, after one box "<vdm number>: <what>" under the class's name; nothing is thrown or retried
/// Story    Create or Open, seek, read and write, Close. What is done to a closed VDM is reported and has no
///          effect
///
/// A seek puts the position on item 0 of a record. A step counts forward from the position. After a
/// read the position follows the item that was read; an added item precedes the position.
class MacroVdm {
 public:
  explicit MacroVdm(std::uint32_t number) : vdmNumber(number) {}
  virtual ~MacroVdm();
  MacroVdm(const MacroVdm&) = delete;
  MacroVdm& operator=(const MacroVdm&) = delete;

  /// Makes the VDM and opens it. Fails when the number is taken.
  bool Create();

  /// Opens the VDM. Fails when it does not exist or is already open, here or elsewhere.
  bool Open();

  /// The object ends closed, also when somebody else has closed the VDM meanwhile, which is reported.
  bool Close();

  /// Replaces the VDM by the content of a ".vdm" file; the object ends closed. The old content is
  /// deleted first, also when the path is then refused.
  bool LoadFromFile(const std::string& path);

  /// Leaves `text` as it is when closed.
  bool SingleGet(std::string& text);
  /// Both false as well for a text that is too long to be kept, which has no effect then.
  bool SingleAdd(const std::string& text);
  bool SingleReplace(const std::string& text);

  void SeekFromStart(std::int32_t record);
  void SingleSeek(std::int32_t count);

  /// The number of records; 0, without a report, when closed.
  std::int32_t Size();

  bool IsOpen() const { return handle != 0; }

  /// Shows `message` after the VDM's number under this class's name.
  void ReportError(const std::string& message);

 protected:
  /// The box of ReportError under any class's name.
  void ReportUnder(const char* caption, const std::string& message) const;

  std::uint32_t handle = 0;          ///< the host's while open; 0: not open
  const std::uint32_t vdmNumber;     ///< the VDM that this object is bound to
  char itemBuffer[kItemBytes] = {};  ///< receives each item that the host reads

 private:
  /// True when open; else reports "<operation>: Vdm not open".
  bool OpenFor(const char* operation);
};

}  // namespace vanzet::OrvoApi
