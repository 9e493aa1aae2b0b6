// The WAEDC steps on a log of any bytes, twice: the merge of QSOs and QTCs and the QTC log. The first line of
// the input are switches, the rest is the log behind its title.

#include <algorithm>

#include "base/columns.h"
#include "base/run_time_error.h"
#include "cabrillo/all_line.h"
#include "cabrillo/jst_to_utc.h"
#include "cabrillo/qtc_log.h"
#include "cabrillo/qtc_merge.h"
#include "folder.h"
#include "platform/text_sort.h"
#include "support/null_app.h"
#include "support/test_app.h"

using namespace varnisto;

namespace {

/// A program that sorts, with a written log in a folder of its own.
class Merge {
 public:
  Merge() {
    InputState& input = app.state.log.input;
    app.state.settings.mycall = "QX1ABC";
    app.state.settings.mycall14 = "QX1ABC        ";
    input.in_kind = InputKind::zlog_all;
    input.in_name = folder_.path() + "x.ALL";
    input.out_name = folder_.path() + "x.cbr";
    input.qlg_name = folder_.path() + "x.qlg";
    folder_.write("x.cbr", "START-OF-LOG: 3.0\r\nQSO: 14000 CW\r\nEND-OF-LOG:\r\n");
  }

  void write_log(std::string_view bytes) const { folder_.write("x.ALL", bytes); }

  /// The merged log behind the QTC log; nothing when a date was wrong.
  std::string run() {
    std::string text;
    try {
      WAEDC_put(app);
      get_qtc(app);
      const InputState& input = app.state.log.input;
      text = read_file(app.outputs.current(input.qlg_name)) + read_file(app.outputs.current(input.out_name));
    } catch (const RunTimeError& error) {
      const bool to_utc = app.state.settings.jst_to_utc_flag;
      fuzz::require(to_utc && error.number == RunTimeError::type_mismatch,
                    "only a date on its way to UTC can be wrong");
    }
    app.outputs.back_to(0);
    app.state.log.input.outputs.clear();
    return text;
  }

 private:
  test::TempDir folder_;
  test::NullApp null_;
  test::StoppedClock clock_;
  FileTextSort sort_;
  Platform platform_{null_.profile, clock_, sort_, null_.launcher};

 public:
  App app{platform_, null_.desk};
};

/// Date and time of every line that has them where they belong. Other lines go by what stands there instead.
std::vector<std::string> minutes_of(const std::vector<std::string>& lines) {
  std::vector<std::string> minutes;
  for (const std::string& line : lines) {
    const std::string_view date = TextLine{line}.cut({15, 10}), time = TextLine{line}.cut({26, 4});
    if (read_minute(date, time)) minutes.push_back(std::string{date}.append(time));
  }
  return minutes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Merge merge;
  std::string_view rest = fuzz::bytes_of(data, size);
  const fuzz::Switches switches{rest};
  Settings& settings = merge.app.state.settings;
  settings.jst_to_utc_flag = switches.on('u');
  settings.freq19_to_18_flag = switches.on('8');
  settings.mode_2_rtty_flag = switches.on('r');
  settings.get_freq_flag = switches.on('m');
  merge.write_log(std::string{"zLog for Windows \r\n"}.append(rest));

  const std::string text = merge.run();
  fuzz::require(merge.run() == text, "a second merge gives the same");
  if (text.empty()) return 0;

  std::vector<std::string> log = fuzz::lines_of(text);
  log.erase(log.begin(), std::ranges::find(log, "START-OF-LOG: 3.0"));
  const auto starts_with = [](const char* tag) {
    return [tag](const std::string& line) { return line.starts_with(tag); };
  };
  const auto qsos = std::ranges::count_if(fuzz::lines_of(rest), holds_qso);
  fuzz::require(std::ranges::count_if(log, starts_with("QSO:")) == qsos, "every QSO comes back");
  fuzz::require(merge.app.state.log.input.qsos_written == qsos, "every QSO is counted");
  fuzz::require(std::ranges::count(log, "END-OF-LOG:") == 1 && log.back() == "END-OF-LOG:",
                "the log ends once");
  fuzz::require(std::ranges::is_sorted(minutes_of(log)), "the lines are in order");
  return 0;
}
