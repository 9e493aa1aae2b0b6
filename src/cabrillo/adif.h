#pragma once
// The Cabrillo log as an ADIF file for the eQSL service.

#include <string>
#include <string_view>

#include "base/columns.h"
#include "base/cp932.h"
#include "core/app.h"

namespace varnisto {

/// Where a kind of Cabrillo log has the worked call.
struct AdifLayout {
  Columns his_call;
};
inline constexpr AdifLayout common_adif_layout{{55, 13}};

/// What the records of one file share.
struct AdifOptions {
  AdifLayout layout = common_adif_layout;
  std::string comment;  ///< comment of every record; empty for none
  bool transcribe =
      false;  ///< calls with "/" are written without what was added; the comment names the whole
};

/// Call and comment as a record carries them.
struct AdifCall {
  std::string call, comment;
};
AdifCall adif_call(std::string_view his_call, const AdifOptions& options);

/// Makes the records of one file, in the order of the log.
class AdifRecords {
 public:
  explicit AdifRecords(AdifOptions options);

  /// Sets `out` to the record of one Cabrillo QSO line. A frequency outside the amateur bands keeps the band
  /// of the record before. Lengths count the bytes that are written.
  void make(const TextLine& qso_line, std::string& out);

 private:
  /// A field of the record. Most values are those of the record before: its text is made anew only for
  /// another one.
  struct Field {
    std::string_view start, end;  ///< what stands in front of the length and behind it
    std::string source{};         ///< what the value was made from
    std::string text{};
  };

  std::string_view text_of(Field& field, std::string_view value);
  template <class MakeValue>
  std::string_view text_of(Field& field, std::string_view source, MakeValue make_value);
  std::string_view band_of(std::string_view frequency);
  std::size_t written_size(std::string_view text);

  AdifOptions options_;
  std::string band_;
  Field call_{"<call:", ">"}, date_{"<QSO_DATE:", ":d>"}, time_{"<TIME_ON:", ">"}, mode_{"<MODE:", ">"},
      band_field_{"<BAND:", ">"}, frequency_{"<FREQ:", ">"}, sent_rst_{"<RST_SENT:", ">"},
      comment_{"<COMMENT:", ">"};
  CodePage code_page_;
  std::string bytes_;
};

/// Writes `adi_name` from the log that was written, its columns as `layout` says. Throws RunTimeError.
void write_adif(App& app, const AdifLayout& layout);
/// write_adif() for every contest but IOTA.
void conv_eqsl(App& app);

}  // namespace varnisto
