#pragma once
// The page of web links that the user keeps in web_url.txt.

#include <string>
#include <vector>

#include "base/line_sink.h"
#include "base/text_reader.h"
#include "ui/app_form.h"

namespace varnisto {

/// The browser inside the link window; the view brings it.
class BrowserPane {
 public:
  virtual ~BrowserPane() = default;
  /// Opens a local page.
  virtual void navigate(const std::string& path) = 0;
  virtual void go_back() = 0;
  virtual void go_forward() = 0;
};

/// Writes the page of links from records of three comma-separated fields: unused, link text, address. A
/// record with a blank text is skipped; texts and addresses go in unchanged. Throws RunTimeError 62 for half
/// a record.
void write_link_page(TextReader links, LineSink& page);

class frmWeb_URL final : public AppForm {
 public:
  frmWeb_URL(App& the_app, BrowserPane& pane);

  std::vector<NamedControl> controls() override;
  /// Writes web_url.htm anew and shows it.
  void Form_Load() override;
  void mnuMain_Click();
  void mnuGoBack_Click();
  void mnuGoForward_Click();
  /// The user followed a link of the page: it opens in the desktop's browser.
  void open_link(const std::string& address);

  std::string page;  ///< path of web_url.htm
  MenuItem mnuMain, mnuGoBack, mnuGoForward;

 private:
  BrowserPane& pane_;
};

}  // namespace varnisto
