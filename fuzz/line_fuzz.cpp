// Any lines through the checker and on the ways that one line alone can take: from Japan Standard Time to
// UTC, through the search for QTC memos, and back to the logger's text and to an ADIF file.

#include <algorithm>

#include "app/checker.h"
#include "base/columns.h"
#include "base/fields.h"
#include "cabrillo/adif.h"
#include "cabrillo/all_line.h"
#include "cabrillo/jst_to_utc.h"
#include "cabrillo/qso_line.h"
#include "cabrillo/qtc_memo.h"
#include "cabrillo/qtc_merge.h"
#include "cabrillo/to_zlog.h"
#include "support.h"

using namespace varnisto;

namespace {

/// The line of a log as a QSO line of a contest, with all options on or off.
void check_qso(const std::string& line, std::string_view contest, bool on) {
  const QsoLineContext context{"QX1ABC        ", on, on, on};
  QsoRec rec;
  std::string out;
  parse_all_line(TextLine{line}, {on, on, on, on ? "10" : ""}, rec);
  fuzz::require(char_count(rec.freq5) == 5 && char_count(rec.mode2) == 2 && char_count(rec.his_call14) == 14,
                "frequency, mode and call fill their columns");
  fuzz::require(char_count(rec.sent_exch) <= 8 && char_count(rec.rcvd_exch) <= 8, "exchanges fit theirs");
  if (!formatter_for(contest)(context, line, rec, out)) return;
  // A complete date and time leaves every column in its place.
  if (char_count(rec.qso_date) != 10 || char_count(rec.qso_hhmm) != 4) return;
  fuzz::require(mid(out, 31, 14) == context.mycall14, "the own call stands in columns 31 to 44");
  fuzz::require(char_count(out) >= 79, "no column is missing");
}

void check_utc(const std::string& before) {
  std::string after = before;
  const bool moved = J2U(after, is_ascii(after));
  if (!moved) return fuzz::require(after == before, "a line without a time stays as it is");
  const TextLine old_line{before}, new_line{after};
  const auto japan = read_minute(old_line.cut({15, 10}), old_line.cut({26, 4}));
  const auto utc = read_minute(new_line.cut({15, 10}), new_line.cut({26, 4}));
  fuzz::require(japan && utc && *japan - *utc == std::chrono::hours{9}, "nine hours lie between them");
  fuzz::require(new_line.cut({1, 14}) == old_line.cut({1, 14}) && new_line.from(31) == old_line.from(31),
                "only date and time change");
}

void check_qtcs(const std::string& line) {
  Occurrences incomplete;
  for_each_qtc(line, 2, incomplete, [](const QtcMemo& memo) {
    const QtcTime passed = qtc_time(memo, true);
    std::string text, record, field;
    put_qtc_line({" 7000", "CW", passed.date, passed.time, memo.receiver, memo.group, memo.number, "QX1ABC",
                  "0645", memo.band, memo.group},
                 text);
    fuzz::require(char_count(text) == 92, "every column of a QTC line is there");
    set_quoted_fields(record, {memo.group, memo.receiver});
    std::string_view rest = record;
    fuzz::require(take_field(rest, field) && field == memo.group, "the first field comes back");
    fuzz::require(!take_field(rest, field) && field == memo.receiver, "the last field comes back");
  });
}

void check_way_back(const std::string& line) {
  static AdifRecords records{{common_adif_layout, "TNX", true}};  // keeps its converter open
  std::string text, record;
  append_zlog_text_line(line, text);
  // Date, exchanges, multiplier, band, points: the widths that no line can make smaller or larger.
  fuzz::require(char_count(text) >= 41 && char_count(text) <= 80, "every column of the text is there");
  records.make(TextLine{line}, record);
  fuzz::require(record.starts_with("<call:") && record.ends_with("<EOR>"), "an ADIF record is whole");
}

void check_findings(std::string_view bytes, const std::vector<std::string>& lines) {
  TextReader log = TextReader::from_bytes(bytes);
  fuzz::LineList report;
  const CheckResult result = check_cabrillo(log, "in", "out", report);
  const auto qsos = std::ranges::count_if(lines, [](const auto& line) { return contains(line, "QSO:"); });
  fuzz::require(result.qsos == qsos, "every line with QSO: is counted");
  fuzz::require(result.errors <= result.finding_count, "each error has its finding");
  fuzz::require(report.lines.size() - 3 - lines.size() >= (result.errors > 0 ? 1U : 0U),
                "the report has a line for every line of the file, and the findings");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto lines = fuzz::lines_of(fuzz::bytes_of(data, size));
  check_findings(fuzz::bytes_of(data, size), lines);
  for (const std::string& line : lines) {
    for (const char* contest : {"ARRL-10", "ARRL-DX", "WAEDC", "CQ-WW", "CQ-WPX"})
      for (const bool on : {false, true}) check_qso(line, contest, on);
    check_utc(line);
    check_qtcs(line);
    if (line.starts_with("QSO:")) check_way_back(line);
  }
  return 0;
}
