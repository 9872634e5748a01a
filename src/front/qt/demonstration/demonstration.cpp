#include "front/qt/demonstration/demonstration.h"

#include <QApplication>
#include <cstdio>

#include "core/paths.h"
#include "front/qt/appearance.h"
#include "front/qt/demonstration/demonstration_plan.h"
#include "front/qt/demonstration/offscreen.h"
#include "front/qt/demonstration/scratch_folder.h"

namespace ardane {
namespace {

int play(const QDir &folder) {
  const ScratchFolder scratch(chemin_natif(to_utf8(QCoreApplication::applicationDirPath())));
  Desktop desktop(scratch.places(), ressources_du_programme());
  Album album(folder);
  DemonstrationPlan plan(desktop.programme().état(), album);
  AutomaticPlayer player(desktop, plan);
  std::printf("Démonstration : une partie du jeu des provinces, au niveau Facile.\n");
  if (!player.start()) return 1;
  DemonstrationPlan::choose_stage(desktop.programme().contexte());
  player.begin();
  desktop.play();
  if (!player.trouble().empty()) {
    std::printf("La démonstration s'est arrêtée : %s.\n", player.trouble().c_str());
    return 1;
  }
  std::printf("Partie finie : %d erreurs, score %d.\n", plan.mistakes(), plan.score());
  return album.complete() ? 0 : 1;
}

}  // namespace

int demonstrate(int argc, char **argv, const std::string &folder) {
  const QDir pictures(QDir(to_qt(folder)).absolutePath());
  const Offscreen platform;
  if (!pictures.mkpath(QStringLiteral(".")) || !platform.ready()) {
    std::fprintf(stderr, "Impossible d'écrire dans le dossier %s\n", folder.c_str());
    return 1;
  }
  const QApplication application(argc, argv);
  return play(pictures);
}

}  // namespace ardane
