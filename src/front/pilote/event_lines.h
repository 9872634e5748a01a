// Turns what reaches the outside into event lines.
#pragma once

#include "front/pilote/journal.h"
#include "front/scripted/witness.h"

namespace ardane {

class Récit : public Témoin {
 public:
  /// `journal` must outlive it.
  explicit Récit(Journal &journal) : journal_(journal) {}

  void boîte_montrée(const Boîte &boîte) override;
  void fenêtre_ouverte(const Fenêtre &fenêtre, bool modale) override;
  void fenêtre_fermée(const Fenêtre &fenêtre, bool modale) override;
  void son_joué(const std::string &fichier) override;
  void page_demandée(const std::string &page) override;
  void aide_ouverte(const std::string &fichier, int contexte) override;

 private:
  Journal &journal_;
};

}  // namespace ardane
