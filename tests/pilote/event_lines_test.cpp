#include "front/pilote/event_lines.h"

#include <gtest/gtest.h>

#include <sstream>

namespace ardane {
namespace {

TEST(Récit, tells_each_event_in_one_line) {
  std::ostringstream sortie;
  Journal journal(sortie);
  Récit récit(journal);
  const Fenêtre fenêtre("essai");
  récit.fenêtre_ouverte(fenêtre, true);
  récit.son_joué("carte_ok.wav");
  récit.page_demandée("jeux/a.htm");
  récit.aide_ouverte("/jeu/ARDANE.HLP", 65);
  récit.boîte_montrée({Icône::question, "Titre", "Texte ?", Boutons::oui_non});
  récit.sablier_posé(true);
  récit.fenêtre_fermée(fenêtre, true);
  EXPECT_EQ(sortie.str(),
            "{\"fenêtre\":\"essai\",\"ouverte\":true,\"modale\":true}\n"
            "{\"son\":\"carte_ok.wav\"}\n"
            "{\"page\":\"jeux/a.htm\"}\n"
            "{\"aide\":{\"fichier\":\"/jeu/ARDANE.HLP\",\"contexte\":65}}\n"
            "{\"boîte\":{\"icône\":\"question\",\"titre\":\"Titre\",\"texte\":\"Texte ?\","
            "\"boutons\":[\"Oui\",\"Non\"]}}\n"
            "{\"fenêtre\":\"essai\",\"ouverte\":false,\"modale\":true}\n");
}

}  // namespace
}  // namespace ardane
