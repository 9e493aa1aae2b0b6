#include "cabrillo/qso_line.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "base/short_text.h"
#include "base/text.h"
#include "cabrillo/all_line.h"

namespace varnisto {
namespace {

/// Exchanges as they go into the line.
struct Exchanges {
  Aligned sent, rcvd;
};

std::string number_text(std::string_view text) {
  return std::to_string(static_cast<std::int64_t>(std::clamp(numeric_value(text), -9e15, 9e15)));
}

void take_transmitter(const QsoLineContext& context, std::string_view log_line, QsoRec& rec) {
  if (!context.named_all)
    set_text(rec.tx_no, "0");
  else if (const auto number = memo_transmitter(log_line))
    set_text(rec.tx_no, *number);  // without "TX#" the previous line's number stays
}

void put_common(const QsoLineContext& context, const QsoRec& rec, const Exchanges& exchanges,
                std::string& out) {
  set_joined(out, "QSO: ", rec.freq5, " ", rec.mode2, " ", rec.qso_date, " ", rec.qso_hhmm, " ",
             context.mycall14, rec.sent_rst4, exchanges.sent, rec.his_call14, rec.rcvd_rst4, exchanges.rcvd);
}

void put_transmitter(const QsoLineContext& context, std::string_view log_line, QsoRec& rec,
                     std::string& out) {
  if (!context.multi_tx) return;
  out.append(" ").append(rec.tx_no);
  const auto number = memo_transmitter(log_line);
  rec.tx_kept = context.named_all && !number;
  rec.tx_dropped = !context.named_all && !number.value_or("").empty() && number != "0";
}

/// QTC fields from the text in brackets: group/number, receiver, date, time, band.
void take_qtc(std::string_view log_line, QsoRec& rec) {
  rec.qtc_grp.clear();
  rec.qtc_time.clear();
  rec.qtc_call.clear();
  const auto text = bracket_text(log_line);
  if (!text) return;
  const auto items = split(*text, ' ');
  const std::string series = remove_all(items[0], "QTC");
  const std::size_t slash = std::min(series.find('/'), series.size() - 1);
  const std::string group = " " + series.substr(0, slash + 1);
  rec.qtc_grp = right(group, 3);
  rec.qtc_grp = pad_right(rec.qtc_grp.append(trim(std::string_view{series}.substr(slash + 1))), 7);
  rec.qtc_time = pad_right(items.size() > 3 ? items[3] : "", 6);
  if (items.size() > 1) rec.qtc_call = items[1];
}

bool put_line(const QsoLineContext& context, std::string_view log_line, const Exchanges& exchanges,
              QsoRec& rec, std::string& out) {
  take_transmitter(context, log_line, rec);
  put_common(context, rec, exchanges, out);
  put_transmitter(context, log_line, rec, out);
  return true;
}

std::size_t sent_width(const QsoLineContext& context) {
  return context.named_all ? 7 : 6;
}

}  // namespace

bool ARRL_10(const QsoLineContext& context, std::string_view log_line, QsoRec& rec, std::string& out) {
  const std::string sent = number_text(rec.sent_exch);
  const std::string received = number_text(rec.rcvd_exch);
  Exchanges exchanges{right_aligned(sent, 6),
                      right_aligned(received == "0" ? std::string_view{rec.rcvd_exch} : received, 6)};
  exchanges.sent.after = 1;
  return put_line(context, log_line, exchanges, rec, out);
}

bool ARRL_DX(const QsoLineContext& context, std::string_view log_line, QsoRec& rec, std::string& out) {
  const Exchanges exchanges{left_aligned(rec.sent_exch, sent_width(context)), left_aligned(rec.rcvd_exch, 7)};
  return put_line(context, log_line, exchanges, rec, out);
}

bool WAEDC(const QsoLineContext& context, std::string_view log_line, QsoRec& rec, std::string& out) {
  take_qtc(log_line, rec);
  const Exchanges exchanges{left_aligned(rec.sent_exch, sent_width(context)), left_aligned(rec.rcvd_exch, 7)};
  if (!context.qtc_columns) return put_line(context, log_line, exchanges, rec, out);
  take_transmitter(context, log_line, rec);
  put_common(context, rec, exchanges, out);
  out.append(rec.qtc_grp).append(rec.qtc_time).append(rec.qtc_call);
  return true;
}

bool CQ_WW(const QsoLineContext& context, std::string_view log_line, QsoRec& rec, std::string& out) {
  return Else_(context, log_line, rec, out);
}

bool Else_(const QsoLineContext& context, std::string_view log_line, QsoRec& rec, std::string& out) {
  const Exchanges exchanges{left_aligned(rec.sent_exch, 7), left_aligned(rec.rcvd_exch, 7)};
  if (is_blank(rec.rcvd_rst4)) {
    take_transmitter(context, log_line, rec);
    return false;
  }
  return put_line(context, log_line, exchanges, rec, out);
}

QsoFormatter* formatter_for(std::string_view cont_id) {
  struct Row {
    std::string_view code7;
    QsoFormatter* formatter;
  };
  static constexpr Row rows[] = {{"ARRL-10", ARRL_10}, {"ARRL-DX", ARRL_DX}, {"WAEDC-S", WAEDC},
                                 {"WAEDC-C", WAEDC},   {"WAEDC  ", WAEDC},   {"CQ-WW  ", CQ_WW}};
  const std::string code = std::string{left(std::string{cont_id} + "     ", 7)};
  const auto* hit = std::ranges::find(rows, code, &Row::code7);
  return hit == std::end(rows) ? Else_ : hit->formatter;
}

}  // namespace varnisto
