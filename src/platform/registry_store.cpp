#include "platform/registry_store.h"

#include <iterator>
#include <list>
#include <system_error>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "platform/file_replacement.h"
#include "platform/log.h"
#include "platform/player_folders.h"
#include "platform/registry_key.h"
#include "platform/registry_lock.h"
#include "platform/text.h"
#include "platform/whole_file.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view marque_utf8 = "\xEF\xBB\xBF";

/// The key without its empty parts.
std::string clé_nette(std::string_view clé) {
  return clé_de(parties_de_clé(clé));
}

bool clé_permise(std::string_view nette) {
  return !nette.empty() && parties_de_clé(nette).size() <= parties_au_plus && est_utf8(nette) &&
         nette.find_first_of("\r\n") == std::string_view::npos;
}

// --- The text of the file

struct Ligne {
  enum class Genre { autre, clé, valeur };
  std::string brute;
  Genre genre = Genre::autre;
  std::string nom;  ///< of a key: its path
  std::string texte;
};

std::string entre_guillemets(std::string_view texte) {
  std::string écrit = "\"";
  for (const char c : texte) {
    switch (c) {
      case '\\': écrit += "\\\\"; break;
      case '"': écrit += "\\\""; break;
      case '\n': écrit += "\\n"; break;
      case '\r': écrit += "\\r"; break;
      default: écrit.push_back(c);
    }
  }
  return écrit + '"';
}

/// Reads a text between quotation marks at the head of `reste` and takes it off.
std::optional<std::string> lire_guillemets(std::string_view &reste) {
  if (reste.empty() || reste.front() != '"') return std::nullopt;
  std::string texte;
  for (std::size_t i = 1;;) {
    const std::size_t signe = reste.find_first_of("\"\\", i);
    if (signe == std::string_view::npos) return std::nullopt;
    texte.append(reste, i, signe - i);
    if (reste[signe] == '"') {
      reste.remove_prefix(signe + 1);
      return texte;
    }
    if (signe + 1 == reste.size()) return std::nullopt;
    const char c = reste[signe + 1];
    if (c != 'n' && c != 'r' && c != '\\' && c != '"') return std::nullopt;
    texte.push_back(c == 'n' ? '\n' : c == 'r' ? '\r' : c);
    i = signe + 2;
  }
}

Ligne ligne_de_clé(std::string_view clé) {
  return {"[" + std::string(clé) + "]", Ligne::Genre::clé, std::string(clé), {}};
}

Ligne ligne_de_valeur(std::string_view nom, std::string_view texte) {
  return {entre_guillemets(nom) + "=" + entre_guillemets(texte), Ligne::Genre::valeur, std::string(nom),
          std::string(texte)};
}

/// Calls `clé_lue(key)`, `valeur_lue(name, text)` or `autre_lue(line)` for each line of a file.
void parcourir(std::string_view contenu, const auto &clé_lue, const auto &valeur_lue, const auto &autre_lue) {
  if (contenu.substr(0, marque_utf8.size()) == marque_utf8) contenu.remove_prefix(marque_utf8.size());
  bool sous_une_clé = false;
  const auto lire_valeur = [&](std::string_view ligne) {
    if (!sous_une_clé) return false;
    const auto nom = lire_guillemets(ligne);
    if (!nom || ligne.empty() || ligne.front() != '=') return false;
    ligne.remove_prefix(1);
    const auto texte = lire_guillemets(ligne);
    if (!texte || !ligne.empty()) return false;
    valeur_lue(*nom, *texte);
    return true;
  };
  const auto lire_clé = [&](std::string_view ligne) {
    if (ligne.size() < 3 || ligne.front() != '[' || ligne.back() != ']') return false;
    const std::string nette = clé_nette(ligne.substr(1, ligne.size() - 2));
    sous_une_clé = clé_permise(nette);
    if (sous_une_clé) clé_lue(nette);
    return sous_une_clé;
  };
  while (!contenu.empty()) {
    const std::string_view brute = couper(contenu, '\n');
    const std::string_view ligne = brute.ends_with('\r') ? brute.substr(0, brute.size() - 1) : brute;
    if (!est_utf8(ligne) || !(lire_clé(ligne) || lire_valeur(ligne))) autre_lue(brute);
  }
}

