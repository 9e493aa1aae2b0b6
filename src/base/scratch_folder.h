#pragma once

#include <memory>
#include <string>

#include "base/interruption.h"

namespace varnisto {

/// The program's private folder (mode 0700) under the system's temporary folder, made when it is first
/// needed. It and what is in it go with this object.
class ScratchFolder {
 public:
  ScratchFolder() = default;
  ~ScratchFolder() { remove(); }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  /// The folder, ending in the separator. Throws RunTimeError 76 when the temporary folder that the
  /// environment names is none, 61, 70.
  const std::string& path();
  /// Deletes the folder now; the next path() makes another one.
  void remove();

 private:
  std::unique_ptr<DoomedFile> folder_;
  std::string path_;
};

/// Deletes the scratch folders of this user whose process is gone: a killed run left them.
void clear_abandoned_scratch_folders();

}  // namespace varnisto
