#include "platform/registry_store.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <system_error>

#include "platform/file_replacement.h"
#include "platform/log.h"
#include "platform/registry_key.h"
#include "platform/registry_lock.h"
#include "platform/text.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view marque_utf8 = "\xEF\xBB\xBF";

/// The key without its empty parts.
std::string clé_nette(std::string_view clé) {
  return clé_de(parties_de_clé(clé));
}

bool clé_permise(std::string_view nette) {
  return !nette.empty() && est_utf8(nette) && nette.find_first_of("\r\n") == std::string_view::npos;
}

bool même_nom(std::string_view a, std::string_view b) {
  return en_majuscules(a) == en_majuscules(b);
}

// --- The text of the file

struct Ligne {
  enum class Genre { autre, clé, valeur };
  std::string brute;
  Genre genre = Genre::autre;
  std::string clé;  ///< of a value: the key it stands under
  std::string nom;
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
  for (std::size_t i = 1; i < reste.size(); ++i) {
    char c = reste[i];
    if (c == '"') {
      reste.remove_prefix(i + 1);
      return texte;
    }
    if (c == '\\') {
      if (++i == reste.size()) return std::nullopt;
      c = reste[i];
      if (c == 'n')
        c = '\n';
      else if (c == 'r')
        c = '\r';
      else if (c != '\\' && c != '"')
        return std::nullopt;
    }
    texte.push_back(c);
  }
  return std::nullopt;
}

Ligne ligne_de_clé(std::string_view clé) {
  return {"[" + std::string(clé) + "]", Ligne::Genre::clé, std::string(clé), {}, {}};
}

Ligne ligne_de_valeur(std::string_view clé, std::string_view nom, std::string_view texte) {
  return {entre_guillemets(nom) + "=" + entre_guillemets(texte), Ligne::Genre::valeur, std::string(clé),
          std::string(nom), std::string(texte)};
}

/// `clé` is the key that the line stands under, empty before the first.
Ligne analyser(std::string_view brute, std::string_view clé) {
  Ligne autre{std::string(brute), Ligne::Genre::autre, {}, {}, {}};
  if (!brute.empty() && brute.back() == '\r') brute.remove_suffix(1);
  if (!est_utf8(brute)) return autre;
  if (brute.size() > 2 && brute.front() == '[' && brute.back() == ']') {
    const std::string nette = clé_nette(brute.substr(1, brute.size() - 2));
    return clé_permise(nette) ? ligne_de_clé(nette) : autre;
  }
  if (clé.empty()) return autre;
  const auto nom = lire_guillemets(brute);
  if (!nom || brute.empty() || brute.front() != '=') return autre;
  brute.remove_prefix(1);
  const auto texte = lire_guillemets(brute);
  return texte && brute.empty() ? ligne_de_valeur(clé, *nom, *texte) : autre;
}

class Document {
 public:
  Document() = default;
  explicit Document(std::string_view contenu) {
    if (contenu.substr(0, marque_utf8.size()) == marque_utf8) contenu.remove_prefix(marque_utf8.size());
    std::string clé;
    while (!contenu.empty()) {
      lignes_.push_back(analyser(couper(contenu, '\n'), clé));
      if (lignes_.back().genre == Ligne::Genre::clé) clé = lignes_.back().clé;
    }
  }

  std::string contenu() const {
    std::string texte;
    for (const Ligne &ligne : lignes_) texte.append(ligne.brute).push_back('\n');
    return texte;
  }

  RegistreMémoire registre() const {
    RegistreMémoire registre;
    for (const Ligne &ligne : lignes_) {
      if (ligne.genre == Ligne::Genre::clé) registre.créer(ligne.clé);
      if (ligne.genre == Ligne::Genre::valeur) registre.écrire(ligne.clé, ligne.nom, ligne.texte);
    }
    return registre;
  }

  void créer(std::string_view clé) {
    if (registre().existe(clé)) return;
    if (!lignes_.empty()) lignes_.emplace_back();
    lignes_.push_back(ligne_de_clé(clé));
  }

  void écrire(std::string_view clé, std::string_view nom, std::string_view texte) {
    // Of several values of one name the last counts, so that one changes.
    const auto valeur = std::find_if(lignes_.rbegin(), lignes_.rend(), [&](const Ligne &ligne) {
      return ligne.genre == Ligne::Genre::valeur && même_nom(ligne.clé, clé) && même_nom(ligne.nom, nom);
    });
    if (valeur != lignes_.rend()) {
      if (valeur->texte != texte) *valeur = ligne_de_valeur(valeur->clé, valeur->nom, texte);
      return;
    }
    auto place = dernière_ligne(clé);
    if (place == lignes_.rend()) {
      if (!lignes_.empty()) lignes_.emplace_back();
      lignes_.push_back(ligne_de_clé(clé));
      place = lignes_.rbegin();
    }
    lignes_.insert(place.base(), ligne_de_valeur(clé, nom, texte));
  }

 private:
  std::vector<Ligne>::reverse_iterator dernière_ligne(std::string_view clé) {
    return std::find_if(lignes_.rbegin(), lignes_.rend(), [&](const Ligne &ligne) {
      return ligne.genre != Ligne::Genre::autre && même_nom(ligne.clé, clé);
    });
  }

  std::vector<Ligne> lignes_;
};