RegistreMémoire registre_de(std::string_view contenu) {
  RegistreMémoire registre;
  std::string clé;
  parcourir(
      contenu, [&](const std::string &lue) { registre.créer(clé = lue); },
      [&](const std::string &nom, const std::string &texte) { registre.écrire(clé, nom, texte); },
      [](std::string_view) {});
  return registre;
}

/// The lines of the file, and where each setting stands among them.
class Document {
 public:
  explicit Document(std::string_view contenu) {
    std::string clé;
    const auto fin = lignes_.end();
    parcourir(
        contenu, [&](const std::string &lue) { placer(fin, clé = lue, ligne_de_clé(lue)); },
        [&](const std::string &nom, const std::string &texte) {
          placer(fin, clé, ligne_de_valeur(nom, texte));
        },
        [&](std::string_view brute) {
          lignes_.push_back({std::string(brute), Ligne::Genre::autre, {}, {}});
        });
  }

  /// True if something has been made or written that was not there.
  bool est_changé() const { return changé_; }
  std::string contenu() const {
    std::string texte;
    for (const Ligne &ligne : lignes_) texte.append(ligne.brute).push_back('\n');
    return texte;
  }

  void créer(std::string_view clé) {
    if (!existantes_.contains(en_majuscules(clé))) commencer(clé);
  }

  void écrire(std::string_view clé, std::string_view nom, std::string_view texte) {
    auto section = sections_.find(en_majuscules(clé));
    if (section == sections_.end()) {
      commencer(clé);
      section = sections_.find(en_majuscules(clé));
    }
    // Of several values of one name the last counts, so that one changes.
    const auto valeur = section->second.valeurs.find(en_majuscules(nom));
    if (valeur == section->second.valeurs.end())
      placer(std::next(section->second.dernière), clé, ligne_de_valeur(nom, texte));
    else if (valeur->second->texte != texte)
      *valeur->second = ligne_de_valeur(valeur->second->nom, texte);
    else
      return;
    changé_ = true;
  }

 private:
  using Lignes = std::list<Ligne>;
  struct Section {
    Lignes::iterator dernière;                                  ///< of the key's own lines
    std::unordered_map<std::string, Lignes::iterator> valeurs;  ///< by their names in capitals
  };

  void commencer(std::string_view clé) {
    if (!lignes_.empty()) lignes_.emplace_back();
    placer(lignes_.end(), clé, ligne_de_clé(clé));
    changé_ = true;
  }

  void placer(Lignes::const_iterator place, std::string_view clé, Ligne nouvelle) {
    const auto ligne = lignes_.insert(place, std::move(nouvelle));
    const std::string majuscules = en_majuscules(clé);
    Section &section = sections_[majuscules];
    section.dernière = ligne;
    if (ligne->genre == Ligne::Genre::valeur) {
      section.valeurs[en_majuscules(ligne->nom)] = ligne;
      return;
    }
    std::string dessus;
    for (const std::string_view partie : parties_de_clé(majuscules))
      existantes_.insert(dessus = Joindre_clé(dessus, partie));
  }

  Lignes lignes_;
  bool changé_ = false;
  std::unordered_map<std::string, Section> sections_;  ///< by their keys in capitals
  std::unordered_set<std::string> existantes_;         ///< those keys and the ones above them
};

/// What stands in the file, nothing of it where there is no file; no value if there is one and it cannot be
/// read.
std::optional<std::string> lire_octets(const fs::path &fichier) {
  std::error_code erreur;
  const bool absent = fs::status(fichier, erreur).type() == fs::file_type::not_found;
  return absent ? std::string{} : octets_du_fichier(fichier);
}

