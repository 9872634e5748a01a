// The names of the program-wide variables beside the variables, as one table that programs can walk: reports
// print them and scripts set them by name.
#pragma once

#include "core/game_state.h"

namespace ardane {

// Each calls `champ(name, variable)` for every field, in the order of the record.

template <class R, class F>
requires std::is_same_v<std::remove_const_t<R>, Rect>
void décrire(R &r, F &&champ) {
  champ("left", r.gauche), champ("top", r.haut), champ("right", r.droite), champ("bottom", r.bas);
}

template <class R, class F>
requires std::is_same_v<std::remove_const_t<R>, Segment_carte>
void décrire(R &r, F &&champ) {
  champ("carte", r.carte), champ("abscisse", r.abscisse), champ("code", r.code);
}

template <class R, class F>
requires std::is_same_v<std::remove_const_t<R>, Meilleur_score>
void décrire(R &r, F &&champ) {
  champ("nom", r.nom), champ("score", r.score);
}

template <class R, class F>
requires std::is_same_v<std::remove_const_t<R>, Fiche_mode>
void décrire(R &r, F &&champ) {
  champ("largeur", r.largeur), champ("hauteur", r.hauteur), champ("couleurs", r.couleurs);
}

template <class R, class F>
requires std::is_same_v<std::remove_const_t<R>, Fiche_jeu>
void décrire(R &r, F &&champ) {
  champ("clé", r.clé), champ("libellé", r.libellé), champ("version_locale", r.version_locale),
      champ("date_locale", r.date_locale), champ("version_site", r.version_site),
      champ("date_site", r.date_site);
}

template <class R, class F>
requires std::is_same_v<std::remove_const_t<R>, Fiche_province>
void décrire(R &r, F &&champ) {
  champ("haut", r.haut), champ("gauche", r.gauche), champ("trouvée", r.trouvée),
      champ("villes_restantes", r.villes_restantes), champ("région", r.région), champ("encart", r.encart),
      champ("nom", r.nom), champ("inhibée", r.inhibée), champ("points_perdus", r.points_perdus),
      champ("trouvée_étape", r.trouvée_étape);
}

template <class R, class F>
requires std::is_same_v<std::remove_const_t<R>, Fiche_région>
void décrire(R &r, F &&champ) {
  champ("nom", r.nom), champ("nombre_provinces", r.nombre_provinces),
      champ("provinces_restantes", r.provinces_restantes), champ("trouvée", r.trouvée),
      champ("membres", r.membres), champ("gauche", r.gauche), champ("haut", r.haut),
      champ("encart", r.encart), champ("points_perdus", r.points_perdus),
      champ("trouvée_étape", r.trouvée_étape), champ("inhibée", r.inhibée);
}

template <class R, class F>
requires std::is_same_v<std::remove_const_t<R>, Fiche_ville>
void décrire(R &r, F &&champ) {
  champ("nom", r.nom), champ("capitale", r.capitale), champ("province", r.province),
      champ("trouvée", r.trouvée), champ("trouvée_étape", r.trouvée_étape), champ("x", r.x), champ("y", r.y),
      champ("points_perdus", r.points_perdus);
}

template <class G, class F>
requires std::is_same_v<std::remove_const_t<G>, GameState>
void décrire(G &g, F &&champ) {
  champ("Répertoire_programme", g.Répertoire_programme);
  champ("Répertoire_sauvegarde", g.Répertoire_sauvegarde);
  champ("Répertoire_info", g.Répertoire_info);
  champ("Fichier_lancement", g.Fichier_lancement);
  champ("Chemin_points", g.Chemin_points);
  champ("Fin_de_ligne", g.Fin_de_ligne);
  champ("Version_programme", g.Version_programme);
  champ("SonErreur", g.SonErreur);
  champ("SonJuste", g.SonJuste);
  champ("SonGagné", g.SonGagné);
  champ("SonPerdu", g.SonPerdu);
  champ("SonSélection", g.SonSélection);
  champ("SonFiche", g.SonFiche);
  champ("Langue", g.Langue);
  champ("Nombre_langues", g.Nombre_langues);
  champ("Nombre_messages", g.Nombre_messages);
  champ("Messages", g.Messages);
  champ("Fichiers_aide", g.Fichiers_aide);
  champ("Fichiers_info_noms", g.Fichiers_info_noms);
  champ("Fichiers_info", g.Fichiers_info);
  champ("Largeur_écran", g.Largeur_écran);
  champ("Hauteur_écran", g.Hauteur_écran);
  champ("Couleurs_écran", g.Couleurs_écran);
  champ("Bas_zone_travail", g.Bas_zone_travail);
  champ("Rect_carte", g.Rect_carte);
  champ("Largeur_fenêtre", g.Largeur_fenêtre);
  champ("Hauteur_fenêtre", g.Hauteur_fenêtre);
  champ("Carte_pleine_largeur", g.Carte_pleine_largeur);
  champ("Hauteur_image_cible", g.Hauteur_image_cible);
  champ("Largeur_image_cible", g.Largeur_image_cible);
  champ("Modes_écran", g.Modes_écran);
  champ("Nombre_modes", g.Nombre_modes);
  champ("TableProvinces", g.TableProvinces);
  champ("TableRégions", g.TableRégions);
  champ("TableVilles", g.TableVilles);
  champ("Points_lignes", g.Points_lignes);
  champ("Points_segments", g.Points_segments);
  champ("Etape", g.Etape);
  champ("Niveau", g.Niveau);
  champ("Ordre_jeux", g.Ordre_jeux);
  champ("Score", g.Score);
  champ("Nom_joueur", g.Nom_joueur);
  champ("ProvinceCourante", g.ProvinceCourante);
  champ("VilleCourante", g.VilleCourante);
  champ("RégionCourante", g.RégionCourante);
  champ("ProvincesRestantes", g.ProvincesRestantes);
  champ("VillesRestantes", g.VillesRestantes);
  champ("RégionsRestantes", g.RégionsRestantes);
  champ("ProvincesEnJeu", g.ProvincesEnJeu);
  champ("VillesEnJeu", g.VillesEnJeu);
  champ("RégionsEnJeu", g.RégionsEnJeu);
  champ("ResteRégion", g.ResteRégion);
  champ("TailleRégion", g.TailleRégion);
  champ("SélectionRégion", g.SélectionRégion);
  champ("NbErreurs", g.NbErreurs);
  champ("AssistanceActive", g.AssistanceActive);
  champ("ProvinceClignotante", g.ProvinceClignotante);
  champ("TableClignotement", g.TableClignotement);
  champ("PhaseClignotement", g.PhaseClignotement);
  champ("ProvinceFiche", g.ProvinceFiche);
  champ("PartieVierge", g.PartieVierge);
  champ("PartieClose", g.PartieClose);
  champ("ConseilFicheVu", g.ConseilFicheVu);
  champ("ModeApprentissage", g.ModeApprentissage);
  champ("ScoreNonRetenu", g.ScoreNonRetenu);
  champ("Meilleurs_scores", g.Meilleurs_scores);
  champ("Nombre_scores", g.Nombre_scores);
  champ("Niveau_affiché", g.Niveau_affiché);
  champ("AprèsPartie", g.AprèsPartie);
  champ("Scores_non_sauvés", g.Scores_non_sauvés);
  champ("OrdreTableau", g.OrdreTableau);
  champ("Mode_sélection", g.Mode_sélection);
  champ("Type_fichier", g.Type_fichier);
  champ("Ordre_initial", g.Ordre_initial);
  champ("Boutons_actifs", g.Boutons_actifs);
  champ("Paramétrage_permanent", g.Paramétrage_permanent);
  champ("Paramétrage_par_défaut", g.Paramétrage_par_défaut);
  champ("Démarrage_demandé", g.Démarrage_demandé);
  champ("Configuration_acceptée", g.Configuration_acceptée);
  champ("Palette_cible", g.Palette_cible);
  champ("TableJeux", g.TableJeux);
  champ("NombreJeux", g.NombreJeux);
  champ("SonActif", g.SonActif);
  champ("Son_système_exclamation", g.Son_système_exclamation);
  champ("Son_système_astérisque", g.Son_système_astérisque);
  champ("Son_système_main", g.Son_système_main);
  champ("Son_système_question", g.Son_système_question);
}

}  // namespace ardane
