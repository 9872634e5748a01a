#include "map/main_window.h"

#include <algorithm>
#include <array>

#include "platform/window_layout.h"

namespace ardane {
namespace {

constexpr Couleur jaune{255, 255, 0};
constexpr Police titre_panneau{Famille_police::times, 12, true};
constexpr Police chiffre{Famille_police::times, 18, true};
constexpr Police titre_grille{Famille_police::sans_serif, 9.75, true};

// Designed places, in pixels; the layout moves the panel and the grid from here. In the order of the Tab key
// the sixteen boxes of the grid come after BoutonPasse. The height of `barre_h` and the width of `barre_v`
// are the standard ones of the bars.
constexpr std::array places = std::to_array<Place>({
    {"Carte", Genre::vue, 10, 5, 606, 662},
    {"barre_h", Genre::barre, 22, 0, 707, 15, 22},
    {"barre_v", Genre::barre, 0, 99, 14, 536, 23},
    {"que_faire", Genre::étiquette, 384, 25, 200, 26},
    {"Elément_recherché", Genre::boîte_image, 504, 64, 200, 188},
    {"Image_recherchée", Genre::image, 48, 45, 116, 95},
    {"Texte_à_chercher", Genre::étiquette, 496, 336, 200, 56},
    {"Boîte_score", Genre::cadre, 32, 80, 188, 57},
    {"Digit(0)", Genre::texte, 34, 94, 24, 34},
    {"Digit(1)", Genre::texte, 178, 94, 24, 34},
    {"Digit(2)", Genre::texte, 154, 94, 24, 34},
    {"Digit(3)", Genre::texte, 130, 94, 24, 34},
    {"Digit(4)", Genre::texte, 106, 94, 24, 34},
    {"Digit(5)", Genre::texte, 82, 94, 24, 34},
    {"Digit(6)", Genre::texte, 58, 94, 24, 34},
    {"Boîte_restants", Genre::cadre, 31, 144, 103.2, 57},
    {"Reste(1)", Genre::texte, 85, 158, 24, 34},
    {"Reste(2)", Genre::texte, 61, 158, 24, 34},
    {"Reste(3)", Genre::texte, 37, 158, 24, 34},
    {"BoîteProvinces", Genre::cadre, 136, 144, 79.2, 57},
    {"NombreProvinces", Genre::texte, 142.4, 158.4, 24, 34},
    {"EtiquetteProvinces", Genre::étiquette, 32, 16, 40.8, 32.8},
    {"Bouton_gruge", Genre::bouton, 496, 16, 50, 50, 0},
    {"BoutonPasse", Genre::bouton, 0, 0, 60, 57, 1},
    {"LBL_param(1)", Genre::étiquette, 720, 80, 216, 33},
    {"LBL_param(2)", Genre::étiquette, 720, 120, 216, 89},
    {"LBL_param(3)", Genre::étiquette, 720, 216, 216, 41},
    {"LBL_param(4)", Genre::étiquette, 720, 288, 89, 17},
    {"LBL_param(5)", Genre::étiquette, 720, 336, 89, 17},
    {"LBL_param(6)", Genre::étiquette, 720, 360, 89, 17},
    {"LBL_param(7)", Genre::étiquette, 824, 264, 17, 17},
    {"LBL_param(8)", Genre::étiquette, 848, 264, 17, 17},
    {"LBL_param(9)", Genre::étiquette, 880, 264, 17, 17},
    {"LBL_param(10)", Genre::étiquette, 744, 456, 193, 41},
    {"LBL_param(11)", Genre::étiquette, 744, 504, 193, 33},
    {"LBL_param(12)", Genre::étiquette, 720, 312, 89, 17},
    {"LBL_param(13)", Genre::étiquette, 912, 264, 17, 17},
    {"BTN_Sauvegarde", Genre::case_à_cocher, 720, 456, 17, 17, 18},
    {"BTN_Démarrage", Genre::case_à_cocher, 720, 504, 17, 17, 19},
    {"BTN(1)", Genre::bouton, 760, 544, 66, 31, 20},
    {"BTN(2)", Genre::bouton, 840, 544, 66, 31, 21},
});

struct Entrée_menu {
  std::string_view nom;
  std::string_view parent;
  char32_t mnémonique;
  std::string_view raccourci = {};
  std::string_view texte = {};
};

// The menu bar, each top-level entry followed by its items; the letters of one menu differ. F1 is every
// window's own key, and `Menu_aide` tells it. `MenuFicheur` alone has its caption here: no message of the
// table bears it.
constexpr std::array barre_de_menus = std::to_array<Entrée_menu>({
    {"menu_fichier", "", U'F'},
    {"fichier_nouveau", "menu_fichier", U'N', "Ctrl+N"},
    {"Fichier_enregistrer", "menu_fichier", U'E', "Ctrl+S"},
    {"Fichier_lire", "menu_fichier", U'R', "Ctrl+O"},
    {"FichierVersion", "menu_fichier", U'V'},
    {"fichier_quitter", "menu_fichier", U'Q', "Ctrl+Q"},
    {"menu_paramétrer", "", U'P'},
    {"Menu_affiche_paramètres", "menu_paramétrer", U'A'},
    {"Menu_défaut", "menu_paramétrer", U'U'},
    {"menu_recharger", "menu_paramétrer", U'R'},
    {"menu_définir", "menu_paramétrer", U'J'},
    {"MenuSon", "menu_paramétrer", U'S'},
    {"MenuCouleurPréfectures", "menu_paramétrer", U'C'},
    {"MenuCouleurSousPréfectures", "menu_paramétrer", U'V'},
    {"menu_inf", "menu_paramétrer", U'D'},
    {"MenuFicheur", "menu_paramétrer", U'E', "", "Editer les fiches d'information"},
    {"menu_scores", "", U'S'},
    {"score_en_cours", "menu_scores", U'C'},
    {"score_facile", "menu_scores", U'F'},
    {"score_moyen", "menu_scores", U'M'},
    {"score_difficile", "menu_scores", U'D'},
    {"score_expert", "menu_scores", U'X'},
    {"menu_Scoresraz", "menu_scores", U'R'},
    {"Menu_réviser", "", U'R'},
    {"Menu_liste", "Menu_réviser", U'P'},
    {"Menu_liste_souspréf", "Menu_réviser", U'V'},
    {"Menu_révision", "Menu_réviser", U'R'},
    {"Menu_langue", "", U'L'},
    {"Menu_aide", "", U'A', "F1"},
    {"Menu_à_propos", "", U'O'},
});

template <class Images>
void prendre(Images &images, const CatalogueImages &catalogue, std::string_view famille) {
  for (int i = Images::premier; i <= Images::dernier; ++i) images(i) = catalogue.chercher(famille, i);
}

void habiller_chiffre(Contrôle &texte) {
  texte.fond = noir;
  texte.couleur = jaune;
  texte.alignement = Alignement::centre;
  texte.police = chiffre;
  texte.lecture_seule = true;
  texte.muet = true;  // a digit by itself says nothing
}

void habiller_titre(Contrôle &étiquette) {
  étiquette.bord = Bord::avec;
  étiquette.alignement = Alignement::centre;
  étiquette.police = titre_panneau;
}

}  // namespace

Graphismes::Graphismes(const CatalogueImages &catalogue) {
  prendre(Pays, catalogue, "Graphismes.Pays");
  prendre(Inv, catalogue, "Graphismes.Inv");
  prendre(Drapeau, catalogue, "Graphismes.Drapeau");
  prendre(Région, catalogue, "Graphismes.Région");
  prendre(DrapeauRégion, catalogue, "Graphismes.DrapeauRégion");
}

Contrôle &Ecran_principal::placer(std::string_view nom_contrôle, Contrôle *conteneur) {
  const auto place =
      std::find_if(places.begin(), places.end(), [&](const Place &p) { return p.nom == nom_contrôle; });
  if (place == places.end())
    throw ErreurFatale("Contrôle sans place : " + std::string(nom_contrôle), Lieu::ici());
  Contrôle &contrôle = ardane::placer(*this, *place);
  contrôle.conteneur = conteneur;
  return contrôle;
}

Contrôle &Ecran_principal::placer_image(std::string nom_contrôle, Contrôle &conteneur, Image image) {
  Contrôle contrôle;
  contrôle.nom = std::move(nom_contrôle);
  contrôle.genre = Genre::image;
  contrôle.visible = false;
  contrôle.conteneur = &conteneur;
  poser_image(contrôle, image);
  return ajouter(std::move(contrôle));
}

Ecran_principal::Ecran_principal(const CatalogueImages &catalogue)
    : Fenêtre("Ecran_principal"),
      stock(catalogue),
      Carte(placer("Carte")),
      image_région(placer_image("image_région(0)", Carte, catalogue.chercher("image_région(0)"))),
      barre_h(placer("barre_h")),
      barre_v(placer("barre_v")),
      rondjaune(placer_image("rondjaune", Carte, catalogue.chercher("rondjaune"))),
      RondRouge(placer_image("RondRouge", Carte, catalogue.chercher("RondRouge"))),
      Rondcible(placer_image("Rondcible", Carte, catalogue.chercher("Rondcible"))),
      rondnoir(placer_image("rondnoir", Carte, catalogue.chercher("rondnoir"))),
      que_faire(placer("que_faire")),
      Elément_recherché(placer("Elément_recherché")),
      Image_recherchée(placer("Image_recherchée", &Elément_recherché)),
      Texte_à_chercher(placer("Texte_à_chercher")),
      Boîte_score(placer("Boîte_score")),
      Boîte_restants(placer("Boîte_restants")),
      BoîteProvinces(placer("BoîteProvinces")),
      EtiquetteProvinces(placer("EtiquetteProvinces", &BoîteProvinces)),
      NombreProvinces(placer("NombreProvinces")),
      Bouton_gruge(placer("Bouton_gruge")),
      BoutonPasse(placer("BoutonPasse")),
      Ampoule_allumée(placer_image("Ampoule_allumée", Carte, catalogue.chercher("Ampoule_allumée"))),
      Ampoule_éteinte(placer_image("Ampoule_éteinte", Carte, catalogue.chercher("Ampoule_éteinte"))),
      BoutonEtoile(placer_image("BoutonEtoile", Carte, catalogue.chercher("BoutonEtoile"))),
      étoilejaune(placer_image("étoilejaune", Carte, catalogue.chercher("étoilejaune"))),
      étoilerouge(placer_image("étoilerouge", Carte, catalogue.chercher("étoilerouge"))),
      BTN_Sauvegarde(placer("BTN_Sauvegarde")),
      BTN_Démarrage(placer("BTN_Démarrage")),
      catalogue_(catalogue) {
  est_principale = true;
  avec_titre = false;
  contexte_aide = 10;
  créer_menus();
  créer_couches();
  créer_panneau();
  créer_grille();
}

void Ecran_principal::créer_menus() {
  for (const Entrée_menu &entrée : barre_de_menus) {
    Contrôle menu;
    menu.nom = entrée.nom;
    menu.genre = Genre::menu;
    menu.texte = entrée.texte;
    menu.mnémonique = entrée.mnémonique;
    menu.raccourci = entrée.raccourci;
    menu.conteneur = entrée.parent.empty() ? nullptr : chercher(entrée.parent);
    ajouter(std::move(menu));
  }
}

Contrôle &Ecran_principal::menu(std::string_view nom_entrée) {
  return contrôle(*this, nom_entrée);
}

void Ecran_principal::créer_couches() {
  image_région.visible = true;
  Région.placer(0, placer_image("Région(0)", Carte));
  DrapeauRégion.placer(0, placer_image("DrapeauRégion(0)", Carte));
  Pays.placer(0, placer_image("Pays(0)", Carte));
  Inv.placer(0, placer_image("Inv(0)", Carte));
  Drapeau.placer(0, placer_image("Drapeau(0)", Carte, stock.Drapeau(0)));
  rond.placer(0, placer_image("rond(0)", Carte, catalogue_.chercher("rond")));
  RondPref.placer(0, placer_image("RondPref(0)", Carte, catalogue_.chercher("RondPref(0)")));
  RondVille.placer(0, placer_image("RondVille(0)", Carte, catalogue_.chercher("RondVille(0)")));
  for (int i = 1; i <= nombre_provinces; ++i) {
    Pays.placer(i, placer_image(indexé("Pays", i), Carte));
    Inv.placer(i, placer_image(indexé("Inv", i), Carte));
    Drapeau.placer(i, placer_image(indexé("Drapeau", i), Carte, stock.Drapeau(i)));
  }
  for (int i = 1; i <= nombre_régions; ++i) {
    Région.placer(i, placer_image(indexé("Région", i), Carte));
    DrapeauRégion.placer(i, placer_image(indexé("DrapeauRégion", i), Carte, stock.DrapeauRégion(i)));
  }
  for (int i = 1; i <= nombre_villes; ++i) {
    rond.placer(i, placer_image(indexé("rond", i), Carte, RondVille(0).image));
    if (i <= nombre_provinces)
      RondPref.placer(i, placer_image(indexé("RondPref", i), Carte, RondPref(0).image));
    else
      RondVille.placer(i, placer_image(indexé("RondVille", i), Carte, RondVille(0).image));
  }
}

void Ecran_principal::créer_panneau() {
  habiller_titre(que_faire);
  habiller_titre(Texte_à_chercher);
  Elément_recherché.bord = Bord::avec;
  Image_recherchée.étirée = true;
  BoîteProvinces.texte = "Provinces";
  EtiquetteProvinces.texte = "(dans la    région)";
  EtiquetteProvinces.multiligne = true;
  for (int i = 0; i <= 6; ++i) Digit.placer(i, placer(indexé("Digit", i)));
  for (int i = 1; i <= 3; ++i) Reste.placer(i, placer(indexé("Reste", i)));
  for (int i = 0; i <= 6; ++i) habiller_chiffre(Digit(i));
  for (int i = 1; i <= 3; ++i) habiller_chiffre(Reste(i));
  habiller_chiffre(NombreProvinces);
  Bouton_gruge.image = Ampoule_allumée.image;
  BoutonPasse.image = catalogue_.chercher("BoutonPasse");
  barre_h.visible = barre_v.visible = false;
  Bouton_gruge.visible = BoutonPasse.visible = false;
  Bouton_gruge.nom_parlé = "Aide : montrer la réponse";
  Elément_recherché.nom_parlé = "Image de la question";
  Image_recherchée.nom_parlé = "Ce qu'il faut trouver";
  Carte.nom_parlé = "Carte";
  barre_h.nom_parlé = "Carte, d'ouest en est";
  barre_v.nom_parlé = "Carte, du nord au sud";
}

void Ecran_principal::créer_grille() {
  for (int i = 1; i <= 13; ++i) {
    Contrôle &label = placer(indexé("LBL_param", i));
    label.multiligne = true;
    LBL_param.placer(i, label);
  }
  // Places are numbered in more letters than a box is wide.
  for (const int i : {7, 8, 9, 13}) {
    LBL_param(i).multiligne = false;
    LBL_param(i).déborde = true;
  }
  LBL_param(1).police = titre_grille;
  LBL_param(1).alignement = Alignement::centre;
  for (int i = 1; i <= 16; ++i) {
    const int colonne = (i - 1) / 4;
    const int rang = (i - 1) % 4;
    const std::string nom_bouton = indexé("Bouton", i);
    const double x = 824.0 + 32 * colonne;
    const double y = 288.0 + 24 * rang;
    Bouton.placer(i, ardane::placer(*this, {nom_bouton, Genre::case_à_cocher, x, y, 17, 17, i + 1}));
  }
  for (int i = 1; i <= 2; ++i) BTN.placer(i, placer(indexé("BTN", i)));
  BTN(1).texte = "OK";
  BTN_Sauvegarde.étiquette = &LBL_param(10);
  BTN_Démarrage.étiquette = &LBL_param(11);
}

}  // namespace ardane
