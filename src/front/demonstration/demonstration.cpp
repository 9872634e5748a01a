#include "front/demonstration/demonstration.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QPainter>
#include <QScreen>
#include <QTemporaryFile>
#include <cstdio>
#include <set>

#include "core/game_state.h"
#include "front/qt/appearance.h"
#include "front/demonstration/automatic_player.h"
#include "front/demonstration/scratch_folder.h"

namespace ardane {
namespace {

/// The offscreen platform's own screen is too small for the map.
constexpr char screens[] =
    R"({"screens": [{"name": "écran", "x": 0, "y": 0, "width": 1280, "height": 1024, "dpr": 1}]})";

void choose_platform(const QString &configuration) {
  const QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
  if (chosen.isEmpty() || chosen == "offscreen")
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + configuration.toLocal8Bit());
}

/// This platform gives windows no title bars: a plain one stands in for them.
void draw_title(QPainter &painter, const QWidget &window) {
  constexpr int height = 24;
  const QRect client = window.geometry();
  const QRect bar(client.left(), client.top() - height, client.width(), height);
  painter.fillRect(bar, QColor(0x24, 0x3c, 0x5a));
  painter.setPen(Qt::white);
  painter.drawText(bar.adjusted(8, 0, -8, 0), Qt::AlignVCenter | Qt::AlignLeft, window.windowTitle());
}

/// Everything on the screen as the player sees it, the boxes above the windows.
QPixmap picture_of_screen() {
  QPixmap picture(QGuiApplication::primaryScreen()->size());
  picture.fill(QColor(0x3a, 0x4a, 0x58));
  QPainter painter(&picture);
  QWidgetList windows = QApplication::topLevelWidgets();
  // A window's parents lie below it.
  const auto depth = [](const QWidget *w) {
    int n = 0;
    for (; w != nullptr; w = w->parentWidget()) ++n;
    return n;
  };
  std::ranges::stable_sort(windows, {}, depth);
  for (QWidget *window : windows) {
    if (!window->isVisible()) continue;
    if ((window->windowFlags() & Qt::FramelessWindowHint) == 0) draw_title(painter, *window);
    painter.drawPixmap(window->geometry().topLeft(), window->grab());
  }
  return picture;
}

class Album {
 public:
  explicit Album(const QDir &folder) : folder_(folder) {}

  /// One picture of each kind of screen.
  void add(const std::string &screen) {
    if (!known_.insert(screen).second) return;
    QString name =
        QStringLiteral("%1-%2").arg(known_.size(), 2, 10, QLatin1Char('0')).arg(to_qt(screen).trimmed());
    name.replace(QLatin1Char('/'), QLatin1Char('-'));
    const QString path = folder_.filePath(name + QStringLiteral(".png"));
    complete_ = picture_of_screen().save(path) && complete_;
    std::printf("Image : %s\n", path.toUtf8().constData());
    std::fflush(stdout);
  }
  bool complete() const { return complete_; }

 private:
  QDir folder_;
  std::set<std::string> known_;
  bool complete_ = true;
};

void tell_progress(const GameState &g, int found) {
  if (found % 10 != 0) return;
  std::printf("Province %d sur %d : %s. Score : %d\n", found, nombre_provinces,
              g.TableProvinces(g.ProvinceCourante).nom.c_str(), g.Score);
  std::fflush(stdout);
}

int play(const QDir &folder) {
  const ScratchFolder scratch(QCoreApplication::applicationDirPath().toStdString());
  Desktop desktop(scratch.places(), ressources_du_programme());
  Album album(folder);
  AutomaticPlayer player(desktop, {});
  player.seen = [&](const std::string &screen) { album.add(screen); };
  player.found = [&](int found) { tell_progress(desktop.programme().état(), found); };
  // The boxes of a first start come before the windows, and must be answered like the others.
  QTimer boxes;
  QObject::connect(&boxes, &QTimer::timeout, [&] {
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    album.add(to_utf8(box->windowTitle()));
    box->accept();
  });
  boxes.start(0);
  std::printf("Démonstration : une partie du jeu des provinces, au niveau Facile.\n");
  if (!desktop.start()) return 1;
  boxes.stop();
  desktop.programme().état().Ordre_jeux.remplir(0);
  desktop.programme().état().Ordre_jeux(1) = étape_provinces;
  player.begin();
  desktop.play();
  if (!player.trouble().empty()) {
    std::printf("La démonstration s'est arrêtée : %s.\n", player.trouble().c_str());
    return 1;
  }
  std::printf("Partie finie : %d erreurs, score %d.\n", player.mistakes(), player.score());
  return album.complete() ? 0 : 1;
}

}  // namespace

int demonstrate(int argc, char **argv, const std::string &folder) {
  const QDir pictures(QDir(to_qt(folder)).absolutePath());
  QTemporaryFile configuration;
  if (!pictures.mkpath(QStringLiteral(".")) || !configuration.open()) {
    std::fprintf(stderr, "Impossible d'écrire dans le dossier %s\n", folder.c_str());
    return 1;
  }
  configuration.write(screens);
  configuration.flush();
  choose_platform(configuration.fileName());
  QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));  // what this platform lacks
  QApplication application(argc, argv);
  return play(pictures);
}

}  // namespace ardane
