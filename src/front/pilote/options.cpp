#include "front/pilote/options.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/current_folder.h"
#include "core/paths.h"
#include "front/pilote/numbers.h"
#include "front/pilote/program_folder.h"

namespace ardane {
namespace {

std::vector<std::string_view> découper(std::string_view texte, char séparateur) {
  std::vector<std::string_view> morceaux;
  for (;;) {
    const auto place = texte.find(séparateur);
    morceaux.push_back(texte.substr(0, place));
    if (place == std::string_view::npos) return morceaux;
    texte.remove_prefix(place + 1);
  }
}

/// `nombre` whole numbers between separators; an empty list if the text is not of this form.
template <class T>
std::vector<T> lire_nombres(std::string_view texte, char séparateur, std::size_t nombre) {
  std::vector<T> nombres;
  for (const std::string_view morceau : découper(texte, séparateur)) {
    const auto lu = lire_nombre<T>(morceau);
    if (!lu) return {};
    nombres.push_back(*lu);
  }
  return nombres.size() == nombre ? nombres : std::vector<T>{};
}

Mode_écran lire_mode(std::string_view texte) {
  const auto mesures = lire_nombres<int>(texte, 'x', 3);
  if (mesures.empty() || *std::min_element(mesures.begin(), mesures.end()) <= 0)
    throw OptionRefusée("Un écran s'écrit LARGEURxHAUTEURxBITS, par exemple 1280x1024x32, et non « " +
                        std::string(texte) + " ».");
  return {mesures[0], mesures[1], mesures[2]};
}

void lire_zone(OptionsPilote &options, const std::string &texte) {
  const auto bords = lire_nombres<int>(texte, ',', 4);
  if (bords.empty() || bords[0] >= bords[2] || bords[1] >= bords[3])
    throw OptionRefusée(
        "Une zone de travail s'écrit GAUCHE,HAUT,DROITE,BAS, par exemple 0,0,1280,996, et non « " + texte +
        " ».");
  options.zone = Rect{bords[0], bords[1], bords[2], bords[3]};
}

void lire_modes(OptionsPilote &options, const std::string &texte) {
  options.modes.clear();
  for (const std::string_view mode : découper(texte, ',')) options.modes.push_back(lire_mode(mode));
}

void lire_date(OptionsPilote &options, const std::string &texte) {
  const bool forme = texte.size() == 10 && texte[4] == '-' && texte[7] == '-';
  const auto nombres = forme ? lire_nombres<unsigned>(texte, '-', 3) : std::vector<unsigned>{};
  const auto date = nombres.empty() ? std::chrono::year_month_day{}
                                    : std::chrono::year_month_day{
                                          std::chrono::year(static_cast<int>(nombres[0])),
                                          std::chrono::month(nombres[1]), std::chrono::day(nombres[2])};
  if (!date.ok())
    throw OptionRefusée("Une date s'écrit AAAA-MM-JJ, par exemple 2026-11-21, et non « " + texte + " ».");
  options.date = date;
}

void lire_hasard(OptionsPilote &options, const std::string &texte) {
  options.hasard = lire_nombre<std::uint32_t>(texte);
  if (!options.hasard)
    throw OptionRefusée("Le germe du hasard est un nombre entier de 0 à 4294967295, et non « " + texte +
                        " ».");
}

struct Lecture {
  std::string_view nom;
  void (*lire)(OptionsPilote &, const std::string &);
};

constexpr std::array lectures = std::to_array<Lecture>({
    {"--programme", [](OptionsPilote &o, const std::string &v) { o.programme = v; }},
    {"--dossier", [](OptionsPilote &o, const std::string &v) { o.dossier = v; }},
    {"--registre", [](OptionsPilote &o, const std::string &v) { o.registre = v; }},
    {"--écran", [](OptionsPilote &o, const std::string &v) { o.écran = lire_mode(v); }},
    {"--zone", lire_zone},
    {"--modes", lire_modes},
    {"--date", lire_date},
    {"--hasard", lire_hasard},
    {"--secours", [](OptionsPilote &o, const std::string &v) { o.secours = v; }},
});

}  // namespace

OptionsPilote lire_options(const std::vector<std::string> &arguments) {
  OptionsPilote options;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    const std::string &nom = *argument;
    if (nom == "--version") {
      options.version = true;
      continue;
    }
    const auto lecture =
        std::find_if(lectures.begin(), lectures.end(), [&](const Lecture &l) { return l.nom == nom; });
    if (lecture == lectures.end()) throw OptionRefusée("L'option « " + nom + " » est inconnue.");
    if (++argument == arguments.end() || argument->empty())
      throw OptionRefusée("L'option " + nom + " attend une valeur.");
    lecture->lire(options, *argument);
  }
  return options;
}

void établir_dossiers(OptionsPilote &options, const std::string &argument_zéro) {
  options.programme =
      options.programme.empty() ? dossier_de_l_exécutable(argument_zéro) : chemin_absolu(options.programme);
  if (!options.registre.empty()) options.registre = chemin_absolu(options.registre);
  if (!options.secours.empty()) options.secours = chemin_absolu(options.secours);
  Dossier_courant courant(dossier_du_processus());
  if (!options.dossier.empty() && !courant.changer(options.dossier))
    throw OptionRefusée("Le dossier « " + options.dossier + " » ne peut pas être le dossier courant.");
  options.dossier = courant.chemin();
}

}  // namespace ardane
