#include "front/qt/modal_companion.h"

#include <QApplication>
#include <QEvent>
#include <QWindow>

namespace ardane {

ModalCompanion::ModalCompanion(QWidget &window) : QObject(&window), window_(window) {
  window.installEventFilter(this);
}

bool ModalCompanion::eventFilter(QObject *watched, QEvent *event) {
  // A window hears that it is shown before it locks others out, and that it is hidden once it no longer does.
  const bool shown = event->type() == QEvent::Show;
  if (!shown && event->type() != QEvent::Hide) return false;
  if (watched == &window_) {
    if (shown) {
      qApp->installEventFilter(this);
      belong_to(QApplication::activeModalWidget());
    } else {
      qApp->removeEventFilter(this);
    }
  } else if (watched->isWidgetType()) {
    const auto &other = static_cast<const QWidget &>(*watched);
    if (other.isWindow() && other.isModal()) belong_to(shown ? &other : QApplication::activeModalWidget());
  }
  return false;
}

void ModalCompanion::belong_to(const QWidget *modal) {
  QWindow *own = window_.windowHandle();
  QWindow *theirs = modal == nullptr ? nullptr : modal->windowHandle();
  // A modal window of this very window's locks it out by right.
  if (theirs == nullptr || !own->isAncestorOf(theirs, QWindow::IncludeTransients))
    own->setTransientParent(theirs);
}

}  // namespace ardane
