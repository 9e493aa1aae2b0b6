// Some systems refuse to rename, to replace or to delete a file that somebody holds open. Here they do not,
// so these take the place of the C library's functions in every test program, and a test fails in which the
// program would be refused. They may run in a signal handler: nothing here allocates before it has failed.
#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool same_file(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// Fails the test when this process holds the plain file open.
void must_be_closed(const char* path) {
  constexpr int most_files = 256;
  const int code = errno;
  struct stat file {};
  const bool plain = ::lstat(path, &file) == 0 && S_ISREG(file.st_mode);
  for (int number = 0; plain && number < most_files; ++number) {
    struct stat open {};
    if (::fstat(number, &open) == 0 && same_file(file, open))
      ADD_FAILURE() << path << " is open while it is renamed, replaced or deleted";
  }
  errno = code;
}

}  // namespace

extern "C" {

int renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned flags) noexcept {
  must_be_closed(from);
  must_be_closed(to);
  return static_cast<int>(::syscall(SYS_renameat2, from_folder, from, to_folder, to, flags));
}

int rename(const char* from, const char* to) noexcept {
  must_be_closed(from);
  must_be_closed(to);
  return ::renameat(AT_FDCWD, from, AT_FDCWD, to);
}

int unlink(const char* path) noexcept {
  must_be_closed(path);
  return ::unlinkat(AT_FDCWD, path, 0);
}

}  // extern "C"
