#include "ui/category_rewrite.h"

#include <gtest/gtest.h>

#include "support/test_app.h"
#include "ui/main_window.h"

namespace varnisto::test {
namespace {

struct Rewrite {
  std::string name, line, cat_text, new_operator, expected_line, expected_text;
};

class CategoryLine : public testing::TestWithParam<Rewrite> {};

TEST_P(CategoryLine, TakesTheChosenOperator) {
  const Rewrite& rewrite = GetParam();
  const CategoryRewrite result = rewrite_category_line(rewrite.line, rewrite.cat_text, rewrite.new_operator);
  EXPECT_EQ(result.line, rewrite.expected_line);
  EXPECT_EQ(result.cat_text, rewrite.expected_text);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, CategoryLine,
    testing::Values(Rewrite{"SingleToMulti", "Category: Single-op All Band Mixed", "Single-op All Band Mixed",
                            "Multi-One", "Category: Multi-One All Band Mixed", "Multi-One All Band Mixed"},
                    Rewrite{"AssistedWordIsOneWord", "Category: Single-op-Assisted 7 MHz CW",
                            "Single-op Assisted 7 MHz CW", "Single-op", "Category: Single-op 7 MHz CW",
                            "Single-op 7 MHz CW"},
                    Rewrite{"EveryOccurrence", "Category: Multi-op 14 MHz Ph (Multi-op)",
                            "Multi-op  14 MHz Ph", "CheckLog", "Category: CheckLog 14 MHz Ph (CheckLog)",
                            "CheckLog 14 MHz Ph (CheckLog)"},
                    Rewrite{"DoubledWordShrinksInTheTextOnly", "Category: Single-op-Assisted All Band CW",
                            "Single-op All Band CW", "Single-op-Assisted",
                            "Category: Single-op-Assisted-Assisted All Band CW",
                            "Single-op-Assisted All Band CW"},
                    Rewrite{"BlankTextChangesNothing", "Category: Single-op All Band CW  ", "", "Multi-Two",
                            "Category: Single-op All Band CW", "Single-op All Band CW"}),
    [](const auto& test) { return test.param.name; });

TEST(CategoryRewriteButton, ReplacesTheLoggersSummaryAndLeavesNoScratchFile) {
  TestApp test;
  TempDir work;
  work.copy_from(source_dir("examples/cqww-cw"));
  test.start();
  MainWindow window{test.app};
  test.open(work.path() + "QX1ABC.ALL");
  const std::string zsm = test.app.state.input.zsm_use_name.substr(work.path().size());
  const std::string before = work.read_text(zsm);
  const std::string old_line = "Category: " + test.app.state.category.cat_text;
  ASSERT_NE(before.find(old_line), std::string::npos);
  window.click("Option3", 4);
  window.click("cmdRe_write_zlog_zsm");

  const std::string old_operator = old_line.substr(10, old_line.find(' ', 10) - 10);
  std::string expected = before;
  expected.replace(expected.find(old_line) + 10, old_operator.size(), "Multi-Two");
  EXPECT_EQ(work.read_text(zsm), expected);
  EXPECT_FALSE(work.has(zsm + "0"));
  EXPECT_EQ(test.app.main.Option3.options[4].color, Color::blue);
  EXPECT_NE(test.app.main.lblGet_zsm4.text.find("Category ： Multi-Two"), std::string::npos);
}

}  // namespace
}  // namespace varnisto::test
