#pragma once

#include <cstddef>
#include <string>

namespace varnisto::bench {

/// One QSO line of an ALL log; the same number gives the same line.
std::string all_line(std::size_t number);
/// Writes a CQ WW log `stem`.all of this many QSOs and the logger's summary `stem`.zsm. Throws RunTimeError.
void make_log(const std::string& stem, std::size_t qsos);

}  // namespace varnisto::bench
