// The program `ardane`.
#include <QApplication>
#include <cstdio>

#include "core/current_folder.h"
#include "core/resources.h"
#include "front/qt/appearance.h"
#include "front/qt/demonstration/demonstration.h"
#include "front/qt/desktop.h"
#include "front/qt/options.h"
#include "front/qt/ready_report.h"

namespace ardane {
namespace {

int play(int argc, char **argv, const DesktopOptions &options) {
  QApplication application(argc, argv);
  Desktop desktop(
      {options.programme ? chemin_absolu(*options.programme)
                         : to_utf8(QCoreApplication::applicationDirPath()),
       options.registre ? std::filesystem::path(*options.registre) : fichier_registre_par_défaut(),
       dossier_du_processus(), options.sans_cadre},
      ressources_du_programme());
  if (!desktop.start()) return 0;  // by design, not by an error: the player has been told why
  if (options.prêt_et_quitter) {
    await_first_paint(*desktop.renderer().frame(desktop.programme().principale()));
    report("prêt");
    desktop.load_all_pictures();
    report("chargé");
    return 0;
  }
  desktop.play();
  return 0;
}

}  // namespace
}  // namespace ardane

int main(int argc, char **argv) {
  const ardane::DesktopOptions options = ardane::read_options(argc, argv);
  if (!options.erreur.empty()) {
    std::fprintf(stderr, "%s\n%s", options.erreur.c_str(), ardane::help_text().c_str());
    return 2;
  }
  if (options.aide || options.version) {
    const std::string text =
        options.aide ? ardane::help_text() : ardane::version_text(ardane::ressources_du_programme());
    std::printf("%s", text.c_str());
    return 0;
  }
  if (options.démonstration) return ardane::demonstrate(argc, argv, *options.démonstration);
  return ardane::play(argc, argv, options);
}
