#include "front/qt/demonstration/automatic_player.h"

#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <utility>

#include "front/qt/appearance.h"
#include "front/qt/demonstration/mouse.h"

namespace ardane {
namespace {

template <class Object = QWidget>
Object *child(const QObject *parent, const std::string &name) {
  return parent == nullptr ? nullptr : parent->findChild<Object *>(to_qt(name));
}

QMessageBox *box_in_front() {
  return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
}

const char *name_of(Réponse button) {
  switch (button) {
    case Réponse::ok: return "ok";
    case Réponse::oui: return "oui";
    case Réponse::non: return "non";
  }
  return "";
}

}  // namespace

void Plan::at_box(AutomaticPlayer &player, const QMessageBox &) {
  player.accept();
}

AutomaticPlayer::AutomaticPlayer(Desktop &desktop, Plan &plan, Hand hand)
    : desktop_(desktop), plan_(plan), hand_(hand) {
  turn_.setSingleShot(true);
  connect(&turn_, &QTimer::timeout, this, [this] { turn(); });
}

bool AutomaticPlayer::start() {
  starting_ = true;
  begin();
  const bool started = desktop_.start();
  starting_ = false;
  rest();
  return started;
}

void AutomaticPlayer::begin() {
  orders_left_ = most_orders;
  turn_.start();
}

void AutomaticPlayer::rest() {
  turn_.stop();
}

void AutomaticPlayer::turn() {
  if (!starting_ && !desktop_.programme().en_cours() && QApplication::activeModalWidget() == nullptr) return;
  // What follows may wait in a window of its own: the next turn comes from there.
  turn_.start();
  if (desktop_.busy()) return;
  // A window that has just come up hears that it is the active one before it hears of the player.
  const QWidget *seen_before = std::exchange(seen_in_front_, front());
  if (seen_before != seen_in_front_) return;
  if (!trouble_.empty()) return close_what_is_in_front();
  if (orders_.empty()) return ask_plan();
  if (--orders_left_ == 0) return give_up("la partie ne finit pas");
  const std::function<void()> order = std::move(orders_.front());
  orders_.pop_front();
  order();
}

void AutomaticPlayer::ask_plan() {
  const QWidget *modal = QApplication::activeModalWidget();
  if (const QMessageBox *box = box_in_front())
    plan_.at_box(*this, *box);
  else if (modal != nullptr)
    plan_.at_window(*this, to_utf8(modal->objectName()));
  else if (!starting_)
    plan_.at_map(*this);
}

void AutomaticPlayer::give_up(const std::string &why) {
  if (trouble_.empty()) trouble_ = why;
  orders_.clear();
}

void AutomaticPlayer::close_what_is_in_front() {
  if (QWidget *menu = QApplication::activePopupWidget())
    menu->close();
  else if (QMessageBox *box = box_in_front())
    box->close();
  else
    desktop_.renderer().close_top();
}

QWidget *AutomaticPlayer::front() const {
  QWidget *modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : desktop_.renderer().frame(desktop_.programme().principale());
}

QWidget *AutomaticPlayer::usable(const std::string &control) {
  QWidget *found = child(front(), control);
  if (found != nullptr && found->isVisible() && found->isEnabled()) return found;
  give_up("rien à utiliser sous le nom " + control + " dans " +
          to_utf8(front() == nullptr ? QString() : front()->objectName()));
  return nullptr;
}

void AutomaticPlayer::choose(const std::string &menu, const std::string &entry) {
  if (hand_ == Hand::keys) return choose_by_keys(menu, entry);
  then([this, menu] { click_entry(usable("barre_de_menus"), menu); });
  then([this, entry] { click_entry(QApplication::activePopupWidget(), entry); });
}

void AutomaticPlayer::click_entry(QWidget *menu, const std::string &entry) {
  const auto *action = child<QAction>(menu, entry);
  if (action == nullptr || !action->isVisible() || !action->isEnabled())
    return give_up("rien à choisir sous le nom " + entry);
  ardane::click(*menu, *action);
}

void AutomaticPlayer::click(const std::string &control) {
  then([this, control] {
    QWidget *found = usable(control);
    if (found == nullptr) return;
    if (hand_ == Hand::keys)
      click_by_keys(*found);
    else
      ardane::click(*found);
  });
}

bool AutomaticPlayer::focus(QWidget &control) {
  const auto holder = [&] { return control.window()->focusWidget(); };
  const auto is_option = [](const QWidget *widget) {
    return qobject_cast<const QRadioButton *>(widget) != nullptr;
  };
  const auto key = [&] {
    if (!is_option(&control) || !is_option(holder())) return Qt::Key_Tab;
    return holder()->y() > control.y() ? Qt::Key_Up : Qt::Key_Down;
  };
  constexpr int most_stops = 60;
  for (int i = 0; i < most_stops && holder() != &control; ++i) ardane::press(control, key());
  if (holder() != &control) give_up("aucune touche ne mène à " + to_utf8(control.objectName()));
  return holder() == &control;
}

void AutomaticPlayer::click_by_keys(QWidget &control) {
  if (focus(control)) ardane::press(control, Qt::Key_Space);
}

/// From the menu bar, which F10 gives the focus.
void AutomaticPlayer::choose_by_keys(const std::string &menu, const std::string &entry) {
  constexpr int most_steps = 40;
  then([this, menu] {
    auto *bar = qobject_cast<QMenuBar *>(usable("barre_de_menus"));
    if (bar == nullptr) return;
    bar->setFocus(Qt::MenuBarFocusReason);
    bar->setActiveAction(bar->actions().constFirst());
    for (int i = 0; i < most_steps && to_utf8(bar->activeAction()->objectName()) != menu; ++i)
      ardane::press(*bar, Qt::Key_Right);
    ardane::press(*bar, Qt::Key_Down);
  });
  then([this, entry] {
    auto *list = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (list == nullptr) return give_up("le menu ne s'ouvre pas");
    for (int i = 0; i < most_steps; ++i) {
      if (list->activeAction() != nullptr && to_utf8(list->activeAction()->objectName()) == entry)
        return ardane::press(*list, Qt::Key_Return);
      ardane::press(*list, Qt::Key_Down);
    }
    give_up("rien à choisir sous le nom " + entry);
  });
}

void AutomaticPlayer::fill_in(const std::string &control, const QString &text) {
  then([this, control, text] {
    QWidget *found = usable(control);
    if (found == nullptr) return;
    if (hand_ == Hand::keys && !focus(*found)) return;
    if (hand_ == Hand::mouse) ardane::click(*found);
    ardane::press(*found, Qt::Key_A, Qt::ControlModifier);
    ardane::press(*found, Qt::Key_Delete);
    type(*found, text);
  });
}

void AutomaticPlayer::pick(const std::string &list, const QString &item) {
  work_item(list, item, ardane::click);
}

void AutomaticPlayer::open(const std::string &list, const QString &item) {
  work_item(list, item, ardane::double_click);
}

void AutomaticPlayer::work_item(const std::string &list, const QString &item, OnItem deed) {
  then([this, list, item, deed] {
    auto *found = qobject_cast<QListWidget *>(usable(list));
    if (found == nullptr) return give_up(list + " n'est pas une liste");
    const QList<QListWidgetItem *> items = found->findItems(item, Qt::MatchExactly);
    if (items.isEmpty()) return give_up("pas d'élément " + to_utf8(item) + " dans " + list);
    deed(*found, *items.front());
  });
}

void AutomaticPlayer::press(Qt::Key key) {
  then([this, key] {
    if (front() != nullptr) ardane::press(*front(), key);
  });
}

void AutomaticPlayer::answer(Réponse button) {
  then([this, button] { click_button(child(box_in_front(), name_of(button))); });
}

void AutomaticPlayer::accept() {
  then([this] { click_button(box_in_front() == nullptr ? nullptr : box_in_front()->defaultButton()); });
}

void AutomaticPlayer::click_button(QWidget *button) {
  if (button == nullptr) return give_up("pas de boîte qui se réponde ainsi");
  if (hand_ == Hand::keys)
    click_by_keys(*button);
  else
    ardane::click(*button);
}

void AutomaticPlayer::click(MapTarget target) {
  then([this, target] { reach(target); });
}

void AutomaticPlayer::reach(MapTarget target) {
  QWidget *map = usable("Carte");
  if (map == nullptr) return;
  if (hand_ == Hand::keys) return reach_by_keys(*map, target);
  if (const std::optional<QPoint> place = free_place(desktop_.programme(), target))
    return ardane::click(*map, desktop_.renderer().scale().rect(QRectF(*place, QSizeF(1, 1))).center());
  if (!scroll_towards(middle(desktop_.programme(), target)))
    return give_up("pas un pixel libre pour " + to_text(target));
  orders_.push_front([this, target] { reach(target); });
}

void AutomaticPlayer::reach_by_keys(QWidget &map, MapTarget target) {
  if (!focus(map)) return;
  std::optional<QPoint> place = free_place(desktop_.programme(), target);
  if (!place) {
    travel(map, middle(desktop_.programme(), target));  // which brings it into view
    place = free_place(desktop_.programme(), target);
  }
  if (!place) return give_up("pas un pixel libre pour " + to_text(target));
  travel(map, *place);
  ardane::press(map, Qt::Key_Return);
}

void AutomaticPlayer::travel(QWidget &map, QPoint place) {
  constexpr int stride = 10;
  const Ecran_principal &main = desktop_.programme().principale();
  const QPoint goal = place + QPoint(main.barre_h.valeur, main.barre_v.valeur);
  const auto walk = [&](Qt::Key key, int length) {
    for (int i = 0; i < length / stride; ++i) ardane::press(map, key, Qt::ShiftModifier);
    for (int i = 0; i < length % stride; ++i) ardane::press(map, key);
  };
  ardane::press(map, Qt::Key_Home);
  ardane::press(map, Qt::Key_PageUp);
  walk(Qt::Key_Right, goal.x());
  walk(Qt::Key_Down, goal.y());
}

bool AutomaticPlayer::scroll_towards(QPoint place) {
  constexpr int past_the_arrow = 18;
  Ecran_principal &main = desktop_.programme().principale();
  const auto page = [&](const Contrôle &bar, int along, double length) {
    QWidget *shown = child(front(), bar.nom);
    if (shown == nullptr || (along >= 0 && along < static_cast<int>(length))) return false;
    const int before = bar.valeur;
    const int far_end = std::max(shown->width(), shown->height());
    const int where = along < 0 ? past_the_arrow : far_end - past_the_arrow;
    ardane::click(*shown, shown->width() > shown->height() ? QPoint(where, shown->height() / 2)
                                                           : QPoint(shown->width() / 2, where));
    return bar.valeur != before;
  };
  return page(main.barre_v, place.y(), main.Carte.hauteur) ||
         page(main.barre_h, place.x(), main.Carte.largeur);
}

}  // namespace ardane
