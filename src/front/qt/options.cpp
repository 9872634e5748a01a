#include "front/qt/options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "configuration/player_file.h"
#include "core/current_folder.h"
#include "core/paths.h"
#include "persistence/registry.h"
#include "platform/player_folders.h"

namespace ardane {
namespace {

using namespace std::literals;

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
    {"--secours", &DesktopOptions::secours},
    {"--version", &DesktopOptions::version},
});

/// What QApplication and its platforms take off the command line, with one dash or two.
constexpr std::array toolkit_valued = std::to_array<std::string_view>({
    "display",
    "geometry",
    "icon",
    "name",
    "platform",
    "platformpluginpath",
    "platformtheme",
    "plugin",
    "qwindowgeometry",
    "qwindowicon",
    "qwindowtitle",
    "session",
    "style",
    "stylesheet",
    "title",
});

constexpr std::array toolkit_alone = std::to_array<std::string_view>({
    "dograb",
    "nograb",
    "reverse",
    "sync",
    "widgetcount",
});

/// How many words of the command line the toolkit's option takes that begins with the first of them; 0 for
/// none of its options.
int taken_by_toolkit(std::string_view word, bool is_last) {
  if (!word.starts_with('-')) return 0;
  word.remove_prefix(word.starts_with("--") ? 2 : 1);
  if (std::ranges::find(toolkit_alone, word) != toolkit_alone.end()) return 1;
  if (word.starts_with("style=") || word.starts_with("stylesheet=") || word.starts_with("qmljsdebugger="))
    return 1;
  const bool is_known = std::ranges::find(toolkit_valued, word) != toolkit_valued.end();
  return is_known && !is_last ? 2 : 0;
}

/// Nothing for a word that is no whole number above 0.
std::optional<int> read_number(std::string_view word) {
  int number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  const bool whole = error == std::errc() && end == word.data() + word.size() && number > 0;
  return whole ? std::optional(number) : std::nullopt;
}

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
    else if (const auto number = read_number(word); number && i > 1 && argv[i - 1] == "--secours"sv)
      options.numéro = number;
    else if (const int taken = taken_by_toolkit(word, i + 1 == argc); taken > 0)
      i += taken - 1;
    else if (!word.starts_with('-') && !options.fichier && est_nom_de_fichier_du_jeu(word))
      options.fichier = word;
    else
      options.erreur = "Option inconnue ou incomplète : " + std::string(word);
  }
  return options;
}

std::string first_folder() {
  const std::filesystem::path documents = dossier_des_documents();
  return documents.empty() ? dossier_du_processus() : texte_du_chemin(documents);
}

std::string help_text() {
  return "Usage : ardane [options] [FICHIER]\n"
         "  FICHIER                  une partie à reprendre (.CAI) ou un paramétrage à utiliser (.SCI)\n"
         "  --demonstration DOSSIER  joue toute seule une partie, sans écran, et range ses images dans le "
         "dossier\n"
         "  --programme DOSSIER      le dossier du jeu, au lieu de celui de l'exécutable\n"
         "  --registre FICHIER       le fichier des réglages, au lieu de celui du joueur\n"
         "  --sans-cadre             une fenêtre sans cadre en haut de l'écran, à l'échelle 1\n"
         "  --secours [NUMÉRO]       montre ce que les fichiers de scores contenaient avant d'être récrits "
         "ou "
         "effacés, ou rend à son fichier le contenu de ce numéro\n"
         "  --version                la version du programme et l'édition du jeu\n"
         "  --help                   ce texte\n"
         "Les options habituelles de Qt (-style, -platform, ...) sont admises.\n";
}

std::string files_text(const RegistreGardé &settings, const std::filesystem::path &lifeline) {
  const std::string folder = settings.lire(clé_du_jeu, réglage_répertoire).value_or(std::string());
  std::string text = "Vos fichiers :\n  scores, parties          " +
                     (folder.empty() ? "dans le dossier choisi au premier démarrage" : folder) +
                     "\n  réglages                 " + settings.lieu() + "\n";
  if (!lifeline.empty()) text += "  ce que --secours montre  " + texte_du_chemin(lifeline) + "\n";
  return text;
}

}  // namespace ardane
