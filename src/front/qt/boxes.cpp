#include "front/qt/boxes.h"

#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <memory>

#include "front/qt/appearance.h"
#include "front/qt/child.h"

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

/// A text that would make the box taller than half the screen scrolls in it: lines are counted, since to lay
/// out ten thousand of them takes as long as to show them.
void let_long_text_scroll(QMessageBox &box) {
  constexpr int characters_of_a_line = 50;
  const QSize room = box.screen()->availableSize() / 2;
  const QString text = box.text();
  if (text.count(u'\n') * box.fontMetrics().lineSpacing() < room.height()) return;
  auto *label = box.findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
  auto *grid = qobject_cast<QGridLayout *>(box.layout());
  if (label == nullptr || grid == nullptr) return;
  auto *scrolling = make_child<QPlainTextEdit>(text, &box);
  scrolling->setObjectName(QStringLiteral("texte"));
  scrolling->setAccessibleName(box.windowTitle());
  scrolling->setReadOnly(true);
  scrolling->setTabChangesFocus(true);
  scrolling->setMinimumSize(
      std::min(characters_of_a_line * box.fontMetrics().averageCharWidth(), room.width()), room.height());
  const std::unique_ptr<QLayoutItem> old(grid->replaceWidget(label, scrolling));
  label->hide();
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
  let_long_text_scroll(box);
  QPushButton *no = nullptr;
  if (boîte.boutons == Boutons::ok) {
    box.setDefaultButton(add_button(box, "ok", "OK", QMessageBox::AcceptRole));
  } else {
    QPushButton *yes = add_button(box, "oui", "Oui", QMessageBox::YesRole);
    no = add_button(box, "non", "Non", QMessageBox::NoRole);
    box.setDefaultButton(boîte.non_par_défaut ? no : yes);
    box.setEscapeButton(boîte.oui_si_fermée ? yes : no);
  }
  box.setAttribute(Qt::WA_KeyboardFocusChange);  // Enter presses what is marked
  ++up_;
  box.exec();
  --up_;
  if (no == nullptr) return Réponse::ok;
  if (box.clickedButton() == nullptr) return boîte.oui_si_fermée ? Réponse::oui : Réponse::non;
  return box.clickedButton() == no ? Réponse::non : Réponse::oui;
}

}  // namespace ardane
