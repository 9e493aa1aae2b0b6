#include "base/scratch_files.h"

#include <filesystem>
#include <system_error>

namespace varnisto {

ScratchFiles::~ScratchFiles() {
  for (const std::string& path : paths_) {
    std::error_code failure;  // one that cannot be deleted must not hide the error that led here
    std::filesystem::remove(path, failure);
  }
}

std::string ScratchFiles::add(std::string path) {
  paths_.push_back(path);
  return path;
}

}  // namespace varnisto
