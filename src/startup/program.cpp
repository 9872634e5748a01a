#include "startup/program.h"

#include "configuration/configuration_mode.h"
#include "configuration/file_chooser.h"
#include "configuration/folder_chooser.h"
#include "configuration/player_file.h"
#include "core/chooser_modes.h"
#include "core/hit_test_table.h"
#include "core/paths.h"
#include "core/resources.h"
#include "map/layers.h"
#include "map/layout.h"
#include "map/map_reset.h"
#include "map/panel.h"
#include "map/scrolling.h"
#include "persistence/revision_lists.h"
#include "persistence/score_file.h"
#include "play/assistance.h"
#include "play/interrupted_game.h"
#include "play/map_clicks.h"
#include "play/saved_game.h"
#include "play/stage_sequencer.h"
#include "screens/card.h"
#include "screens/card_editor.h"
#include "screens/new_game.h"
#include "screens/palette.h"
#include "screens/statistics.h"
#include "screens/top_ten.h"
#include "screens/welcome.h"
#include "services/system_sounds.h"
#include "services/texts.h"
#include "services/update_list.h"
#include "startup/main_window_start.h"
#include "startup/settings.h"

namespace ardane {
namespace {

template <class F>
std::unique_ptr<Fenêtre> fabriquer(Contexte &c) {
  return std::make_unique<F>(c);
}

/// Notes a modal window as the one in front, as long as it is shown.
class DevantLesAutres {
 public:
  DevantLesAutres(std::vector<Fenêtre *> &pile, Fenêtre &fenêtre) : pile_(pile) { pile_.push_back(&fenêtre); }
  ~DevantLesAutres() { pile_.pop_back(); }
  DevantLesAutres(const DevantLesAutres &) = delete;
  DevantLesAutres &operator=(const DevantLesAutres &) = delete;