/// The document in the file, an empty one where there is no file; nothing if there is one and it cannot be
/// read. Opening a pipe or a device could wait for ever, so only a plain file is opened.
std::optional<Document> lire_document(const fs::path &fichier) {
  std::error_code erreur;
  const fs::file_status état = fs::status(fichier, erreur);
  if (état.type() == fs::file_type::not_found) return Document{};
  if (état.type() != fs::file_type::regular) return std::nullopt;
  std::ifstream flux(fichier, std::ios::binary);
  if (!flux) return std::nullopt;
  std::string contenu;
  for (std::array<char, 4096> morceau{}; flux.read(morceau.data(), morceau.size()), flux.gcount() > 0;)
    contenu.append(morceau.data(), static_cast<std::size_t>(flux.gcount()));
  if (flux.bad()) return std::nullopt;
  return Document(contenu);
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

std::size_t RegistreMémoire::rang(std::string_view clé) const {
  const std::string cherchée = en_majuscules(clé_nette(clé));
  const auto trouvée = std::find_if(clés_.begin(), clés_.end(),
                                    [&](const Clé &c) { return en_majuscules(c.chemin) == cherchée; });
  return static_cast<std::size_t>(trouvée - clés_.begin());
}

bool RegistreMémoire::existe(std::string_view clé) const {
  return rang(clé) < clés_.size();
}

bool RegistreMémoire::créer(std::string_view clé) {
  if (!clé_permise(clé_nette(clé))) return false;
  std::string chemin;
  for (const std::string_view partie : parties_de_clé(clé)) {
    chemin = Joindre_clé(chemin, partie);
    const std::size_t trouvée = rang(chemin);
    // A key below one that exists takes that one's spelling.
    if (trouvée < clés_.size())
      chemin = clés_[trouvée].chemin;
    else
      clés_.push_back({chemin, {}});
  }
  return true;
}

std::optional<std::string> RegistreMémoire::lire(std::string_view clé, std::string_view nom) const {
  const std::size_t trouvée = rang(clé);
  if (trouvée == clés_.size()) return std::nullopt;
  for (const Valeur &valeur : clés_[trouvée].valeurs)
    if (même_nom(valeur.nom, nom)) return valeur.texte;
  return std::nullopt;
}

bool RegistreMémoire::écrire(std::string_view clé, std::string_view nom, std::string_view texte) {
  const std::size_t trouvée = rang(clé);
  if (trouvée == clés_.size() || !est_utf8(nom) || !est_utf8(texte)) return false;
  for (Valeur &valeur : clés_[trouvée].valeurs) {
    if (!même_nom(valeur.nom, nom)) continue;
    valeur.texte = texte;
    return true;
  }
  clés_[trouvée].valeurs.push_back({std::string(nom), std::string(texte)});
  return true;
}

std::vector<std::string> RegistreMémoire::valeurs(std::string_view clé) const {
  std::vector<std::string> noms;
  const std::size_t trouvée = rang(clé);
  if (trouvée == clés_.size()) return noms;
  for (const Valeur &valeur : clés_[trouvée].valeurs) noms.push_back(valeur.nom);
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

// --- In a file

RegistreFichier::RegistreFichier(const fs::path &fichier) : fichier_(fichier_réel(fichier)) {
  if (const auto document = lire_document(fichier_)) mémoire_ = document->registre();
}

std::optional<std::string> RegistreFichier::lire(std::string_view clé, std::string_view nom) const {
  return mémoire_.lire(clé, nom);
}

bool RegistreFichier::créer(std::string_view clé) {
  return mémoire_.créer(clé) && garder({clé_nette(clé), std::nullopt, {}});
}

bool RegistreFichier::écrire(std::string_view clé, std::string_view nom, std::string_view texte) {
  return mémoire_.écrire(clé, nom, texte) && garder({clé_nette(clé), std::string(nom), std::string(texte)});
}

bool RegistreFichier::garder(Changement changement) {
  en_attente_.push_back(std::move(changement));
  const auto échec = enregistrer();
  // A start writes a dozen settings; what hinders the first hinders all.
  const bool premier = échec && !échec_;
  échec_.reset();
  if (échec)
    échec_ = "Les réglages ne sont pas gardés dans « " + fichier_.string() + " » : " + std::string(*échec);
  if (premier) {
    consigner(*échec_);
    if (à_l_échec) à_l_échec();
  }
  return !échec;
}

std::optional<std::string_view> RegistreFichier::enregistrer() {
  if (fichier_.empty()) return "aucun dossier ne leur est connu";
  std::error_code erreur;
  fs::create_directories(fichier_.parent_path(), erreur);
  if (erreur) return "son dossier ne peut pas être créé";
  fs::path verrou = fichier_;
  const VerrouRegistre tenu(verrou += ".verrou");
  auto document = lire_document(fichier_);
  if (!document) return "il ne peut pas être lu";
  const std::string avant = document->contenu();
  for (const Changement &changement : en_attente_) {
    if (changement.nom)
      document->écrire(changement.clé, *changement.nom, changement.texte);
    else
      document->créer(changement.clé);
  }
  const std::string après = document->contenu();
  if (après != avant)
    if (const auto échec = remplacer_fichier(fichier_, après)) return échec;
  en_attente_.clear();
  mémoire_ = document->registre();
  return std::nullopt;
}

fs::path fichier_registre_par_défaut() {
  const auto variable = [](const char *nom) {
    const char *valeur = std::getenv(nom);
    return fs::path(valeur == nullptr ? "" : valeur);
  };
  const fs::path configuration = variable("XDG_CONFIG_HOME");
  if (configuration.is_absolute()) return configuration / "mirabonde" / "registre";
  const fs::path maison = variable("HOME");
  return maison.empty() ? fs::path{} : maison / ".config" / "mirabonde" / "registre";
}

}  // namespace ardane
