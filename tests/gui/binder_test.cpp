#include "gui/binder.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cctype>
#include <cmath>
#include <gtest/gtest.h>

#include "gui/palette.h"
#include "gui/qt_desk.h"
#include "gui_driver.h"

namespace varnisto::test {
namespace {

/// One control of each kind, and a log of the events.
class OneOfEach final : public Form {
 public:
  Label label;
  TextBox line, page;
  Button button;
  CheckBox check;
  OptionGroup options = option_group(" Power ", {"HIGH", "LOW", "QRP"});
  ListBox list;
  MenuItem entry, menu;
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
    return {{"label", &label}, {"line", &line},       {"page", &page}, {"button", &button}, {"check", &check},
            {"entry", &entry}, {"options", &options}, {"list", &list}, {"menu", &menu}};
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
  QLabel& label = add<QLabel>("label");
  QLineEdit& line = add<QLineEdit>("line");
  QPlainTextEdit& page = add<QPlainTextEdit>("page");
  QPushButton& button = add<QPushButton>("button");
  QCheckBox& check = add<QCheckBox>("check");
  QGroupBox& options = add<QGroupBox>("options");
  QListView& list = add<QListView>("list");
  QAction& entry = add<QAction>("entry");
  QMenu& menu = add<QMenu>("menu");
  OneOfEach form;
  int runs = 0;
  Binder binder{window, form, [this](const auto& event) {
                  ++runs;
                  event();
                  binder.refresh();
                }};
  QRadioButton& option(int index) { return child<QRadioButton>(window, "options_" + std::to_string(index)); }
};

TEST_F(BinderTest, FormReachesEveryWidget) {
  entry.setCheckable(true);
  form.caption = "窓";
  form.label.text = "one\r\ntwo & three";
  form.line.text = "abc";
  form.page.text = "red\r\ntext";
  form.page.color = Color::red;
  form.button.caption = "A & B";
  form.button.enabled = false;
  form.button.tip = "tip";
  form.check.caption = "tick";
  form.check.checked = form.entry.checked = true;
  form.entry.caption = "entry";
  form.options.selected = 1;
  form.options.color_selected();
  form.list.items = {"x", "y", "z"};
  form.list.selected = 2;
  form.menu.enabled = false;
  form.label.visible = false;
  binder.refresh();

  EXPECT_EQ(window.windowTitle(), "窓");
  EXPECT_EQ(label.text(), "one\ntwo & three");
  EXPECT_TRUE(label.isHidden());
  EXPECT_EQ(line.text(), "abc");
  EXPECT_EQ(page.toPlainText(), "red\ntext");
  EXPECT_EQ(page.palette().color(QPalette::Text), shade_of(Color::red, window.palette()));
  EXPECT_EQ(button.text(), "A && B");
  EXPECT_FALSE(button.isEnabled());
  EXPECT_EQ(button.toolTip(), "tip");
  EXPECT_EQ(check.text(), "tick");
  EXPECT_TRUE(check.isChecked());
  EXPECT_TRUE(entry.isChecked());
  EXPECT_EQ(entry.text(), "entry");
  EXPECT_EQ(options.title(), "Power");
  EXPECT_TRUE(option(1).isChecked());
  EXPECT_EQ(option(1).palette().color(QPalette::WindowText), shade_of(Color::blue, window.palette()));
  EXPECT_EQ(option(0).palette().color(QPalette::WindowText), window.palette().color(QPalette::WindowText));
  EXPECT_EQ(list.model()->rowCount(), 3);
  EXPECT_EQ(list.currentIndex().data().toString(), "z");
  EXPECT_FALSE(menu.menuAction()->isEnabled());
  EXPECT_TRUE(form.events.empty());

  form.options.selected = form.list.selected = -1;
  form.page.color = Color::black;
  binder.refresh();
  EXPECT_FALSE(option(1).isChecked());
  EXPECT_TRUE(list.selectionModel()->selectedRows().isEmpty());
  EXPECT_EQ(page.palette().color(QPalette::Text), window.palette().color(QPalette::Text));
}

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

TEST_F(BinderTest, TabKeyVisitsOptionsWhereTheirGroupStands) {
  EXPECT_EQ(options.nextInFocusChain(), &option(0));
  EXPECT_EQ(option(0).nextInFocusChain(), &option(1));
  EXPECT_EQ(option(2).nextInFocusChain(), &list);
}

double luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

TEST(Colours, AreLegibleOnLightAndDark) {
  for (const QColor background : {QColor{0xefefef}, QColor{0xffffff}, QColor{0x2a2a2a}, QColor{0x101418}})
    for (const Color color : {Color::green, Color::blue, Color::red}) {
      QPalette palette;
      palette.setColor(QPalette::Window, background);
      palette.setColor(QPalette::WindowText, background.lightness() < 128 ? Qt::white : Qt::black);
      const double text = luminance(shade_of(color, palette)), back = luminance(background);
      EXPECT_GE((std::max(text, back) + 0.05) / (std::min(text, back) + 0.05), 4.5)
          << static_cast<int>(color) << " on " << background.name().toStdString();
    }
}

TEST(OpenDialog, FiltersIgnoreCase) {
  EXPECT_EQ(qt_filter("ﾃｷｽﾄﾌｧｲﾙ ( *.all )|*.all|"), "ﾃｷｽﾄﾌｧｲﾙ ( *.all ) (*.[aA][lL][lL])");
  EXPECT_EQ(qt_filter("Log|*.z1;*.B|x|*"), "Log (*.[zZ]1 *.[bB]);;x (*)");
}

}  // namespace
}  // namespace varnisto::test
