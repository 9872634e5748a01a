// Systems other than Windows: the pilot is a thread of this process, which a debugger follows.
#include <semaphore>
#include <sstream>
#include <streambuf>
#include <thread>

#include "conversation.h"
#include "front/pilote/pilot.h"

namespace ardane {
namespace {

/// The pilot's thread and the test's take turns: one of them always waits.
struct Fil : Interlocuteur {
  /// Where the pilot reads: to ask for a line is to end its turn.
  class Entrée : public std::streambuf {
   public:
    explicit Entrée(Fil &fil) : fil_(fil) {}

   private:
    int_type underflow() override {
      fil_.tour_du_test.release();
      fil_.tour_du_pilote.acquire();
      if (fil_.muet) return traits_type::eof();
      ligne_ = fil_.commande + "\n";
      setg(ligne_.data(), ligne_.data(), ligne_.data() + ligne_.size());
      return traits_type::to_int_type(ligne_.front());
    }
    Fil &fil_;
    std::string ligne_;
  };

  explicit Fil(const OptionsPilote &options) : pilote(flux_entrée, sortie, options) {
    fil = std::thread([this] {
      code = pilote.exécuter();
      fini = true;
      tour_du_test.release();
    });
    tour_du_test.acquire();
  }

  ~Fil() override {
    if (!fini) {
      muet = true;
      tour_du_pilote.release();
    }
    fil.join();
  }
  Fil(const Fil &) = delete;
  Fil &operator=(const Fil &) = delete;

  Réplique répondre(const std::string &dite) override {
    commande = dite;
    tour_du_pilote.release();
    tour_du_test.acquire();
    std::istringstream lignes(sortie.str());
    sortie.str({});
    Réplique réplique;
    for (std::string ligne; std::getline(lignes, ligne);) réplique.lignes.push_back(Json::parse(ligne));
    return réplique;
  }

  std::vector<Fenêtre *> fenêtres() const override { return pilote.monde().façade.fenêtres(); }

  std::binary_semaphore tour_du_test{0}, tour_du_pilote{0};
  std::string commande;
  bool muet = false;  ///< nothing more will be said
  Entrée entrée{*this};
  std::istream flux_entrée{&entrée};
  std::ostringstream sortie;
  Pilote pilote;
  std::thread fil;
};

}  // namespace

Conversation::Conversation(const OptionsPilote &options) : pilote_(std::make_unique<Fil>(options)) {}

Conversation::Conversation(const std::vector<std::string> &arguments)
    : Conversation(lire_options(arguments)) {}

}  // namespace ardane
