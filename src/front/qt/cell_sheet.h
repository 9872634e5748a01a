// The cells of a window's tables.
#pragma once

#include <QHash>
#include <QStaticText>
#include <QWidget>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "front/qt/control_view.h"

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
    bool bordé = false;
    Alignement alignement = Alignement::gauche;
    Police police;
    Scale scale;
    friend bool operator==(const Cell &, const Cell &) = default;
  };

  /// Compares the window's cells with those shown and has what differs painted anew.
  void sync();

  const std::vector<Cell> &cells() const { return cells_; }
  /// What can be read in the cell of that name; nothing where none is seen.
  QString text_in(std::string_view name) const;

 protected:
  void paintEvent(QPaintEvent *event) override;

 private:
  /// What cells are designed to be written with.
  struct Letters {
    Police police;
    Scale scale;
    QFont font;
    int indent;     ///< half a letter off the edge of its frame, as every framed text is
    int two_lines;  ///< height from which a text is broken into lines
    /// What was laid out in one line: a table that is scrolled has the same texts in other rows.
    QHash<QString, QStaticText> lines;
  };
  struct Writing {
    QStaticText text;
    QFont font;
    QPoint place;
  };

  Cell cell_of(const Contrôle &control) const;
  Letters &letters_of(const Cell &cell);
  Writing writing_in(const Cell &cell);
  Writing line_in(const QString &text, QRect room, Letters &letters) const;

  const ViewContext &context_;
  std::vector<Cell> cells_;
  std::vector<Writing> writings_;   ///< of each of them
  std::optional<Letters> letters_;  ///< of the last cell: mostly those of the next one too
};

}  // namespace ardane
