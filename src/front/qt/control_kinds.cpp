#include "front/qt/control_kinds.h"

#include <QHash>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyleOptionFocusRect>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>
#include <numeric>

#include "core/text_encoding.h"
#include "front/qt/appearance.h"
#include "front/qt/child.h"
#include "front/qt/fitted_text.h"

namespace ardane {
namespace {

/// Keeps words off the edge of their coloured ground.
constexpr int coloured_margin = 3;
/// Between a counter and the lower edge of its frame, in pixels of the data.
constexpr int frame_margin = 3;
/// What the toolkit keeps free on either side of a line's text.
constexpr int line_margin = 2;

/// A scroll bar whose focus is seen, which most styles leave out.
class MarkedBar : public QScrollBar {
 public:
  using QScrollBar::QScrollBar;

 protected:
  void paintEvent(QPaintEvent *event) override {
    QScrollBar::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
  }
};

/// What has been typed or pasted, as the game's files can hold it.
struct Typed {
  QString text;
  bool refused = false;  ///< a character that can be seen is missing
};

bool is_white_control(char32_t character) {
  constexpr char32_t next_line = 0x85, line_separator = 0x2028, paragraph_separator = 0x2029;
  return character == U'\n' || character == U'\r' || character == U'\t' || character == next_line ||
         character == line_separator || character == paragraph_separator;
}

Typed for_a_file(QString text) {
  Typed typed;
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  for (const char32_t character : text.normalized(QString::NormalizationForm_C).toUcs4()) {
    const QString letter = QString::fromUcs4(&character, 1);
    if (is_white_control(character))
      typed.text += QLatin1Char(' ');
    else if (QChar::category(character) == QChar::Other_Control)
      continue;
    else if (vers_windows_1252(to_utf8(letter)))
      typed.text += letter;
    else
      typed.refused = true;
  }
  return typed;
}

/// The text of a page with line ends of LF, no-break spaces and all.
QString text_of(const QPlainTextEdit &page) {
  return page.document()->toRawText().replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
}

/// Gives every row the size of the widest one: to measure thousands of rows takes longer than all else that
/// a list needs to come up.
class EvenRows : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void set_widest(int row) { widest_ = row; }
  QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override {
    return QStyledItemDelegate::sizeHint(option, index.siblingAtRow(widest_));
  }

 private:
  int widest_ = 0;
};

/// The text that takes most room, letters measured one by one; 0 where there is none.
int widest(const QStringList &texts, const QFontMetrics &font) {
  QHash<QChar, int> widths;
  const auto width = [&](QChar letter) {
    const auto known = widths.constFind(letter);
    return known != widths.cend() ? *known : *widths.insert(letter, font.horizontalAdvance(letter));
  };
  const auto sum = [&](const QString &text) {
    return std::accumulate(text.begin(), text.end(), 0,
                           [&](int before, QChar letter) { return before + width(letter); });
  };
  int row = 0, most = 0;
  for (int i = 0; i < static_cast<int>(texts.size()); ++i)
    if (const int room = sum(texts[i]); room > most) {
      most = room;
      row = i;
    }
  return row;
}

}  // namespace

void sync_border(QFrame &frame, const Contrôle &control) {
  const int style = est_bordé(control) ? QFrame::StyledPanel | QFrame::Sunken : QFrame::NoFrame;
  if (frame.frameStyle() != style) frame.setFrameStyle(style);
}

LabelView::LabelView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context, make_child<QLabel>(parent)) {
  label().setTextFormat(Qt::PlainText);
}

QRect LabelView::place() const {
  QRect designed = ControlView::place();
  if (!control().déborde) return designed;
  const QFontMetrics metrics(scale().font(control().police));
  const int text = metrics.boundingRect(QRect{}, 0, to_qt(control().texte)).width();
  designed.setWidth(std::max(designed.width(), text));
  return designed;
}

void LabelView::sync() {
  ControlView::sync();
  sync_border(label(), control());
  const bool edged = control().fond && control().alignement != Alignement::centre;
  if (const int margin = edged ? coloured_margin : 0; label().margin() != margin) label().setMargin(margin);
  // Only a label that leads somewhere takes "&" for a mark.
  const bool marked = label().buddy() != nullptr && control().mnémonique != 0;
  const QString text = marked ? caption(control().texte, control().mnémonique) : to_qt(control().texte);
  const bool several_lines =
      control().multiligne || place().height() >= 2 * label().fontMetrics().lineSpacing();
  if (label().wordWrap() != several_lines) label().setWordWrap(several_lines);
  const Qt::Alignment down = several_lines && !est_bordé(control()) ? Qt::AlignTop : Qt::AlignVCenter;
  const Qt::Alignment alignment = across(control().alignement) | down;
  if (label().alignment() != alignment) label().setAlignment(alignment);
  fit_text(text, several_lines);
}

