#include "platform/line_sort.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
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
    const std::string start{i % 3 == 0 ? "漢" : "x"};
    const std::string digits = std::to_string(i * 7 % 13);
    lines.push_back(i % 11 == 0 ? start + digits
                                : start + pad_left(digits, 2) + (i % 5 == 0 ? "ｶ" : "") + std::to_string(i));
  }
  return lines;
}

bool key_before(const std::string& a, const std::string& b) {
  return mid(a, key.first, key.width) < mid(b, key.first, key.width);
}

std::string text_of(const Strings& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append("\n");
  return text;
}

Strings names_in(const TempDir& dir) {
  Strings names;
  for (const auto& [name, bytes] : dir.files()) names.push_back(name);
  return names;
}

void expect_sorted(const Strings& lines, const SortLimits& limits) {
  SCOPED_TRACE(testing::Message() << lines.size() << " lines, " << limits.block_bytes << " bytes, "
                                  << limits.fan_in << " runs");
  TempDir dir;
  sort_lines(dir.write_text("in", text_of(lines)), dir.path() + "out", key, limits);
  Strings expected = lines;
  std::ranges::stable_sort(expected, key_before);
  EXPECT_EQ(dir.read_text("out"), text_of(expected));
  EXPECT_EQ(names_in(dir), (Strings{"in", "out"}));
}

TEST(LineSort, IsStableWhateverFitsInMemory) {
  for (const std::size_t count : {0U, 1U, 300U}) {
    const Strings mixed = numbered_lines(count);
    Strings nearly = mixed;
    std::ranges::stable_sort(nearly.begin(), nearly.begin() + static_cast<std::ptrdiff_t>(count / 10 * 9),
                             key_before);
    Strings in_order = mixed;
    std::ranges::stable_sort(in_order, key_before);
    for (const SortLimits& limits :
         {SortLimits{}, SortLimits{1000, 16}, SortLimits{400, 3}, SortLimits{1, 2}})
      for (const Strings& lines : {mixed, nearly, in_order}) expect_sorted(lines, limits);
  }
}

TEST(LineSort, TakesLinesThatAreLongerThanABlock) {
  expect_sorted(
      {"x2" + std::string(500, 'a'), "x1", "x2" + std::string(900, 'b'), "x1" + std::string(70000, 'c')},
      {200, 2});
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
    EXPECT_EQ(names_in(dir), Strings{"in"});
  }
}

}  // namespace
}  // namespace varnisto::test
