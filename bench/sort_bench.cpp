// Sorting the records of a log, by how much their order is broken.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>
#include <string>
#include <vector>

#include "base/os.h"
#include "base/scratch_folder.h"
#include "base/text_writer.h"
#include "platform/text_sort.h"

namespace varnisto::bench {
namespace {

/// Records of about 110 bytes, each with a key of its own in columns 2 to 25.
std::vector<std::string> records_in_order(std::size_t count) {
  std::vector<std::string> records;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string number = std::to_string(100000000 + i);
    records.push_back("\"2025-08-09 1234" + number + "\",\"" + std::string(80, 'x') + "\"");
  }
  return records;
}

void sort_file(benchmark::State& state, const std::vector<std::string>& records) {
  ScratchFolder folder;
  const std::string input = folder.path() + "in", output = folder.path() + "out";
  TextWriter writer = TextWriter::scratch(input);
  for (const std::string& record : records) writer.put(record);
  writer.close();
  const std::string command = "/k(2:25)  '" + input + "'   '" + output + "'";
  FileTextSort sort;
  for (auto _ : state) {
    sort.ksort(command);
    os::delete_file(output);
  }
  const auto total = static_cast<double>(state.iterations()) * static_cast<double>(records.size());
  state.counters["per_item"] =
      benchmark::Counter{total, benchmark::Counter::kIsRate | benchmark::Counter::kInvert};
}

void sort_shuffled(benchmark::State& state) {
  auto records = records_in_order(static_cast<std::size_t>(state.range(0)));
  std::ranges::shuffle(records, std::mt19937{1});
  sort_file(state, records);
}
BENCHMARK(sort_shuffled)->RangeMultiplier(10)->Range(1000, 1000000)->Arg(30000);

/// The last tenth belongs between the others: QSO lines with the QTC lines behind them.
void sort_nearly_in_order(benchmark::State& state) {
  const auto all = records_in_order(static_cast<std::size_t>(state.range(0)));
  std::vector<std::string> records;
  std::vector<std::string> behind;
  for (std::size_t i = 0; i < all.size(); ++i) (i % 10 == 9 ? behind : records).push_back(all[i]);
  records.insert(records.end(), behind.begin(), behind.end());
  sort_file(state, records);
}
BENCHMARK(sort_nearly_in_order)->RangeMultiplier(10)->Range(1000, 1000000)->Arg(30000);

}  // namespace
}  // namespace varnisto::bench
