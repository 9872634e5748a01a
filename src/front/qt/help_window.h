// The help: pages of HTML in a window of their own, which searches them all.
#pragma once

#include <QString>
#include <QWidget>
#include <memory>

#include "platform/services.h"

namespace ardane {

/// Opens the page that `contextes.txt` names for a context number, in the folder `aide` beside the help file
/// that the program asks for: the pages are what this file was. A line of `contextes.txt` is a number, a tab,
/// a page and perhaps "#" with an anchor in it. The window can be read, searched and closed whatever else is
/// up, and locks nothing.
class HelpQt : public Aide {
 public:
  HelpQt();
  ~HelpQt() override;
  void ouvrir(const std::string &fichier, int contexte) override;

  /// The help's window; null until it is first opened.
  QWidget *window() const;

 private:
  class Window;
  std::unique_ptr<Window> window_;
};

}  // namespace ardane
