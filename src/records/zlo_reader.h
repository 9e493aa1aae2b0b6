#pragma once
// Reads a ZLO or ZLOX log from front to back.

#include <string>
#include <string_view>

#include "records/record_reader.h"
#include "records/zlo_records.h"

namespace varnisto {

class ZloReader {
 public:
  /// Opens a log and tells its kind: ZLOX by the extension or by the letters in its head, else ZLO. Throws
  /// RunTimeError 53, 70 or 75.
  explicit ZloReader(const std::string& path) : ZloReader(RecordReader{path}) {}
  explicit ZloReader(RecordReader records);

  const ZloLayout& layout() const { return layout_; }

  /// The head, before the first QSO. A log shorter than a record has one of zeros. The texts stay valid until
  /// next().
  ZloHeadRecord head();
  /// Sets what a record of this kind holds of the next QSO, invalid ones too; skips the head when nobody read
  /// it. False at the end. The texts stay valid until the next call. Throws RunTimeError 6 for more than
  /// 32,767 records, the head included; 57.
  bool next(ZloQso& qso);

  /// Number of the record that was read last, the head being 1.
  std::size_t number() const { return records_.number(); }
  /// "path: n 番目のレコード", for messages.
  std::string place() const { return records_.place(); }

 private:
  RecordReader records_;
  const ZloLayout& layout_;
};

/// True for a file that cannot be a binary log: it is not empty and holds no zero byte. Reads on only where
/// its first bytes do not tell. Throws RunTimeError.
bool is_no_binary_log(const std::string& path);

}  // namespace varnisto
