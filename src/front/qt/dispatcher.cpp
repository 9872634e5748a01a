#include "front/qt/dispatcher.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <cstdlib>
#include <exception>

namespace ardane {

void Dispatcher::run(const Event &event) {
  if (!event || ended_) return;
  const bool was_busy = busy_;
  busy_ = true;
  ++depth_;
  try {
    if (depth_ == 1 && before_event) before_event();
    event();
    if (after_event) after_event();
  } catch (const std::exception &error) {
    end_with(error.what());
  } catch (...) {
    end_with("cause inconnue");
  }
  --depth_;
  busy_ = was_busy;
}

void Dispatcher::run_when_idle(const Event &event) {
  if (!event) return;
  if (!busy_) return run(event);
  QTimer::singleShot(0, &put_off_, [this, event] { run_when_idle(event); });
}

void Dispatcher::end_with(const char *what) {
  ended_ = true;
  while (QGuiApplication::overrideCursor() != nullptr) QGuiApplication::restoreOverrideCursor();
  const std::optional<std::string> known = explain ? explain() : std::nullopt;
  const QString text =
      known ? QString::fromStdString(*known)
            : QStringLiteral("Une erreur imprévue arrête le programme : %1").arg(QString::fromUtf8(what));
  QMessageBox box(QMessageBox::Critical, QStringLiteral("L'Ardane et ses provinces"), text,
                  QMessageBox::NoButton, QApplication::activeWindow());
  box.setObjectName(QStringLiteral("erreur_fatale"));
  box.setTextFormat(Qt::PlainText);
  box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole)->setObjectName(QStringLiteral("ok"));
  box.exec();
  std::fflush(nullptr);
  // Not exit(): destructors would run parts of the program whose state is no longer to be trusted.
  std::_Exit(1);
}

}  // namespace ardane
