#include "front/qt/appearance.h"

#include <QGuiApplication>
#include <QTextDocument>

namespace ardane {
namespace {

void set_roles(QPalette &palette, std::initializer_list<QPalette::ColorRole> roles, const QColor &colour) {
  for (const QPalette::ColorRole role : roles) palette.setColor(role, colour);
}

QPalette::ColorRole role_of(Couleur_système couleur) {
  switch (couleur) {
    case Couleur_système::barre_de_défilement: return QPalette::Midlight;
  }
  return QPalette::Window;
}

}  // namespace

QString caption(const std::string &text, char32_t mnemonic) {
  QString marked = to_qt(text).replace(QLatin1Char('&'), QLatin1String("&&"));
  const qsizetype letter =
      mnemonic == 0 ? -1 : marked.indexOf(QString::fromUcs4(&mnemonic, 1), 0, Qt::CaseInsensitive);
  if (letter >= 0) marked.insert(letter, QLatin1Char('&'));
  return marked;
}

QString tool_tip(const std::string &text) {
  const QString plain = to_qt(text);
  return Qt::mightBeRichText(plain) ? plain.toHtmlEscaped() : plain;
}

Qt::Alignment across(Alignement alignement) {
  switch (alignement) {
    case Alignement::gauche: return Qt::AlignLeft;
    case Alignement::centre: return Qt::AlignHCenter;
    case Alignement::droite: return Qt::AlignRight;
  }
  return Qt::AlignLeft;
}

QColor to_qt(const Teinte &teinte) {
  if (const auto *system = std::get_if<Couleur_système>(&teinte))
    return QGuiApplication::palette().color(role_of(*system));
  const auto &own = std::get<Couleur>(teinte);
  return {own.rouge, own.vert, own.bleu};
}

void set_colours(QWidget &widget, const std::optional<Teinte> &fond, const std::optional<Teinte> &couleur) {
  QPalette palette;
  if (fond) set_roles(palette, {QPalette::Window, QPalette::Base, QPalette::Button}, to_qt(*fond));
  if (couleur)
    set_roles(palette, {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}, to_qt(*couleur));
  widget.setAutoFillBackground(fond.has_value());
  widget.setPalette(palette);
}

}  // namespace ardane
