#include "front/qt/control_kinds.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <algorithm>

#include "front/qt/appearance.h"
#include "front/qt/child.h"

namespace ardane {
namespace {

/// A text that is too long for its label is set smaller, down to this many hundredths of its size.
constexpr int smallest_fitted_font = 60;
/// Keeps words off the edge of their coloured ground.
constexpr int coloured_margin = 3;

Qt::Alignment across(Alignement alignement) {
  switch (alignement) {
    case Alignement::gauche: return Qt::AlignLeft;
    case Alignement::centre: return Qt::AlignHCenter;
    case Alignement::droite: return Qt::AlignRight;
  }
  return Qt::AlignLeft;
}

/// What a screen reader says: the caption, else the tool tip, else the name.
QString spoken_name(const Contrôle &control) {
  for (const std::string *words : {&control.texte, &control.infobulle, &control.nom})
    if (!words->empty()) return to_qt(*words);
  return {};
}

void set_spoken_name(QWidget &widget, const Contrôle &control) {
  const QString name = spoken_name(control);
  if (widget.accessibleName() != name) widget.setAccessibleName(name);
}

}  // namespace

LabelView::LabelView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context, make_child<QLabel>(parent)) {
  label().setTextFormat(Qt::PlainText);
  if (control.encadré) label().setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  if (control.fond && control.alignement != Alignement::centre) label().setMargin(coloured_margin);
}

void LabelView::sync() {
  ControlView::sync();
  const QString text = to_qt(control().texte);
  if (label().text() != text) label().setText(text);
  const bool several_lines =
      control().multiligne || control().hauteur >= 2 * label().fontMetrics().lineSpacing();
  if (label().wordWrap() != several_lines) label().setWordWrap(several_lines);
  const Qt::Alignment down = several_lines && !control().encadré ? Qt::AlignTop : Qt::AlignVCenter;
  const Qt::Alignment alignment = across(control().alignement) | down;
  if (label().alignment() != alignment) label().setAlignment(alignment);
  fit_text(several_lines);
}

void LabelView::fit_text(bool several_lines) {
  const Fitted wanted{label().text(), control().police, label().contentsRect().size()};
  if (wanted == fitted_) return;
  fitted_ = wanted;
  QFont font = to_qt(control().police);
  const int flags = several_lines ? Qt::TextWordWrap : 0;
  const int smallest = font.pixelSize() * smallest_fitted_font / 100;
  const auto fits = [&] {
    const QRect text = QFontMetrics(font).boundingRect({{}, wanted.size}, flags, wanted.text);
    return text.width() <= wanted.size.width() &&
           text.height() <= std::max(wanted.size.height(), font.pixelSize());
  };
  while (font.pixelSize() > smallest && !fits()) font.setPixelSize(font.pixelSize() - 1);
  if (label().font() != font) label().setFont(font);
}

bool LabelView::eventFilter(QObject *watched, QEvent *event) {
  if (event->type() == QEvent::MouseButtonPress && control().clic) {
    click();
    return true;
  }
  if (event->type() == QEvent::MouseButtonDblClick && control().double_clic) {
    run(control().double_clic);
    return true;
  }
  return ControlView::eventFilter(watched, event);
}

FrameView::FrameView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context, make_child<QGroupBox>(parent)) {}

void FrameView::sync() {
  ControlView::sync();
  auto &box = static_cast<QGroupBox &>(widget());
  const QString text = caption(control().texte);
  if (box.title() != text) box.setTitle(text);
}

LineView::LineView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context, make_child<QLineEdit>(parent)) {
  connect(&line(), &QLineEdit::textEdited, this,
          [this](const QString &text) { run([&] { saisir(this->control(), to_utf8(text)); }); });
}

bool LineView::is_shown() const {
  const bool empty_counter = control().lecture_seule && control().fond && control().texte.empty();
  return control().visible && !empty_counter;
}

void LineView::sync() {
  ControlView::sync();
  set_spoken_name(line(), control());
  const QString text = to_qt(control().texte);
  if (line().text() != text) line().setText(text);
  if (line().isReadOnly() != control().lecture_seule) line().setReadOnly(control().lecture_seule);
  const Qt::Alignment alignment = across(control().alignement) | Qt::AlignVCenter;
  if (line().alignment() != alignment) line().setAlignment(alignment);
}

