#include "ccc/qso.h"

#include "base/fields.h"
#include "base/short_text.h"

namespace varnisto {
namespace {

constexpr Columns col_month{1, 2}, col_day{4, 2}, col_time{8, 4}, col_band{14, 3}, col_call{19, 13};
constexpr std::size_t cw_report_width = 3;

template <class Line>
std::string_view field(const Line& line, Columns columns) {
  return trim(line.cut(columns));
}

/// A number of two digits; a blank one is "0".
void set_two_digits(std::string& out, std::string_view number) {
  if (number.size() > 1) return set_text(out, number);
  out = "0";
  out += number;
}

void take_band(std::string_view metres, bool as_1800, CccQso& qso) {
  constexpr std::string_view as_logged = " 1900", as_wanted = " 1800";
  qso.band = band_of_metres(metres);
  if (qso.band) qso.freq5 = names_of(*qso.band).freq5;
  if (as_1800 && qso.freq5 == as_logged) qso.freq5 = as_wanted;
}

void take_mode(const CccContest& contest, bool rtty, CccQso& qso) {
  if (rtty && contest.rtty_box) {
    qso.mode2 = "RY";  // the sent report, where the log has none, stays the previous line's
    return;
  }
  const std::string_view report = contest.mode_report == CccReport::sent ? qso.sent_rst : qso.rcvd_rst;
  const bool cw = char_count(report) == cw_report_width;
  qso.mode2 = cw ? "CW" : "PH";
  if (contest.report_by_mode) qso.sent_rst = cw ? "599" : "59";
}

template <class Line>
std::string_view sent_exchange(const Line& line, const CccContest& contest, std::string_view number) {
  switch (contest.sent) {
    case CccSent::logged:
      return field(line, contest.columns.sent_exch);
    case CccSent::zone:
      return ccc_zone;
    case CccSent::number:
      break;
  }
  return number;
}

/// The columns in front of the points.
template <class Line>
void parse_columns(const Line& line, const CccContest& contest, const CccOptions& options, CccQso& qso) {
  const CccColumns& columns = contest.columns;
  set_two_digits(qso.month, field(line, col_month));
  set_two_digits(qso.day, field(line, col_day));
  qso.hhmm = line.cut(col_time);
  qso.call = line.cut(col_call);
  take_band(field(line, col_band), options.as_1800, qso);
  if (!contest.report_by_mode) qso.sent_rst = field(line, columns.sent_rst);
  qso.rcvd_rst = field(line, columns.rcvd_rst);
  take_mode(contest, options.rtty, qso);
  qso.sent_exch = sent_exchange(line, contest, options.number);
  qso.rcvd_exch = field(line, columns.rcvd_exch);
  qso.mult1 = field(line, columns.mult1);
  qso.mult2 = field(line, columns.mult2);
}

bool holds_quote(std::string_view text) {
  return text.find('"') != std::string_view::npos;
}

/// Fields in double quotes, commas between them; none holds a quote.
template <class... Fields>
void set_plain_fields(std::string& line, const Fields&... fields) {
  constexpr std::string_view between = "\",\"";
  line.resize((fields.size() + ...) + sizeof...(fields) * between.size() + 1);
  char* end = line.data();
  *end++ = '"';
  ((end = copy_piece(copy_piece(end, fields), between)), ...);
  line.resize(line.size() - 2);  // nothing follows the last quote
}

}  // namespace

void parse_ccc_line(const TextLine& line, const CccContest& contest, const CccOptions& options, CccQso& qso) {
  const Columns points = contest.columns.points;
  if (line.ascii() && line.text().size() >= points.first)
    parse_columns(FullLine{line.text()}, contest, options, qso);
  else
    parse_columns(line, contest, options, qso);
  qso.points = field(line, points);
  qso.quoted = holds_quote(line.text()) || holds_quote(options.number);
}

void set_ccc_work_line(const CccQso& qso, std::string& line) {
  const auto set = [&](auto... fields) {
    if (qso.quoted)
      set_quoted_fields(line, {fields...});
    else
      set_plain_fields(line, fields...);
  };
  set(std::string_view{qso.month}, std::string_view{qso.day}, qso.hhmm, qso.call, qso.freq5, qso.sent_rst,
      qso.sent_exch, qso.rcvd_rst, qso.rcvd_exch, qso.mode2);
}

}  // namespace varnisto
