#pragma once
// What a run did that its user might not expect: lines that were not read, QSOs that were not written, values
// that were carried over or guessed. Notes are no errors; they are counted and told.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/text_reader.h"

namespace varnisto {

enum class NoteKind {
  after_eof,           ///< lines behind a character 26
  left_out,            ///< QSOs that the contest's rule leaves out
  mode_kept,           ///< QSOs whose mode is in no table: they carry the previous one's
  band_kept,           ///< the same with the band
  tx_kept,             ///< QSOs without a transmitter number: they carry the previous one's
  tx_dropped,          ///< QSOs whose transmitter number is written as 0 for want of a log named "all"
  contest_guessed,     ///< nobody said which contest it is but the log's name
  invalid,             ///< QSOs that the log marks as invalid: they are left out
  score_not_computed,  ///< the contest's score is not worked out for this kind of log
  utc_twice,           ///< the log is in UTC already, and the conversion is on
  count_differs,       ///< the log holds another number of QSOs than its head says
  qtc_unread,          ///< QTC memos from which no line could be made
};

/// One kind of note on one log.
struct Note {
  NoteKind kind;
  std::int64_t count = 0;   ///< lines, QSOs or memos; 1 for a note on the whole log
  std::size_t line = 0;     ///< line of the first one in its file, from 1; 0 for a note on the whole log
  std::string detail = {};  ///< what the text names: a contest
};

/// How often something happened, and on which line first.
struct Occurrences {
  std::int64_t count = 0;
  std::size_t first_line = 0;
  void add(std::size_t line) {
    if (count++ == 0) first_line = line;
  }
};

/// The notes on one log, at most one of a kind.
class Notes {
 public:
  /// Puts the note of its kind, replacing an earlier one; nothing that never happened is noted.
  void set(Note note);
  void set(NoteKind kind, const Occurrences& occurrences) {
    set({kind, occurrences.count, occurrences.first_line});
  }
  void clear(NoteKind kind) { set({kind}); }
  /// In the order of the kinds.
  const std::vector<Note>& all() const { return notes_; }

 private:
  std::vector<Note> notes_;
};

/// Notes the lines behind the character 26 of a file that was read to its end.
void note_after_end(Notes& notes, TextReader& file);

/// The name of a kind as scripts read it, e.g. "left_out".
std::string_view note_name(NoteKind kind);
/// What the user reads: what happened, how often, where first.
std::string note_text(const Note& note);

}  // namespace varnisto
