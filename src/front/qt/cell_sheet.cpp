#include "front/qt/cell_sheet.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <tuple>

#include "front/qt/accessibility.h"
#include "front/qt/appearance.h"

namespace ardane {
namespace {

constexpr int frame_width = 1;
/// How much darker than what it lies on, in hundredths.
constexpr int frame_shade = 130;

}  // namespace

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
  const int margin = frame_width + QFontMetrics(designed).horizontalAdvance(QLatin1Char('x')) / 2;
  const QRect room = cell.place.adjusted(margin, frame_width, -frame_width, -frame_width);
  const FittedText fitted = fitted_text(to_qt(cell.text), designed, room.size(), Qt::TextSingleLine);
  const QFontMetrics letters(fitted.font);
  const int above = (room.height() - letters.height()) / 2;
  return {fitted, {room.left(), room.top() + above + letters.ascent()}};
}

const QString *CellSheet::text_in(std::string_view name) const {
  const auto found = std::ranges::find(cells_, name, &Cell::name);
  if (found == cells_.end()) return nullptr;
  return &writings_[static_cast<std::size_t>(found - cells_.begin())].fitted.text;
}

/// The style's own frames would take half of the time.
void CellSheet::paintEvent(QPaintEvent *event) {
  QPainter painter(this);
  QList<QRect> frames;
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const auto &[cell, writing] = std::tie(cells_[i], writings_[i]);
    if (!event->region().intersects(cell.place)) continue;
    if (cell.fond) painter.fillRect(cell.place, to_qt(*cell.fond));
    painter.setFont(writing.fitted.font);
    painter.drawText(writing.baseline, writing.fitted.text);
    frames += cell.place.adjusted(0, 0, -frame_width, -frame_width);
  }
  painter.setPen(palette().color(QPalette::Window).darker(frame_shade));
  painter.drawRects(frames);
}

}  // namespace ardane
