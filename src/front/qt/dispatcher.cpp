#include "front/qt/dispatcher.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace ardane {
namespace {

/// Time enough to paint what an event has changed.
constexpr std::chrono::milliseconds painting_time{5};

/// Not exit(): destructors would run parts of the program that are in the middle of something, or whose state
/// is no longer to be trusted.
[[noreturn]] void end_at_once(int code) {
  std::fflush(nullptr);
  std::_Exit(code);
}

}  // namespace

Dispatcher::Dispatcher() {
  rest_.setSingleShot(true);
  rest_.setInterval(painting_time);
  QObject::connect(&rest_, &QTimer::timeout, &rest_, [this] {
    if (depth_ == 0) rest();
  });
}

void Dispatcher::run(const Event &event) {
  if (!event || ended_) return;
  if (depth_ == 0 && rest_.isActive()) rest();
  carry_out(event);
  if (depth_ == 0 && at_rest) rest_.start();
}

void Dispatcher::run_tick(const Event &event) {
  if (event && !ended_) carry_out(event);
}

void Dispatcher::carry_out(const Event &event) {
  const bool was_busy = busy_;
  busy_ = true;
  ++depth_;
  guard([&] {
    if (depth_ == 1 && before_event) before_event();
    event();
    if (after_event) after_event();
  });
  --depth_;
  busy_ = was_busy;
}

void Dispatcher::rest() {
  guard(at_rest);
}

void Dispatcher::guard(const Event &event) {
  try {
    event();
  } catch (const std::exception &error) {
    end_with(error.what());
  } catch (...) {
    end_with("cause inconnue");
  }
}

void Dispatcher::run_when_idle(const Event &event) {
  if (!busy_) return run(event);
  QTimer::singleShot(0, &put_off_, [this, event] { run_when_idle(event); });
}

void Dispatcher::end_with(const char *what) {
  ended_ = true;
  while (QGuiApplication::overrideCursor() != nullptr) QGuiApplication::restoreOverrideCursor();
  const std::optional<std::string> known = explain ? explain() : std::nullopt;
  QString text =
      known ? QString::fromStdString(*known) : QStringLiteral("Une erreur imprévue arrête le programme.");
  if (is_game_kept && is_game_kept())
    text.prepend(
        QStringLiteral("Votre partie est mise de côté : elle vous sera proposée au prochain lancement du "
                       "jeu.\n\n"));
  QMessageBox box(QMessageBox::Critical, QStringLiteral("L'Ardane et ses provinces"), text,
                  QMessageBox::NoButton, QApplication::activeWindow());
  box.setObjectName(QStringLiteral("erreur_fatale"));
  box.setTextFormat(Qt::PlainText);
  // For whoever looks for the fault.
  if (!known)
    box.setInformativeText(QStringLiteral("<small>%1</small>").arg(QString::fromUtf8(what).toHtmlEscaped()));
  box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole)->setObjectName(QStringLiteral("ok"));
  box.exec();
  end_at_once(1);
}

void Dispatcher::end_when_idle(const Event &last) {
  if (ended_) end_at_once(1);
  if (busy_) return QTimer::singleShot(0, &put_off_, [this, last] { end_when_idle(last); });
  if (depth_ == 0 && rest_.isActive()) rest();
  ended_ = true;
  guard(last);
  end_at_once(0);
}

}  // namespace ardane
