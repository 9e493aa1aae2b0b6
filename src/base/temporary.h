#pragma once
// Files that are written under another name beside the one they replace. A temporary is locked as long as its
// process works on it, so that one which nobody holds is known to be left by a run that was killed.

#include <optional>
#include <string>
#include <string_view>

#include "base/file_handle.h"
#include "base/interruption.h"
#include "base/os.h"

namespace varnisto {

/// The lock of a folder, waited for: only who holds it makes, clears or renames temporaries there. Where the
/// file system knows no locks the folder is used without.
class FolderLock {
 public:
  /// The folder's path ends in a separator; "" is the current one. Without `wait` the lock is left to who has
  /// it.
  explicit FolderLock(std::string folder, bool wait = true);

  bool held() const { return held_; }
  const std::string& folder() const { return folder_; }

 private:
  std::string folder_;
  os::Descriptor open_;
  bool held_;
};

/// The file that is replaced when the program writes `path`: what a link points to, not the link. Throws
/// RunTimeError 52, 70 (it cannot be written), 75 (a folder, a device, a link to nothing).
std::string replaced_file(const std::string& path);

/// A new version of a file, until it takes the file's name; without that it goes with this object.
class Temporary {
 public:
  /// Makes an empty file beside `target`, which replaced_file() has given, with the permissions of the file
  /// that it will replace. `lock` is that of the target's folder. Throws RunTimeError 61, 70, 76, naming
  /// `target`.
  Temporary(const std::string& target, const FolderLock& lock);

  const std::string& path() const { return name_->path(); }
  const std::string& target() const { return target_; }

  /// The file, to be written once; errors name the target.
  FileHandle take_file();
  /// Lets go of the lock: before the renames, under the lock of the folder.
  void close() { held_.close(); }
  /// Gives the file its target's name. Throws RunTimeError.
  void rename();

 private:
  std::string target_;
  std::optional<DoomedFile> name_;  ///< the file's own
  os::Descriptor file_;             ///< until take_file()
  os::Descriptor held_;             ///< locked
};

/// Deletes the temporaries in the lock's folder that nobody holds; nothing without the lock.
void clear_abandoned(const FolderLock& lock);

}  // namespace varnisto
