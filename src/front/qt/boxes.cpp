#include "front/qt/boxes.h"

#include <QMessageBox>
#include <QPushButton>

#include "front/qt/appearance.h"

namespace ardane {
namespace {

QMessageBox::Icon icon_of(Icône icône) {
  switch (icône) {
    case Icône::aucune: return QMessageBox::NoIcon;
    case Icône::information: return QMessageBox::Information;
    case Icône::exclamation: return QMessageBox::Warning;
    case Icône::stop: return QMessageBox::Critical;
    case Icône::question: return QMessageBox::Question;
  }
  return QMessageBox::NoIcon;
}

QPushButton *add_button(QMessageBox &box, const char *name, const char *caption,
                        QMessageBox::ButtonRole role) {
  QPushButton *button = box.addButton(QString::fromUtf8(caption), role);
  button->setObjectName(QString::fromUtf8(name));
  return button;
}

}  // namespace

Réponse BoxesQt::montrer(const Boîte &boîte) {
  // The windows behind show what has been done so far.
  renderer_.sync();
  const ScreenQt::Arrow arrow(screen_);
  const Dispatcher::Waiting waiting(dispatcher_);

  QMessageBox box(icon_of(boîte.icône), to_qt(boîte.titre), to_qt(boîte.texte), QMessageBox::NoButton,
                  renderer_.top_frame());
  box.setObjectName(QStringLiteral("boîte"));
  box.setTextFormat(Qt::PlainText);
  QPushButton *no = nullptr;
  if (boîte.boutons == Boutons::ok) {
    box.setDefaultButton(add_button(box, "ok", "OK", QMessageBox::AcceptRole));
  } else {
    QPushButton *yes = add_button(box, "oui", "Oui", QMessageBox::YesRole);
    no = add_button(box, "non", "Non", QMessageBox::NoRole);
    box.setDefaultButton(boîte.non_par_défaut ? no : yes);
    box.setEscapeButton(no);
  }
  box.setAttribute(Qt::WA_KeyboardFocusChange);  // Enter presses what is marked
  ++up_;
  box.exec();
  --up_;
  if (no == nullptr) return Réponse::ok;
  return box.clickedButton() == nullptr || box.clickedButton() == no ? Réponse::non : Réponse::oui;
}

}  // namespace ardane
