#include "cabrillo/to_zlog.h"

#include "base/checked_int.h"
#include "base/columns.h"
#include "base/text_reader.h"
#include "base/text_writer.h"
#include "cabrillo/writer.h"

namespace varnisto {
namespace {

constexpr Columns col_frequency{6, 5}, col_mode{12, 2}, col_month{20, 2}, col_day{23, 2}, col_time{26, 4};
constexpr Columns col_sent_rst{45, 3}, col_sent_exch{49, 6}, col_call{56, 13};
constexpr Columns col_rcvd_rst{70, 3}, col_rcvd_exch{74, 6};
constexpr std::size_t call_width = 11;

std::string_view mode_text(std::string_view mode2) {
  const auto mode = mode_of_cabrillo(mode2);
  return mode && mode != Mode::fm ? names_of(*mode).column : mode2;
}

void append_report(std::string& out, std::string_view report) {
  if (char_count(report) == 2) out += ' ';
  out += report;
}

void append_date_time(const TextLine& line, std::string& out) {
  const std::string_view month = line.cut(col_month);
  append_right_aligned(out, month.starts_with('0') ? month.substr(1) : month, 3);
  out.append("  ").append(line.cut(col_day)).append(" ").append(line.cut(col_time)).append(" ");
}

}  // namespace

std::string zlog_text_band(std::string_view freq5) {
  const std::string_view megahertz = left(freq5, 2);
  std::string text{megahertz};
  text.append(".").append(mid(freq5, 3, 1));
  text = trim(text);
  if (numeric_value(text) > 4) return std::string{megahertz};
  if (text.starts_with('3')) return "3.5";
  if (text.starts_with('1')) return "1.8";
  return text;
}

void append_zlog_text_line(std::string_view qso_line, std::string& out) {
  const TextLine line{qso_line};
  append_date_time(line, out);
  out += left(line.cut(col_call), call_width);
  append_report(out, trim(line.cut(col_sent_rst)));
  append_left_aligned(out, trim(line.cut(col_sent_exch)), 10);
  append_report(out, trim(line.cut(col_rcvd_rst)));
  const std::string_view received = trim(line.cut(col_rcvd_exch));
  append_left_aligned(out, received, 10);
  append_right_aligned(out, received, 6);
  out += ' ';
  append_right_aligned(out, zlog_text_band(line.cut(col_frequency)), 5);
  out.append("  ").append(mode_text(line.cut(col_mode))).append(" 1");
}

void cbr_2_zlog_txt(App& app) {
  app.trace.line("Public Sub cbr_2_zlog_txt()");
  app.state.display.progress = Progress::none;
  InputState& input = app.state.log.input;
  TextReader log{input.in_name};
  TextWriter out{app.outputs.create(input.out_name)};
  out.put(zlog_text_titles);
  std::string text;
  input.qsos_written = 0;
  for (std::string_view line; log.next(line);) {
    if (!line.starts_with("QSO:")) continue;
    text.clear();
    append_zlog_text_line(line, text);
    out.put(text);
    add_checked(input.qsos_written, 1, "qsos_written");
  }
  note_after_end(app.state.log.notes, log);
  if (input.qsos_written == 0) throw Refusal(std::string{no_qso_text});
  out.close();
  commit_outputs(app, {input.out_name});
  input.outputs.push_back(input.out_name);
  app.state.display.progress = Progress::done;
}

}  // namespace varnisto
