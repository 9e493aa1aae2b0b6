#pragma once
// Sorts the lines of a text file of any length in little memory: as many lines as that memory holds are
// sorted at a time and become a run, a file of its own; the runs are merged.

#include <cstddef>
#include <string>

#include "base/columns.h"

namespace varnisto {

/// What a sort may hold at once.
struct SortLimits {
  std::size_t block_bytes = 1 << 20;  ///< lines and their keys; a line that is longer counts as a block
  std::size_t fan_in = 16;            ///< runs that are read side by side, at least 2
};

/// Sorts the lines of `input` by the text in the columns `key` (in characters) into the file `output`,
/// one that is not there yet. Equal keys keep their order. Runs are `output` followed by ".run" and a number;
/// whatever way it ends, they are gone. Throws what TextReader and TextWriter throw.
void sort_lines(const std::string& input, const std::string& output, Columns key,
                const SortLimits& limits = {});

}  // namespace varnisto
