// The bytes of saved games, slot by slot, for tests and not through the program's own writer.
#pragma once

#include <vector>

#include "support/slot_bytes.h"

namespace ardane {

/// What the statistics of these files say: another thing in every slot.
struct MotifBilans {
  static int points_province(int p, int k) { return 1000 * p + k; }
  static bool province_trouvée(int p, int k) { return (p + k) % 2 == 0; }
  static int points_région(int r) { return 200'000 + r; }
  static bool région_trouvée(int r) { return r % 2 == 0; }
  static int points_ville(int v) { return 300'000 + v; }
  static bool ville_trouvée(int v) { return v % 3 == 0; }
};

/// A game of Ann's at the level Moyen. What has a number in a slot of its own is found by its place below.
struct OctetsPartie : OctetsCases {
  struct Score {
    std::string nom;
    int points, niveau;
  };

  /// Under a score file of the player's.
  explicit OctetsPartie(int étape = 1, const std::string &fichier = "/jeux/Le nord.SCI") {
    tête(fichier);
    suite(étape);
  }
  /// Under a configuration that he did not save.
  OctetsPartie(int étape, const std::vector<int> &ordre, const std::vector<Score> &scores) {
    tête("~tmp.~ci");
    for (const int code : ordre) entier16(code);
    entier16(static_cast<int>(scores.size()));
    for (const Score &s : scores) score(s.nom, s.points, s.niveau);
    suite(étape);
  }

  // Slots, counted from 1; those behind the name of the score file depend on what stands in between.
  static constexpr int case_version = 1, case_langue = 2, case_fichier = 3;
  static constexpr int case_ordre = 4, case_nombre = 8, case_premier_score = 9;
  int case_étape = 0, case_nom = 0, case_niveau = 0, case_apprentissage = 0, case_score = 0;
  int case_paires = 0, case_bilans = 0;  ///< the first of each

 private:
  void tête(const std::string &fichier) {
    texte("Version 1.00 du 24/02/2007");
    entier16(1);
    texte(fichier);
  }
  int prochaine() const { return static_cast<int>(cases.size()) + 1; }
  void suite(int étape) {
    case_étape = prochaine();
    entier16(étape);
    case_nom = prochaine();
    texte("Ann");
    case_niveau = prochaine();
    entier16(2);
    case_apprentissage = prochaine();
    entier16(0);
    case_score = prochaine();
    entier32(987'654);
    case_paires = prochaine();
    const int paires = étape == 2 ? 330 : étape == 3 ? 0 : 110;
    for (int i = 1; i <= paires; ++i) paire(i, i % 5 == 0 ? -1 : 0);
    case_bilans = prochaine();
    for (int p = 1; p <= 110; ++p)
      for (int k = 0; k <= 4; ++k)
        bilan(MotifBilans::points_province(p, k), MotifBilans::province_trouvée(p, k));
    for (int r = 1; r <= 20; ++r) bilan(MotifBilans::points_région(r), MotifBilans::région_trouvée(r));
    for (int v = 1; v <= 330; ++v) bilan(MotifBilans::points_ville(v), MotifBilans::ville_trouvée(v));
  }
  void bilan(int points, bool trouvée) {
    entier32(points);
    entier16(trouvée ? -1 : 0);
  }
};

}  // namespace ardane
