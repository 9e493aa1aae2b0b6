#include "zlo/zlo_scan.h"

#include "base/cp932.h"
#include "base/text.h"
#include "core/power.h"

namespace varnisto {
namespace {

/// The scan's own reading of a band code: it knows the contest bands and, counting nowhere, 10 MHz.
bool scan_knows(std::string_view band) {
  return band == "10" || band_of_megahertz(band);
}

/// The mode of a text as the walk has it; mixed for others.
Mode mode_of_text(std::string_view mode) {
  for (const Mode known : {Mode::cw, Mode::ssb, Mode::rtty})
    if (mode == trim(names_of(known).column)) return known;
  return Mode::mixed;
}

}  // namespace

ScanCounts scan_zlo(ZloReader& log, bool rtty) {
  ScanCounts counts;
  std::string_view band;
  for (ZloWalk walk{log}; walk.next();) {
    counts.add(rtty ? Mode::rtty : mode_of_text(walk.mode()));
    if (const std::string_view text = zlo_band(walk.qso().band_code); scan_knows(text)) band = text;
    if (const auto known = band_of_megahertz(band)) counts.add(*known);
  }
  return counts;
}

std::string highest_zlo_power(ZloReader& log) {
  HighestPower highest{"0"};
  std::string sent_no;
  CodePage code_page;
  for (ZloWalk walk{log}; walk.next();) {
    sent_no.clear();
    code_page.decode(trim(walk.qso().sent_no), sent_no);
    highest.add(sent_no);
  }
  return highest.text();
}

}  // namespace varnisto
