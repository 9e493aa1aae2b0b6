#include "gui/lines_model.h"

#include "gui/qt_text.h"

namespace varnisto {

bool LinesModel::set_lines(const std::vector<std::string>& lines) {
  if (lines == lines_) return false;
  beginResetModel();
  lines_ = lines;
  endResetModel();
  return true;
}

int LinesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

QVariant LinesModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !index.isValid()) return {};
  return qt_text(lines_[static_cast<std::size_t>(index.row())]);
}

}  // namespace varnisto