void LabelView::fit_text(const QString &text, bool several_lines) {
  const Fitted wanted{text, control().police, label().contentsRect().size(), scale()};
  if (wanted == fitted_) return;
  fitted_ = wanted;
  const int flags = several_lines ? Qt::TextWordWrap : 0;
  const FittedText fitted = fitted_text(text, scale().font(control().police), wanted.size, flags);
  if (label().font() != fitted.font) label().setFont(fitted.font);
  label().setText(fitted.text);
}

FrameView::FrameView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context, make_child<QGroupBox>(parent)) {}

void FrameView::sync() {
  ControlView::sync();
  auto &box = static_cast<QGroupBox &>(widget());
  const QString text = caption(control().texte, control().mnémonique);
  if (box.title() != text) box.setTitle(text);
}

LineView::LineView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context, make_child<QLineEdit>(parent)) {
  if (is_counter()) {
    line().setTextMargins(-line_margin, 0, -line_margin, 0);
    line().setFocusPolicy(Qt::NoFocus);  // a focus there would not be seen
  }
  connect(&line(), &QLineEdit::textEdited, this, [this](const QString &text) { take_text(text); });
}

void LineView::take_text(QString text) {
  if (control().pour_fichier) {
    const Typed typed = for_a_file(text);
    if (typed.text != text) {
      const auto cursor = for_a_file(text.left(line().cursorPosition())).text.size();
      line().setText(typed.text);
      line().setCursorPosition(static_cast<int>(cursor));
      text = typed.text;
    }
    if (typed.refused)
      QToolTip::showText(line().mapToGlobal(line().rect().bottomLeft()),
                         QStringLiteral("Ce caractère ne peut pas être gardé."), &line());
  }
  run([&] { saisir(control(), to_utf8(text)); });
}

bool LineView::is_shown() const {
  return control().visible && !(is_counter() && control().texte.empty());
}

QRect LineView::place() const {
  const QRect designed = place_of(control());
  if (!is_counter()) return scale().rect(designed);
  if (framed_ != designed) {
    framed_ = designed;
    overhang_ = overhang(designed);
  }
  return scale().rect(designed.translated(0, -overhang_));
}

int LineView::overhang(const QRect &designed) const {
  int most = 0;
  for (const Contrôle &frame : context_.window.contrôles())
    if (frame.genre == Genre::cadre && frame.conteneur == control().conteneur &&
        place_of(frame).contains(designed.topLeft()))
      most = std::max(most, designed.bottom() - (place_of(frame).bottom() - frame_margin));
  return most;
}

void LineView::fit_digits() {
  const Fitted wanted{line().text(), control().police, line().size(), scale()};
  if (wanted == fitted_) return;
  fitted_ = wanted;
  QFont font = scale().font(control().police);
  const auto fits = [&] {
    const QFontMetrics metrics(font);
    return metrics.horizontalAdvance(wanted.text) <= wanted.size.width() - 2 * scale().length(1) &&
           metrics.tightBoundingRect(wanted.text).height() <= wanted.size.height();
  };
  while (font.pixelSize() > 1 && !fits()) font.setPixelSize(font.pixelSize() - 1);
  if (line().font() != font) line().setFont(font);
}

void LineView::sync() {
  ControlView::sync();
  const bool framed = est_bordé(control()) && !is_counter();
  if (line().hasFrame() != framed) line().setFrame(framed);
  const QString text = to_qt(control().texte);
  if (line().text() != text) line().setText(text);
  if (line().isReadOnly() != control().lecture_seule) line().setReadOnly(control().lecture_seule);
  const Qt::Alignment alignment = across(control().alignement) | Qt::AlignVCenter;
  if (line().alignment() != alignment) line().setAlignment(alignment);
  if (is_counter()) fit_digits();
}

PageView::PageView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context, make_child<QPlainTextEdit>(parent)) {
  page().setTabChangesFocus(true);
  connect(&page(), &QPlainTextEdit::textChanged, this, [this] { take_text(); });
}

