#pragma once

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>

#include "base/files.h"
#include "support.h"
#include "support/temp_dir.h"

namespace varnisto::fuzz {

/// Temporary folders lie in memory where the system has a place for that: a disk would set the pace.
inline const bool folders_in_memory = is_folder("/dev/shm") && ::setenv("TMPDIR", "/dev/shm", 0) == 0;

/// The first line of an input, taken off it: letters that switch options on.
class Switches {
 public:
  explicit Switches(std::string_view& input) : letters_(input.substr(0, input.find('\n'))) {
    input.remove_prefix(std::min(letters_.size() + 1, input.size()));
  }
  bool on(char letter) const { return letters_.find(letter) != std::string_view::npos; }
  /// The first switch of a row of letters that is on, by number; nothing when none is.
  std::optional<int> choice(std::string_view row) const {
    const std::size_t at = row.find_first_of(letters_);
    return at == std::string_view::npos ? std::nullopt : std::optional{static_cast<int>(at)};
  }

 private:
  std::string_view letters_;
};

}  // namespace varnisto::fuzz
