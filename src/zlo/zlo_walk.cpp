#include "zlo/zlo_walk.h"

namespace varnisto {
namespace {

void keep_or_replace(std::string_view& kept, std::string_view text) {
  if (!text.empty()) kept = text;
}

}  // namespace

bool ZloWalk::next() {
  while (log_.next(qso_)) {
    ++count_.records;
    if (qso_.invalid != 0) {
      count_.invalid.add(log_.number());
      count_.passed_over.push_back(static_cast<std::uint16_t>(log_.number()));
      continue;
    }
    ++count_.qsos;
    keep_or_replace(mode_, zlo_mode(log_.layout(), qso_.mode_code));
    keep_or_replace(band_, zlo_band(qso_.band_code));
    return true;
  }
  return false;
}

}  // namespace varnisto
