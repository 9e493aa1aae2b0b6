#include <gtest/gtest.h>

#include "app/driver.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

TEST(Examples, BecomeTheExpectedPair) {
  struct Row {
    std::string name, log, call, settings_key, settings_value;
    int power;
  };
  for (const Row& example : rows_of(Row{"cqww-cw", "QX1ABC.ALL", "QX1ABC", "", "", 1},
                                    Row{"wpx-ssb-m2", "qx2def.all", "QX2DEF", "get_freq_flag", "1", 0},
                                    Row{"arrl-10m", "QX4JKL.ALL", "QX4JKL", "", "", 1})) {
    SCOPED_TRACE(example.name);
    TestApp test;
    test.set("CALLSIGN", example.call);
    test.set("power_sel", std::to_string(example.power));
    if (!example.settings_key.empty()) test.set(example.settings_key, example.settings_value);
    test.work.copy_from(source_dir("examples") / example.name);
    const auto inputs = test.work.files();
    test.start();
    test.open(test.work.path() + example.log);
    kaishi_Click(test.app);

    auto outputs = test.work.files();
    for (const auto& [name, bytes] : inputs) {
      EXPECT_EQ(outputs[name], bytes) << name;
      outputs.erase(name);
    }
    TempDir expected;
    expected.copy_from(source_dir("tests/data/expected") / example.name);
    EXPECT_EQ(outputs, expected.files());
    EXPECT_FALSE(test.folder.has("check_Cabrillo.txt"));
    EXPECT_EQ(test.app.state.display.progress, Progress::done);
    EXPECT_EQ(test.desk.boxes.size(), 1U);  // the closing notice
  }
}

}  // namespace
}  // namespace varnisto::test
