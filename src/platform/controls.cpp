#include "platform/controls.h"

#include <algorithm>

#include "platform/fatal_error.h"

namespace ardane {

namespace {

/// True for those that leave, in the order of their places in memory, and for what lies in them.
bool part_avec(const std::vector<const Contrôle *> &partants, const Contrôle &contrôle) {
  return std::ranges::binary_search(partants, &contrôle) ||
         (contrôle.conteneur != nullptr && part_avec(partants, *contrôle.conteneur));
}

}  // namespace

std::string_view nom_genre(Genre genre) {
  switch (genre) {
    case Genre::image: return "image";
    case Genre::étiquette: return "étiquette";
    case Genre::cadre: return "cadre";
    case Genre::texte: return "texte";
    case Genre::bouton: return "bouton";
    case Genre::case_à_cocher: return "case";
    case Genre::option: return "option";
    case Genre::liste: return "liste";
    case Genre::barre: return "barre";
    case Genre::menu: return "menu";
    case Genre::boîte_image: return "boîte_image";
    case Genre::vue: return "vue";
  }
  return "";
}

Contrôle &Fenêtre::ajouter(Contrôle &&contrôle) {
  contrôles_.push_back(std::move(contrôle));
  ++révision_;
  au_premier_plan(contrôles_.back());
  return contrôles_.back();
}

void Fenêtre::retirer(Contrôle &contrôle) {
  Contrôle *const partant = &contrôle;
  retirer({&partant, 1});
}

void Fenêtre::retirer(std::span<Contrôle *const> partants) {
  for (const Contrôle *partant : partants)
    if (partant->genre == Genre::menu)
      throw ErreurFatale("Entrée de menu retirée : " + partant->nom, Lieu::ici());
  std::vector<const Contrôle *> triés(partants.begin(), partants.end());
  std::ranges::sort(triés);
  const auto part = [&](const Contrôle &c) { return std::ranges::binary_search(triés, &c); };
  if (std::ranges::count_if(contrôles_, part) != std::ssize(triés))
    throw ErreurFatale("Contrôle étranger à la fenêtre : " + partants.front()->nom, Lieu::ici());

  for (auto place = contrôles_.begin(); place != contrôles_.end();) {
    const auto ici = place++;
    if (!part_avec(triés, *ici)) continue;
    ici->retiré = true;
    ici->clic = ici->double_clic = ici->entrée = ici->changement = ici->perte_du_focus = {};
    retirés_.splice(retirés_.end(), contrôles_, ici);
  }
  ++révision_;
  oublier_liens_aux_retirés();
}

void Fenêtre::oublier_liens_aux_retirés() {
  const auto oublier = [](Contrôle *&lien) {
    if (lien != nullptr && lien->retiré) lien = nullptr;
  };
  for (Contrôle **lien : {&focus, &bouton_défaut, &bouton_annulation}) oublier(*lien);
  for (Contrôle &contrôle : contrôles_) oublier(contrôle.étiquette);
}

Contrôle *Fenêtre::chercher(std::string_view nom_contrôle) {
  const auto trouvé = std::find_if(contrôles_.begin(), contrôles_.end(),
                                   [&](const Contrôle &c) { return c.nom == nom_contrôle; });
  return trouvé == contrôles_.end() ? nullptr : &*trouvé;
}

bool est_visible(const Contrôle &contrôle) {
  return contrôle.visible && (contrôle.conteneur == nullptr || est_visible(*contrôle.conteneur));
}

bool est_utilisable(const Contrôle &contrôle) {
  return contrôle.visible && contrôle.actif &&
         (contrôle.conteneur == nullptr || est_utilisable(*contrôle.conteneur));
}

bool est_bordé(const Contrôle &contrôle) {
  if (contrôle.bord == Bord::selon_genre) return contrôle.genre == Genre::texte;
  return contrôle.bord == Bord::avec;
}

const std::string &nom_à_dire(const Contrôle &contrôle) {
  const bool saisie = contrôle.genre == Genre::texte && !contrôle.lecture_seule;
  if (!contrôle.nom_parlé.empty()) return contrôle.nom_parlé;
  if (contrôle.étiquette != nullptr && !contrôle.étiquette->texte.empty()) return contrôle.étiquette->texte;
  if (!saisie && !contrôle.texte.empty()) return contrôle.texte;
  return contrôle.infobulle;
}

bool est_muet(const Contrôle &contrôle) {
  const bool image = contrôle.genre == Genre::image || contrôle.genre == Genre::boîte_image;
  const bool décor = image && !contrôle.clic && contrôle.nom_parlé.empty() && contrôle.infobulle.empty();
  return contrôle.muet || décor;
}

bool prend_le_clavier(const Contrôle &contrôle) {
  switch (contrôle.genre) {
    case Genre::texte:
    case Genre::bouton:
    case Genre::case_à_cocher:
    case Genre::option:
    case Genre::liste:
    case Genre::barre: return true;
    // Most pictures are there to be looked at.
    case Genre::image: return contrôle.ordre_tabulation >= 0;
    default: return false;
  }
}

namespace {

/// A control in a frame that has a place comes where the frame does. As an unsigned number, no place comes
/// after all places.
std::pair<unsigned, unsigned> place_au_clavier(const Contrôle &c) {
  const bool en_groupe = c.conteneur != nullptr && c.conteneur->ordre_tabulation >= 0;
  return {static_cast<unsigned>((en_groupe ? *c.conteneur : c).ordre_tabulation),
          static_cast<unsigned>(c.ordre_tabulation)};
}

}  // namespace

std::vector<Contrôle *> ordre_du_clavier(Fenêtre &fenêtre) {
  std::vector<Contrôle *> ordre;
  for (Contrôle &c : fenêtre.contrôles())
    if (prend_le_clavier(c) && (c.ordre_tabulation >= 0 || !c.lecture_seule)) ordre.push_back(&c);
  std::stable_sort(ordre.begin(), ordre.end(), [](const Contrôle *a, const Contrôle *b) {
    return place_au_clavier(*a) < place_au_clavier(*b);
  });
  return ordre;
}

namespace {

Contrôle *premier_utilisable(const std::vector<Contrôle *> &ordre) {
  const auto premier =
      std::find_if(ordre.begin(), ordre.end(), [](const Contrôle *c) { return est_utilisable(*c); });
  return premier == ordre.end() ? nullptr : *premier;
}

}  // namespace

void premier_focus(Fenêtre &fenêtre) {
  if (fenêtre.focus == nullptr) fenêtre.focus = premier_utilisable(ordre_du_clavier(fenêtre));
}

void rectifier_focus(Fenêtre &fenêtre) {
  Contrôle *actuel = fenêtre.focus;
  if (actuel == nullptr || est_utilisable(*actuel)) return;
  std::vector<Contrôle *> ordre = ordre_du_clavier(fenêtre);
  const auto place = std::find(ordre.begin(), ordre.end(), actuel);
  if (place != ordre.end()) std::rotate(ordre.begin(), place, ordre.end());
  fenêtre.focus = premier_utilisable(ordre);
}

std::string lignes_simples(std::string_view texte) {
  std::string simples;
  simples.reserve(texte.size());
  for (std::size_t i = 0; i < texte.size(); ++i) {
    if (texte[i] != '\r') simples += texte[i];
    // A CR by itself ends a line too.
    else if (i + 1 == texte.size() || texte[i + 1] != '\n')
      simples += '\n';
  }
  return simples;
}

std::string lignes_du_contrôle(const Contrôle &contrôle, std::string_view texte) {
  std::string simples = lignes_simples(texte);
  if (!contrôle.lignes_crlf) return simples;
  std::string lignes;
  for (const char c : simples) {
    if (c == '\n') lignes += '\r';
    lignes += c;
  }
  return lignes;
}

void déclencher(const std::function<void()> &événement) {
  // A copy: what runs may be destroyed meanwhile, together with its control.
  if (std::function<void()> retenu = événement) retenu();
}

void fixer_valeur(Contrôle &barre, int valeur) {
  const int retenue = std::clamp(valeur, barre.min, std::max(barre.min, barre.max));
  if (retenue == barre.valeur) return;
  barre.valeur = retenue;
  déclencher(barre.changement);
}

void fixer_bornes(Contrôle &barre, int min, int max) {
  barre.min = min;
  barre.max = max;
  fixer_valeur(barre, barre.valeur);
}

void poser_image(Contrôle &contrôle, Image image) {
  contrôle.image = image;
  if (contrôle.étirée) return;
  contrôle.largeur = image.largeur;
  contrôle.hauteur = image.hauteur;
}

void demander_fermeture(Fenêtre &fenêtre) {
  if (fenêtre.demande_de_fermeture)
    déclencher(fenêtre.demande_de_fermeture);
  else
    fenêtre.fermer();
}

void cliquer(Fenêtre &fenêtre, Contrôle &contrôle) {
  if (contrôle.genre == Genre::case_à_cocher) {
    contrôle.coché = !contrôle.coché;
  } else if (contrôle.genre == Genre::option) {
    for (Contrôle &autre : fenêtre.contrôles())
      if (autre.genre == Genre::option && autre.conteneur == contrôle.conteneur) autre.coché = false;
    contrôle.coché = true;
  }
  if (prend_le_clavier(contrôle)) fenêtre.focus = &contrôle;
  déclencher(contrôle.clic);
}

bool entrée_finit_la_ligne(const Contrôle &contrôle) {
  return contrôle.genre == Genre::texte && contrôle.multiligne && !contrôle.lecture_seule;
}

void entrer(Fenêtre &fenêtre, Contrôle &contrôle) {
  if (entrée_finit_la_ligne(contrôle))
    saisir(contrôle, contrôle.texte + '\n');
  else if (contrôle.entrée)
    déclencher(contrôle.entrée);
  else if (contrôle.genre == Genre::bouton || contrôle.genre == Genre::image)
    cliquer(fenêtre, contrôle);
  else
    presser(fenêtre.bouton_défaut);
}

void presser(Contrôle *bouton) {
  if (bouton != nullptr && est_utilisable(*bouton)) déclencher(bouton->clic);
}

void saisir(Contrôle &contrôle, std::string_view texte) {
  contrôle.texte = lignes_du_contrôle(contrôle, texte);
  déclencher(contrôle.changement);
}

void choisir(Contrôle &liste, int choix) {
  liste.choix = choix;
  déclencher(liste.changement);
}

const std::string &élément_choisi(const Contrôle &liste) {
  const auto nombre = static_cast<int>(liste.éléments.size());
  if (liste.choix < 1 || liste.choix > nombre) signaler_indice(liste.choix, 1, nombre, Lieu::ici());
  return liste.éléments[static_cast<std::size_t>(liste.choix - 1)];
}

}  // namespace ardane
