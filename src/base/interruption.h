#pragma once
// What happens when a signal ends the program: unfinished files go with it. Signals belong to the process, so
// this is the one list in the program that does not hang on its context.

#include <atomic>
#include <string>

namespace varnisto {

/// From now on the signals INT, TERM, HUP and PIPE delete every DoomedFile and then end the program as
/// ever; one that is ignored stays ignored. A file that grows too large is an error of its writer, no
/// signal.
void install_signal_handlers();

/// A file that does not outlive this object, nor the program when a signal ends it; a folder goes when it is
/// empty by then. Those made last go first.
class DoomedFile {
 public:
  /// The file may be there already or come later.
  explicit DoomedFile(std::string path);
  /// Deletes the file unless it was spared; one that cannot be deleted stays.
  ~DoomedFile();
  DoomedFile(const DoomedFile&) = delete;
  DoomedFile& operator=(const DoomedFile&) = delete;

  const std::string& path() const { return path_; }
  /// The file stays, or is somebody else's by now.
  void spare() { spared_ = true; }

 private:
  friend void delete_doomed_files() noexcept;

  const std::string path_;
  const char* const name_;  ///< of `path_`, for the signal handler
  std::atomic<DoomedFile*> below_;
  std::atomic<bool> spared_ = false;
};

/// Deletes every file that is doomed. Calls nothing that a signal handler must not call.
void delete_doomed_files() noexcept;

/// While this lives the signals above wait: what has begun is brought to its end.
class SignalsWait {
 public:
  SignalsWait();
  ~SignalsWait();
  SignalsWait(const SignalsWait&) = delete;
  SignalsWait& operator=(const SignalsWait&) = delete;
};

}  // namespace varnisto
