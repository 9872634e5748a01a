#include "front/demonstration/automatic_player.h"

#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <algorithm>

#include "core/game_state.h"
#include "core/hit_test_table.h"
#include "front/qt/appearance.h"
#include "front/demonstration/mouse.h"
#include "map/pointing.h"

namespace ardane {
namespace {

constexpr int half_way = nombre_provinces / 2;
/// Pixels of each province that are tried when others lie under a mark.
constexpr std::size_t pixels_kept = 60;

/// The widget of a control; it must have been seen.
QWidget *widget(const QWidget &window, const char *control) {
  return window.findChild<QWidget *>(QString::fromUtf8(control));
}

bool is_inside(const GameState &g, int x, int y, int province) {
  for (int dy = -1; dy <= 1; ++dy)
    for (int dx = -1; dx <= 1; ++dx)
      if (code_du_pixel(g, 0, x + dx, y + dy) != province) return false;
  return true;
}

int distance(QPoint a, QPoint b) {
  return QPoint::dotProduct(a - b, a - b);
}

}  // namespace

AutomaticPlayer::AutomaticPlayer(Desktop &desktop, Plan plan) : desktop_(desktop), plan_(std::move(plan)) {}

void AutomaticPlayer::begin() {
  find_pixels();
  later();
}

void AutomaticPlayer::find_pixels() {
  const GameState &g = desktop_.programme().état();
  const Contrôle &map = desktop_.programme().principale().image_région;
  for (int y = 1; y < map.hauteur - 1; ++y)
    for (int x = 1; x < map.largeur - 1; ++x)
      if (const int p = code_du_pixel(g, 0, x, y); p > 0 && p <= nombre_provinces && is_inside(g, x, y, p))
        pixels_[static_cast<std::size_t>(p)].emplace_back(x, y);
  for (std::vector<QPoint> &pixels : pixels_) {
    if (pixels.empty()) continue;
    QPoint middle;
    for (const QPoint pixel : pixels) middle += pixel;
    middle /= static_cast<int>(pixels.size());
    std::ranges::stable_sort(pixels, {}, [&](QPoint pixel) { return distance(pixel, middle); });
    // Every n-th, so that some lie clear of whatever mark stands in the middle.
    const std::size_t stride = pixels.size() / pixels_kept + 1;
    std::vector<QPoint> kept;
    for (std::size_t i = 0; i < pixels.size(); i += stride) kept.push_back(pixels[i]);
    pixels = std::move(kept);
  }
}

void AutomaticPlayer::later() {
  QTimer::singleShot(0, this, [this] { step(); });
}

void AutomaticPlayer::give_up(const std::string &why) {
  trouble_ = why;
  ended_ = true;
  std::exchange(entry_, nullptr);
  QTimer::singleShot(0, this, [this] {
    // Nobody is left to answer: the windows close from the top down.
    if (QWidget *box = QApplication::activeModalWidget()) box->close();
    desktop_.programme().principale().fermer();
    desktop_.renderer().sync();
  });
}

void AutomaticPlayer::step() {
  if (!desktop_.programme().en_cours()) return;
  if (--steps_left_ == 0) return give_up("la partie ne finit pas");
  // What follows may wait in a window of its own: the next step comes from there.
  later();
  if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
    const auto *entry = menu->findChild<QAction *>(QString::fromUtf8(std::exchange(entry_, nullptr)));
    return entry == nullptr ? give_up("entrée de menu absente") : click(*menu, *entry);
  }
  QWidget *modal = QApplication::activeModalWidget();
  if (auto *box = qobject_cast<QMessageBox *>(modal)) return accept(*box);
  if (modal != nullptr && modal->objectName() == QLatin1String("nouvelle_partie"))
    return fill_in_new_game(*modal);
  if (modal != nullptr && modal->objectName() == QLatin1String("Affichage_scores"))
    return close_top_ten(*modal);
  if (modal != nullptr) return give_up("fenêtre inattendue : " + to_utf8(modal->objectName()));
  if (desktop_.programme().état().Etape == étape_provinces) return answer();
  if (ended_) return choose_from_menu("menu_fichier", "fichier_quitter");
  if (started_)
    return give_up("la partie s'est arrêtée à l'étape " + std::to_string(desktop_.programme().état().Etape));
  started_ = true;
  if (seen) seen("carte");
  choose_from_menu("menu_fichier", "fichier_nouveau");
}

