#include "front/qt/cell_sheet.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <algorithm>

#include "front/qt/accessibility.h"
#include "front/qt/appearance.h"

namespace ardane {

CellSheet::CellSheet(const ViewContext &context, QWidget *parent) : QWidget(parent), context_(context) {}

void CellSheet::sync() {
  std::vector<Cell> cells;
  for (const Contrôle &control : context_.window.contrôles())
    if (control.cellule && est_visible(control)) cells.push_back(cell_of(control));
  QRect changed;
  for (std::size_t gone = cells.size(); gone < cells_.size(); ++gone) changed |= cells_[gone].place;
  cells_.resize(cells.size());
  writings_.resize(cells.size());
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (cells[i] == cells_[i]) continue;
    changed |= cells_[i].place | cells[i].place;
    writings_[i] = writing_in(cells[i]);
    cells_[i] = std::move(cells[i]);
    tell_cell(*this, i);
  }
  update(changed);
}

CellSheet::Cell CellSheet::cell_of(const Contrôle &control) const {
  const Scale &scale = context_.scale;
  return {control.nom,    control.texte, nom_à_dire(control), scale.rect(place_of(control)), control.fond,
          control.police, scale};
}

/// Half a letter off the edge of its frame, as every framed text is.
CellSheet::Writing CellSheet::writing_in(const Cell &cell) const {
  const QFont designed = cell.scale.font(cell.police);
  const int frame = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
  const int margin = QFontMetrics(designed).horizontalAdvance(QLatin1Char('x')) / 2;
  const QRect room = cell.place.adjusted(frame + margin, frame, -frame, -frame);
  return {room, fitted_text(to_qt(cell.text), designed, room.size(), Qt::TextSingleLine)};
}

const QString *CellSheet::text_in(std::string_view name) const {
  const auto found = std::ranges::find(cells_, name, &Cell::name);
  if (found == cells_.end()) return nullptr;
  return &writings_[static_cast<std::size_t>(found - cells_.begin())].fitted.text;
}

void CellSheet::paintEvent(QPaintEvent *event) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  for (std::size_t i = 0; i < cells_.size(); ++i)
    if (event->region().intersects(cells_[i].place)) paint(painter, cells_[i], writings_[i]);
}

void CellSheet::paint(QPainter &painter, const Cell &cell, const Writing &writing) const {
  if (cell.fond) painter.fillRect(cell.place, to_qt(*cell.fond));
  QStyleOptionFrame frame;
  frame.initFrom(this);
  frame.rect = cell.place;
  frame.lineWidth = 1;
  frame.state |= QStyle::State_Sunken;
  style()->drawPrimitive(QStyle::PE_Frame, &frame, &painter, this);
  painter.setFont(writing.fitted.font);
  painter.drawText(writing.room, Qt::AlignVCenter | Qt::TextSingleLine, writing.fitted.text);
}

}  // namespace ardane
