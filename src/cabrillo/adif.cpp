#include "cabrillo/adif.h"

#include <charconv>

#include "base/text.h"
#include "base/text_reader.h"
#include "base/text_writer.h"
#include "cabrillo/conversions.h"
#include "core/version.h"

namespace varnisto {
namespace {

constexpr Columns col_frequency{6, 5}, col_mode{12, 2}, col_date{15, 10}, col_time{26, 4},
    col_sent_rst{45, 3};

std::string_view adif_mode(std::string_view mode2) {
  if (mode2 == "PH") return "SSB";
  if (mode2 == "RY") return "RTTY";
  return mode2;
}

void put_header(TextWriter& out) {
  out.put(std::string{"ADIF Export from Varnisto Version "}.append(program_version));
  out.put(std::string{"Internet:  "}.append(home_page));
  out.put(std::string{"e-mail to: "}.append(contact_address));
  out.put("<EOH>");
  out.put("");
}

AdifOptions adif_options(const App& app, const AdifLayout& layout) {
  return {layout, std::string{trim(app.state.settings.eqslcom)}, app.state.settings.tenki_flag == "1"};
}

}  // namespace

AdifCall adif_call(std::string_view his_call, const AdifOptions& options) {
  const std::size_t first = his_call.find('/');
  if (!options.transcribe || first == std::string_view::npos) return {std::string{his_call}, options.comment};
  const std::size_t last = his_call.rfind('/');
  std::string call = first == last ? calls_check(his_call).main_call
                                   : std::string{his_call.substr(first + 1, last - first - 1)};
  if (call.empty()) call = his_call;  // nothing between the strokes: a record without a call is refused
  return {call, std::string{"UR "}.append(his_call).append(" ").append(options.comment)};
}

std::size_t AdifRecords::written_size(std::string_view text) {
  if (is_ascii(text)) return text.size();
  bytes_.clear();
  code_page_.encode(text, bytes_, Unmappable::refuse);
  return bytes_.size();
}

/// "<name:length>value"; `start` holds "<name:", `end` what follows the length.
void AdifRecords::append_field(std::string& out, std::string_view start, std::string_view value,
                               std::string_view end) {
  char digits[20];
  const auto digits_end = std::to_chars(digits, digits + sizeof digits, written_size(value));
  out.append(start).append(digits, digits_end.ptr).append(end).append(value);
}

void AdifRecords::append(std::string_view qso_line, std::string& out) {
  const TextLine line{qso_line};
  if (const std::string_view frequency = trim(line.cut(col_frequency)); frequency != frequency_) {
    frequency_ = frequency;
    if (const auto name = freq_band(frequency)) band_ = *name;
  }
  const AdifCall call = adif_call(trim(line.cut(options_.layout.his_call)), options_);
  append_field(out, "<call:", call.call);
  append_field(out, "<QSO_DATE:", remove_all(line.cut(col_date), "-"), ":d>");
  append_field(out, "<TIME_ON:", line.cut(col_time));
  append_field(out, "<MODE:", adif_mode(line.cut(col_mode)));
  append_field(out, "<BAND:", band_);
  append_field(out, "<FREQ:", frequency_);
  append_field(out, "<RST_SENT:", trim(line.cut(col_sent_rst)));
  if (!call.comment.empty()) append_field(out, "<COMMENT:", call.comment);
  out.append("<EOR>");
}

void write_adif(App& app, const AdifLayout& layout) {
  InputState& input = app.state.input;
  const AdifOptions options = adif_options(app, layout);
  to_cp932(options.comment);  // a comment that cannot be written is refused before the old file is replaced
  TextReader log{input.out_name};
  TextWriter out{input.adi_name};
  put_header(out);
  AdifRecords records{options};
  std::string record;
  for (std::string_view line; log.next(line);) {
    if (!line.starts_with("QSO:")) continue;
    record.clear();
    records.append(line, record);
    out.put(record);
    out.put("");
  }
  out.close();
  input.outputs.push_back(input.adi_name);
  app.main.mnuDisp2_out2.enabled = true;
}

void conv_eqsl(App& app) {
  app.trace.line("Public Sub conv_eqsl()");
  write_adif(app, common_adif_layout);
}

}  // namespace varnisto
