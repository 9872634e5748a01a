#include "core/hit_test_table.h"

#include <array>
#include <cstdio>
#include <fstream>

#include "core/announcement.h"
#include "core/current_folder.h"
#include "core/game_state.h"
#include "core/paths.h"

namespace ardane {
namespace {

constexpr int version_du_format = 4;
constexpr int même_carte = 255;

struct Enregistrement {
  int carte;
  std::int16_t abscisse;
  int code;
};

/// False at the end of the file; a record cut short by it counts as the end.
bool lire_enregistrement(std::istream &fichier, Enregistrement &e) {
  std::array<char, 4> octets{};
  if (!fichier.read(octets.data(), octets.size())) return false;
  const auto octet = [&](std::size_t i) { return static_cast<unsigned char>(octets[i]); };
  e = {octet(0), static_cast<std::int16_t>(octet(1) | (octet(2) << 8)), octet(3)};
  return true;
}

bool refuser_format(Contexte &c) {
  c.plateforme.boîtes.montrer({Icône::aucune, "L'Ardane et ses provinces",
                               "Ce fichier n'est plus interprétable ; installez sa nouvelle version !"});
  return false;
}

}  // namespace

bool Charger_points(Contexte &c) {
  GameState &g = c.état;
  g.Chemin_points = Joindre_chemin(g.Répertoire_programme, "ardane.pts");
  const std::string chemin = c.dossier.complet(g.Chemin_points);
  if (!est_fichier_ordinaire(chemin)) {
    annoncer(c, Message::erreur, Message::fichier_pts_absent);
    return false;
  }
  // Rows that the file does not have stay empty: their end lies at their beginning.
  g.Points_lignes = {};
  std::ifstream fichier(chemin_natif(chemin), std::ios::binary);
  int carte = -1;
  int ligne = -1;
  int segment = 0;
  bool premier = true;
  for (Enregistrement e{}; lire_enregistrement(fichier, e); premier = false) {
    if (e.carte != carte && e.carte != même_carte) {
      if (carte != -1) g.Points_lignes(carte, ++ligne) = static_cast<std::int16_t>(segment);
      carte = e.carte;
      ligne = -1;
      segment = 0;
    }
    if (premier) {
      if (e.code != version_du_format || e.abscisse != 0) return refuser_format(c);
    } else if (e.code == 0 && e.abscisse == 0) {
      g.Points_lignes(carte, ++ligne) = static_cast<std::int16_t>(segment);
    } else {
      g.Points_segments(carte, segment++) = {static_cast<std::uint8_t>(e.carte), e.abscisse,
                                             static_cast<std::uint8_t>(e.code)};
    }
  }
  // A file with no format record at all, empty or shorter than a record, is no file of this format.
  return premier ? refuser_format(c) : true;
}

int code_du_pixel(const GameState &g, int carte, int x, int y) {
  if (carte != 0 || y < 0 || y >= dernière_ligne) return 0;
  int code = 0;
  for (int i = g.Points_lignes(carte, y); i < g.Points_lignes(carte, y + 1); ++i) {
    const Segment_carte &segment = g.Points_segments(carte, i);
    if (segment.abscisse >= x) break;
    code = segment.code;
  }
  return code;
}

}  // namespace ardane
