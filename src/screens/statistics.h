// The window `Stats`: what each province, region and town has cost.
#pragma once

#include <array>
#include <vector>

#include "core/context.h"
#include "platform/controls.h"
#include "screens/statistics_tables.h"

namespace ardane {

/// Three tables, of which it shows one, that of the provinces first; the rest of a long one is scrolled to.
class Stats : public Fenêtre {
 public:
  explicit Stats(Contexte &c);

  /// The columns of cells: those of the province table, then the two of the others.
  enum class Colonne : std::uint8_t {
    nom_province,
    perte_villes,
    perte_drapeaux,
    perte_provinces,
    nom,
    perte,
  };
  static constexpr std::size_t nombre_de_colonnes = 6;

 private:
  void placer_boutons();
  void montrer(Tableau tableau);
  void quitter_tableau();
  void montrer_entêtes();
  void créer_lignes();
  /// Fills the rows from the place `décalage` + 1 of `OrdreTableau` on.
  void remplir(int décalage);
  void remplir_ligne(int ligne, int objet);
  void écrire_coût(Colonne colonne, int ligne, const Coût &coût, int étape);

  Contrôle &ajouter_cellule(Colonne colonne, int ligne);
  Contrôle &cellule(Colonne colonne, int ligne);
  std::vector<Contrôle *> &cellules(Colonne colonne) { return cellules_[static_cast<std::size_t>(colonne)]; }

  Contexte &c_;
  std::array<std::vector<Contrôle *>, nombre_de_colonnes> cellules_;
  Tableau tableau_ = Tableau::aucun;
};

}  // namespace ardane
