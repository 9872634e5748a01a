// What happens around the program: time, chance, the web, the settings, and variables set from outside.
#include <cmath>
#include <deque>
#include <fstream>
#include <iterator>

#include "core/paths.h"
#include "front/pilote/commands.h"
#include "front/pilote/json_state.h"
#include "front/pilote/numbers.h"
#include "front/pilote/refusal.h"
#include "persistence/folders.h"
#include "platform/text.h"

namespace ardane {
namespace {

constexpr int battements_au_plus = 100'000;  // half a day of the game's time
constexpr int profondeur_au_plus = 20;       // deeper than any variable

/// A draw in [0, 1); one so near to 1 that a float rounds it up becomes the float below.
float lire_tirage(std::string_view texte) {
  const auto réel = lire_nombre<double>(texte);
  if (!réel || !(*réel >= 0 && *réel < 1))
    throw Refus("« " + std::string(texte) + " » n'est pas un nombre de l'intervalle [0, 1[");
  return std::min(static_cast<float>(*réel), std::nextafter(1.0F, 0.0F));
}

std::string lire_octets(const Session &s, const std::string &nom) {
  const std::string chemin = s.programme.contexte().dossier.complet(nom);
  // Opening a pipe could wait for ever, and a device has no end.
  std::ifstream fichier;
  if (est_fichier_ordinaire(chemin)) fichier.open(chemin_natif(chemin), std::ios::binary);
  if (!fichier.is_open()) throw Refus("Le fichier « " + nom + " » ne peut pas être lu");
  return {std::istreambuf_iterator<char>(fichier), {}};
}

/// A value nested deeper than any variable is refused: others who walk it would run out of stack.
Json lire_json(const std::string &texte) {
  const auto pas_trop_profond = [](int profondeur, Json::parse_event_t, const Json &) {
    if (profondeur > profondeur_au_plus) throw Refus("La valeur JSON est trop profonde");
    return true;
  };
  Json valeur = Json::parse(texte, pas_trop_profond, false);
  if (valeur.is_discarded()) throw Refus("« " + texte + " » n'est pas une valeur JSON");
  return valeur;
}

std::string_view sans_blancs_à_gauche(std::string_view texte) {
  texte.remove_prefix(std::min(texte.find_first_not_of(' '), texte.size()));
  return texte;
}

std::string_view sans_blancs_à_droite(std::string_view texte) {
  return texte.substr(0, texte.find_last_not_of(' ') + 1);
}

}  // namespace

void battre(Session &s, const Arguments &a) {
  const auto nombre = lire_nombre<int>(a[0]);
  if (!nombre || *nombre < 0 || *nombre > battements_au_plus)
    throw Refus("« " + a[0] + " » n'est pas un nombre de battements");
  if (!s.programme.en_cours()) throw Refus("Le programme n'est pas démarré");
  for (int i = 0; i < *nombre; ++i) s.programme.battre();
}

void prévoir_tirages(Session &s, const Arguments &a) {
  std::vector<float> tirages;
  std::string_view reste = a[0];
  while (!reste.empty()) tirages.push_back(lire_tirage(couper(reste, ' ')));
  std::deque<float> &suite = s.monde.hasard.suite;
  if (tirages.empty()) suite.clear();
  suite.insert(suite.end(), tirages.begin(), tirages.end());
}

void prévoir_page(Session &s, const Arguments &a) {
  if (a[0] == "!")
    s.monde.web.prévoir(std::nullopt);
  else
    s.monde.web.prévoir(lire_octets(s, a[0]));
}

void écrire_registre(Session &s, const Arguments &a) {
  const std::string_view ligne = a[0];
  const auto première = ligne.find('|');
  const auto seconde = première == std::string_view::npos ? première : ligne.find('|', première + 1);
  if (seconde == std::string_view::npos) throw Refus("Une valeur du registre s'écrit CLÉ | NOM | TEXTE");
  const auto clé = sans_blancs_à_droite(ligne.substr(0, première));
  const auto milieu = ligne.substr(première + 1, seconde - première - 1);
  const auto nom = sans_blancs_à_gauche(sans_blancs_à_droite(milieu));
  const auto texte = sans_blancs_à_gauche(ligne.substr(seconde + 1));
  Registre &registre = *s.monde.registre;
  if (clé.empty() || !registre.créer(clé) || !registre.écrire(clé, nom, texte))
    throw Refus("Le registre ne peut pas garder cette valeur");
}

void fixer_état(Session &s, const Arguments &a) {
  const Json valeur = lire_json(a[1]);
  GameState &g = s.programme.état();
  fixer_variable(g, a[0], valeur);
  g.VillesParProvince.relever(g.TableVilles);  // a list of the towns, which may have changed their provinces
}

void quitter(Session &, const Arguments &) {
  throw Départ{};
}

}  // namespace ardane
