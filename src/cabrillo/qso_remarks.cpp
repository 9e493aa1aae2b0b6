#include "cabrillo/qso_remarks.h"

namespace varnisto {

void QsoRemarks::count(const QsoRec& rec, bool written, std::size_t line) {
  if (!written) return left_out_.add(line);
  if (rec.mode_kept) mode_kept_.add(line);
  if (rec.band_kept) band_kept_.add(line);
  if (rec.tx_kept) tx_kept_.add(line);
  if (rec.tx_dropped) tx_dropped_.add(line);
}

void QsoRemarks::note(Notes& notes) const {
  notes.set(NoteKind::left_out, left_out_);
  notes.set(NoteKind::mode_kept, mode_kept_);
  notes.set(NoteKind::band_kept, band_kept_);
  notes.set(NoteKind::tx_kept, tx_kept_);
  notes.set(NoteKind::tx_dropped, tx_dropped_);
}

}  // namespace varnisto
