#include "front/pilote/event_lines.h"

#include "front/pilote/json_boxes.h"

namespace ardane {

void Récit::boîte_montrée(const Boîte &boîte) {
  journal_.écrire({{"boîte", boîte_json(boîte)}});
}

void Récit::fenêtre_ouverte(const Fenêtre &fenêtre, bool modale) {
  journal_.écrire({{"fenêtre", fenêtre.nom}, {"ouverte", true}, {"modale", modale}});
}

void Récit::fenêtre_fermée(const Fenêtre &fenêtre, bool modale) {
  journal_.écrire({{"fenêtre", fenêtre.nom}, {"ouverte", false}, {"modale", modale}});
}

void Récit::son_joué(const std::string &fichier) {
  journal_.écrire({{"son", fichier}});
}

void Récit::page_demandée(const std::string &page) {
  journal_.écrire({{"page", page}});
}

void Récit::aide_ouverte(const std::string &fichier, int contexte) {
  journal_.écrire({{"aide", {{"fichier", fichier}, {"contexte", contexte}}}});
}

}  // namespace ardane
