// Code page and line reading.

#include <benchmark/benchmark.h>

#include "base/cp932.h"
#include "base/os.h"
#include "base/scratch_folder.h"
#include "base/text_reader.h"
#include "base/text_writer.h"
#include "log_maker.h"

namespace varnisto::bench {
namespace {

void count(benchmark::State& state, std::size_t items) {
  const auto total = static_cast<double>(state.iterations()) * static_cast<double>(items);
  state.counters["per_item"] =
      benchmark::Counter{total, benchmark::Counter::kIsRate | benchmark::Counter::kInvert};
}

constexpr const char* japanese = "表示 中野区 ﾃｽﾄ 14MHz ＣＷ 参加しました。";

void decode_japanese(benchmark::State& state) {
  const std::string bytes = to_cp932(japanese);
  CodePage code_page;
  std::string out;
  for (auto _ : state) {
    out.clear();
    code_page.decode(bytes, out);
    benchmark::DoNotOptimize(out.data());
  }
  count(state, 1);
}
BENCHMARK(decode_japanese);

void encode_japanese(benchmark::State& state) {
  CodePage code_page;
  std::string out;
  for (auto _ : state) {
    out.clear();
    code_page.encode(japanese, out, Unmappable::refuse);
    benchmark::DoNotOptimize(out.data());
  }
  count(state, 1);
}
BENCHMARK(encode_japanese);

constexpr std::size_t lines = 30000;

std::string log_bytes() {
  std::string bytes;
  for (std::size_t i = 0; i < lines; ++i) bytes += all_line(i) + "\r\n";
  return bytes;
}

void read_lines(benchmark::State& state) {
  const std::string bytes = log_bytes();
  for (auto _ : state) {
    state.PauseTiming();
    TextReader reader = TextReader::from_bytes(bytes);
    state.ResumeTiming();
    for (std::string_view line; reader.next(line);) benchmark::DoNotOptimize(line);
  }
  count(state, lines);
}
BENCHMARK(read_lines);

void write_lines(benchmark::State& state) {
  const std::string line = all_line(1);
  ScratchFolder folder;
  for (auto _ : state) {
    TextWriter writer = TextWriter::scratch(folder.path() + "lines");
    for (std::size_t i = 0; i < lines; ++i) writer.put(line);
    writer.close();
    os::delete_file(folder.path() + "lines");
  }
  count(state, lines);
}
BENCHMARK(write_lines);

}  // namespace
}  // namespace varnisto::bench
