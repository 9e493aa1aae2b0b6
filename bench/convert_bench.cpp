// The conversion in process: as a whole, and its parts.

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>

#include "app/checker.h"
#include "app/driver.h"
#include "app/open_input.h"
#include "app/start_up.h"
#include "base/files.h"
#include "cabrillo/all_line.h"
#include "cabrillo/qso_line.h"
#include "cabrillo/writer.h"
#include "log_maker.h"
#include "support/null_app.h"

namespace varnisto::bench {
namespace {

namespace fs = std::filesystem;

/// A program folder with the list files and a log of this many QSOs, opened.
class OpenedLog {
 public:
  explicit OpenedLog(std::size_t qsos) : qsos_(qsos) {
    std::string pattern = (fs::temp_directory_path() / "varnisto-bench-XXXXXX").string();
    folder_ = std::string{mkdtemp(pattern.data())} + "/";
    fs::copy(fs::path{VARNISTO_SOURCE_DIR} / "data", folder_,
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    make_log(folder_ + "log", qsos);
    Main(app, folder_);
    Form_Load(app);
    app.state.settings.mycall = "QX1ABC";
    app.state.settings.mycall14 = "QX1ABC        ";
    app.state.entry.power = Power::high;
    open();
    kaishi_1(app);
  }
  ~OpenedLog() { fs::remove_all(folder_); }
  OpenedLog(const OpenedLog&) = delete;
  OpenedLog& operator=(const OpenedLog&) = delete;

  void open() { open_chosen_file(app, folder_ + "log.all"); }
  void count(benchmark::State& state) const {
    const auto total = static_cast<double>(state.iterations()) * static_cast<double>(qsos_);
    state.counters["per_QSO"] =
        benchmark::Counter{total, benchmark::Counter::kIsRate | benchmark::Counter::kInvert};
  }

 private:
  std::size_t qsos_;
  std::string folder_;
  test::NullApp null_;

 public:
  App& app = null_.app;
};

void parse_and_format(benchmark::State& state) {
  const std::string line = all_line(1);
  const QsoLineContext context{"QX1ABC        ", false, true, false};
  QsoRec rec;
  std::string out;
  for (auto _ : state) {
    parse_all_line(TextLine{line}, {}, rec);
    benchmark::DoNotOptimize(CQ_WW(context, line, rec, out));
  }
}
BENCHMARK(parse_and_format);

void open_and_convert(benchmark::State& state) {
  OpenedLog log{static_cast<std::size_t>(state.range(0))};
  for (auto _ : state) {
    log.open();
    kaishi_1(log.app);
  }
  log.count(state);
}
BENCHMARK(open_and_convert)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);

void write_alone(benchmark::State& state) {
  OpenedLog log{static_cast<std::size_t>(state.range(0))};
  for (auto _ : state) {
    zlog_all_zsm_print(log.app);
    log.app.outputs.commit();
  }
  log.count(state);
}
BENCHMARK(write_alone)->Arg(30000)->Unit(benchmark::kMillisecond);

void copy_alone(benchmark::State& state) {
  OpenedLog log{static_cast<std::size_t>(state.range(0))};
  const InputState& input = log.app.state.log.input;
  for (auto _ : state) {
    copy_file(input.out_name, log.app.outputs.create(input.log_name));
    log.app.outputs.commit();
  }
  log.count(state);
}
BENCHMARK(copy_alone)->Arg(30000)->Unit(benchmark::kMillisecond);

void check_alone(benchmark::State& state) {
  OpenedLog log{static_cast<std::size_t>(state.range(0))};
  for (auto _ : state) {
    check_Cabrillo_sub(log.app);
    log.app.outputs.commit();
  }
  log.count(state);
}
BENCHMARK(check_alone)->Arg(30000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace varnisto::bench
