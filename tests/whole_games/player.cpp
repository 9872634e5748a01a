#include "player.h"

#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <utility>

#include "core/game_state.h"
#include "core/hit_test_table.h"
#include "front/qt/appearance.h"
#include "front/demonstration/mouse.h"
#include "map/pointing.h"
#include "map/visibility_rules.h"

namespace ardane {
namespace {

QWidget *widget(const QWidget &window, const char *control) {
  return window.findChild<QWidget *>(QString::fromUtf8(control));
}

/// What errors number `first` to ten of a question cost together.
int rest_of_question(int first) {
  int cost = 0;
  for (int e = first; e < 10; ++e) cost += 1 << e;
  return cost;
}

bool dots_asked(const GameState &g) {
  return g.Etape == étape_villes && haut_niveau(g);
}

}  // namespace

WholeGamePlayer::WholeGamePlayer(Desktop &desktop, std::string level)
    : desktop_(desktop), level_(std::move(level)) {}

void WholeGamePlayer::begin() {
  find_pixels();
  QTimer::singleShot(0, this, [this] { step(); });
}

/// Some pixels of each province, away from its borders.
void WholeGamePlayer::find_pixels() {
  const GameState &g = desktop_.programme().état();
  for (int y = 2; y < 660; y += 3) {
    for (int x = 2; x < 600; x += 3) {
      const int p = code_du_pixel(g, 0, x, y);
      if (p == code_du_pixel(g, 0, x + 1, y + 1)) pixels_[static_cast<std::size_t>(p)].emplace_back(x, y);
    }
  }
}

void WholeGamePlayer::stop(const std::string &why) {
  trouble = why;
  ended_ = true;
  QTimer::singleShot(0, this, [this] {
    if (QWidget *modal = QApplication::activeModalWidget()) modal->close();
    desktop_.programme().principale().fermer();
    desktop_.renderer().sync();
  });
}

void WholeGamePlayer::step() {
  if (!desktop_.programme().en_cours() || !trouble.empty()) return;
  if (--steps_left_ == 0) return stop("the game does not end");
  QTimer::singleShot(0, this, [this] { step(); });
  if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
    const auto *entry = menu->findChild<QAction *>(QString::fromUtf8(std::exchange(entry_, nullptr)));
    return entry == nullptr ? stop("no such menu entry") : click(*menu, *entry);
  }
  QWidget *modal = QApplication::activeModalWidget();
  if (auto *box = qobject_cast<QMessageBox *>(modal)) return accept(*box);
  if (modal != nullptr) return in_dialog(*modal);
  if (desktop_.programme().état().Etape != étape_repos) return answer();
  if (ended_) return choose_from_menu("menu_fichier", "fichier_quitter");
  if (started_) return stop("the game stopped before the top ten");
  started_ = true;
  choose_from_menu("menu_fichier", "fichier_nouveau");
}

void WholeGamePlayer::choose_from_menu(const char *menu, const char *entry) {
  QWidget *bar = widget(*desktop_.renderer().frame(desktop_.programme().principale()), "barre_de_menus");
  const auto *action = bar->findChild<QAction *>(QString::fromUtf8(menu));
  if (action == nullptr) return stop("no such menu");
  entry_ = entry;
  click(*bar, *action);
}

void WholeGamePlayer::accept(QMessageBox &box) {
  if (QWidget *button = widget(box, "ok")) return click(*button);
  stop("a question was asked: " + to_utf8(box.text()));
}

void WholeGamePlayer::in_dialog(QWidget &dialog) {
  const std::string name = to_utf8(dialog.objectName());
  if (name == "nouvelle_partie") {
    QWidget *player_name = widget(dialog, "boîte_nom_joueur");
    click(*player_name);
    type(*player_name, QStringLiteral("Zoé"));
    click(*widget(dialog, level_.c_str()));
    click(*widget(dialog, "bouton_sortie"));
  } else if (name == "Affichage_scores") {
    ended_ = true;
    click(*widget(dialog, "Command1"));
  } else {
    stop("unexpected window " + name);
  }
}

void WholeGamePlayer::pay(int cost) {
  if (!desktop_.programme().état().ModeApprentissage) expected_score -= cost;
}

void WholeGamePlayer::end_question() {
  ++question_;
  errors_ = 0;
  hesitated_ = false;
}

void WholeGamePlayer::answer() {
  if (desktop_.programme().état().Score != expected_score)
    return stop("the score is " + std::to_string(desktop_.programme().état().Score) + " and not " +
                std::to_string(expected_score) + " at question " + std::to_string(question_));
  if (desktop_.programme().état().Etape == étape_régions)
    answer_region();
  else
    answer_object();
}

/// Every 7th question errs once, every 11th errs and seeks help, every 53rd errs until it is given up.
bool WholeGamePlayer::wants_to_err() const {
  if (question_ % 53 == 17) return true;
  return errors_ == 0 && (question_ % 7 == 3 || question_ % 11 == 5);
}

