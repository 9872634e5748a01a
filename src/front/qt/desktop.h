// The desktop program: one run over the real world.
#pragma once

#include <QEventLoop>
#include <QPointer>
#include <QTimer>
#include <QTranslator>
#include <filesystem>
#include <memory>
#include <string>

#include "core/resources.h"
#include "front/qt/accessibility.h"
#include "front/qt/boxes.h"
#include "front/qt/dispatcher.h"
#include "front/qt/heartbeat.h"
#include "front/qt/help_window.h"
#include "front/qt/on_demand.h"
#include "front/qt/one_instance.h"
#include "front/qt/picture_store.h"
#include "front/qt/renderer.h"
#include "front/qt/screen.h"
#include "front/qt/window_memory.h"
#include "platform/random_source.h"
#include "platform/registry_store.h"
#include "platform/system_clock.h"
#include "services/spoken_game.h"
#include "startup/program.h"

namespace ardane {

/// Where a run finds its files.
struct DesktopPlaces {
  std::string programme;           ///< the program's folder
  std::filesystem::path registre;  ///< the file of settings
  std::string dossier;             ///< the current folder at the start
  bool sans_cadre = false;         ///< a window without a frame at the top of the primary monitor, at scale 1
  bool partagé = false;            ///< another run may be writing the same score file
  std::filesystem::path secours{};  ///< what is kept of a run beside the player's files; empty for nothing
  std::string fichier{};  ///< a saved game or a configuration to begin with, a complete path; empty for none
  bool registre_nommé =
      true;  ///< that file has the settings even where the system has a store of its own for them
};

/// One run of the program in the desktop's windows. Needs a QApplication.
class Desktop : public QObject {
 public:
  Desktop(const DesktopPlaces &places, const Ressources &ressources);
  ~Desktop() override;

  /// Starts the program. False if it ended at once; it has then told the player why.
  bool start();
  /// Plays until the main window has closed.
  void play();

  /// Brings what the player has to do with to the front: the main window, or what waits above it. `token` is
  /// what his desktop has given another program to do so.
  void come_to_front(const std::string &token);

  /// From now on each later instance brings it to the front.
  void heed(OneInstance &instance);

  /// Ends the process, asked from outside: as the close control does that is not refused, but without a word,
  /// and with the game under way for the next start, since it is not the player who gives it up.
  void end_unasked();

  /// Decodes every picture that the map can show, flags included; they come one by one otherwise, each when
  /// it is first shown.
  void load_all_pictures();

  /// True while a procedure of the program is at work, and does not wait for the player.
  bool busy() const { return dispatcher_.busy(); }

  Programme &programme() { return programme_; }
  Renderer &renderer() { return renderer_; }
  PictureStore &pictures() { return pictures_; }
  HelpQt &help() { return help_; }

 private:
  void frame_main_window();
  void keep_window();
  bool eventFilter(QObject *watched, QEvent *event) override;
  /// The player has let go of the window's edge, or of its title bar.
  void window_rests();
  void speak();
  void take_scores_of_others();
  /// What can wait until the player has the map before him.
  void settle();
  void tell_missing_pictures();
  void tell_unkept_settings();
  /// Why the program cannot start, if that is known.
  std::optional<std::string> what_hinders_the_start() const;

  const DesktopPlaces places_;
  Dispatcher dispatcher_;
  ScreenQt screen_;
  PictureStore pictures_;
  std::unique_ptr<RegistreGardé> registry_;
  WindowMemory memory_;
  Renderer renderer_;
  BoxesQt boxes_;
  SoundOnDemand sound_;
  HorlogeSystème clock_;
  HasardSemé random_;
  WebOnDemand web_{screen_};
  HelpQt help_;
  Programme programme_;
  Heartbeat heartbeat_;
  bool unkept_settings_told_ = false;
  QPointer<WindowView> screen_view_;  ///< of the window that is the program's screen; null without a frame
  std::pair<std::filesystem::path, std::filesystem::file_time_type> scores_seen_;
  QTimer rest_;
  QPointer<Speech> speech_;
  Partie_entendue heard_;
  QTranslator translator_;  ///< of the toolkit's own words
  QEventLoop loop_;
};

}  // namespace ardane
