#include "cabrillo/adif.h"

#include <array>
#include <charconv>
#include <utility>

#include "base/short_text.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "base/text_writer.h"
#include "cabrillo/conversions.h"
#include "core/bands.h"
#include "core/modes.h"
#include "core/version.h"

namespace varnisto {
namespace {

constexpr Columns col_frequency{6, 5}, col_mode{12, 2}, col_date{15, 10}, col_time{26, 4},
    col_sent_rst{45, 3};

std::string_view adif_mode(std::string_view mode2) {
  const auto mode = mode_of_cabrillo(mode2);
  return mode ? names_of(*mode).adif : mode2;
}

void put_header(TextWriter& out) {
  out.put(std::string{"ADIF Export from Varnisto Version "}.append(program_version));
  out.put(std::string{"Internet:  "}.append(home_page));
  out.put(std::string{"e-mail to: "}.append(contact_address));
  out.put("<EOH>");
  out.put("");
}

AdifOptions adif_options(const App& app, const AdifLayout& layout) {
  return {layout, std::string{trim(app.state.settings.eqslcom)}, app.state.settings.tenki_flag};
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

AdifRecords::AdifRecords(AdifOptions options) : options_(std::move(options)) {}

std::size_t AdifRecords::written_size(std::string_view text) {
  if (is_ascii(text)) return text.size();
  bytes_.clear();
  code_page_.encode(text, bytes_, Unmappable::question_mark);
  return bytes_.size();
}

/// "<name:length>value".
template <class MakeValue>
std::string_view AdifRecords::text_of(Field& field, std::string_view source, MakeValue make_value) {
  if (field.text.empty() || !same_text(field.source, source)) {
    const auto value = make_value(source);
    std::array<char, 20> digits;
    const char* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), written_size(value)).ptr;
    set_text(field.source, source);
    set_joined(field.text, field.start, std::string_view{digits.data(), end}, field.end, value);
  }
  return field.text;
}
std::string_view AdifRecords::text_of(Field& field, std::string_view value) {
  return text_of(field, value, [](std::string_view same) { return same; });
}

std::string_view AdifRecords::band_of(std::string_view frequency) {
  if (!same_text(frequency, frequency_.source))  // the one of the record before
    if (const auto name = freq_band(frequency)) band_ = *name;
  return band_;
}

void AdifRecords::make(const TextLine& line, std::string& out) {
  const std::string_view worked = trim(line.cut(options_.layout.his_call));
  std::string_view call = worked;
  std::string_view comment = options_.comment;
  AdifCall transcribed;
  if (options_.transcribe && contains(worked, "/")) {
    transcribed = adif_call(worked, options_);
    call = transcribed.call;
    comment = transcribed.comment;
  }
  const std::string_view frequency = trim(line.cut(col_frequency));
  const std::string_view band = band_of(frequency);
  set_joined(out, text_of(call_, call),
             text_of(date_, line.cut(col_date), [](std::string_view date) { return remove_all(date, "-"); }),
             text_of(time_, line.cut(col_time)), text_of(mode_, line.cut(col_mode), adif_mode),
             text_of(band_field_, band), text_of(frequency_, frequency),
             text_of(sent_rst_, trim(line.cut(col_sent_rst))),
             comment.empty() ? std::string_view{} : text_of(comment_, comment), "<EOR>");
}

void write_adif(App& app, const AdifLayout& layout) {
  InputState& input = app.state.log.input;
  const AdifOptions options = adif_options(app, layout);
  TextReader log = read_text(app, input.out_name);
  TextWriter out{app.outputs.create(input.adi_name)};
  put_header(out);
  AdifRecords records{options};
  std::string record;
  for (std::string_view line; log.next(line);) {
    if (!line.starts_with("QSO:")) continue;
    records.make({line, log.ascii()}, record);
    out.put(record);
    out.put("");
  }
  out.close();
  input.outputs.push_back(input.adi_name);
}

void conv_eqsl(App& app) {
  app.trace.line("Public Sub conv_eqsl()");
  write_adif(app, common_adif_layout);
}

}  // namespace varnisto
