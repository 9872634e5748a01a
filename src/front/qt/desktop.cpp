#include "front/qt/desktop.h"

#include <QAccessible>
#include <QApplication>
#include <QLibraryInfo>
#include <QSessionManager>
#include <QTimer>

#include "core/paths.h"
#include "front/qt/accessibility.h"
#include "front/qt/appearance.h"
#include "front/qt/child.h"
#include "map/guide.h"
#include "map/layout.h"
#include "persistence/score_file.h"

namespace ardane {
namespace {

constexpr std::chrono::milliseconds blink_period{500};
/// The main window is painted first.
constexpr std::chrono::milliseconds settling_delay{100};
/// After the last change of a window that is being dragged.
constexpr std::chrono::milliseconds resting_delay{150};
constexpr qsizetype names_told = 5;

}  // namespace

Desktop::Desktop(const DesktopPlaces &places, const Ressources &ressources)
    : places_(places),
      pictures_(ressources.images, to_qt(Joindre_chemin(places.programme, "images"))),
      registry_(ouvrir_registre(places.registre, places.registre_nommé)),
      memory_(places.registre.parent_path() / "fenetre.ini"),
      renderer_(dispatcher_, pictures_, screen_),
      boxes_(dispatcher_, screen_, renderer_),
      programme_({boxes_, *registry_, screen_, sound_, clock_, random_, web_, help_, renderer_}, ressources,
                 places.dossier, {places.secours, true}),
      heartbeat_(dispatcher_, boxes_) {
  renderer_.help = [this](const Fenêtre &window) { programme_.aide(window); };
  renderer_.moved = [this](const Fenêtre &window) {
    if (&window == &programme_.principale() && programme_.principale().déplacement)
      programme_.principale().déplacement();
  };
  renderer_.guide = {[this] { return Cibles(programme_.contexte()); },
                     [this](Point from, Point to) { return Décrire_lieu(programme_.contexte(), from, to); },
                     [this](Point place) { return Situer(programme_.contexte(), place); },
                     [this](Point place) { return Balayer(programme_.contexte(), place); },
                     [this] { return Redire_partie(Ecouter(programme_.contexte())); }};
  renderer_.synced = [this] { speak(); };
  install_accessibility();
  renderer_.fitted = [this] { rest_.start(resting_delay); };
  rest_.setSingleShot(true);
  connect(&rest_, &QTimer::timeout, this, [this] { window_rests(); });
  dispatcher_.explain = [this] { return what_hinders_the_start(); };
  dispatcher_.at_rest = [this] { programme_.tenir_la_partie(); };
  dispatcher_.is_game_kept = [this] { return programme_.contexte().secours.tient_la_partie(); };
  registry_->à_l_échec = [this] {
    if (programme_.en_cours()) dispatcher_.run_when_idle([this] { tell_unkept_settings(); });
  };
  renderer_.last_closed = [this] { loop_.quit(); };
  if (places_.partagé) dispatcher_.before_event = [this] { take_scores_of_others(); };
  heartbeat_.beat = [this] { programme_.battre(); };
  connect(
      qApp, &QGuiApplication::commitDataRequest, this,
      [this](QSessionManager &session) {
        if (!programme_.en_cours()) return;
        // The next start offers the game: nothing need be asked of who is leaving.
        if (dispatcher_.is_game_kept()) return end_unasked();
        dispatcher_.run(programme_.principale().demande_de_fermeture);
        if (programme_.en_cours()) session.cancel();
      },
      Qt::DirectConnection);
}

Desktop::~Desktop() {
  if (screen_view_) screen_view_->frame().removeEventFilter(this);
}

void Desktop::frame_main_window() {
  const Point size = Taille_confortable(programme_.principale());
  WindowView &view = renderer_.play_in(programme_.principale(), QSize(size.x, size.y));
  if (!memory_.restore(view.frame())) place_for_the_first_time(view.frame(), view.needed());
  view.choose_scale(memory_.scale());
  screen_view_ = &view;
  view.frame().installEventFilter(this);
}

/// The main window, as it goes from the screen.
bool Desktop::eventFilter(QObject *, QEvent *event) {
  if (event->type() == QEvent::Hide) keep_window();
  return false;
}

void Desktop::keep_window() {
  if (screen_view_) memory_.keep(screen_view_->frame(), screen_view_->chosen_scale());
}

void Desktop::window_rests() {
  dispatcher_.run_when_idle([this] {
    if (!programme_.en_cours()) return;
    keep_window();
    programme_.écran_changé();
  });
}

/// Tells what the last event has changed for a player who listens.
void Desktop::speak() {
  if (!QAccessible::isActive()) return;
  QWidget *main = renderer_.frame(programme_.principale());
  if (main == nullptr) return;
  if (speech_ == nullptr) speech_ = make_child<Speech>(main);
  Partie_entendue now = Ecouter(programme_.contexte());
  speech_->say(to_qt(Annoncer_partie(heard_, now)));
  heard_ = std::move(now);
}

bool Desktop::start() {
  // Before the first window: each would be painted again.
  if (translator_.load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&translator_);
  if (!places_.sans_cadre) frame_main_window();
  bool started = false;
  dispatcher_.run([&] { started = programme_.Démarrage(places_.programme); });
  if (!started) return false;
  if (!places_.fichier.empty()) dispatcher_.run([&] { programme_.ouvrir(places_.fichier); });
  heartbeat_.start(blink_period);
  QTimer::singleShot(settling_delay, this, [this] { settle(); });
  return true;
}

/// The lists are those of the file when a game enters them, as if the program had been started just then.
void Desktop::take_scores_of_others() {
  Contexte &c = programme_.contexte();
  if (!programme_.en_cours()) return;
  const std::filesystem::path file = chemin_natif(c.dossier.complet(c.état.Fichier_lancement));
  std::error_code error;
  const std::pair seen(file, std::filesystem::last_write_time(file, error));
  if (error || seen == scores_seen_) return;
  scores_seen_ = seen;
  Reprendre_scores_des_autres(c);
}

void Desktop::come_to_front(const std::string &token) {
  if (!token.empty()) qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token));
  QWidget *main = renderer_.frame(programme_.principale());
  if (main != nullptr && main->isMinimized())
    main->setWindowState(main->windowState() & ~Qt::WindowMinimized);
  QWidget *modal = QApplication::activeModalWidget();
  QWidget *front = modal != nullptr ? modal : renderer_.top_frame();
  if (main != nullptr && main->isVisible()) main->raise();
  if (front == nullptr) return;
  front->raise();
  front->activateWindow();
}