void PageView::take_text() {
  // Fonts and the like are changes of the page, too.
  std::string text = lignes_du_contrôle(control(), to_utf8(text_of(page())));
  if (text == lignes_du_contrôle(control(), text_)) return;
  text_ = std::move(text);
  run([this] { saisir(this->control(), text_); });
}

void PageView::sync() {
  ControlView::sync();
  const QSignalBlocker quiet(page());
  sync_border(page(), control());
  if (control().texte != text_) {
    text_ = control().texte;
    page().setPlainText(to_qt(lignes_simples(text_)));
  }
  if (page().isReadOnly() != control().lecture_seule) page().setReadOnly(control().lecture_seule);
}

ButtonView::ButtonView(Contrôle &control, const ViewContext &context, QAbstractButton *button)
    : ControlView(control, context, button) {
  connect(button, &QAbstractButton::clicked, this, [this] { click(); });
}

QRect ButtonView::place() const {
  const QRect designed = ControlView::place();
  const int missing = button().isCheckable() ? button().sizeHint().height() - designed.height() : 0;
  return missing <= 0 ? designed : designed.adjusted(0, -missing / 2, 0, missing - missing / 2);
}

void ButtonView::sync() {
  ControlView::sync();
  const QString text = caption(control().texte, control().mnémonique);
  if (button().text() != text) button().setText(text);
  if (auto *push = qobject_cast<QPushButton *>(&button()))
    if (const bool wanted = context_.window.bouton_défaut == &control(); push->isDefault() != wanted)
      push->setDefault(wanted);
  if (control().image != icon_ || scale() != icon_scale_) sync_icon();
  if (button().isCheckable() && button().isChecked() != control().coché) sync_mark();
}

void ButtonView::sync_icon() {
  icon_ = control().image;
  icon_scale_ = scale();
  const QSize size(scale().length(icon_.largeur), scale().length(icon_.hauteur));
  button().setIcon(QIcon(context_.pictures.scaled(icon_, size, button().devicePixelRatioF())));
  button().setIconSize(size);
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
  list().setItemDelegate(make_child<EvenRows>(&list()));
  list().setUniformItemSizes(true);
  // Of the row that has the cursor the toolkit takes the first for want of another; the choice is the one
  // that is marked.
  connect(&list(), &QListWidget::itemSelectionChanged, this,
          [this] { run([this] { choisir(this->control(), marked_row() + 1); }); });
  connect(&list(), &QListWidget::itemClicked, this, [this] { click(); });
  connect(&list(), &QListWidget::itemDoubleClicked, this, [this] { double_click(); });
}

void ListView::sync() {
  ControlView::sync();
  const QSignalBlocker quiet(list());
  if (items_ != control().éléments) fill();
  items_ = control().éléments;  // from now on the same ones, which takes no time to see
  if (marked_row() == control().choix - 1) return;
  list().setCurrentRow(control().choix - 1);
  if (control().choix == 0) list().clearSelection();
}

void ListView::fill() {
  QStringList texts;
  texts.reserve(static_cast<qsizetype>(control().éléments.size()));
  for (const std::string &item : control().éléments) texts += to_qt(item);
  list().clear();
  static_cast<EvenRows *>(list().itemDelegate())->set_widest(widest(texts, list().fontMetrics()));
  list().addItems(texts);
}

bool ListView::eventFilter(QObject *watched, QEvent *event) {
  if (event->type() == QEvent::KeyPress && marked_row() < 0) {
    const int row = first_choice(static_cast<QKeyEvent *>(event)->key());
    if (row >= 0) {
      list().setCurrentRow(row);
      return true;
    }
  }
  return ControlView::eventFilter(watched, event);
}

/// The toolkit would move on from the row that has the cursor, which nobody has chosen, and where that is the
/// only one no key would choose it. -1 for a key that moves no cursor.
int ListView::first_choice(int key) const {
  switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: return std::min(std::max(0, list().currentRow()), list().count() - 1);
    case Qt::Key_End: return list().count() - 1;
    default: return -1;
  }
}

int ListView::marked_row() const {
  const QList<QListWidgetItem *> marked = list().selectedItems();
  return marked.isEmpty() ? -1 : list().row(marked.front());
}

BarView::BarView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(
          control, context,
          make_child<MarkedBar>(control.largeur > control.hauteur ? Qt::Horizontal : Qt::Vertical, parent)) {
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
