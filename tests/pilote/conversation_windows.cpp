// Windows only: the pilot is the program that ships, spoken to through its standard streams.

#include <array>
#include <stdexcept>

#include "conversation.h"
#include "platform/windows_headers.h"
#include "platform/windows_text.h"

namespace ardane {
namespace {

/// The program that lies beside this one.
std::wstring programme_voisin(const wchar_t *nom) {
  std::array<wchar_t, 4096> chemin{};
  GetModuleFileNameW(nullptr, chemin.data(), static_cast<DWORD>(chemin.size()));
  return (std::filesystem::path(chemin.data()).parent_path() / nom).wstring();
}

struct Tuyau {
  explicit Tuyau(bool vers_le_pilote) {
    SECURITY_ATTRIBUTES transmis{sizeof transmis, nullptr, TRUE};
    if (!CreatePipe(&lecture, &écriture, &transmis, 0)) throw std::runtime_error("no pipe");
    SetHandleInformation(vers_le_pilote ? écriture : lecture, HANDLE_FLAG_INHERIT, 0);
  }
  HANDLE lecture = nullptr, écriture = nullptr;
};

struct Processus : Interlocuteur {
  explicit Processus(const std::vector<std::string> &arguments) {
    std::wstring ligne = L'"' + programme_voisin(L"ardane-pilote.exe") + L'"';
    for (const std::string &argument : arguments) ligne += L" \"" + texte_large(argument) + L'"';
    STARTUPINFOW départ{};
    départ.cb = sizeof départ;
    départ.dwFlags = STARTF_USESTDHANDLES;
    départ.hStdInput = vers.lecture;
    départ.hStdOutput = départ.hStdError = depuis.écriture;
    if (!CreateProcessW(nullptr, ligne.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &départ,
                        &processus))
      throw std::runtime_error("the pilot cannot be started");
    CloseHandle(vers.lecture);
    CloseHandle(depuis.écriture);
  }
  ~Processus() override {
    CloseHandle(vers.écriture);
    WaitForSingleObject(processus.hProcess, INFINITE);
    for (const HANDLE poignée : {depuis.lecture, processus.hThread, processus.hProcess}) CloseHandle(poignée);
  }
  Processus(const Processus &) = delete;
  Processus &operator=(const Processus &) = delete;

  Réplique répondre(const std::string &commande) override {
    const std::string dite = commande + "\n";
    DWORD écrits = 0;
    WriteFile(vers.écriture, dite.data(), static_cast<DWORD>(dite.size()), &écrits, nullptr);
    Réplique réplique;
    while (réplique.attend().empty()) {
      const auto lue = ligne();
      fini = !lue;
      if (!lue) break;
      réplique.lignes.push_back(Json::parse(*lue));
    }
    if (réplique.attend() == "fin") {
      fini = true;
      code = réplique.lignes.back().value("code", 0);
    }
    return réplique;
  }
  /// Nothing once the pilot has left.
  std::optional<std::string> ligne() {
    std::size_t fin = 0;
    while ((fin = reçu.find('\n')) == std::string::npos) {
      std::array<char, 65536> morceau{};
      DWORD lus = 0;
      if (!ReadFile(depuis.lecture, morceau.data(), static_cast<DWORD>(morceau.size()), &lus, nullptr) ||
          lus == 0)
        return std::nullopt;
      reçu.append(morceau.data(), lus);
    }
    std::string lue = reçu.substr(0, fin);
    reçu.erase(0, fin + 1);
    return lue;
  }

  Tuyau vers{true}, depuis{false};
  PROCESS_INFORMATION processus{};
  std::string reçu;
};

}  // namespace

Conversation::Conversation(const std::vector<std::string> &arguments)
    : pilote_(std::make_unique<Processus>(arguments)) {}

}  // namespace ardane
