#include "front/qt/renderer.h"

#include <QCoreApplication>
#include <algorithm>

#include "front/qt/style.h"

namespace ardane {

Renderer::Renderer(Dispatcher &dispatcher, PictureStore &pictures, ScreenQt &screen)
    : dispatcher_(dispatcher), pictures_(pictures), screen_(screen) {
  install_style();
  dispatcher_.after_event = [this] { sync(); };
}

Renderer::~Renderer() {
  dispatcher_.after_event = {};
  // From the top down: each Qt window is a child of those below it.
  while (!views_.empty()) views_.pop_back();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

WindowView *Renderer::find(const Fenêtre &window) const {
  const auto found = std::ranges::find_if(views_, [&](const auto &v) { return &v->window() == &window; });
  return found == views_.end() ? nullptr : found->get();
}

WindowView &Renderer::view(Fenêtre &window) {
  if (WindowView *known = find(window)) return *known;
  QWidget *parent = nullptr;
  for (const auto &below : views_)
    if (!window.est_principale && (below->window().est_principale || below->waiting != nullptr))
      parent = &below->frame();
  const WindowParts parts{dispatcher_, pictures_, screen_, guide};
  views_.push_back(std::make_unique<WindowView>(window, parts, events_of(window), parent));
  return *views_.back();
}

WindowEvents Renderer::events_of(Fenêtre &window) {
  return {
      .activated = [this, &window] { activate(window); },
      .moved =
          [this, &window] {
            if (moved && find(window) != nullptr && find(window)->frame().isVisible())
              dispatcher_.run_when_idle([this, &window] {
                if (find(window) != nullptr) moved(window);
              });
          },
      .close_asked = [this, &window] { ask_to_close(window); },
      .help_asked =
          [this, &window] {
            if (help) dispatcher_.run([this, &window] { help(window); });
          },
      .entered = [this, &window] { press(window, window.bouton_défaut); },
      .escaped = [this, &window] { press(window, window.bouton_annulation); },
      .fitted =
          [this] {
            if (fitted) fitted();
          },
  };
}

WindowView &Renderer::play_in(Fenêtre &window, QSize needed) {
  WindowView &main = view(window);
  main.become_screen(needed);
  return main;
}

void Renderer::activate(Fenêtre &window) {
  // Coming back from a message box or from another program is no activation.
  if (active_ == &window || find(window) == nullptr) return;
  active_ = &window;
  dispatcher_.run_when_idle([this, &window] {
    if (find(window) != nullptr && window.ouverte && window.activation) window.activation();
  });
}

void Renderer::ask_to_close(Fenêtre &window) {
  if (find(window) == nullptr || !window.fermable || dispatcher_.busy()) return;
  dispatcher_.run([&] { demander_fermeture(window); });
}

void Renderer::press(const Fenêtre &window, Contrôle *button) {
  if (find(window) == nullptr || dispatcher_.busy()) return;
  dispatcher_.run([&] { presser(button); });
}

void Renderer::put_up(Fenêtre &window, Qt::WindowModality modality) {
  window.ouverte = true;
  premier_focus(window);
  WindowView &shown = view(window);
  sync();
  shown.show(modality);
}

void Renderer::montrer(Fenêtre &fenêtre) {
  put_up(fenêtre, Qt::NonModal);
}

void Renderer::montrer_modale(Fenêtre &fenêtre) {
  put_up(fenêtre, Qt::ApplicationModal);
  QEventLoop loop;
  find(fenêtre)->waiting = &loop;
  {
    const Dispatcher::Waiting waiting(dispatcher_);
    const ScreenQt::Arrow arrow(screen_);
    while (fenêtre.ouverte) loop.exec();
  }
  remove(fenêtre);
}

void Renderer::retirer(Fenêtre &fenêtre) {
  fenêtre.ouverte = false;
  remove(fenêtre);
}

void Renderer::remove(const Fenêtre &window) {
  const auto found = std::ranges::find_if(views_, [&](const auto &v) { return &v->window() == &window; });
  if (found == views_.end()) return;
  if (active_ == &window) active_ = nullptr;
  const std::unique_ptr<WindowView> gone = std::move(*found);
  views_.erase(found);
  gone->hide();
  if (views_.empty() && last_closed) last_closed();
}

void Renderer::repeindre(Fenêtre &fenêtre) {
  WindowView &shown = view(fenêtre);
  if (!shown.frame().isVisible()) return shown.sync_window();
  shown.sync();
  shown.await_first_paint();
}

Rect Renderer::rectangle(const Fenêtre &fenêtre, const Contrôle &contrôle) const {
  const WindowView *known = find(fenêtre);
  return known == nullptr ? Rect{} : known->rectangle(contrôle);
}

void Renderer::sync() {
  // Closed windows first: their focus and activation are of no interest any more.
  for (std::size_t i = views_.size(); i-- > 0;) {
    WindowView &view = *views_[i];
    if (view.window().ouverte || !view.frame().isVisible()) continue;
    if (view.waiting != nullptr)
      view.waiting->quit();
    else
      remove(view.window());
  }
  for (const auto &view : views_)
    if (view->window().ouverte) view->sync();
  if (synced) synced();
}

void Renderer::close_top() {
  const auto top =
      std::find_if(views_.rbegin(), views_.rend(), [](const auto &v) { return v->frame().isVisible(); });
  if (top == views_.rend()) return;
  (*top)->window().fermer();
  sync();
}

QWidget *Renderer::top_frame() const {
  QWidget *top = nullptr;
  for (const auto &view : views_)
    if (view->frame().isVisible()) top = &view->frame();
  return top;
}

QWidget *Renderer::frame(const Fenêtre &window) const {
  const WindowView *known = find(window);
  return known == nullptr ? nullptr : &known->frame();
}

}  // namespace ardane
