// The commands of the pilot.
//
// A command is a line: its name, then its arguments, one blank between; the last argument takes the rest of
// the line as it stands.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "front/pilote/session.h"

namespace ardane {

/// As many as the command can take; those that were not given are empty.
using Arguments = std::vector<std::string>;

/// When a command is taken.
enum class Moment {
  toujours,    ///< it only reads, or ends all
  sans_boîte,  ///< not while a message box waits for its answer
  boîte,       ///< to answer a message box
};

struct Commande {
  std::string_view nom;
  std::size_t minimum, maximum;  ///< number of arguments
  Moment moment;
  void (*faire)(Session &s, const Arguments &arguments);
};

/// Carries out one line. Throws Refus for a command that cannot be carried out, and what the program throws.
void exécuter_commande(Session &s, std::string_view ligne);

// The player's hand
void démarrer(Session &s, const Arguments &a);
void choisir_menu(Session &s, const Arguments &a);
void cliquer_contrôle(Session &s, const Arguments &a);
void double_cliquer(Session &s, const Arguments &a);
void cliquer_carte(Session &s, const Arguments &a);
void placer_curseur(Session &s, const Arguments &a);
void écrire_texte(Session &s, const Arguments &a);
void presser_entrée(Session &s, const Arguments &a);
void sélectionner(Session &s, const Arguments &a);
void déplacer_barre(Session &s, const Arguments &a);
void fermer_fenêtre(Session &s, const Arguments &a);
void répondre_boîte(Session &s, const Arguments &a);
void presser_touche(Session &s, const Arguments &a);

// The world around the program
void battre(Session &s, const Arguments &a);
void prévoir_tirages(Session &s, const Arguments &a);
void prévoir_page(Session &s, const Arguments &a);
void écrire_registre(Session &s, const Arguments &a);
void fixer_état(Session &s, const Arguments &a);
void quitter(Session &s, const Arguments &a);

// Reading
void lire_état(Session &s, const Arguments &a);
void lire_état_partiel(Session &s, const Arguments &a);
void lire_contrôle(Session &s, const Arguments &a);
void lire_contrôles(Session &s, const Arguments &a);
void lire_dessus(Session &s, const Arguments &a);
void lire_registre(Session &s, const Arguments &a);
void lire_fenêtres(Session &s, const Arguments &a);
void lire_boîte(Session &s, const Arguments &a);

}  // namespace ardane
