#include "gui/page_browser.h"

#include "base/run_time_error.h"
#include "base/text_reader.h"

namespace varnisto {

QVariant PageBrowser::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::HtmlResource || !name.isLocalFile())
    return QTextBrowser::loadResource(type, name);
  try {
    TextReader reader{name.toLocalFile().toStdString()};
    QString page;
    for (std::string_view line; reader.next(line);)
      page += QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())) + QLatin1Char('\n');
    return page;
  } catch (const RunTimeError& error) {  // a link of the user's own list may lead nowhere: the page says so
    return QString::fromStdString(describe(error)).toHtmlEscaped();
  }
}

}  // namespace varnisto
