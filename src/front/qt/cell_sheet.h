// The cells of a window's tables.
#pragma once

#include <QWidget>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "front/qt/control_view.h"
#include "front/qt/fitted_text.h"

namespace ardane {

/// What a window's controls stand on. It paints the labels that are cells itself: there are too many of them,
/// coming and going by the dozen, for each to be a widget. A screen reader finds them behind its widgets.
class CellSheet : public QWidget {
 public:
  CellSheet(const ViewContext &context, QWidget *parent);

  struct Cell {
    std::string name, text, spoken;
    QRect place;  ///< on this widget
    std::optional<Teinte> fond;
    Police police;
    Scale scale;
    friend bool operator==(const Cell &, const Cell &) = default;
  };

  /// Compares the window's cells with those shown and has what differs painted anew.
  void sync();

  const std::vector<Cell> &cells() const { return cells_; }
  /// What can be read in the cell of that name; null where none is seen.
  const QString *text_in(std::string_view name) const;

 protected:
  void paintEvent(QPaintEvent *event) override;

 private:
  struct Writing {
    FittedText fitted;
    QPoint baseline;  ///< where its first letter stands
  };

  Cell cell_of(const Contrôle &control) const;
  Writing writing_in(const Cell &cell) const;

  const ViewContext &context_;
  std::vector<Cell> cells_;
  std::vector<Writing> writings_;  ///< of each of them
};

}  // namespace ardane
