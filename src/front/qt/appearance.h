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

/// A caption for controls in which "&" marks the letter that the Alt key presses: `mnemonic`, where the text
/// has it, and no other.
QString caption(const std::string &text, char32_t mnemonic);
/// A tool tip that is never taken for markup.
QString tool_tip(const std::string &text);

Qt::Alignment across(Alignement alignement);

/// The colour on this desktop.
QColor to_qt(const Teinte &teinte);

/// Gives a widget its own background and text colour; unset ones stay the toolkit's.
void set_colours(QWidget &widget, const std::optional<Teinte> &fond, const std::optional<Teinte> &couleur);

}  // namespace ardane
