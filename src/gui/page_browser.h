#pragma once

#include <QTextBrowser>
#include <QUrl>

namespace varnisto {

/// Shows local pages of code page 932. It follows no link by itself.
class PageBrowser final : public QTextBrowser {
 public:
  using QTextBrowser::QTextBrowser;

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
};

}  // namespace varnisto

// The .ui files name their widgets without namespace.
using varnisto::PageBrowser;
