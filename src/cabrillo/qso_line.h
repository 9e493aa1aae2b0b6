#pragma once
// The Cabrillo "QSO: " line. Each contest family has its formatter, named after it: it pads the exchanges to
// the widths that contest wants, takes the transmitter number, and says whether the QSO is written at all.

#include <string>
#include <string_view>

#include "core/state.h"

namespace varnisto {

/// What a QSO line needs beside the QSO itself; the same for a whole log.
struct QsoLineContext {
  std::string mycall14;      ///< own call sign, left-aligned in 14
  bool multi_tx = false;     ///< a transmitter column follows the received exchange
  bool named_all = false;    ///< the log's name ends in "all" (lower case): TX# counts, sent exchange 7 wide
  bool qtc_columns = false;  ///< WAEDC: QTC columns follow the received exchange
};

/// Sets `out` to the line for `rec`; `log_line` is the line of the log it came from (for the markers in its
/// memo). False when this QSO is not written. Sets `tx_no`, WAEDC also the QTC fields of `rec`.
using QsoFormatter = bool(const QsoLineContext& context, std::string_view log_line, QsoRec& rec,
                          std::string& out);

QsoFormatter ARRL_10;
QsoFormatter ARRL_DX;
QsoFormatter WAEDC;
QsoFormatter CQ_WW;
QsoFormatter Else_;

/// The formatter for a contest code, compared in its first seven characters (a shorter code filled with
/// blanks).
QsoFormatter* formatter_for(std::string_view cont_id);

}  // namespace varnisto
