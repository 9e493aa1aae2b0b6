#pragma once

#include <QAbstractListModel>
#include <string>
#include <vector>

namespace varnisto {

/// The entries of a list box for a QListView; a text becomes a QString only when it is drawn.
class LinesModel final : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  /// Takes new entries when they differ from the present ones; true when they did.
  bool set_lines(const std::vector<std::string>& lines);
  const std::vector<std::string>& lines() const { return lines_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  std::vector<std::string> lines_;
};

}  // namespace varnisto
