#include "front/qt/menu_view.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QShortcut>
#include <algorithm>

#include "front/qt/appearance.h"
#include "front/qt/child.h"

namespace ardane {
namespace {

/// Where a screen reader hears the keys, the toolkit sends each of them once more, without its time. A bar
/// would take an Alt that has been let go by then for another one, and close the menus that the first has
/// opened.
class MenuBar : public QMenuBar {
 public:
  using QMenuBar::QMenuBar;

 protected:
  bool eventFilter(QObject *window, QEvent *event) override {
    const bool sent_again = hasFocus() && event->type() == QEvent::ShortcutOverride &&
                            static_cast<const QKeyEvent *>(event)->timestamp() == 0;
    return !sent_again && QMenuBar::eventFilter(window, event);
  }
};

bool is_menu(const Contrôle &control) {
  return control.genre == Genre::menu;
}

bool holds_entries(const Fenêtre &window, const Contrôle &entry) {
  return std::ranges::any_of(window.contrôles(),
                             [&](const Contrôle &c) { return is_menu(c) && c.conteneur == &entry; });
}

QKeySequence keys_of(const Contrôle &entry) {
  return QKeySequence(to_qt(entry.raccourci), QKeySequence::PortableText);
}

/// A menu shows the keys of its entries by itself; the bar has room for nothing but captions.
QString text_of(const Contrôle &entry) {
  QString text = caption(entry.texte, entry.mnémonique);
  if (text.isEmpty() || entry.conteneur != nullptr || entry.raccourci.empty()) return text;
  return QStringLiteral("%1 (%2)").arg(text, keys_of(entry).toString(QKeySequence::NativeText));
}

}  // namespace

bool has_menu(const Fenêtre &window) {
  return std::ranges::any_of(window.contrôles(), is_menu);
}

MenuView::MenuView(const ViewContext &context, QWidget *parent)
    : context_(context), bar_(*make_child<MenuBar>(parent)) {
  bar_.setNativeMenuBar(false);
  bar_.setObjectName(QStringLiteral("barre_de_menus"));
  for (Contrôle &control : context_.window.contrôles())
    if (is_menu(control)) entries_.push_back({&control, make_action(control)});
  connect(make_child<QShortcut>(QKeySequence(Qt::Key_F10), parent), &QShortcut::activated, this,
          [this] { open_first(); });
  show_at(Scale());
}

void MenuView::show_at(Scale scale) {
  const QFont font = scale.font({});
  if (bar_.font() == font) return;
  bar_.setFont(font);
  for (const Entry &entry : entries_)
    if (QMenu *menu = entry.action->menu()) menu->setFont(font);
}

void MenuView::open_first() {
  const QList<QAction *> actions = bar_.actions();
  const auto first = std::ranges::find_if(
      actions, [](const QAction *action) { return action->isVisible() && action->isEnabled(); });
  if (first != actions.end()) bar_.setActiveAction(*first);
}

QAction *MenuView::make_action(Contrôle &control) {
  QWidget *holder = &bar_;
  for (const Entry &entry : entries_)
    if (entry.control == control.conteneur) holder = entry.action->menu();
  QAction *action = nullptr;
  if (holds_entries(context_.window, control)) {
    auto *menu = make_child<QMenu>(holder);
    menu->setObjectName(to_qt("menu:" + control.nom));
    action = menu->menuAction();
    holder->addAction(action);
  } else {
    action = make_child<QAction>(holder);
    holder->addAction(action);
    // The bar lets go of the keyboard behind its own entry only, and after a box it could not give it back.
    const auto when = control.conteneur == nullptr ? Qt::QueuedConnection : Qt::AutoConnection;
    connect(
        action, &QAction::triggered, this,
        [this, &control] { context_.dispatcher.run([&] { cliquer(context_.window, control); }); }, when);
    if (control.conteneur != nullptr) action->setShortcut(keys_of(control));
    action->setAutoRepeat(false);
  }
  action->setObjectName(to_qt(control.nom));
  action->setText(action->objectName());
  return action;
}

void MenuView::sync() {
  // QAction compares before it changes; only texts are worth a comparison of ours, as they are made anew.
  for (const Entry &entry : entries_) {
    const QString text = text_of(*entry.control);
    // Until an entry has its caption, its name holds the place: the window is sized by the bar before that.
    if (!text.isEmpty() && entry.action->text() != text) entry.action->setText(text);
    entry.action->setEnabled(entry.control->actif);
    entry.action->setVisible(entry.control->visible);
    if (entry.control->coché) entry.action->setCheckable(true);
    if (entry.action->isCheckable()) entry.action->setChecked(entry.control->coché);
  }
}

}  // namespace ardane