void Desktop::heed(OneInstance &instance) {
  instance.listen([this](const std::string &token) { come_to_front(token); });
}

void Desktop::load_all_pictures() {
  const double ratio =
      renderer_.frame(programme_.principale())->devicePixelRatioF() * screen_.scale().value();
  for (const Contrôle &picture : programme_.principale().contrôles())
    if (picture.conteneur == &programme_.principale().Carte)
      pictures_.pixmap(picture.image, detail_for(ratio));
}

void Desktop::play() {
  while (programme_.en_cours()) loop_.exec();
}

void Desktop::end_unasked() {
  dispatcher_.end_when_idle([this] {
    if (!programme_.en_cours()) return;
    programme_.interrompre();
    keep_window();
  });
}

void Desktop::settle() {
  QApplication::setWindowIcon(pictures_.icon("programme"));
  if (QWidget *main = renderer_.frame(programme_.principale()))
    main->setWindowIcon(pictures_.icon(programme_.principale().nom));
  tell_missing_pictures();
  tell_unkept_settings();
}

/// Without a key of its own in the settings the program goes on, without its texts, to its first message.
std::optional<std::string> Desktop::what_hinders_the_start() const {
  if (programme_.en_cours() || !registry_->échec()) return std::nullopt;
  return "Le jeu ne peut pas démarrer sans garder ses réglages.\n" + *registry_->échec() + ".\n" +
         registry_->remède();
}

void Desktop::tell_unkept_settings() {
  if (!registry_->échec() || unkept_settings_told_) return;
  unkept_settings_told_ = true;
  const std::string text = *registry_->échec() + ".\nLe jeu continue, mais les oubliera quand il sera fermé.";
  dispatcher_.run([&] { boxes_.montrer({Icône::exclamation, "L'Ardane et ses provinces", text}); });
}

void Desktop::tell_missing_pictures() {
  const QStringList missing = pictures_.unreadable();
  if (missing.isEmpty()) return;
  QString text = missing.size() == 1
                     ? QStringLiteral("Une image manque ou ne peut être lue : ")
                     : QStringLiteral("%1 images manquent ou ne peuvent être lues : ").arg(missing.size());
  text += missing.mid(0, names_told).join(QStringLiteral(", "));
  if (missing.size() > names_told) text += QStringLiteral("...");
  text += QStringLiteral("\nLe jeu continue avec les autres.");
  dispatcher_.run([&] { boxes_.montrer({Icône::exclamation, "L'Ardane et ses provinces", to_utf8(text)}); });
}

}  // namespace ardane
