#include "ui/category_rewrite.h"

#include <gtest/gtest.h>

#include "support/events.h"
#include "support/rows.h"
#include "support/test_app.h"
#include "ui/main_window.h"

namespace varnisto::test {
namespace {

TEST(CategoryLine, TakesTheChosenOperator) {
  for (const auto& [line, cat_text, new_operator, expected_line, expected_text] : texts_of<5>(
           "Category: Single-op All Band Mixed|Single-op All Band Mixed|Multi-One|Category: Multi-One All "
           "Band Mixed|Multi-One All Band Mixed",
           "Category: Single-op-Assisted 7 MHz CW|Single-op Assisted 7 MHz CW|Single-op|Category: Single-op "
           "7 MHz CW|Single-op 7 MHz CW",
           "Category: Multi-op 14 MHz Ph (Multi-op)|Multi-op  14 MHz Ph|CheckLog|Category: CheckLog 14 MHz "
           "Ph (CheckLog)|CheckLog 14 MHz Ph (CheckLog)",
           "Category: Single-op-Assisted All Band CW|Single-op All Band CW|Single-op-Assisted|Category: "
           "Single-op-Assisted-Assisted All Band CW|Single-op-Assisted All Band CW",
           "Category: Single-op All Band CW  ||Multi-Two|Category: Single-op All Band CW|Single-op All Band "
           "CW")) {
    SCOPED_TRACE(line);
    const CategoryRewrite result = rewrite_category_line(line, cat_text, new_operator);
    EXPECT_EQ(result.line, expected_line);
    EXPECT_EQ(result.cat_text, expected_text);
  }
}

TEST(CategoryRewriteButton, ReplacesTheLoggersSummaryAndLeavesNoScratchFile) {
  TestApp test;
  test.work.copy_from(source_dir("examples/cqww-cw"));
  test.start();
  MainWindow window{test.app};
  test.open(test.work.path() + "QX1ABC.ALL");
  const std::string zsm = test.app.state.log.input.zsm_use_name.substr(test.work.path().size());
  const std::string before = test.work.read_text(zsm);
  const std::string old_line = "Category: " + test.app.state.log.category.cat_text;
  ASSERT_NE(before.find(old_line), std::string::npos);
  click_in(test.app, window, "Option3", 4);
  click_in(test.app, window, "cmdRe_write_zlog_zsm");

  const std::string old_operator = old_line.substr(10, old_line.find(' ', 10) - 10);
  std::string expected = before;
  expected.replace(expected.find(old_line) + 10, old_operator.size(), "Multi-Two");
  EXPECT_EQ(test.work.read_text(zsm), expected);
  EXPECT_FALSE(test.work.has(zsm + "0"));
  EXPECT_EQ(test.app.main.Option3.options[4].color, Color::blue);
  EXPECT_NE(test.app.main.lblGet_zsm4.text.find("Category ： Multi-Two"), std::string::npos);
}

}  // namespace
}  // namespace varnisto::test
