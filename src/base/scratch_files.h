#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace varnisto {

/// Files that exist only while a routine works: whatever way it ends, they are deleted.
class ScratchFiles {
 public:
  ScratchFiles() = default;
  ScratchFiles(const ScratchFiles&) = delete;
  ScratchFiles& operator=(const ScratchFiles&) = delete;
  ~ScratchFiles();

  /// Takes charge of the file with this path, whether it is there already or not; returns the path.
  std::string add(std::string path);

 private:
  std::vector<std::string> paths_;
};

}  // namespace varnisto
