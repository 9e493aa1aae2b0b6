#pragma once

#include "platform/platform.h"

namespace varnisto {

/// Sorts text files beside their output, in little memory.
class FileTextSort final : public TextSort {
 public:
  /// Throws RunTimeError 5 for a command it does not understand, 53, 61 for files.
  int ksort(const std::string& command) override;
};

}  // namespace varnisto
