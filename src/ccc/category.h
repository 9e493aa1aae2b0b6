#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "ccc/contests.h"
#include "ccc/tally.h"

namespace varnisto {

enum class CccInput { text, binary };

/// What a log's counts say of its contest code.
struct CccSheetCode {
  std::string_view code;                     ///< e.g. "CQWW-DX", or the contest's title where it has no code
  std::optional<std::int16_t> mode_sel_cat;  ///< JIDX in one mode: 1 SSB, 2 CW
  std::optional<std::int16_t>
      lowband_flag;  ///< JIDX from a binary log: 1 with QSOs on 160, 80 or 40 metres, else 2
};

/// The code under which a contest's sheet is made. JIDX: by mode, and for binary logs in CW by band.
CccSheetCode ccc_sheet_code(const CccContest& contest, CccInput input, const CccTally& tally);

}  // namespace varnisto