void WholeGamePlayer::answer_object() {
  if (wants_to_err() && other_province() != 0) return err();
  if (errors_ > 0 && question_ % 11 == 5 && seek_help()) return;
  const bool assisted = desktop_.programme().état().AssistanceActive;
  if (!press_right()) return stop("the answer cannot be clicked");
  if (assisted) ++helps;
  end_question();
}

void WholeGamePlayer::err() {
  if (!press_wrong()) return stop("no wrong answer can be clicked");
  pay(1 << errors_);
  ++mistakes;
  if (++errors_ < 10) return;
  ++given_up;
  end_question();
}

/// The button that the level offers; true if this step was spent on it.
bool WholeGamePlayer::seek_help() {
  Ecran_principal &main = desktop_.programme().principale();
  const QWidget &window = *desktop_.renderer().frame(main);
  if (main.BoutonPasse.visible) {
    click(*widget(window, "BoutonPasse"));
    pay(rest_of_question(errors_));
    ++passes;
    end_question();
    return true;
  }
  if (!main.Bouton_gruge.visible || desktop_.programme().état().AssistanceActive) return false;
  click(*widget(window, "Bouton_gruge"));
  return true;
}

/// Selects the members in order, takes one out again on the way, and submits a foreign province in place of
/// the last at every third question.
void WholeGamePlayer::answer_region() {
  const GameState &g = desktop_.programme().état();
  const Fiche_région &region = g.TableRégions(g.RégionCourante);
  const int size = region.nombre_provinces;
  const int to_select = g.TailleRégion;
  const int selected = to_select - g.ResteRégion;
  if (selected == 1 && to_select > 1 && !hesitated_) {
    hesitated_ = true;
    if (!press_province(g.SélectionRégion(to_select))) stop("a selected province cannot be clicked");
    return;
  }
  const bool last = g.ResteRégion == 1;
  if (last && question_ % 3 == 1) {
    if (const int foreign = other_province(); foreign != 0) {
      // Up to Moyen the right ones stay, and one is missing; above, all of them are.
      const int missing = bas_niveau(g) ? 1 : to_select;
      if (!press_province(foreign)) return stop("a foreign province cannot be clicked");
      pay(1 << ((9 / size + 1) * missing));
      ++wrong_selections;
      return end_question();
    }
  }
  for (int k = 1; k <= size; ++k) {
    const int p = region.membres(k);
    if (g.TableProvinces(p).trouvée || est_sélectionnée(g, p)) continue;
    if (!press_province(p)) return stop("a member cannot be clicked");
    if (last) end_question();
    return;
  }
  stop("the region has no member left");
}

bool WholeGamePlayer::press_right() {
  const GameState &g = desktop_.programme().état();
  return dots_asked(g) ? press_town(g.VilleCourante) : press_province(g.ProvinceCourante);
}

bool WholeGamePlayer::press_wrong() {
  return dots_asked(desktop_.programme().état()) ? press_town(other_town())
                                                 : press_province(other_province());
}

/// A province still to be found that is no answer to the question; 0 for none.
int WholeGamePlayer::other_province() const {
  const GameState &g = desktop_.programme().état();
  for (int p = nombre_provinces; p >= 1; --p) {
    const Fiche_province &province = g.TableProvinces(p);
    const bool answer =
        g.Etape == étape_régions ? province.région == g.RégionCourante : p == g.ProvinceCourante;
    if (!answer && !province.trouvée && !est_sélectionnée(g, p)) return p;
  }
  return 0;
}

int WholeGamePlayer::other_town() const {
  const GameState &g = desktop_.programme().état();
  for (int v = nombre_villes; v >= 1; --v)
    if (v != g.VilleCourante && !g.TableVilles(v).trouvée) return v;
  return 0;
}

bool WholeGamePlayer::press_province(int province) {
  Ecran_principal &main = desktop_.programme().principale();
  QWidget *view = widget(*desktop_.renderer().frame(main), "Carte");
  for (const QPoint pixel : pixels_[static_cast<std::size_t>(province)]) {
    const Contrôle *picture = image_sous(main, pixel.x(), pixel.y());
    if (picture == nullptr || picture->nom.starts_with("rond") || picture->nom.starts_with("Rond")) continue;
    click(*view, pixel);
    return true;
  }
  return false;
}

bool WholeGamePlayer::press_town(int town) {
  if (town == 0) return false;
  Ecran_principal &main = desktop_.programme().principale();
  const Contrôle &dot = repère(main, town);
  const QPoint middle(static_cast<int>(dot.gauche) + 3, static_cast<int>(dot.haut) + 4);
  if (image_sous(main, middle.x(), middle.y()) != &dot) return false;
  click(*widget(*desktop_.renderer().frame(main), "Carte"), middle);
  return true;
}

}  // namespace ardane
