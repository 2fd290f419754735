#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdio>

#include "faults/shim/plan.h"

namespace {

using vanzet::faults::Family;
using vanzet::faults::Judge;
using vanzet::faults::Place;

template <class Function>
Function* Next(Function* /*own*/, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// True when the call shall fail; errno then says why.
bool Fails(Family family, Place place) {
  const int error = Judge(family, place).error;
  if (error != 0) errno = error;
  return error != 0;
}

/// How many bytes a call that reads or writes shall be made with; below 0: it fails.
ssize_t BytesOf(Family family, int descriptor, std::size_t bytes) {
  const auto verdict = Judge(family, {.descriptor = descriptor});
  if (verdict.error == 0) return static_cast<ssize_t>(verdict.isShort && bytes > 1 ? bytes / 2 : bytes);
  errno = verdict.error;
  return -1;
}

}  // namespace

// A function of the C library with its name, that fails when it shall and else calls the next one of the
// name. The assembler's label keeps it from being taken for the library's own declaration.
#define VANZET_FAULTY(result, name, failed, family, place, parameters, arguments) \
  extern "C" result faulty_##name parameters __asm__(#name);                      \
  result faulty_##name parameters {                                               \
    if (Fails(Family::family, Place place)) return failed;                        \
    return Next(faulty_##name, #name) arguments;                                  \
  }

// One that opens a file and has a mode where it makes one.
#define VANZET_FAULTY_OPEN(name, place, parameters, arguments) \
  extern "C" int faulty_##name parameters __asm__(#name);      \
  int faulty_##name parameters {                               \
    va_list rest;                                              \
    va_start(rest, flags);                                     \
    const mode_t mode = va_arg(rest, mode_t);                  \
    va_end(rest);                                              \
    if (Fails(Family::kOpen, Place place)) return -1;          \
    return Next(faulty_##name, #name) arguments;               \
  }

// One that reads or writes: its place is "file", its count of bytes "size".
#define VANZET_FAULTY_BYTES(name, family, parameters, arguments) \
  extern "C" ssize_t faulty_##name parameters __asm__(#name);    \
  ssize_t faulty_##name parameters {                             \
    const ssize_t allowed = BytesOf(Family::family, file, size); \
    if (allowed < 0) return -1;                                  \
    size = static_cast<std::size_t>(allowed);                    \
    return Next(faulty_##name, #name) arguments;                 \
  }

// clang-format off
VANZET_FAULTY_OPEN(open, ({path, -1}), (const char* path, int flags, ...), (path, flags, mode))
VANZET_FAULTY_OPEN(open64, ({path, -1}), (const char* path, int flags, ...), (path, flags, mode))
VANZET_FAULTY_OPEN(openat, ({path, folder}), (int folder, const char* path, int flags, ...), (folder, path, flags, mode))
VANZET_FAULTY_OPEN(openat64, ({path, folder}), (int folder, const char* path, int flags, ...), (folder, path, flags, mode))
VANZET_FAULTY(int, __open_2, -1, kOpen, ({path, -1}), (const char* path, int flags), (path, flags))
VANZET_FAULTY(int, __open64_2, -1, kOpen, ({path, -1}), (const char* path, int flags), (path, flags))
VANZET_FAULTY(int, __openat_2, -1, kOpen, ({path, folder}), (int folder, const char* path, int flags), (folder, path, flags))
VANZET_FAULTY(int, __openat64_2, -1, kOpen, ({path, folder}), (int folder, const char* path, int flags), (folder, path, flags))
VANZET_FAULTY(int, creat, -1, kOpen, ({path, -1}), (const char* path, mode_t mode), (path, mode))
VANZET_FAULTY(int, creat64, -1, kOpen, ({path, -1}), (const char* path, mode_t mode), (path, mode))
VANZET_FAULTY(int, mkstemp, -1, kOpen, ({path, -1}), (char* path), (path))
VANZET_FAULTY(int, mkstemp64, -1, kOpen, ({path, -1}), (char* path), (path))
VANZET_FAULTY(int, mkostemp, -1, kOpen, ({path, -1}), (char* path, int flags), (path, flags))
VANZET_FAULTY(int, mkostemp64, -1, kOpen, ({path, -1}), (char* path, int flags), (path, flags))
VANZET_FAULTY(FILE*, fopen, nullptr, kOpen, ({path, -1}), (const char* path, const char* mode), (path, mode))
VANZET_FAULTY(FILE*, fopen64, nullptr, kOpen, ({path, -1}), (const char* path, const char* mode), (path, mode))
VANZET_FAULTY(DIR*, opendir, nullptr, kOpen, ({path, -1}), (const char* path), (path))

VANZET_FAULTY_BYTES(read, kRead, (int file, void* bytes, std::size_t size), (file, bytes, size))
VANZET_FAULTY_BYTES(pread, kRead, (int file, void* bytes, std::size_t size, off_t at), (file, bytes, size, at))
VANZET_FAULTY_BYTES(pread64, kRead, (int file, void* bytes, std::size_t size, off_t at), (file, bytes, size, at))
VANZET_FAULTY_BYTES(__read_chk, kRead, (int file, void* bytes, std::size_t size, std::size_t room), (file, bytes, size, room))
VANZET_FAULTY_BYTES(__pread64_chk, kRead, (int file, void* bytes, std::size_t size, off_t at, std::size_t room), (file, bytes, size, at, room))
VANZET_FAULTY_BYTES(write, kWrite, (int file, const void* bytes, std::size_t size), (file, bytes, size))
VANZET_FAULTY_BYTES(pwrite, kWrite, (int file, const void* bytes, std::size_t size, off_t at), (file, bytes, size, at))
VANZET_FAULTY_BYTES(pwrite64, kWrite, (int file, const void* bytes, std::size_t size, off_t at), (file, bytes, size, at))
VANZET_FAULTY(ssize_t, writev, -1, kWrite, ({nullptr, file}), (int file, const iovec* parts, int count), (file, parts, count))
VANZET_FAULTY(ssize_t, sendfile, -1, kWrite, ({nullptr, to}), (int to, int from, off_t* at, std::size_t size), (to, from, at, size))
VANZET_FAULTY(ssize_t, sendfile64, -1, kWrite, ({nullptr, to}), (int to, int from, off_t* at, std::size_t size), (to, from, at, size))
VANZET_FAULTY(int, ftruncate, -1, kWrite, ({nullptr, file}), (int file, off_t size), (file, size))
VANZET_FAULTY(int, ftruncate64, -1, kWrite, ({nullptr, file}), (int file, off_t size), (file, size))
VANZET_FAULTY(int, posix_fallocate, errno, kWrite, ({nullptr, file}), (int file, off_t at, off_t size), (file, at, size))
VANZET_FAULTY(int, posix_fallocate64, errno, kWrite, ({nullptr, file}), (int file, off_t at, off_t size), (file, at, size))

VANZET_FAULTY(int, fsync, -1, kSync, ({nullptr, file}), (int file), (file))
VANZET_FAULTY(int, fdatasync, -1, kSync, ({nullptr, file}), (int file), (file))

VANZET_FAULTY(int, rename, -1, kName, ({to, -1}), (const char* from, const char* to), (from, to))
VANZET_FAULTY(int, renameat, -1, kName, ({to, there}), (int here, const char* from, int there, const char* to), (here, from, there, to))
VANZET_FAULTY(int, renameat2, -1, kName, ({to, there}), (int here, const char* from, int there, const char* to, unsigned flags), (here, from, there, to, flags))
VANZET_FAULTY(int, link, -1, kName, ({to, -1}), (const char* from, const char* to), (from, to))
VANZET_FAULTY(int, linkat, -1, kName, ({to, there}), (int here, const char* from, int there, const char* to, int flags), (here, from, there, to, flags))
VANZET_FAULTY(int, unlink, -1, kName, ({path, -1}), (const char* path), (path))
VANZET_FAULTY(int, unlinkat, -1, kName, ({path, folder}), (int folder, const char* path, int flags), (folder, path, flags))
VANZET_FAULTY(int, remove, -1, kName, ({path, -1}), (const char* path), (path))
VANZET_FAULTY(int, mkdir, -1, kName, ({path, -1}), (const char* path, mode_t mode), (path, mode))
VANZET_FAULTY(char*, mkdtemp, nullptr, kName, ({path, -1}), (char* path), (path))
VANZET_FAULTY(int, rmdir, -1, kName, ({path, -1}), (const char* path), (path))
VANZET_FAULTY(int, fchmod, -1, kName, ({nullptr, file}), (int file, mode_t mode), (file, mode))
VANZET_FAULTY(int, fchown, -1, kName, ({nullptr, file}), (int file, uid_t owner, gid_t group), (file, owner, group))

VANZET_FAULTY(int, flock, -1, kLock, ({nullptr, file}), (int file, int operation), (file, operation))
VANZET_FAULTY(void*, mmap, MAP_FAILED, kMap, ({nullptr, file}), (void* at, std::size_t size, int rights, int flags, int file, off_t offset), (at, size, rights, flags, file, offset))
VANZET_FAULTY(void*, mmap64, MAP_FAILED, kMap, ({nullptr, file}), (void* at, std::size_t size, int rights, int flags, int file, off_t offset), (at, size, rights, flags, file, offset))
// clang-format on

// Only locking may fail: the other commands of these two ask about a descriptor or change it.
namespace {

bool IsLocking(int command) {
  return command == F_SETLK || command == F_SETLKW || command == F_OFD_SETLK || command == F_OFD_SETLKW;
}

template <class Function>
int Control(Function* next, int file, int command, void* argument) {
  if (IsLocking(command) && Fails(Family::kLock, {.descriptor = file})) return -1;
  return next(file, command, argument);
}

}  // namespace

extern "C" int faulty_fcntl(int file, int command, void* argument) __asm__("fcntl");
int faulty_fcntl(int file, int command, void* argument) {
  return Control(Next(faulty_fcntl, "fcntl"), file, command, argument);
}

extern "C" int faulty_fcntl64(int file, int command, void* argument) __asm__("fcntl64");
int faulty_fcntl64(int file, int command, void* argument) {
  return Control(Next(faulty_fcntl64, "fcntl64"), file, command, argument);
}
