#include "front/qt/options.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace ardane {
namespace {

struct Folder_option {
  std::string_view name;
  std::optional<std::string> DesktopOptions::*value;
};

struct Switch {
  std::string_view name;
  bool DesktopOptions::*value;
};

constexpr std::array valued = std::to_array<Folder_option>({
    {"--demonstration", &DesktopOptions::démonstration},
    {"--programme", &DesktopOptions::programme},
    {"--registre", &DesktopOptions::registre},
});

constexpr std::array switches = std::to_array<Switch>({
    {"--help", &DesktopOptions::aide},
    {"--pret-et-quitter", &DesktopOptions::prêt_et_quitter},
    {"--sans-cadre", &DesktopOptions::sans_cadre},
});

}  // namespace

DesktopOptions read_options(int argc, const char *const *argv) {
  DesktopOptions options;
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    const auto with_value = std::ranges::find(valued, word, &Folder_option::name);
    const auto alone = std::ranges::find(switches, word, &Switch::name);
    if (with_value != valued.end() && i + 1 < argc)
      options.*with_value->value = argv[++i];
    else if (alone != switches.end())
      options.*alone->value = true;
    else
      options.erreur = "Option inconnue ou incomplète : " + std::string(word);
  }
  return options;
}

std::string help_text() {
  return "Usage : ardane [options]\n"
         "  --demonstration DOSSIER  joue toute seule une partie, sans écran, et range ses images dans le "
         "dossier\n"
         "  --programme DOSSIER      le dossier du jeu, au lieu de celui de l'exécutable\n"
         "  --registre FICHIER       le fichier des réglages, au lieu de celui du joueur\n"
         "  --sans-cadre             une fenêtre sans cadre en haut de l'écran, à l'échelle 1\n"
         "  --help                   ce texte\n";
}

}  // namespace ardane
