// Pictures of the windows for the documentation: gui_pictures FOLDER [--dark]
#include <QLineEdit>
#include <QListView>
#include <QPalette>
#include <QRadioButton>
#include <QStyle>
#include <filesystem>
#include <iostream>

#include "gui_driver.h"

namespace varnisto::test {
namespace {

namespace fs = std::filesystem;

/// Folders with names that a reader of the documentation may see; gone at the end.
struct Stage {
  fs::path root = fs::temp_directory_path() / "contest";
  std::string program = (root / "varnisto/").string();
  std::string logs = (root / "2025/").string();

  Stage() {
    fs::remove_all(root);
    fs::create_directories(logs);
    fs::copy(source_dir("data"), program);
  }
  ~Stage() { fs::remove_all(root); }
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  void add_settings() const { fs::copy(source_dir("examples") / "Varnisto.ini", program + "Varnisto.ini"); }
  std::string add_log(const std::string& example, const std::string& log, bool summary) const {
    for (const auto& file : fs::directory_iterator{source_dir("examples") / example})
      if (summary || file.path().extension() != ".zsm")
        fs::copy(file.path(), logs + file.path().filename().string(), fs::copy_options::overwrite_existing);
    return logs + log;
  }
};

class Camera {
 public:
  explicit Camera(std::string folder) : folder_{std::move(folder)} {}
  void take(QWidget& window, const std::string& name) const {
    QApplication::processEvents();
    const std::string path = folder_ + "/" + name + ".png";
    if (!window.grab().save(QString::fromStdString(path))) throw std::runtime_error("cannot write " + path);
  }

 private:
  std::string folder_;
};

void settings_pictures(const Stage& stage, const Camera& camera) {
  GuiProgram program{stage.program};
  program.start();
  camera.take(program.window(), "first_start");
  program.next_file = stage.logs + "QX1ABC.ALL";
  in_next_dialog([&](QWidget& dialog) {
    const auto type = [&](const std::string& box, const char* text) {
      child<QLineEdit>(dialog, box).setText(QString::fromUtf8(text));
    };
    type("txtCall", "qx1abc");
    type("txtName", "Taro Mihon");
    type("txtAdd1", "1-2-3 Kakuu-cho");
    type("txtAdd2", "Mihon-shi 000-0000");
    type("txtOperators", "QX1ABC");
    camera.take(dialog, "settings_missing");
    type("txtJidx", "10");
    type("txtMy_e_add", "qx1abc@example.com");
    type("txtEQSL_Comm", "TNX QSO");
    child<QAbstractButton>(dialog, "cmdSet_in_dir").click();
    camera.take(dialog, "settings_complete");
    child<QAbstractButton>(dialog, "cmdBack").click();
  });
  program.menu("mnuMake");
}

void conversion_pictures(const Stage& stage, const Camera& camera) {
  GuiProgram program{stage.program};
  program.start();
  program.next_file = stage.add_log("cqww-cw", "QX1ABC.ALL", true);
  program.menu("mnuOpen_all");
  camera.take(program.window(), "main_window");
  program.click("kaishi");
  camera.take(program.window(), "main_window_done");
  program.menu("mnuDisp2_out1");
  QWidget& viewer = program.last_window();
  child<QAction>(viewer, "action_find").trigger();
  child<QLineEdit>(viewer, "find_text").setText(QStringLiteral("QC5KDD"));
  child<QAbstractButton>(viewer, "find_next").click();
  camera.take(viewer, "viewer");
  for (const auto& [menu, name] : {std::pair{"mnuWeb_URL", "web_links"}, std::pair{"mnuVer", "version"}}) {
    in_next_dialog([&, picture = std::string{name}](QWidget& window) {
      camera.take(window, picture);
      window.close();
    });
    program.menu(menu);
  }
}

void dialog_pictures(const Stage& stage, const Camera& camera) {
  GuiProgram program{stage.program};
  program.start();
  program.next_file = stage.add_log("wpx-ssb-m2", "qx2def.all", false);
  fs::remove(stage.logs + "qx2def.zsm");
  in_next_dialog([&](QWidget& dialog) {
    QListView& contests = child<QListView>(dialog, "List1");
    contests.setCurrentIndex(contests.model()->index(2, 0));  // CQ WPX
    camera.take(dialog, "select_cont");
    in_next_dialog([&](QWidget& overlay) {
      child<QRadioButton>(overlay, "Option1_1").click();
      QListView& offers = child<QListView>(overlay, "List1");
      offers.setCurrentIndex(offers.model()->index(0, 0));
      camera.take(overlay, "overlay");
      child<QAbstractButton>(overlay, "cmdOK").click();
    });
    child<QAbstractButton>(dialog, "cmdOK").click();
  });
  program.menu("mnuOpen_all");
}

QPalette dark_palette() {
  QPalette palette{QColor{0x2b2b2b}};
  palette.setColor(QPalette::Base, QColor{0x1e1e1e});
  return palette;
}

void take_all(const std::string& folder) {
  const Camera camera{folder};
  const Stage stage;
  settings_pictures(stage, camera);
  fs::remove(stage.program + "Varnisto.ini");
  stage.add_settings();
  conversion_pictures(stage, camera);
  dialog_pictures(stage, camera);
}

}  // namespace
}  // namespace varnisto::test

int main(int argc, char* argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application{argc, argv};
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 2) {
    std::cerr << "usage: gui_pictures FOLDER [--dark]\n";
    return 2;
  }
  if (arguments.contains(QLatin1String("--dark"))) QApplication::setPalette(varnisto::test::dark_palette());
  try {
    varnisto::test::take_all(arguments[1].toStdString());
  } catch (const std::exception& error) {
    std::cerr << "gui_pictures: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