std::string en_clair(const fs::path &chemin) {
  const std::u8string texte = chemin.u8string();
  return {texte.begin(), texte.end()};
}

/// The file that a chain of links ends at, so that the links stay, whatever the current folder becomes.
fs::path fichier_réel(const fs::path &fichier) {
  if (fichier.empty()) return fichier;
  std::error_code erreur;
  const fs::path absolu = fs::absolute(fichier, erreur);
  if (erreur) return fichier;
  const fs::path réel = fs::weakly_canonical(absolu, erreur);
  return erreur ? absolu : réel;
}

}  // namespace

// --- In memory

std::optional<std::size_t> RegistreMémoire::rang(std::string_view clé) const {
  // Settings are asked for and written many of one key in a row.
  if (clé == dernière_demandée_) return dernier_rang_;
  const auto trouvée = rangs_.find(en_majuscules(clé_nette(clé)));
  if (trouvée == rangs_.end()) return std::nullopt;
  dernière_demandée_ = clé;
  return dernier_rang_ = trouvée->second;
}

bool RegistreMémoire::existe(std::string_view clé) const {
  return rang(clé).has_value();
}

bool RegistreMémoire::créer(std::string_view clé) {
  if (!clé_permise(clé_nette(clé))) return false;
  std::string chemin;
  for (const std::string_view partie : parties_de_clé(clé)) {
    chemin = Joindre_clé(chemin, partie);
    const auto [rang, nouvelle] = rangs_.emplace(en_majuscules(chemin), clés_.size());
    if (nouvelle) clés_.push_back({chemin, {}, {}});
    // A key below one that exists takes that one's spelling.
    chemin = clés_[rang->second].chemin;
  }
  return true;
}

std::optional<std::string> RegistreMémoire::lire(std::string_view clé, std::string_view nom) const {
  const auto trouvée = rang(clé);
  if (!trouvée) return std::nullopt;
  const Clé &c = clés_[*trouvée];
  const auto valeur = c.rangs.find(en_majuscules(nom));
  return valeur == c.rangs.end() ? std::nullopt : std::optional(c.valeurs[valeur->second].texte);
}

bool RegistreMémoire::écrire(std::string_view clé, std::string_view nom, std::string_view texte) {
  const auto trouvée = rang(clé);
  if (!trouvée || !est_utf8(nom) || !est_utf8(texte)) return false;
  Clé &c = clés_[*trouvée];
  const auto [valeur, nouvelle] = c.rangs.emplace(en_majuscules(nom), c.valeurs.size());
  if (nouvelle)
    c.valeurs.push_back({std::string(nom), std::string(texte)});
  else
    c.valeurs[valeur->second].texte = texte;
  return true;
}

std::vector<std::string> RegistreMémoire::valeurs(std::string_view clé) const {
  std::vector<std::string> noms;
  const auto trouvée = rang(clé);
  if (!trouvée) return noms;
  for (const Valeur &valeur : clés_[*trouvée].valeurs) noms.push_back(valeur.nom);
  return noms;
}

std::vector<std::string> RegistreMémoire::sous_clés(std::string_view clé) const {
  const std::string parente = en_majuscules(clé_nette(clé));
  std::vector<std::string> noms;
  for (const Clé &c : clés_) {
    auto parties = parties_de_clé(c.chemin);
    const std::string_view nom = parties.back();
    parties.pop_back();
    if (en_majuscules(clé_de(parties)) == parente) noms.emplace_back(nom);
  }
  return noms;
}

// --- The player's own

void RegistreGardé::retenir(std::optional<std::string> échec) {
  const bool premier = échec && !échec_;
  échec_ = std::move(échec);
  if (!premier) return;
  consigner(*échec_);
  if (à_l_échec) à_l_échec();
}

// --- In a file

RegistreFichier::RegistreFichier(const fs::path &fichier, std::chrono::milliseconds patience)
    : fichier_(fichier_réel(fichier)), patience_(patience) {
  balayer_provisoires(fichier_.parent_path());
  lus_ = lire_octets(fichier_);
  if (lus_) mémoire_ = registre_de(*lus_);
}

