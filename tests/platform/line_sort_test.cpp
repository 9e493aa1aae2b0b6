#include "platform/line_sort.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <vector>

#include "base/text.h"
#include "support/errors.h"
#include "support/temp_dir.h"

namespace varnisto::test {
namespace {

using Strings = std::vector<std::string>;
constexpr Columns key{2, 2};

/// Lines whose key repeats, each with its number behind it. Some hold wide characters, some end in the key.
Strings numbered_lines(std::size_t count) {
  Strings lines;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string start{i % 3 == 0 ? "漢" : "x"}, digits = std::to_string(i * 7 % 13);
    lines.push_back(i % 11 == 0 ? start + digits
                                : start + pad_left(digits, 2) + (i % 5 == 0 ? "ｶ" : "") + std::to_string(i));
  }
  return lines;
}

Strings sorted(Strings lines, std::size_t count) {
  const auto key_of = [](const std::string& line) { return mid(line, key.first, key.width); };
  std::ranges::stable_sort(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(count), {}, key_of);
  return lines;
}

std::string text_of(const Strings& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append("\n");
  return text;
}

void expect_sorted(const Strings& lines, const SortLimits& limits) {
  SCOPED_TRACE(testing::Message() << lines.size() << " lines, " << limits.block_bytes << " bytes, "
                                  << limits.fan_in << " runs");
  TempDir dir;
  sort_lines(dir.write_text("in", text_of(lines)), dir.path() + "out", key, limits);
  EXPECT_EQ(dir.read_text("out"), text_of(sorted(lines, lines.size())));
  EXPECT_EQ(dir.files().size(), 2U);
}

TEST(LineSort, IsStableWhateverFitsInMemory) {
  for (const std::size_t count : {0U, 1U, 300U})
    for (const SortLimits& limits :
         {SortLimits{}, SortLimits{1000, 16}, SortLimits{400, 3}, SortLimits{1, 2}})
      for (const std::size_t in_order : {std::size_t{0}, count / 10 * 9, count})
        expect_sorted(sorted(numbered_lines(count), in_order), limits);
  const auto line = [](const char* start, std::size_t size) { return start + std::string(size, 'a'); };
  expect_sorted({line("x2", 500), "x1", line("x2", 900), line("x1", 70000)}, {200, 2});
}

TEST(LineSort, ReadsNoMoreRunsSideBySideThanItMay) {
  rlimit limit{};
  getrlimit(RLIMIT_NOFILE, &limit);
  const rlimit few{20, limit.rlim_max};
  setrlimit(RLIMIT_NOFILE, &few);
  expect_sorted(numbered_lines(100), {1, 2});
  setrlimit(RLIMIT_NOFILE, &limit);
}

TEST(LineSort, LeavesNoRunBehindAfterAnError) {
  for (const std::string in_the_way : {"out", "out.run3"}) {
    SCOPED_TRACE(in_the_way);
    TempDir dir;
    std::filesystem::create_directories(dir.path() + in_the_way + "/full");
    const std::string input = dir.write_text("in", text_of(numbered_lines(20)));
    EXPECT_EQ(error_of([&] { sort_lines(input, dir.path() + "out", key, {200, 2}); }), 58);
    EXPECT_EQ(dir.files().size(), 1U);
  }
}

}  // namespace
}  // namespace varnisto::test