void AutomaticPlayer::choose_from_menu(const char *menu, const char *entry) {
  QWidget *window = desktop_.renderer().frame(desktop_.programme().principale());
  QWidget *bar = widget(*window, "barre_de_menus");
  const auto *action = bar->findChild<QAction *>(QString::fromUtf8(menu));
  if (action == nullptr) return give_up("menu absent");
  entry_ = entry;
  click(*bar, *action);
}

void AutomaticPlayer::accept(QMessageBox &box) {
  ++boxes_;
  if (seen) seen(to_utf8(box.windowTitle()));
  for (const char *name : {"ok", "oui"})
    if (QWidget *button = widget(box, name)) return click(*button);
}

void AutomaticPlayer::fill_in_new_game(QWidget &dialog) {
  QWidget *name = widget(dialog, "boîte_nom_joueur");
  QWidget *level = widget(dialog, plan_.level.c_str());
  QWidget *ok = widget(dialog, "bouton_sortie");
  if (name == nullptr || level == nullptr || ok == nullptr) return give_up("dialogue incomplet");
  click(*name);
  type(*name, plan_.name);
  click(*level);
  if (seen) seen("nouvelle_partie");
  click(*ok);
}

void AutomaticPlayer::close_top_ten(QWidget &window) {
  if (seen) seen("Affichage_scores");
  ended_ = true;
  if (QWidget *close = widget(window, "Command1")) click(*close);
}

int AutomaticPlayer::other_province(int asked) const {
  const Provinces &provinces = desktop_.programme().état().TableProvinces;
  for (int p = asked % nombre_provinces + 1; p != asked; p = p % nombre_provinces + 1)
    if (!provinces(p).trouvée) return p;
  return 0;
}

void AutomaticPlayer::answer() {
  const GameState &g = desktop_.programme().état();
  const int asked = g.ProvinceCourante;
  if (asked == 0) return;
  if (asked != asked_before_) erred_ = false;
  asked_before_ = asked;
  const bool err = plan_.mistake_every > 0 && (answers_ + 1) % plan_.mistake_every == 0 && !erred_;
  const int wrong = err ? other_province(asked) : 0;
  const int province = wrong != 0 ? wrong : asked;
  if (!free_pixel(province)) {
    if (!scroll_towards(province)) give_up("pas un pixel libre pour la province " + std::to_string(province));
    return;
  }
  if (wrong != 0) {
    erred_ = true;
    ++mistakes_;
  } else {
    ++answers_;
    if (seen && answers_ == half_way) seen("milieu");
    if (seen && answers_ == nombre_provinces) seen("fin");
    score_ = g.Score;
    if (found) found(answers_);
  }
  click(map_widget(), *free_pixel(province));
}

QWidget &AutomaticPlayer::map_widget() const {
  return *widget(*desktop_.renderer().frame(desktop_.programme().principale()), "Carte");
}

QPoint AutomaticPlayer::scrolled() const {
  const Ecran_principal &main = desktop_.programme().principale();
  return {main.barre_h.valeur, main.barre_v.valeur};
}

std::optional<QPoint> AutomaticPlayer::free_pixel(int province) const {
  for (const QPoint pixel : pixels_[static_cast<std::size_t>(province)]) {
    const QPoint place = pixel - scrolled();
    if (!map_widget().rect().contains(place)) continue;
    const Contrôle *picture = image_sous(desktop_.programme().principale(), place.x(), place.y());
    // The marks of other towns reach over borders; a player sees them.
    if (picture != nullptr && !picture->nom.starts_with("rond")) return place;
  }
  return std::nullopt;
}

bool AutomaticPlayer::scroll_towards(int province) {
  const std::vector<QPoint> &pixels = pixels_[static_cast<std::size_t>(province)];
  if (pixels.empty()) return false;
  const QPoint place = pixels.front() - scrolled();
  const QWidget &view = map_widget();
  constexpr int past_the_arrow = 18;
  Ecran_principal &main = desktop_.programme().principale();
  const auto page = [&](const Contrôle &bar, int along, int length) {
    QWidget *shown = widget(*view.window(), bar.nom.c_str());
    if (shown == nullptr || (along >= 0 && along < length)) return false;
    const int before = bar.valeur;
    const int far_end = std::max(shown->width(), shown->height());
    const int where = along < 0 ? past_the_arrow : far_end - past_the_arrow;
    click(*shown, shown->width() > shown->height() ? QPoint(where, shown->height() / 2)
                                                   : QPoint(shown->width() / 2, where));
    return bar.valeur != before;
  };
  return page(main.barre_v, place.y(), view.height()) || page(main.barre_h, place.x(), view.width());
}

}  // namespace ardane
