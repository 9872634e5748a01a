#include "front/pilote/commands.h"

#include <algorithm>
#include <array>

#include "front/pilote/refusal.h"

namespace ardane {
namespace {

constexpr std::array commandes = std::to_array<Commande>({
    {"démarrer", 0, 0, Moment::sans_boîte, démarrer},
    {"menu", 1, 1, Moment::sans_boîte, choisir_menu},
    {"clic", 1, 1, Moment::sans_boîte, cliquer_contrôle},
    {"double_clic", 1, 1, Moment::sans_boîte, double_cliquer},
    {"clic_carte", 2, 2, Moment::sans_boîte, cliquer_carte},
    {"curseur", 2, 2, Moment::sans_boîte, placer_curseur},
    {"texte", 1, 2, Moment::sans_boîte, écrire_texte},
    {"entrée", 1, 1, Moment::sans_boîte, presser_entrée},
    {"sélection", 2, 2, Moment::sans_boîte, sélectionner},
    {"valeur", 2, 2, Moment::sans_boîte, déplacer_barre},
    {"fermer", 0, 0, Moment::sans_boîte, fermer_fenêtre},
    {"répondre", 1, 1, Moment::boîte, répondre_boîte},
    {"tic", 1, 1, Moment::sans_boîte, battre},
    {"touche", 1, 1, Moment::sans_boîte, presser_touche},
    {"hasard", 0, 1, Moment::sans_boîte, prévoir_tirages},
    {"page", 1, 1, Moment::sans_boîte, prévoir_page},
    {"registre", 1, 1, Moment::sans_boîte, écrire_registre},
    {"fixer", 2, 2, Moment::sans_boîte, fixer_état},
    {"quitter", 0, 0, Moment::toujours, quitter},

    {"état", 0, 0, Moment::toujours, lire_état},
    {"état", 1, 1, Moment::toujours, lire_état_partiel},
    {"contrôle", 1, 1, Moment::toujours, lire_contrôle},
    {"contrôles", 0, 0, Moment::toujours, lire_contrôles},
    {"dessus", 2, 2, Moment::toujours, lire_dessus},
    {"registre", 0, 0, Moment::toujours, lire_registre},
    {"fenêtres", 0, 0, Moment::toujours, lire_fenêtres},
    {"boîte", 0, 0, Moment::toujours, lire_boîte},
});

std::string_view couper_mot(std::string_view &reste) {
  const auto fin = std::min(reste.find(' '), reste.size());
  const std::string_view mot = reste.substr(0, fin);
  reste.remove_prefix(std::min(fin + 1, reste.size()));
  return mot;
}

/// The words of `reste`, at most `maximum`, the last of which takes all that is left.
Arguments séparer(std::string_view reste, std::size_t maximum) {
  Arguments arguments;
  while (!reste.empty() && arguments.size() < maximum)
    arguments.emplace_back(arguments.size() + 1 == maximum ? std::exchange(reste, {}) : couper_mot(reste));
  return arguments;
}

const Commande &chercher_commande(std::string_view nom, std::string_view reste) {
  const Commande *homonyme = nullptr;
  for (const Commande &commande : commandes) {
    if (commande.nom != nom) continue;
    const std::size_t nombre = séparer(reste, std::max<std::size_t>(commande.maximum, 1)).size();
    if (nombre >= commande.minimum && nombre <= commande.maximum) return commande;
    homonyme = &commande;
  }
  if (homonyme == nullptr) throw Refus("La commande « " + std::string(nom) + " » est inconnue");
  throw Refus("La commande " + std::string(nom) +
              (homonyme->maximum == 0 ? " ne prend pas d'argument" : " attend un argument de plus"));
}

}  // namespace

void exécuter_commande(Session &s, std::string_view ligne) {
  std::string_view reste = ligne;
  const std::string_view nom = couper_mot(reste);
  const Commande &commande = chercher_commande(nom, reste);
  const bool boîte = s.monde.boîtes.affichée() != nullptr;
  if (boîte && commande.moment == Moment::sans_boîte) throw Refus("Une boîte attend une réponse");
  if (!boîte && commande.moment == Moment::boîte) throw Refus("Aucune boîte n'attend de réponse");
  Arguments arguments = séparer(reste, commande.maximum);
  arguments.resize(commande.maximum);
  commande.faire(s, arguments);
}

}  // namespace ardane
