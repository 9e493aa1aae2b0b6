#pragma once
// What the head of a ZLO log says, and what the user is told of it.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "records/zlo_reader.h"

namespace varnisto {

/// The head of a log, its texts in UTF-8 and trimmed.
struct ZloHead {
  std::string call;                       ///< own call sign: `mycall_base`
  std::string title;                      ///< the contest: `zlo_title`
  bool titled = false;                    ///< the head has room for a title, and there is one, be it blank
  bool utc = false;                       ///< the times of the log are UTC
  std::optional<std::int32_t> qso_count;  ///< QSOs by the logger's own count, where it keeps one
};

/// Reads the head of a log that was just opened. A title that names CQ 160 m becomes "CQWW160 Contest".
/// Throws RunTimeError.
ZloHead read_zlo_head(ZloReader& log);

/// The user's words for a file that cannot be a binary log.
inline constexpr std::string_view no_zlo_log_text = "zLog の ZLO ファイルではありません。";
/// Why this file cannot be read as a ZLO log; empty for a log and for an empty file. Throws RunTimeError.
std::string_view why_no_zlo_log(const std::string& path);

/// What the message box shows when a log was read: its contest and the claimed score, for JIDX the limits of
/// the power classes.
std::string zlo_found_text(std::string_view zlo_title, std::string_view total_score_text);

}  // namespace varnisto
