// A run in which the window of the information cards is there to be opened; nothing comes of it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/fake_world.h"

namespace ardane {

class AvecFiches : private Ouvreur {
 public:
  explicit AvecFiches(MondeFactice &m)
      : dessous_(m.c().plateforme.fenêtres),
        plateforme_{m.c().plateforme, *this},
        contexte_{m.c().état, m.c().principale, plateforme_, m.c().ressources, m.c().dossier} {}

  Contexte &c() { return contexte_; }

  std::vector<std::int16_t> fiches_ouvertes;  ///< `ProvinceFiche` of each

 private:
  bool existe(std::string_view nom) const override { return nom == "Pompe" || dessous_.existe(nom); }
  void ouvrir_modale(std::string_view nom) override {
    if (nom == "Pompe")
      fiches_ouvertes.push_back(contexte_.état.ProvinceFiche);
    else
      dessous_.ouvrir_modale(nom);
  }

  Ouvreur &dessous_;
  Plateforme plateforme_;
  Contexte contexte_;
};

}  // namespace ardane
