// The program `ardane`.
#include <QApplication>
#include <cstdio>
#include <string>
#include <vector>

#include "core/paths.h"
#include "core/resources.h"
#include "front/qt/appearance.h"
#include "front/qt/demonstration/demonstration.h"
#include "front/qt/desktop.h"
#include "front/qt/end_signals.h"
#include "front/qt/one_instance.h"
#include "front/qt/options.h"
#include "front/qt/ready_report.h"
#include "front/qt/rescue.h"
#include "platform/process_start.h"

namespace ardane {
namespace {

std::filesystem::path settings_of(const DesktopOptions &options) {
  return options.registre ? chemin_natif(*options.registre) : fichier_registre_par_défaut();
}

std::unique_ptr<RegistreGardé> store_of(const DesktopOptions &options) {
  return ouvrir_registre(settings_of(options), options.registre.has_value());
}

/// For the runs over a player's own settings, or over those of the file that he names.
std::filesystem::path lifeline_of(const DesktopOptions &options) {
  return dossier_de_secours(options.registre ? chemin_natif(chemin_absolu(*options.registre))
                                             : std::filesystem::path());
}

int rescue(const DesktopOptions &options) {
  // A game that is open would write its scores over those given back.
  if (options.numéro && OneInstance(settings_of(options)).place() == OneInstance::Place::second) {
    std::puts("Le jeu est ouvert : fermez-le d'abord.");
    return 1;
  }
  const Rescue done = options.numéro ? give_scores_back(lifeline_of(options), *options.numéro)
                                     : list_earlier_scores(lifeline_of(options));
  std::printf("%s", done.text.c_str());
  return done.code;
}

int play(int argc, char **argv, const DesktopOptions &options) {
  const std::filesystem::path settings = settings_of(options);
  OneInstance instance(settings);
  if (instance.place() == OneInstance::Place::second) {
    std::puts("Le jeu est déjà ouvert : sa fenêtre passe devant les autres.");
    if (options.fichier) std::puts("Ouvrez-y ce fichier par ses menus.");
    return 0;
  }
  const bool alone = instance.place() == OneInstance::Place::first;
  QApplication application(argc, argv);
  Desktop desktop(
      {options.programme ? chemin_absolu(*options.programme)
                         : texte_du_chemin(chemin_natif(to_utf8(QCoreApplication::applicationDirPath()))),
       settings, first_folder(), options.sans_cadre, !alone,
       alone ? lifeline_of(options) : std::filesystem::path(),
       options.fichier ? chemin_absolu(*options.fichier) : std::string(), options.registre.has_value()},
      ressources_du_programme());
  desktop.heed(instance);
  const EndSignals signals([&] { desktop.end_unasked(); });
  if (!desktop.start()) return 0;  // by design, not by an error: the player has been told why
  if (options.prêt_et_quitter) {
    const QWidget &window = *desktop.renderer().frame(desktop.programme().principale());
    await_first_paint(window);
    report("prêt");
    report_size(window);
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
  ardane::ouvrir_les_flux_du_bureau();
  const std::vector<std::string> arguments = ardane::arguments_du_programme(argc, argv);
  std::vector<const char *> words = {argv[0]};
  for (const std::string &argument : arguments) words.push_back(argument.c_str());
  const ardane::DesktopOptions options = ardane::read_options(static_cast<int>(words.size()), words.data());
  if (!options.erreur.empty()) {
    std::fprintf(stderr, "%s\n%s", options.erreur.c_str(), ardane::help_text().c_str());
    return 2;
  }
  if (options.aide || options.version) {
    const std::string text = options.aide
                                 ? ardane::help_text() + ardane::files_text(*ardane::store_of(options),
                                                                            ardane::lifeline_of(options))
                                 : ardane::Présenter_version("ardane");
    std::printf("%s", text.c_str());
    return 0;
  }
  if (options.secours) return ardane::rescue(options);
  if (options.démonstration) return ardane::demonstrate(argc, argv, *options.démonstration);
  return ardane::play(argc, argv, options);
}
