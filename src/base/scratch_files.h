#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/interruption.h"

namespace varnisto {

/// Files that exist only while a routine works: whatever way it ends, by a signal too, they are deleted.
class ScratchFiles {
 public:
  /// Takes charge of the file with this path, whether it is there already or not; returns the path.
  const std::string& add(std::string path) {
    return files_.emplace_back(std::make_unique<DoomedFile>(std::move(path)))->path();
  }

 private:
  std::vector<std::unique_ptr<DoomedFile>> files_;
};

}  // namespace varnisto