PageView::PageView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context, make_child<QPlainTextEdit>(parent)) {
  connect(&page(), &QPlainTextEdit::textChanged, this,
          [this] { run([this] { saisir(this->control(), to_utf8(page().toPlainText())); }); });
}

void PageView::sync() {
  ControlView::sync();
  const QSignalBlocker quiet(page());
  const QString text = to_qt(control().texte);
  if (page().toPlainText() != text) page().setPlainText(text);
  if (page().isReadOnly() != control().lecture_seule) page().setReadOnly(control().lecture_seule);
}

ButtonView::ButtonView(Contrôle &control, const ViewContext &context, QAbstractButton *button)
    : ControlView(control, context, button) {
  button->setCheckable(control.genre != Genre::bouton);
  connect(button, &QAbstractButton::clicked, this, [this] { click(); });
}

QRect ButtonView::place() const {
  const QRect designed = ControlView::place();
  const int missing = button().isCheckable() ? button().sizeHint().height() - designed.height() : 0;
  return missing <= 0 ? designed : designed.adjusted(0, -missing / 2, 0, missing - missing / 2);
}

void ButtonView::sync() {
  ControlView::sync();
  const QString text = caption(control().texte);
  if (button().text() != text) button().setText(text);
  if (control().image != icon_) {
    icon_ = control().image;
    button().setIcon(QIcon(context_.pictures.pixmap(icon_, button().devicePixelRatioF())));
    button().setIconSize({icon_.largeur, icon_.hauteur});
  }
  if (control().texte.empty()) set_spoken_name(button(), control());
  if (button().isCheckable() && button().isChecked() != control().coché) sync_mark();
}

void ButtonView::sync_mark() {
  // An exclusive button refuses to be cleared by itself, and only its own group's data says who is marked.
  const bool exclusive = button().autoExclusive();
  button().setAutoExclusive(false);
  button().setChecked(control().coché);
  button().setAutoExclusive(exclusive);
}

ListView::ListView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context, make_child<QListWidget>(parent)) {
  // Of the row that has the cursor the toolkit takes the first for want of another; the choice is the one
  // that is marked.
  connect(&list(), &QListWidget::itemSelectionChanged, this,
          [this] { run([this] { choisir(this->control(), marked_row() + 1); }); });
  connect(&list(), &QListWidget::itemClicked, this, [this] { click(); });
  connect(&list(), &QListWidget::itemDoubleClicked, this, [this] { run(this->control().double_clic); });
}

void ListView::sync() {
  ControlView::sync();
  set_spoken_name(list(), control());
  const QSignalBlocker quiet(list());
  if (items_ != control().éléments) {
    items_ = control().éléments;
    list().clear();
    for (const std::string &item : items_) list().addItem(to_qt(item));
  }
  if (marked_row() == control().choix - 1) return;
  list().setCurrentRow(control().choix - 1);
  if (control().choix == 0) list().clearSelection();
}

int ListView::marked_row() const {
  const QList<QListWidgetItem *> marked = list().selectedItems();
  return marked.isEmpty() ? -1 : list().row(marked.front());
}

BarView::BarView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(
          control, context,
          make_child<QScrollBar>(control.largeur > control.hauteur ? Qt::Horizontal : Qt::Vertical, parent)) {
  // The map follows the thumb when it is let go, as the layers would be too many to follow each pixel of it.
  bar().setTracking(false);
  connect(&bar(), &QScrollBar::valueChanged, this,
          [this](int value) { run([&] { fixer_valeur(this->control(), value); }); });
}

void BarView::sync() {
  ControlView::sync();
  const QSignalBlocker quiet(bar());
  if (bar().minimum() != control().min || bar().maximum() != control().max)
    bar().setRange(control().min, control().max);
  if (bar().singleStep() != control().petit_pas) bar().setSingleStep(control().petit_pas);
  if (bar().pageStep() != control().grand_pas) bar().setPageStep(control().grand_pas);
  if (bar().value() != control().valeur) bar().setValue(control().valeur);
}

}  // namespace ardane
