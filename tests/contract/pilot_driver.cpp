// The contract over the pilot: gestures are its commands, what the player finds is what it reports.
#include <deque>
#include <sstream>
#include <stdexcept>

#include "driver.h"
#include "front/pilote/commands.h"
#include "front/pilote/event_lines.h"
#include "front/pilote/options.h"
#include "front/pilote/refusal.h"

namespace ardane {
namespace {

/// A text as the last argument of a command.
std::string escaped(const std::string &text) {
  std::string line;
  for (const char c : text) {
    if (c == '\n')
      line += "\\n";
    else
      line += c == '\\' ? "\\\\" : std::string(1, c);
  }
  return line;
}

class PilotDriver : public Driver, private Attente {
 public:
  PilotDriver() {
    main_window().ouverte = true;
    main_window().tic = [] {};
  }

  Façade &windows() override { return world_.façade; }
  Boîtes &boxes() override { return world_.boîtes; }
  Ecran_principal &main_window() override { return program_.principale(); }

  bool click(const std::string &control) override { return say("clic " + control); }
  bool double_click(const std::string &control) override { return say("double_clic " + control); }
  bool click_map(int x, int y) override {
    return say("clic_carte " + std::to_string(x) + " " + std::to_string(y));
  }
  bool press_enter(const std::string &control) override { return say("entrée " + control); }
  bool type(const std::string &control, const std::string &text) override {
    return say("texte " + control + " " + escaped(text));
  }
  bool select(const std::string &control, int rank) override {
    return say("sélection " + control + " #" + std::to_string(rank));
  }
  bool move_bar(const std::string &control, int value) override {
    return say("valeur " + control + " " + std::to_string(value));
  }
  bool choose(const std::string &menu_entry) override { return say("menu " + menu_entry); }
  bool close() override { return say("fermer"); }
  bool answer(const std::string &word) override { return say("répondre " + word); }
  bool beat() override { return say("tic 1"); }

  bool shows(const std::string &control) override {
    const Json report = read(control);
    return !report.is_null() && report["visible"].get<bool>();
  }
  std::string text(const std::string &control) override { return read(control)["texte"]; }
  bool marked(const std::string &control) override { return read(control)["coché"]; }
  std::vector<std::string> items(const std::string &control) override { return read(control)["éléments"]; }
  int choice(const std::string &control) override { return read(control)["choix"]; }
  int value(const std::string &control) override { return read(control)["valeur"]; }
  std::string focus() override {
    say("contrôles");
    for (const Json &control : report("contrôles"))
      if (control.value("focus", false)) return control["nom"];
    return {};
  }
  std::string top() override {
    if (world_.boîtes.affichée() != nullptr) return "boîte";
    const Fenêtre *window = world_.façade.dessus();
    return window == nullptr ? "" : window->nom;
  }

  void then(std::function<void()> step) override { steps_.push_back(std::move(step)); }
  bool all_done() const override { return steps_.empty(); }

 private:
  Réponse attendre_réponse(const Boîte &) override {
    session_.réponse.reset();
    play_until([this] { return session_.réponse.has_value(); });
    return *session_.réponse;
  }
  void attendre_fermeture(Fenêtre &window) override {
    play_until([&] { return !window.ouverte; });
  }
  void play_until(const std::function<bool()> &done) {
    while (!done()) {
      if (steps_.empty()) throw std::logic_error("nobody closes what waits");
      const std::function<void()> step = std::move(steps_.front());
      steps_.pop_front();
      step();
    }
  }
  /// Carries out a command as the pilot does. False if it is refused.
  bool say(const std::string &line) {
    out_.str({});
    bool taken = true;
    try {
      exécuter_commande(session_, line);
    } catch (const Refus &) {
      taken = false;
    }
    world_.façade.suivre();
    return taken;
  }
  /// What stands under a key in the first line of the last answer; null if there is none.
  Json report(const char *key) const {
    std::istringstream lines(out_.str());
    std::string line;
    std::getline(lines, line);
    return line.empty() ? Json() : Json::parse(line).value(key, Json());
  }
  Json read(const std::string &control) {
    say("contrôle " + control);
    return report("contrôle");
  }

  std::deque<std::function<void()>> steps_;
  std::ostringstream out_;
  Journal journal_{out_};
  OptionsPilote options_;
  Récit events_{journal_};
  MondeScripté world_{options_, events_, *this};
  Programme program_{world_.monde(), ressources_du_programme(), options_.dossier};
  Session session_{journal_, world_, program_, ressources_du_programme().images, ""};
};

}  // namespace

std::unique_ptr<Driver> make_pilot_driver() {
  return std::make_unique<PilotDriver>();
}

}  // namespace ardane
