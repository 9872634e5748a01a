// Windows only: the system's registry, whose keys and names of values are the program's own.

#include <algorithm>
#include <array>

#include "platform/registry_key.h"
#include "platform/registry_store.h"
#include "platform/text.h"
#include "platform/windows_headers.h"
#include "platform/windows_text.h"

namespace ardane {
namespace {

struct Racine {
  std::string_view nom;
  HKEY clé;
};

const std::array racines = std::to_array<Racine>({
    {"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT},
    {"HKEY_CURRENT_USER", HKEY_CURRENT_USER},
    {"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE},
    {"HKEY_USERS", HKEY_USERS},
    {"HKEY_PERFORMANCE_DATA", HKEY_PERFORMANCE_DATA},
    {"HKEY_CURRENT_CONFIG", HKEY_CURRENT_CONFIG},
});

struct Chemin {
  HKEY racine = nullptr;
  std::wstring reste;  ///< below the root
};

Chemin lire_chemin(std::string_view clé) {
  auto parties = parties_de_clé(clé);
  if (parties.empty() || parties.size() > parties_au_plus) return {};
  const std::string nom = en_majuscules(parties.front());
  parties.erase(parties.begin());
  for (const Racine &racine : racines)
    if (racine.nom == nom) return {racine.clé, texte_large(clé_de(parties))};
  return {};
}

/// A key for as long as it is at work on.
class Clé_ouverte {
 public:
  Clé_ouverte(std::string_view clé, REGSAM droits) {
    const Chemin chemin = lire_chemin(clé);
    résultat_ = chemin.racine == nullptr
                    ? ERROR_FILE_NOT_FOUND
                    : RegOpenKeyExW(chemin.racine, chemin.reste.c_str(), 0, droits, &clé_);
  }
  ~Clé_ouverte() {
    if (est_ouverte()) RegCloseKey(clé_);
  }
  Clé_ouverte(const Clé_ouverte &) = delete;
  Clé_ouverte &operator=(const Clé_ouverte &) = delete;

  bool est_ouverte() const { return résultat_ == ERROR_SUCCESS; }
  LSTATUS résultat() const { return résultat_; }
  HKEY get() const { return clé_; }

 private:
  HKEY clé_ = nullptr;
  LSTATUS résultat_;
};

struct Valeur {
  DWORD type = REG_NONE;
  std::wstring texte;
};

bool est_un_texte(DWORD type) {
  return type == REG_SZ || type == REG_EXPAND_SZ;
}

/// Nothing if there is no such value, or none that is a text.
std::optional<Valeur> lire_valeur(HKEY clé, const std::wstring &nom) {
  Valeur valeur;
  std::vector<wchar_t> tampon(256);
  LSTATUS lu = ERROR_MORE_DATA;
  DWORD octets = 0;
  while (lu == ERROR_MORE_DATA) {
    octets = static_cast<DWORD>(tampon.size() * sizeof(wchar_t));
    lu = RegQueryValueExW(clé, nom.c_str(), nullptr, &valeur.type, reinterpret_cast<BYTE *>(tampon.data()),
                          &octets);
    if (lu == ERROR_MORE_DATA) tampon.resize(2 * tampon.size());
  }
  if (lu != ERROR_SUCCESS || !est_un_texte(valeur.type)) return std::nullopt;
  valeur.texte.assign(tampon.data(), octets / sizeof(wchar_t));
  valeur.texte.resize(std::min(valeur.texte.find(L'\0'), valeur.texte.size()));
  return valeur;
}

/// All the names that `énumérer(rank, buffer, length)` gives, until it gives no more.
std::vector<std::string> noms(const auto &énumérer) {
  constexpr DWORD plus_long_nom = 16384;  // which is a value's
  std::vector<std::string> trouvés;
  std::vector<wchar_t> tampon(plus_long_nom);
  for (DWORD rang = 0;; ++rang) {
    DWORD longueur = plus_long_nom;
    if (énumérer(rang, tampon.data(), &longueur) != ERROR_SUCCESS) return trouvés;
    trouvés.push_back(texte_utf8({tampon.data(), longueur}));
  }
}

class RegistreWindows : public RegistreGardé {
 public:
  bool existe(std::string_view clé) const override { return Clé_ouverte(clé, KEY_READ).est_ouverte(); }

  bool créer(std::string_view clé) override {
    const Chemin chemin = lire_chemin(clé);
    if (chemin.racine == nullptr || !est_utf8(clé)) return false;
    HKEY faite = nullptr;
    const LSTATUS résultat = RegCreateKeyExW(chemin.racine, chemin.reste.c_str(), 0, nullptr, 0, KEY_READ,
                                             nullptr, &faite, nullptr);
    if (résultat == ERROR_SUCCESS) RegCloseKey(faite);
    return gardé(clé, résultat);
  }

  std::optional<std::string> lire(std::string_view clé, std::string_view nom) const override {
    const Clé_ouverte ouverte(clé, KEY_READ);
    if (!ouverte.est_ouverte()) return std::nullopt;
    const auto valeur = lire_valeur(ouverte.get(), texte_large(nom));
    return valeur ? std::optional(texte_utf8(valeur->texte)) : std::nullopt;
  }

  bool écrire(std::string_view clé, std::string_view nom, std::string_view texte) override {
    if (!est_utf8(nom) || !est_utf8(texte)) return false;
    const Clé_ouverte ouverte(clé, KEY_READ | KEY_SET_VALUE);
    if (ouverte.résultat() == ERROR_FILE_NOT_FOUND) return false;
    if (!ouverte.est_ouverte()) return gardé(clé, ouverte.résultat());
    const std::wstring large = texte_large(texte), nom_large = texte_large(nom);
    // A sound of the system's may be named by a variable: given back, it is still read as one.
    const auto ancienne = lire_valeur(ouverte.get(), nom_large);
    const auto octets = static_cast<DWORD>((large.size() + 1) * sizeof(wchar_t));
    return gardé(clé, RegSetValueExW(ouverte.get(), nom_large.c_str(), 0, ancienne ? ancienne->type : REG_SZ,
                                     reinterpret_cast<const BYTE *>(large.c_str()), octets));
  }

  std::vector<std::string> valeurs(std::string_view clé) const override {
    const Clé_ouverte ouverte(clé, KEY_READ);
    if (!ouverte.est_ouverte()) return {};
    return noms([&](DWORD rang, wchar_t *nom, DWORD *longueur) {
      return RegEnumValueW(ouverte.get(), rang, nom, longueur, nullptr, nullptr, nullptr, nullptr);
    });
  }

  std::vector<std::string> sous_clés(std::string_view clé) const override {
    if (parties_de_clé(clé).empty()) {
      std::vector<std::string> toutes;
      for (const Racine &racine : racines) toutes.emplace_back(racine.nom);
      return toutes;
    }
    const Clé_ouverte ouverte(clé, KEY_READ);
    if (!ouverte.est_ouverte()) return {};
    return noms([&](DWORD rang, wchar_t *nom, DWORD *longueur) {
      return RegEnumKeyExW(ouverte.get(), rang, nom, longueur, nullptr, nullptr, nullptr, nullptr);
    });
  }

  std::string lieu() const override { return "dans la base de registre de Windows"; }

  std::string remède() const override {
    return "Demandez le droit d'écrire dans la base de registre à qui administre cet ordinateur, ou lancez "
           "le jeu "
           "avec l'option --registre suivie du nom d'un fichier que vous pouvez écrire.";
  }

 private:
  bool gardé(std::string_view clé, LSTATUS résultat) {
    const bool fait = résultat == ERROR_SUCCESS;
    retenir(fait ? std::nullopt
                 : std::optional("Les réglages ne sont pas gardés dans la clé « " + std::string(clé) +
                                 " » : le système la refuse (erreur " + std::to_string(résultat) + ")"));
    return fait;
  }
};

}  // namespace

std::unique_ptr<RegistreGardé> registre_du_joueur(const std::filesystem::path &) {
  return std::make_unique<RegistreWindows>();
}

}  // namespace ardane