 private:
  std::vector<Fenêtre *> &pile_;
};

}  // namespace

Programme::Programme(const Monde &monde, const Ressources &ressources, std::string dossier,
                     Lieu_de_secours secours)
    : ressources_(ressources),
      principale_(ressources.images),
      plateforme_{monde, *this},
      dossier_(std::move(dossier)),
      secours_(std::move(secours)),
      contexte_{état_, principale_, plateforme_, ressources_, dossier_, secours_},
      fabriques_{{"nouvelle_partie", fabriquer<Nouvelle_partie>},
                 {"Affichage_scores", fabriquer<Affichage_scores>},
                 {"Paramétrage_répertoires", fabriquer<Paramétrage_répertoires>},
                 {"Sélection_partie", fabriquer<Sélection_partie>},
                 {"Pompe", fabriquer<Pompe>},
                 {"Edition", fabriquer<Edition>},
                 {"Stats", fabriquer<Stats>},
                 {"Palette", fabriquer<Palette>}} {}

bool Programme::Démarrage(const std::string &répertoire) {
  état_.Scores_non_sauvés = false;
  état_.Fin_de_ligne = "\r\n";
  état_.Répertoire_programme = sans_séparateur_final(répertoire);
  secours_.achever(plateforme_.horloge);
  Lire_mises_à_jour(contexte_);
  Lire_réglages(contexte_);
  état_.SonActif = true;
  if (!Charger_points(contexte_)) return false;
  accueil_ = std::make_unique<Patience>(contexte_);
  plateforme_.façade.montrer(*accueil_);
  plateforme_.façade.repeindre(*accueil_);
  plateforme_.écran.sablier(true);
  Initialiser_écran(contexte_);
  brancher();
  plateforme_.façade.montrer(principale_);
  plateforme_.façade.retirer(*accueil_);
  accueil_.reset();
  plateforme_.écran.sablier(false);
  Proposer_reprise(contexte_);
  return true;
}

void Programme::ouvrir(const std::string &fichier) {
  if (en_cours()) Ouvrir_fichier(contexte_, fichier);
}

void Programme::tenir_la_partie() {
  if (en_cours()) Tenir_partie(contexte_);
}

void Programme::interrompre() {
  secours_.attendre();
  Rendre_sons_système(contexte_);
}

std::vector<std::string_view> Programme::fenêtres() const {
  std::vector<std::string_view> noms;
  for (const auto &[nom, fabrique] : fabriques_) noms.push_back(nom);
  return noms;
}

void Programme::ouvrir_modale(std::string_view nom) {
  const auto fabrique = fabriques_.find(nom);
  if (fabrique == fabriques_.end()) throw ErreurFatale("Fenêtre inconnue : " + std::string(nom), Lieu::ici());
  const std::unique_ptr<Fenêtre> fenêtre = fabrique->second(contexte_);
  const DevantLesAutres devant(modales_, *fenêtre);
  plateforme_.façade.montrer_modale(*fenêtre);
}

void Programme::battre() {
  déclencher(principale_.tic);
  if (!modales_.empty()) déclencher(modales_.back()->tic);
}

void Programme::écran_changé() {
  const Ecran &écran = plateforme_.écran;
  if (écran.largeur() == état_.Largeur_écran && écran.hauteur() == état_.Hauteur_écran) return;
  Redisposer(contexte_);
}

void Programme::aide(const Fenêtre &fenêtre) {
  Ouvrir_aide(contexte_, fenêtre.contexte_aide);
}

/// Unload event of the main window: a refusal leaves the game as it was.
void Programme::décharger() {
  if (!ConfirmerAbandon(contexte_)) return;
  secours_.oublier();
  Rendre_sons_système(contexte_);
  principale_.fermer();
  plateforme_.façade.retirer(principale_);
}

void Programme::brancher() {
  Contexte &c = contexte_;
  Ecran_principal &e = principale_;
  const auto entrée = [&](std::string_view nom, auto action) {
    e.menu(nom).clic = [&c, action] { action(c); };
  };
  entrée("fichier_nouveau", NouvellePartie);
  entrée("Fichier_enregistrer", Demander_enregistrement);
  entrée("Fichier_lire", Demander_reprise);
  entrée("Menu_affiche_paramètres", AfficherParamétrage);
  entrée("Menu_défaut", Utiliser_défaut);
  entrée("menu_recharger", Recharger);
  entrée("menu_définir", DéfinirParamétrage);
  entrée("score_en_cours", [](Contexte &k) { AfficherScores(k, k.état.Niveau); });
  entrée("score_facile", [](Contexte &k) { AfficherScores(k, niveau_facile); });
  entrée("score_moyen", [](Contexte &k) { AfficherScores(k, niveau_moyen); });
  entrée("score_difficile", [](Contexte &k) { AfficherScores(k, niveau_difficile); });
  entrée("score_expert", [](Contexte &k) { AfficherScores(k, niveau_expert); });
  entrée("menu_Scoresraz", Remise_à_zéro);
  entrée("Menu_liste", Ecrire_liste_des_provinces);
  entrée("Menu_liste_souspréf", Ecrire_liste_des_villes);
  entrée("Menu_révision", Révision);
  entrée("MenuCouleurPréfectures", [](Contexte &k) { Choisir_couleur(k, repères_des_capitales); });
  entrée("MenuCouleurSousPréfectures", [](Contexte &k) { Choisir_couleur(k, repères_des_autres_villes); });
  entrée("MenuFicheur", Editer_fiches);
  entrée("MenuSon", Basculer_son);
  entrée("Menu_langue", Changer_langue);
  entrée("Menu_aide", Aide_du_menu);
  entrée("Menu_à_propos", A_propos);
  entrée("FichierVersion", Chercher_mises_à_jour);
  entrée("menu_inf", [](Contexte &k) { Faire_choisir_dossier(k, choix_dossier_information); });
  e.menu("fichier_quitter").clic = [this] { décharger(); };

  e.demande_de_fermeture = [this] { décharger(); };
  e.déplacement = [&c] { Lire_rectangle_carte(c); };
  e.tic = [&c] { Clignotant(c); };
  e.barre_h.changement = [&c] { Défiler_horizontal(c); };
  e.barre_v.changement = [&c] { Défiler_vertical(c); };
  e.Bouton_gruge.clic = [&c] { AideClignotante(c); };
  e.BoutonPasse.clic = [&c] { JePasse(c); };
  for (int i = 1; i <= 16; ++i) e.Bouton(i).clic = [&c, i] { Clic_bouton(c, i); };
  const auto mener_à = [&e](Contrôle &boîte) {
    return [&e, &boîte] {
      if (est_utilisable(boîte)) cliquer(e, boîte);
    };
  };
  e.LBL_param(10).clic = mener_à(e.BTN_Sauvegarde);
  e.LBL_param(11).clic = mener_à(e.BTN_Démarrage);
  e.BTN(1).clic = [&c] { Valider_paramétrage(c); };
  e.BTN(2).clic = [&c] { FinParamétrage(c); };

  e.image_région.clic = [&c] { Clic_carte(c, 0); };
  for (int i = 1; i <= nombre_provinces; ++i)
    e.Pays(i).clic = e.Inv(i).clic = [&c, i] { Clic_carte(c, c.état.TableProvinces(i).encart); };
  for (int i = 1; i <= nombre_villes; ++i) {
    e.rond(i).clic = [&c, i] { ClicProvince(c, i); };
    repère(e, i).clic = [&c, i] { Clic_repère(c, i); };
  }
}

}  // namespace ardane
