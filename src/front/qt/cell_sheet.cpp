#include "front/qt/cell_sheet.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <tuple>

#include "front/qt/accessibility.h"
#include "front/qt/appearance.h"
#include "front/qt/fitted_text.h"

namespace ardane {
namespace {

constexpr int frame_width = 1;
/// How much darker than what it lies on, in hundredths.
constexpr int frame_shade = 130;
/// Of a text that is not broken.
constexpr int no_width = -1;
/// All that the longest table says, and some more.
constexpr qsizetype most_laid_out = 1000;

QRect inside(QRect frame) {
  return frame.adjusted(frame_width, frame_width, -frame_width, -frame_width);
}

QStaticText laid_out(const FittedText &fitted, const QTextOption &option, int width) {
  QStaticText laid_out(fitted.text);
  laid_out.setTextFormat(Qt::PlainText);
  laid_out.setTextOption(option);
  laid_out.setTextWidth(width);
  laid_out.prepare({}, fitted.font);
  return laid_out;
}

QStaticText line_of(const FittedText &fitted) {
  return laid_out(fitted, QTextOption(), no_width);
}

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
  return {control.nom,  control.texte,      nom_à_dire(control), scale.rect(place_of(control)),
          control.fond, est_bordé(control), control.alignement,  control.police,
          scale};
}

CellSheet::Letters &CellSheet::letters_of(const Cell &cell) {
  if (!letters_ || letters_->police != cell.police || letters_->scale != cell.scale) {
    const QFont font = cell.scale.font(cell.police);
    const QFontMetrics metrics(font);
    letters_ = Letters{cell.police,
                       cell.scale,
                       font,
                       metrics.horizontalAdvance(QLatin1Char('x')) / 2,
                       2 * metrics.lineSpacing(),
                       {}};
  }
  return *letters_;
}

CellSheet::Writing CellSheet::writing_in(const Cell &cell) {
  Letters &letters = letters_of(cell);
  const QString text = to_qt(cell.text);
  QRect room = cell.place;
  if (cell.bordé) room = inside(room).adjusted(letters.indent, 0, 0, 0);
  if (cell.alignement == Alignement::gauche && room.height() < letters.two_lines)
    return line_in(text, room, letters);

  const FittedText fitted = fitted_text(text, letters.font, room.size(), Qt::TextWordWrap);
  return {laid_out(fitted, QTextOption(across(cell.alignement)), room.width()), fitted.font, room.topLeft()};
}

CellSheet::Writing CellSheet::line_in(const QString &text, QRect room, Letters &letters) const {
  if (letters.lines.size() == most_laid_out) letters.lines.clear();
  if (!letters.lines.contains(text)) letters.lines[text] = line_of({text, letters.font});
  Writing writing{letters.lines[text], letters.font, room.topLeft()};
  const QSizeF taken = writing.text.size();
  if (taken.width() > room.width() || taken.height() > room.height()) {
    const FittedText fitted = fitted_text(text, letters.font, room.size(), Qt::TextSingleLine);
    writing = {line_of(fitted), fitted.font, room.topLeft()};
  }
  writing.place.ry() += (room.height() - static_cast<int>(writing.text.size().height())) / 2;
  return writing;
}

QString CellSheet::text_in(std::string_view name) const {
  const auto found = std::ranges::find(cells_, name, &Cell::name);
  if (found == cells_.end()) return {};
  return writings_[static_cast<std::size_t>(found - cells_.begin())].text.text();
}

/// Frames by the style, or drawn line by line, would take half of the time.
void CellSheet::paintEvent(QPaintEvent *event) {
  QPainter painter(this);
  const QColor ground = palette().color(QPalette::Window);
  const QColor frame = ground.darker(frame_shade);
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const auto &[cell, writing] = std::tie(cells_[i], writings_[i]);
    if (!event->region().intersects(cell.place)) continue;
    QRect room = cell.place;
    if (cell.bordé) {
      painter.fillRect(room, frame);
      room = inside(room);
    }
    painter.fillRect(room, cell.fond ? to_qt(*cell.fond) : ground);
    painter.setFont(writing.font);
    painter.drawStaticText(writing.place, writing.text);
  }
}

}  // namespace ardane
