#pragma once

#include "core/state.h"

namespace varnisto {

/// Counts what the QSO lines of a log do not say by themselves.
class QsoRemarks {
 public:
  /// Takes the QSO that a line of the log gave and whether it is written.
  void add(const QsoRec& rec, bool written, std::size_t line) {
    if (written && !rec.mode_kept && !rec.band_kept && !rec.tx_kept && !rec.tx_dropped) return;
    count(rec, written, line);
  }
  /// Puts the counts to the notes on the log, in place of earlier ones.
  void note(Notes& notes) const;

 private:
  void count(const QsoRec& rec, bool written, std::size_t line);

  Occurrences left_out_, mode_kept_, band_kept_, tx_kept_, tx_dropped_;
};

}  // namespace varnisto
