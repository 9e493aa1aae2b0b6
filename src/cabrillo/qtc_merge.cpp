#include "cabrillo/qtc_merge.h"

#include <algorithm>

#include "base/checked_int.h"
#include "base/scratch_files.h"
#include "base/short_text.h"
#include "base/text.h"
#include "base/text_writer.h"
#include "cabrillo/all_line.h"
#include "cabrillo/conversions.h"
#include "cabrillo/jst_to_utc.h"
#include "cabrillo/qso_remarks.h"
#include "cabrillo/qtc_files.h"
#include "cabrillo/qtc_memo.h"
#include "cabrillo/writer.h"

namespace varnisto {
namespace {

// Records of the scratch files. Each begins with its sort key: date and time, kind of line, place in the log.
enum QsoField {
  qso_key,
  qso_tag,
  qso_freq,
  qso_mode,
  qso_date,
  qso_time,
  qso_own_call,
  qso_sent_rst,
  qso_sent_exch,
  qso_call,
  qso_rcvd_rst,
  qso_rcvd_exch,
  qso_fields
};
enum MemoField {
  memo_key,
  memo_tag,
  memo_freq,
  memo_mode,
  memo_group,
  memo_number,
  memo_receiver,
  memo_date,
  memo_time,
  memo_band,
  memo_qso_time,
  memo_qso_call,
  memo_qso_rcvd,
  memo_fields
};
enum QtcField {
  qtc_key,
  qtc_freq,
  qtc_mode,
  qtc_date,
  qtc_time_of_day,
  qtc_receiver,
  qtc_group,
  qtc_number,
  qtc_sender,
  qtc_qso_time,
  qtc_qso_call,
  qtc_qso_rcvd,
  qtc_fields
};
enum PairField { pair_key, pair_line, pair_fields };

/// Width of "yyyy-mm-dd hhmm" and of the place in the log; with the kind between them they fill the key.
constexpr std::size_t minute_width = 15, place_width = 8;
constexpr std::string_view key_columns = "2:25";
/// Within a minute QSO lines come before QTC lines.
constexpr char kind_qso = '0', kind_qtc = '1';

struct Scratch {
  explicit Scratch(const std::string& folder)
      : qsos(files.add(folder + "qso_201.csv")),
        memos(files.add(folder + "qtc_201.csv")),
        qtcs(files.add(folder + "qtc_202.csv")),
        unsorted(files.add(folder + "qso_qtc.csv0")),
        sorted(files.add(folder + "qso_qtc.csv1")),
        body(files.add(folder + "qso_qtc.csv2")) {}

  ScratchFiles files;
  std::string qsos, memos, qtcs, unsorted, sorted, body;
};

/// Sets `key`; `place` is the number of the QSO in the log.
void make_key(std::string& key, std::string_view date, std::string_view time, char kind, std::int32_t place) {
  std::string minute;
  set_joined(minute, date, " ", time);
  const std::string digits = std::to_string(place);
  constexpr std::string_view zeros = "00000000";
  static_assert(zeros.size() == place_width);
  set_joined(key, left_aligned(minute, minute_width), std::string_view{&kind, 1},
             zeros.substr(std::min(digits.size(), zeros.size())), digits);
}
std::string_view place_of(std::string_view key) {
  return key.substr(key.size() - std::min(key.size(), place_width));  // digits: bytes are characters
}

void move_to_utc(QsoRec& rec, const TextReader& log) {
  const auto utc = nine_hours_back(rec.qso_date, rec.qso_hhmm);
  if (!utc)
    throw RunTimeError(RunTimeError::type_mismatch, log.place() + ": " + rec.qso_date + " " + rec.qso_hhmm);
  rec.qso_date = utc->date();
  rec.qso_hhmm = utc->time();
}

/// Phase 1: the log's QSOs and the memos among them, each to its own scratch file.
class Collector {
 public:
  Collector(const App& app, const Scratch& scratch)
      : options_(all_options(app, true)),
        own_call_(app.state.settings.mycall14),
        to_utc_(app.state.settings.jst_to_utc_flag),
        qsos_(TextWriter::scratch(scratch.qsos)),
        memos_(TextWriter::scratch(scratch.memos)) {}

