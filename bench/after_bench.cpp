// The steps after the log is written: time conversion, ADIF file, QTC merge and log, by number of QSOs. Every
// tenth QSO is reported in a QTC.

#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>

#include "base/files.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "base/text_writer.h"
#include "cabrillo/adif.h"
#include "cabrillo/jst_to_utc.h"
#include "cabrillo/qtc_log.h"
#include "cabrillo/qtc_merge.h"
#include "core/paths.h"
#include "platform/launcher.h"
#include "platform/text_sort.h"
#include "support/null_app.h"

namespace {

using namespace varnisto;

std::string two_digits(int value) {
  std::string text{value < 10 ? "0" : ""};
  return text.append(std::to_string(value));
}

/// A log of `count` QSOs, one a minute, in both forms, in a folder of its own.
class Setting {
 public:
  explicit Setting(int count) : app{platform_, desk_} {
    const std::string folder = app.tmp_dir.path();
    InputState& input = app.state.log.input;
    app.state.settings.mycall = "QX1ABC";
    app.state.settings.mycall14 = pad_right("QX1ABC", 14);
    app.state.settings.eqslcom = "TNX QSO";
    input.in_kind = InputKind::zlog_all;
    input.in_name = folder + "QX1ABC.ALL";
    input.out_name = folder + "QX1ABC.cbr";
    input.adi_name = folder + "QX1ABC.adi";
    input.qlg_name = folder + "QX1ABC.qlg";
    TextWriter all = TextWriter::scratch(input.in_name);
    TextWriter log = TextWriter::scratch(input.out_name);
    all.put("zLog for Windows ");
    log.put("START-OF-LOG: 3.0");
    for (int i = 0; i < count; ++i) put_qso(i, all, log);
    log.put("END-OF-LOG:");
    all.close();
    log.close();
  }

  /// The step's outputs take their names, as at the end of a run.
  void end_run() {
    app.outputs.commit();
    app.state.log.input.outputs.clear();
  }

 private:
  static void put_qso(int i, TextWriter& all, TextWriter& log) {
    const std::string day = two_digits(1 + i / 1440 % 28);
    const std::string hour = two_digits(i / 60 % 24);
    const std::string minute = two_digits(i % 60);
    const std::string call = "QX" + std::to_string(i);
    std::string line{"2025/08/"};
    line.append(day).append(" ").append(hour).append(":").append(minute).append(" ");
    line.append(pad_right(call, 13)).append("599 ").append(pad_right(std::to_string(i), 8));
    line.append("599 ").append(pad_right("25", 8)).append("QX          14   CW   1  ");
    if (i % 10 == 0) {
      line.append("      [QTC").append(std::to_string(i / 100 + 1)).append("/10 QX9EUR 2025-08-");
      line.append(day).append(" ").append(hour).append(minute).append(" 20m]");
    }
    all.put(line);
    line.assign("QSO: 14000 CW 2025-08-").append(day).append(" ").append(hour).append(minute);
    line.append(" QX1ABC        599 ").append(pad_right(std::to_string(i), 7));
    log.put(line.append(pad_right(call, 14)).append("599 25     "));
  }

  FileProfile profile_;
  SystemClock clock_;
  FileTextSort sort_;
  SystemLauncher launcher_;
  test::NullDesk desk_;
  Platform platform_{profile_, clock_, sort_, launcher_};

 public:
  App app;
};

void run(benchmark::State& state, void (*step)(App&)) {
  const auto count = static_cast<int>(state.range(0));
  Setting setting{count};
  for (auto _ : state) {
    step(setting.app);
    setting.end_run();
  }
  state.SetItemsProcessed(state.iterations() * count);
  state.counters["s_per_qso"] =
      benchmark::Counter(static_cast<double>(count),
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void jst_to_utc_file(benchmark::State& state) {
  run(state, conv_J2U);  // a log may be converted again and again: it only moves further into the past
}
void eqsl_file(benchmark::State& state) {
  run(state, conv_eqsl);
}
void qtc_merge(benchmark::State& state) {
  run(state, WAEDC_put);
}
void qtc_log(benchmark::State& state) {
  run(state, get_qtc);
}

BENCHMARK(jst_to_utc_file)->Arg(1000)->Arg(10000)->Arg(30000);
BENCHMARK(eqsl_file)->Arg(1000)->Arg(10000)->Arg(30000);
BENCHMARK(qtc_merge)->Arg(1000)->Arg(10000)->Arg(30000);
BENCHMARK(qtc_log)->Arg(1000)->Arg(10000)->Arg(30000);

}  // namespace