std::optional<std::string> RegistreFichier::lire(std::string_view clé, std::string_view nom) const {
  return mémoire_.lire(clé, nom);
}

bool RegistreFichier::créer(std::string_view clé) {
  if (mémoire_.existe(clé) && en_attente_.empty()) return true;
  return mémoire_.créer(clé) && garder({clé_nette(clé), std::nullopt, {}, true});
}

bool RegistreFichier::écrire(std::string_view clé, std::string_view nom, std::string_view texte) {
  const bool nouveau = mémoire_.lire(clé, nom) != texte;
  return mémoire_.écrire(clé, nom, texte) &&
         garder({clé_nette(clé), std::string(nom), std::string(texte), nouveau});
}

void RegistreFichier::ensemble(const std::function<void()> &changements) {
  ++ensembles_;
  changements();
  if (--ensembles_ == 0 && !en_attente_.empty()) garder_ce_qui_attend();
}

bool RegistreFichier::garder(Changement changement) {
  en_attente_.push_back(std::move(changement));
  return ensembles_ > 0 || garder_ce_qui_attend();
}

bool RegistreFichier::garder_ce_qui_attend() {
  const auto échec = enregistrer();
  retenir(échec ? std::optional("Les réglages ne sont pas gardés dans « " + lieu() +
                                " » : " + std::string(*échec))
                : std::nullopt);
  return !échec;
}

std::string RegistreFichier::lieu() const {
  return en_clair(fichier_);
}

std::string RegistreFichier::remède() const {
  return "Donnez-vous le droit de lire ce fichier et d'écrire dans le dossier « " +
         en_clair(fichier_.parent_path()) +
         " », faites-y de la place, ou lancez le jeu avec l'option --registre suivie du nom d'un fichier que "
         "vous "
         "pouvez écrire.";
}

std::optional<std::string_view> RegistreFichier::enregistrer() {
  if (fichier_.empty()) return "aucun dossier ne leur est connu";
  // What this run takes for the settings is not what stands there.
  if (!lus_) return "il n'a pas pu être lu";
  std::error_code erreur;
  fs::create_directories(fichier_.parent_path(), erreur);
  if (erreur) return "son dossier ne peut pas être créé";
  fs::path verrou = fichier_;
  const VerrouRegistre tenu(verrou += ".verrou", patience_);
  if (tenu.refusé() && patience_ > patience_.zero()) {
    consigner("Les réglages sont tenus par un autre programme, qui n'avance plus : ils sont écrits sans lui");
    patience_ = patience_.zero();  // a start writes several times and waits once
  }
  auto octets = lire_octets(fichier_);
  if (!octets) return "il ne peut pas être lu";
  const bool des_autres = octets != lus_;
  if (!des_autres && std::ranges::none_of(en_attente_, &Changement::nouveau)) {
    en_attente_.clear();
    return std::nullopt;
  }
  Document document(*octets);
  for (const Changement &changement : en_attente_) {
    if (changement.nom)
      document.écrire(changement.clé, *changement.nom, changement.texte);
    else
      document.créer(changement.clé);
  }
  if (document.est_changé()) {
    octets = document.contenu();
    if (const auto échec = remplacer_fichier(fichier_, *octets)) return échec;
  }
  en_attente_.clear();
  if (des_autres) mémoire_ = registre_de(*octets);
  lus_ = std::move(octets);
  return std::nullopt;
}

std::unique_ptr<RegistreGardé> ouvrir_registre(const fs::path &fichier, bool nommé) {
  if (nommé) return std::make_unique<RegistreFichier>(fichier);
  return registre_du_joueur(fichier);
}

fs::path fichier_registre_par_défaut() {
  const fs::path dossier = dossier_des_réglages();
  return dossier.empty() ? dossier : dossier / "mirabonde" / "registre";
}

}  // namespace ardane
