#include "gui/binder.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <cctype>
#include <gtest/gtest.h>

#include "gui/qt_desk.h"
#include "gui_driver.h"

namespace varnisto::test {
namespace {

/// One control of each kind, and a log of the events.
class OneOfEach final : public Form {
 public:
  TextBox line;
  Button button;
  CheckBox check;
  OptionGroup options = option_group(" Power ", {"HIGH", "LOW", "QRP"});
  ListBox list;
  MenuItem entry;
  std::string events;

  OneOfEach() {
    list.items = {"first", "second"};
    for (const NamedControl& named : controls()) {
      on_click(named.name, [this, name = std::string{named.name}](int index) {
        events += "click " + name + " " + std::to_string(index) + ";";
      });
      on_change(named.name,
                [this, name = std::string{named.name}](int) { events += "change " + name + ";"; });
    }
  }
  std::vector<NamedControl> controls() override {
    return {{"line", &line},   {"button", &button},   {"check", &check},
            {"entry", &entry}, {"options", &options}, {"list", &list}};
  }
  std::string typed(std::string_view, std::string_view text) const override {
    std::string upper{text};
    for (char& letter : upper) letter = static_cast<char>(std::toupper(letter));
    return upper;
  }
};

class BinderTest : public testing::Test {
 protected:
  template <class T>
  T& add(const char* name) {
    auto* widget = new T(&window);
    widget->setObjectName(QLatin1String(name));
    return *widget;
  }
  void expect_event(const std::string& event) {
    EXPECT_EQ(std::exchange(form.events, ""), event);
    EXPECT_EQ(std::exchange(runs, 0), 1);  // what the refresh changes is no event
  }

  QWidget window;
  QLineEdit& line = add<QLineEdit>("line");
  QPushButton& button = add<QPushButton>("button");
  QCheckBox& check = add<QCheckBox>("check");
  QGroupBox& options = add<QGroupBox>("options");
  QListView& list = add<QListView>("list");
  QAction& entry = add<QAction>("entry");
  OneOfEach form;
  int runs = 0;
  Binder binder{window, form, [this](const auto& event) {
                  ++runs;
                  event();
                  binder.refresh();
                }};
  QRadioButton& option(int index) { return child<QRadioButton>(window, "options_" + std::to_string(index)); }
};

TEST_F(BinderTest, EventsReachTheFormOnce) {
  line.setText("qx1abc");
  EXPECT_EQ(form.line.text, "QX1ABC");  // as the form takes it
  EXPECT_EQ(line.text(), "QX1ABC");
  expect_event("change line;");
  button.click();
  expect_event("click button 0;");
  check.click();
  EXPECT_TRUE(form.check.checked);
  expect_event("click check 0;");
  option(2).click();
  EXPECT_EQ(form.options.selected, 2);
  expect_event("click options 2;");
  list.setCurrentIndex(list.model()->index(1, 0));
  EXPECT_EQ(form.list.selected, 1);
  expect_event("click list 1;");
  entry.setCheckable(true);
  entry.trigger();
  EXPECT_FALSE(entry.isChecked());  // the form did not check it
  expect_event("click entry 0;");
}

TEST(OpenDialog, FiltersIgnoreCase) {
  EXPECT_EQ(qt_filter("ﾃｷｽﾄﾌｧｲﾙ ( *.all )|*.all|"), "ﾃｷｽﾄﾌｧｲﾙ ( *.all ) (*.[aA][lL][lL])");
  EXPECT_EQ(qt_filter("Log|*.z1;*.B|x|*"), "Log (*.[zZ]1 *.[bB]);;x (*)");
}

}  // namespace
}  // namespace varnisto::test
