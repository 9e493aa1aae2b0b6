// A binary log of any bytes: head, scans, text log and log sheet. The first byte says how the log is named
// and sets the options.

#include <array>

#include "base/run_time_error.h"
#include "support.h"
#include "zlo/zlo_files.h"
#include "zlo/zlo_head.h"
#include "zlo/zlo_scan.h"

using namespace varnisto;

namespace {

void check_line(const std::string& line, std::size_t shortest) {
  fuzz::require(char_count(line) >= shortest, "no column is missing");
  fuzz::require(!holds_control(line), "a line holds no control character");
}

void check_lines(const fuzz::LineList& all, const fuzz::LineList& jarl, const ZloWritten& found) {
  const auto qsos = static_cast<std::size_t>(found.count.qsos);
  fuzz::require(all.lines.size() == 1 + qsos && jarl.lines.size() == 2 + qsos, "a line for each QSO");
  for (std::size_t i = 0; i < qsos; ++i) {
    check_line(all.lines.at(1 + i), 79);
    check_line(jarl.lines.at(2 + i), 76);
  }
  fuzz::require(found.count.records == found.count.qsos + found.count.invalid.count, "no record is lost");
  fuzz::require(found.unnamed_mode.count <= found.count.qsos &&
                    found.unnamed_band.count <= found.count.qsos &&
                    found.unnamed_frequency.count <= found.unnamed_band.count,
                "only QSOs are counted");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const unsigned bits = data[0];
  const auto open = [&] {
    return ZloReader{RecordReader::from_bytes(fuzz::bytes_of(data + 1, size - 1),
                                              (bits & 1U) != 0 ? "log.zlox" : "log.zlo")};
  };
  ZloReader head_log = open(), scan_log = open(), power_log = open(), log = open();
  const ZloHead head = read_zlo_head(head_log);
  fuzz::require(trim(head.title) == head.title && trim(head.call) == head.call, "head texts are trimmed");
  ScanState scan;
  scan_zlo(scan_log, (bits & 2U) != 0).tell(scan);
  fuzz::require(scan.mode_sel <= Mode::rtty && scan.band_sel <= Band::m10, "modes and bands of the dialog");
  fuzz::require(char_count(highest_zlo_power(power_log)) <= 9, "a number has nine bytes");
  fuzz::LineList all, jarl;
  try {
    const ZloWritten found = write_zlo_files(log, {all, &jarl, (bits & 4U) != 0});
    check_lines(all, jarl, found);
  } catch (const RunTimeError& error) {
    fuzz::require(error.number == RunTimeError::overflow, "a record has a date and reports, or is refused");
    fuzz::require(log.number() >= 2, "the refused record is no head");
  }
  return 0;
}
