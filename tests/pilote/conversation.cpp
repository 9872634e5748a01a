#include "conversation.h"

#include <stdlib.h>

#include <stdexcept>

#include "core/paths.h"

namespace ardane {

DossierDeJeu::DossierDeJeu(const std::filesystem::path &livrés) {
  namespace fs = std::filesystem;
  std::string modèle = texte_du_chemin(fs::temp_directory_path() / "ardane-XXXXXX");
  if (mkdtemp(modèle.data()) == nullptr) throw std::runtime_error("no temporary folder");
  dossier_ = chemin_natif(modèle);
  const fs::path programme = dossier_ / "programme";
  fs::create_directory(programme);
  for (const auto &livré : fs::directory_iterator(livrés))
    if (livré.is_regular_file()) fs::copy_file(livré.path(), programme / livré.path().filename());
}

DossierDeJeu::~DossierDeJeu() {
  std::error_code erreur;
  std::filesystem::remove_all(dossier_, erreur);
}

std::string DossierDeJeu::chemin(std::string_view nom) const {
  return texte_du_chemin(nom.empty() ? dossier_ : dossier_ / chemin_natif(nom));
}

std::string Réplique::attend() const {
  return lignes.empty() ? std::string() : lignes.back().value("attend", "");
}

std::string Réplique::erreur() const {
  const Json raison = valeur("erreur");
  return raison.is_string() ? raison.get<std::string>() : std::string();
}

Json Réplique::valeur(std::string_view clé) const {
  for (const Json &ligne : lignes)
    if (const auto place = ligne.find(std::string(clé)); place != ligne.end()) return *place;
  return {};
}

std::string Réplique::texte() const {
  std::string texte;
  for (const Json &ligne : lignes) texte += ligne.dump() + "\n";
  return texte;
}

Réplique Conversation::dire(const std::string &commande) {
  if (finie()) throw std::logic_error("the pilot has left already");
  return pilote_->répondre(commande);
}

Json Conversation::état(const std::string &chemin) {
  return dire("état " + chemin).valeur("état");
}

}  // namespace ardane