  void run(TextReader& log) {
    for (std::string_view line; log.next(line);) {
      if (!holds_qso(line)) continue;
      parse_all_line(TextLine{line, log.ascii()}, options_, rec_);
      if (to_utc_) move_to_utc(rec_, log);
      add_checked(count_, 1, "qsos_written");
      put_qso();
      remarks_.add(rec_, true, log.line_number());
      for_each_qtc(line, log.line_number(), incomplete_, [&](const QtcMemo& memo) { put_memo(memo); });
    }
    qsos_.close();
    memos_.close();
  }

  std::int32_t count() const { return count_; }
  const Occurrences& incomplete() const { return incomplete_; }
  const QsoRemarks& remarks() const { return remarks_; }

 private:
  void put_qso() {
    make_key(key_, rec_.qso_date, rec_.qso_hhmm, kind_qso, count_);
    set_quoted_fields(record_,
                      {key_, "QSO: ", rec_.freq5, rec_.mode2, rec_.qso_date, rec_.qso_hhmm, own_call_,
                       rec_.sent_rst4, rec_.sent_exch, rec_.his_call14, rec_.rcvd_rst4, rec_.rcvd_exch});
    qsos_.put(record_);
  }

  void put_memo(const QtcMemo& memo) {
    const QtcTime passed = qtc_time(memo, to_utc_);
    make_key(key_, passed.date, passed.time, kind_qtc, count_);
    set_quoted_fields(record_,
                      {key_, "QTC: ", "  ", rec_.mode2, memo.group, memo.number, memo.receiver, passed.date,
                       passed.time, memo.band, rec_.qso_hhmm, rec_.his_call14, rec_.rcvd_exch});
    memos_.put(record_);
  }

