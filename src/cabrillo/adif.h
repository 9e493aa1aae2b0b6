#pragma once
// The Cabrillo log as an ADIF file for the eQSL service.

#include <string>
#include <string_view>

#include "base/columns.h"
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

/// Appends to `out` the record of one Cabrillo QSO line. `band` is the ADIF band of the record before; a
/// frequency outside the amateur bands keeps it. Lengths count the bytes that are written.
void append_adif_record(std::string_view qso_line, const AdifOptions& options, std::string& band,
                        std::string& out);

/// Writes `adi_name` from the log that was written, its columns as `layout` says. Throws RunTimeError.
void write_adif(App& app, const AdifLayout& layout);
/// write_adif() for every contest but IOTA.
void conv_eqsl(App& app);

}  // namespace varnisto
