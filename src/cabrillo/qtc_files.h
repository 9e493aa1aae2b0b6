#pragma once
// The files behind the WAEDC steps: the log they read, their scratch records, the sort.

#include <array>
#include <string>
#include <string_view>

#include "base/fields.h"
#include "base/run_time_error.h"
#include "base/text_reader.h"
#include "core/app.h"

namespace varnisto {

/// The ALL log whose QTCs are wanted: the input, or what was made from a ZLO log.
const std::string& qtc_source(const App& app);
/// Reads the title line; true when it is one of the logger whose memos hold QTCs.
bool has_logger_title(TextReader& log);

/// Sorts a scratch file by columns, e.g. "2:6", into another one.
void sort_scratch(App& app, std::string_view columns, const std::string& input, const std::string& output);

/// Reads the records of a scratch file, `n` fields each. The fields stand until the next record is read.
template <std::size_t n>
class ScratchRecords {
 public:
  explicit ScratchRecords(const std::string& path) : reader_(path) {}

  /// The next record; false at the end of the file. Throws RunTimeError 62 for half a record.
  bool next() {
    if (!next_key()) return false;
    take_rest();
    return true;
  }
  /// The same in two steps, for records that are wanted by their first field only.
  bool next_key() {
    if (!reader_.next(rest_)) return false;
    more_ = take_field(rest_, fields_[0], rooms_[0]);
    return true;
  }
  void take_rest() {
    for (std::size_t i = 1; i < n; ++i) {
      if (!more_) throw RunTimeError(RunTimeError::past_end, reader_.place());
      more_ = take_field(rest_, fields_[i], rooms_[i]);
    }
  }

  std::string_view operator[](std::size_t field) const { return fields_[field]; }

 private:
  TextReader reader_;
  std::string_view rest_;  ///< of the current line
  bool more_ = false;
  std::array<std::string_view, n> fields_;
  std::array<std::string, n> rooms_;  ///< for fields that hold quotes
};

}  // namespace varnisto
