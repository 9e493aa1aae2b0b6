#include <cstdlib>
#include <gtest/gtest.h>

#include "platform/clock.h"
#include "platform/text_sort.h"
#include "support/errors.h"
#include "support/temp_dir.h"

namespace varnisto::test {
namespace {

TEST(Ksort, SortsByTheKeyColumnsAndRefusesWhatItDoesNotUnderstand) {
  TempDir dir;
  const std::string in = dir.write_text("in.csv", "x02b\nx01a\n漢02a\nx0\nx01b\n");
  FileTextSort sort;
  EXPECT_EQ(sort.ksort("/k(2:3)  '" + in + "'   '" + dir.path() + "out.csv'"), 0);
  EXPECT_EQ(dir.read_text("out.csv"), "x0\nx01a\nx01b\nx02b\n漢02a\n");
  for (const char* command : {"", "/k(2:3)", "/k(3:2) 'a' 'b'", "/k(0:2) 'a' 'b'", "/k(1:2 'a' 'b'",
                              "/k(1:2) 'a'", "/k(1:99999999999999999999) 'a' 'b'", "/x(1:2) 'a' 'b'"})
    EXPECT_EQ(error_of([&] { sort.ksort(command); }), 5) << command;
  EXPECT_EQ(error_of([&] { sort.ksort("/k(1:2) '" + dir.path() + "it's a'   'b'"); }), 53);
}

TEST(SourceDate, TakesThePlaceOfTheClockAsLocalTimeWhenItIsANumber) {
  setenv("TZ", "JST-9", 1);
  tzset();
  setenv("SOURCE_DATE_EPOCH", "1767193200", 1);  // 2025-12-31 15:00:00 UTC
  const std::tm now = SystemClock{}.now();
  EXPECT_EQ(std::vector({now.tm_year, now.tm_mon, now.tm_mday, now.tm_hour}), std::vector({126, 0, 1, 0}));
  for (const char* value : {"", "x", "12x"}) {
    setenv("SOURCE_DATE_EPOCH", value, 1);
    EXPECT_GE(SystemClock{}.now().tm_year, 125) << value;
  }
  unsetenv("TZ");
  unsetenv("SOURCE_DATE_EPOCH");
  tzset();
}

}  // namespace
}  // namespace varnisto::test
