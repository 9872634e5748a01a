#include "front/pilote/pilot.h"

#include <exception>
#include <string>

#include "core/paths.h"
#include "core/resources.h"
#include "front/pilote/refusal.h"

namespace ardane {

Pilote::Pilote(std::istream &entrée, std::ostream &sortie, const OptionsPilote &options)
    : entrée_(entrée),
      journal_(sortie),
      récit_(journal_),
      monde_(options, récit_, *this),
      programme_(monde_.monde(), ressources_du_programme(), options.dossier, {chemin_natif(options.secours)}),
      session_{journal_, monde_, programme_, ressources_du_programme().images, options.programme} {}

int Pilote::exécuter() {
  try {
    for (;;) {
      pas();
      programme_.tenir_la_partie();
      if (session_.démarrée && !programme_.en_cours()) return finir(0);
      écrire_attente();
    }
  } catch (const Départ &) {
    return 0;
  } catch (const std::exception &erreur) {
    journal_.écrire({{"fatale", erreur.what()}});
    return finir(1);
  }
}

Réponse Pilote::attendre_réponse(const Boîte &) {
  session_.réponse.reset();
  attendre_que([this] { return session_.réponse.has_value(); });
  return *session_.réponse;
}

void Pilote::attendre_fermeture(Fenêtre &fenêtre) {
  attendre_que([&] { return !fenêtre.ouverte; });
}

void Pilote::attendre_que(const std::function<bool()> &fini) {
  while (!fini()) {
    écrire_attente();
    pas();
  }
}

void Pilote::pas() {
  std::string ligne;
  if (!std::getline(entrée_, ligne)) throw Départ{};
  if (ligne.ends_with('\r')) ligne.pop_back();
  try {
    exécuter_commande(session_, ligne);
  } catch (const Refus &refus) {
    journal_.écrire({{"erreur", refus.what()}});
  }
  monde_.façade.suivre();
}

void Pilote::écrire_attente() {
  const Fenêtre *dessus = monde_.façade.dessus();
  const bool boîte = monde_.boîtes.affichée() != nullptr;
  journal_.écrire({{"attend", boîte ? "boîte" : dessus != nullptr ? dessus->nom : "rien"}});
  journal_.vider();
}

int Pilote::finir(int code) {
  journal_.écrire({{"attend", "fin"}, {"code", code}});
  journal_.vider();
  return code;
}

}  // namespace ardane
