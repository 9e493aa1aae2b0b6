#pragma once

#include <QMainWindow>
#include <QUrl>
#include <functional>
#include <string>

#include "ui/frm_web_url.h"
#include "ui_frm_web_url.h"

namespace varnisto {

/// The page of web links. Addresses of the web go to the desktop's browser, local pages open here.
class LinkWindow final : public QMainWindow, public BrowserPane {
 public:
  explicit LinkWindow(QWidget* parent);

  /// Hands followed web links to `open`.
  void on_link(std::function<void(const std::string& address)> open);

  void navigate(const std::string& path) override;
  void go_back() override;
  void go_forward() override;

 private:
  void follow(const QUrl& url);

  Ui::frmWeb_URL ui_;
  std::function<void(const std::string&)> open_;
};

}  // namespace varnisto
