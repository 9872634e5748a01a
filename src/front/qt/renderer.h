// The front end's windows: what the program shows, and what its events call.
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "front/qt/window_view.h"
#include "platform/services.h"

namespace ardane {

/// Keeps every window on the screen in step with its data after each event and before whatever waits for the
/// player. A window goes from the screen when it is taken off or when its data says that it is closed; it
/// must be taken off before its data is destroyed.
class Renderer : public QObject, public Façade {
 public:
  Renderer(Dispatcher &dispatcher, PictureStore &pictures, ScreenQt &screen);
  ~Renderer() override;

  void montrer(Fenêtre &fenêtre) override;
  void montrer_modale(Fenêtre &fenêtre) override;
  void retirer(Fenêtre &fenêtre) override;
  void repeindre(Fenêtre &fenêtre) override;
  Rect rectangle(const Fenêtre &fenêtre, const Contrôle &contrôle) const override;

  /// Makes a window that has not been shown yet the program's screen, by whose size its contents are scaled.
  WindowView &play_in(Fenêtre &window, QSize needed);

  /// Closes the window above the others, without asking its own handler.
  void close_top();
  /// Brings all windows in step with their data.
  void sync();
  /// The Qt window above the others on the screen; null if there is none.
  QWidget *top_frame() const;
  /// The scale of the program's screen.
  Scale scale() const { return screen_.scale(); }
  /// The Qt window of a window that has been shown or measured; null before.
  QWidget *frame(const Fenêtre &window) const;

  /// What the map is asked about; empty where there is no game.
  MapGuide guide;
  /// All windows have been brought in step with their data.
  std::function<void()> synced;
  /// The F1 key in a window.
  std::function<void(const Fenêtre &)> help;
  /// The window manager has moved a window that is on the screen.
  std::function<void(Fenêtre &)> moved;
  /// The player has given the window that is the program's screen another size, or its contents another
  /// scale.
  std::function<void()> fitted;
  /// The last window has gone from the screen.
  std::function<void()> last_closed;

 private:
  WindowView &view(Fenêtre &window);
  WindowView *find(const Fenêtre &window) const;
  void put_up(Fenêtre &window, Qt::WindowModality modality);
  void remove(const Fenêtre &window);
  WindowEvents events_of(Fenêtre &window);
  void activate(Fenêtre &window);
  void ask_to_close(Fenêtre &window);
  void press(const Fenêtre &window, Contrôle *button);

  Dispatcher &dispatcher_;
  PictureStore &pictures_;
  ScreenQt &screen_;
  std::vector<std::unique_ptr<WindowView>> views_;  ///< the lowest first
  const Fenêtre *active_ = nullptr;
};

}  // namespace ardane