  AllOptions options_;
  std::string own_call_;
  bool to_utc_;
  TextWriter qsos_, memos_;
  QsoRec rec_;
  std::string key_, record_;
  std::int32_t count_ = 0;
  Occurrences incomplete_;
  QsoRemarks remarks_;  ///< the transmitter column is not written here
};

/// Frequency field of the band in a memo ("20m"); nothing for a missing or unknown band.
std::optional<std::string_view> band_frequency(std::string_view band, bool as_1800) {
  if (band.ends_with('m') || band.ends_with('M')) band.remove_suffix(1);
  return band_henkan(band, as_1800);
}

/// Phase 2: what a QTC line takes from the QSO it reports. Both files are in the order of the log, so that
/// one walk through the QSOs serves all memos.
void complete_memos(const Scratch& scratch, bool as_1800) {
  ScratchRecords<memo_fields> memos{scratch.memos};
  ScratchRecords<qso_fields> qsos{scratch.qsos};
  TextWriter out = TextWriter::scratch(scratch.qtcs);
  std::string record;
  while (memos.next()) {
    if (place_of(qsos[qso_key]) != place_of(memos[memo_key])) {  // else a second memo of the same QSO
      do {
        if (!qsos.next_key()) throw RunTimeError(RunTimeError::past_end, scratch.qsos);
      } while (place_of(qsos[qso_key]) != place_of(memos[memo_key]));
      qsos.take_rest();
    }
    const auto frequency = band_frequency(memos[memo_band], as_1800);
    set_quoted_fields(record,
                      {memos[memo_key], frequency.value_or(qsos[qso_freq]), qsos[qso_mode], memos[memo_date],
                       memos[memo_time], memos[memo_receiver], memos[memo_group], memos[memo_number],
                       qsos[qso_own_call], memos[memo_qso_time], memos[memo_qso_call], memos[memo_qso_rcvd]});
    out.put(record);
  }
  out.close();
}

void put_qso_line(const ScratchRecords<qso_fields>& qso, std::string& out) {
  set_joined(out, qso[qso_tag], right_aligned(qso[qso_freq], 5), " ", qso[qso_mode], " ", qso[qso_date], " ",
             qso[qso_time], " ", left_aligned(qso[qso_own_call], 14), left_aligned(qso[qso_sent_rst], 4),
             right_aligned(qso[qso_sent_exch], 6), " ", left_aligned(qso[qso_call], 14),
             left_aligned(qso[qso_rcvd_rst], 4), right_aligned(qso[qso_rcvd_exch], 6));
}

void put_pair(std::string_view key, std::string_view line, std::string& record, TextWriter& out) {
  set_quoted_fields(record, {key, line});
  out.put(record);
}

/// Phase 3: the QSO lines, each with its key.
void put_qso_pairs(const Scratch& scratch, TextWriter& out) {
  ScratchRecords<qso_fields> qsos{scratch.qsos};
  std::string line;
  std::string record;
  while (qsos.next()) {
    put_qso_line(qsos, line);
    put_pair(qsos[qso_key], line, record, out);
  }
}

/// Phase 4: the QTC lines behind them.
void put_qtc_pairs(const Scratch& scratch, TextWriter& out) {
  ScratchRecords<qtc_fields> qtcs{scratch.qtcs};
  std::string line;
  std::string record;
  while (qtcs.next()) {
    put_qtc_line({qtcs[qtc_freq], qtcs[qtc_mode], qtcs[qtc_date], qtcs[qtc_time_of_day], qtcs[qtc_receiver],
                  qtcs[qtc_group], qtcs[qtc_number], qtcs[qtc_sender], qtcs[qtc_qso_time], qtcs[qtc_qso_call],
                  qtcs[qtc_qso_rcvd]},
                 line);
    put_pair(qtcs[qtc_key], line, record, out);
  }
}

/// Phase 6: the lines alone, in their new order.
void put_body(const Scratch& scratch) {
  ScratchRecords<pair_fields> pairs{scratch.sorted};
  TextWriter out = TextWriter::scratch(scratch.body);
  while (pairs.next()) out.put(pairs[pair_line]);
  out.put("END-OF-LOG:");
  out.close();
}

bool begins_body(std::string_view line) {
  return line.starts_with("QSO:") || line.starts_with("QTC:") || line.starts_with("END-OF-LOG:");
}

/// Phase 7: the header of the log, then the merged body.
void put_fresh_log(App& app, const Scratch& scratch) {
  const std::string& log_name = app.state.log.input.out_name;
  TextReader log = read_text(app, log_name);
  TextReader body{scratch.body};
  TextWriter out{app.outputs.create(log_name)};
  std::string_view line;
  while (log.next(line) && !begins_body(line)) out.put(line);
  while (body.next(line)) out.put(line);
  out.close();
}

void tell_incomplete(App& app, const Occurrences& incomplete) {
  app.state.log.notes.set(NoteKind::qtc_unread, incomplete);
  if (incomplete.count == 0) return;
  const std::string count = std::to_string(incomplete.count);
  const std::string first = std::to_string(incomplete.first_line);
  add_notice(app, lines({"QTC のメモ " + count + " 件は、相手局・日付・時刻がそろっていません。",
                         "これらの QTC 行は作成していません。（ 最初は " + first + " 行目 ）"}));
}

}  // namespace

void put_qtc_line(const QtcLine& qtc, std::string& out) {
  std::string series;
  set_joined(series, right_aligned(qtc.group, 3), "/", qtc.number);
  set_joined(out, "QTC: ", right_aligned(qtc.freq5, 5), " ", qtc.mode2, " ", qtc.date, " ", qtc.time, " ",
             left_aligned(qtc.receiver, 14), left_aligned(series, 11), left_aligned(qtc.sender, 14),
             left_aligned(qtc.qso_time, 4), " ", left_aligned(qtc.qso_call, 14),
             right_aligned(qtc.qso_rcvd_nr, 4));
}

void WAEDC_put(App& app) {
  app.trace.line("Public Sub WAEDC_put()_1");
  InputState& input = app.state.log.input;
  TextReader log = read_text(app, qtc_source(app));
  if (!has_logger_title(log)) return;
  const Scratch scratch{app.tmp_dir.path()};
  Collector collector{app, scratch};
  collector.run(log);
  app.trace.line("Public Sub WAEDC_put()_2");
  complete_memos(scratch, app.state.settings.freq19_to_18_flag);
  TextWriter pairs = TextWriter::scratch(scratch.unsorted);
  app.trace.line("Public Sub WAEDC_put()_3");
  put_qso_pairs(scratch, pairs);
  app.trace.line("Public Sub WAEDC_put()_4");
  put_qtc_pairs(scratch, pairs);
  pairs.close();
  app.trace.line("Public Sub WAEDC_put()_5_sort");
  sort_scratch(app, key_columns, scratch.unsorted, scratch.sorted);
  app.trace.line("Public Sub WAEDC_put()_6");
  put_body(scratch);
  app.trace.line("Public Sub WAEDC_put()_7");
  put_fresh_log(app, scratch);
  app.trace.line("Public Sub WAEDC_put()_8");
  input.qsos_written = collector.count();
  collector.remarks().note(app.state.log.notes);
  tell_incomplete(app, collector.incomplete());
}

}  // namespace varnisto
