#include "support/fake_world.h"

#include <unistd.h>

#include <sstream>

#include "platform/window_layout.h"
#include "play/map_clicks.h"

#ifndef ARDANE_RESOURCES
#error "the build names the folder of the resources"
#endif

namespace ardane {

DossierTemporaire::DossierTemporaire() {
  std::string modèle = texte_du_chemin(std::filesystem::temp_directory_path() / "ardane-XXXXXX");
  if (mkdtemp(modèle.data()) == nullptr) throw std::runtime_error("no temporary folder");
  dossier_ = chemin_natif(modèle);
}

DossierTemporaire::~DossierTemporaire() {
  std::error_code erreur;
  std::filesystem::permissions(dossier_, std::filesystem::perms::owner_all, erreur);
  std::filesystem::remove_all(dossier_, erreur);
}

Réponse Relevé::attendre_réponse(const Boîte &boîte) {
  if (boîtes.pendant) boîtes.pendant(boîte);
  if (boîtes.réponses.empty()) return boîte.boutons == Boutons::ok ? Réponse::ok : Réponse::oui;
  const Réponse réponse = boîtes.réponses.front();
  boîtes.réponses.pop_front();
  return réponse;
}

void Relevé::attendre_fermeture(Fenêtre &fenêtre) {
  if (façade.joueur) façade.joueur(fenêtre);
}

void Relevé::oublier() {
  boîtes.montrées.clear();
  façade.ouvertes.clear();
  son.joués.clear();
  aide.ouvertures.clear();
  pages.clear();
  sabliers.clear();
}

OptionsMonde options_factices() {
  OptionsMonde options;
  options.date = std::chrono::year(2026) / std::chrono::November / 21;
  options.hasard_nul = true;
  return options;
}

MondeFactice::MondeFactice(Lieu_de_secours secours)
    : monde(options_factices(), *this, *this),
      programme(monde.monde(), ressources_du_programme(), dossier.chemin(), std::move(secours)) {
  std::filesystem::copy_file(std::filesystem::path(ARDANE_RESOURCES) / "ardane.pts",
                             chemin_natif(dossier.fichier("ardane.pts")));
}

void MondeFactice::démarrer() {
  if (!programme.Démarrage(dossier.chemin())) throw std::runtime_error("the program ended at its start");
  oublier();
}

void MondeFactice::nouvelle_partie(int niveau, const std::string &nom) {
  static const char *const options[] = {"Niveau_apprentissage", "niveau_facile", "niveau_moyen",
                                        "niveau_difficile", "niveau_expert"};
  const auto joueur = façade.joueur;
  façade.joueur = [&](Fenêtre &f) {
    if (f.nom != "nouvelle_partie") return;
    saisir(contrôle(f, "boîte_nom_joueur"), nom);
    cliquer(f, contrôle(f, options[niveau]));
    cliquer(f, contrôle(f, "bouton_sortie"));
  };
  cliquer(e(), e().menu("fichier_nouveau"));
  façade.joueur = joueur;
}

void MondeFactice::cliquer_carte(int x, int y) {
  écran.placer_curseur(
      {g().Rect_carte.gauche + x - e().barre_h.valeur, g().Rect_carte.haut + y - e().barre_v.valeur});
  Clic_carte(c(), 0);
}

void MondeFactice::répondre_juste() {
  ClicProvince(c(), g().ProvinceCourante);
}

void MondeFactice::répondre_faux() {
  ClicProvince(c(), autre_province());
}

int MondeFactice::autre_province() {
  for (int i = 1; i <= nombre_provinces; ++i)
    if (i != g().ProvinceCourante && !g().TableProvinces(i).trouvée && !g().TableProvinces(i).inhibée)
      return i;
  throw std::runtime_error("no other province is left");
}

std::string lire_fichier(const std::string &chemin) {
  std::ifstream fichier(chemin_natif(chemin), std::ios::binary);
  std::ostringstream contenu;
  contenu << fichier.rdbuf();
  return contenu.str();
}

void écrire_fichier(const std::string &chemin, std::string_view contenu) {
  std::ofstream fichier(chemin_natif(chemin), std::ios::binary);
  fichier.write(contenu.data(), static_cast<std::streamsize>(contenu.size()));
}

}  // namespace ardane
