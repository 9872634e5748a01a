// Texts, fonts and colours of the windows' data, as Qt has them.
#pragma once

#include <QFont>
#include <QPalette>
#include <QString>
#include <QWidget>
#include <string>

#include "platform/controls.h"

namespace ardane {

inline QString to_qt(const std::string &text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string to_utf8(const QString &text) {
  return text.toStdString();
}

/// A caption for controls in which "&" would mark a shortcut.
QString caption(const std::string &text);
/// A tool tip that is never taken for markup.
QString tool_tip(const std::string &text);

/// The font, sized in pixels for a screen of 96 dots per inch, which the layouts were drawn for.
QFont to_qt(const Police &police);
QColor to_qt(Couleur couleur);

/// Gives a widget its own background and text colour; unset ones stay the system's.
void set_colours(QWidget &widget, const std::optional<Couleur> &fond, const std::optional<Couleur> &couleur);

}  // namespace ardane
