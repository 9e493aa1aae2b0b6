// A ZLO log to its text log and its log sheet, and the scans.

#include <benchmark/benchmark.h>

#include "base/files.h"
#include "base/os.h"
#include "base/scratch_folder.h"
#include "base/text_writer.h"
#include "support/zlo_log.h"
#include "zlo/zlo_files.h"
#include "zlo/zlo_scan.h"

namespace varnisto::bench {
namespace {

constexpr std::size_t qsos = 30000;

/// A log of this many QSOs in a folder of its own; every tenth has a Japanese memo.
class ZloLogFile {
 public:
  ZloLogFile() {
    std::vector<test::ZloQsoSpec> list;
    for (std::size_t i = 0; i < qsos; ++i) {
      const auto number = static_cast<int>(i);
      list.push_back({.day_count = 45990 + static_cast<double>(i) / 15000,
                      .call = "Q" + std::to_string(number % 1000) + "DEF",
                      .rcvd = std::to_string(1 + number % 40),
                      .band = number % 9,
                      .multi1 = number % 9 == 0 ? "14" : "",
                      .memo = number % 10 == 0 ? "表示 ﾃｽﾄ" : ""});
    }
    write_file("log.zlo", test::zlo_log(list));
  }

  std::string path(const char* name) { return folder_.path() + name; }

 private:
  void write_file(const char* name, const std::string& bytes) {
    FileHandle file = FileHandle::create_new(path(name));
    file.write(bytes);
    file.close();
  }

  ScratchFolder folder_;
};

void count(benchmark::State& state) {
  const auto total = static_cast<double>(state.iterations()) * static_cast<double>(qsos);
  state.counters["per_QSO"] =
      benchmark::Counter{total, benchmark::Counter::kIsRate | benchmark::Counter::kInvert};
}

void zlo_to_text_and_sheet(benchmark::State& state) {
  ZloLogFile file;
  for (auto _ : state) {
    TextWriter all = TextWriter::scratch(file.path("all")), jarl = TextWriter::scratch(file.path("jarl"));
    ZloReader log{file.path("log.zlo")};
    benchmark::DoNotOptimize(write_zlo_files(log, {all, &jarl, true}));
    all.close();
    jarl.close();
    os::delete_file(file.path("all"));
    os::delete_file(file.path("jarl"));
  }
  count(state);
}
BENCHMARK(zlo_to_text_and_sheet)->Unit(benchmark::kMillisecond);

void zlo_scan(benchmark::State& state) {
  ZloLogFile file;
  for (auto _ : state) {
    ZloReader log{file.path("log.zlo")};
    benchmark::DoNotOptimize(scan_zlo(log, false));
  }
  count(state);
}
BENCHMARK(zlo_scan)->Unit(benchmark::kMillisecond);

/// What the others are measured by.
void zlo_copy(benchmark::State& state) {
  ZloLogFile file;
  for (auto _ : state) {
    copy_file(file.path("log.zlo"), FileHandle::create_new(file.path("copy")));
    os::delete_file(file.path("copy"));
  }
  count(state);
}
BENCHMARK(zlo_copy)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace varnisto::bench
