// The main window as data: menu bar, map viewport with its stack of pictures, side panel, configuration grid.
#pragma once

#include "core/gazetteer.h"
#include "core/resources.h"
#include "core/table.h"
#include "platform/controls.h"

namespace ardane {

/// An array of controls of one name. An index that the array does not have is a fatal error.
template <int Premier, int Dernier>
class Rangée {
 public:
  Contrôle &operator()(int i, Lieu lieu = Lieu::ici()) {
    Contrôle *contrôle = contrôles_(i, lieu);
    if (contrôle == nullptr) throw ErreurFatale("Contrôle absent : " + std::to_string(i), lieu);
    return *contrôle;
  }
  void placer(int i, Contrôle &contrôle) { contrôles_(i) = &contrôle; }

 private:
  Table<Contrôle *, Premier, Dernier> contrôles_;
};

/// The stock of pictures that the layers of the map and the flags take theirs from.
struct Graphismes {
  explicit Graphismes(const CatalogueImages &catalogue);

  Table<Image, 0, nombre_provinces> Pays, Inv, Drapeau;
  Table<Image, 0, nombre_régions> Région, DrapeauRégion;
};

class Ecran_principal : public Fenêtre {
 public:
  explicit Ecran_principal(const CatalogueImages &catalogue);

  Graphismes stock;

  Contrôle &Carte, &image_région;
  Contrôle &barre_h, &barre_v;
  Rangée<0, nombre_régions> Région, DrapeauRégion;
  Rangée<0, nombre_provinces> Pays, Inv, Drapeau;
  Rangée<0, nombre_villes> rond, RondPref, RondVille;
  Contrôle &rondjaune, &RondRouge, &Rondcible, &rondnoir;

  Contrôle &que_faire, &Elément_recherché, &Image_recherchée, &Texte_à_chercher;
  Contrôle &Boîte_score, &Boîte_restants, &BoîteProvinces, &EtiquetteProvinces, &NombreProvinces;
  Rangée<0, 6> Digit;
  Rangée<1, 3> Reste;
  Contrôle &Bouton_gruge, &BoutonPasse;
  Contrôle &Ampoule_allumée, &Ampoule_éteinte, &BoutonEtoile, &étoilejaune, &étoilerouge;

  Rangée<1, 13> LBL_param;
  Rangée<1, 16> Bouton;
  Rangée<1, 2> BTN;
  Contrôle &BTN_Sauvegarde, &BTN_Démarrage;

  /// Top-level menu entry or item of that name.
  Contrôle &menu(std::string_view nom_entrée);

  /// The window manager moved the window: its places on the screen must be read again.
  std::function<void()> déplacement;

 private:
  Contrôle &placer(std::string_view nom_contrôle, Contrôle *conteneur = nullptr);
  Contrôle &placer_image(std::string nom_contrôle, Contrôle &conteneur, Image image = {});
  void créer_menus();
  void créer_couches();
  void créer_panneau();
  void créer_grille();

  const CatalogueImages &catalogue_;
};

/// The town's own dot: `RondPref` of a capital, `RondVille` of another city.
inline Contrôle &repère(Ecran_principal &principale, int ville) {
  return ville <= nombre_provinces ? principale.RondPref(ville) : principale.RondVille(ville);
}

}  // namespace ardane
