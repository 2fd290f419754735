#pragma once

// The system's own header, included through here alone: its macros give functions and types of ours other
// names.
#include <windows.h>
#undef MessageBox
#undef ReplaceFile

#include <utility>

namespace vanzet::files {

/// An open object of the system, closed with this one.
class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  ~Handle() { Close(); }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&&) = delete;

  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }

  void Close() {
    const HANDLE handle = std::exchange(handle_, INVALID_HANDLE_VALUE);
    if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
  }

 private:
  HANDLE handle_;
};

}  // namespace vanzet::files
