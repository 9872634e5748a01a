// The page of the help that is shown: one of its files, or what a search has found in them.
#pragma once

#include <QTextBrowser>
#include <functional>
#include <optional>

#include "front/help/search.h"

namespace ardane {

/// Follows the links between the files of a folder, wears the colours of the desktop's palette, and marks the
/// words that are sought in whatever file it shows. A search is an address like another, so that one can go
/// back to it.
class HelpPage : public QTextBrowser {
 public:
  HelpPage();

  /// Shows the page that the folder's list names for a context, or says that there is none.
  void open(const QString &folder, int context);
  void open_contents();
  /// Shows the sections of the folder's pages that have those words.
  void search(const QString &typed);

  /// Marks these words from now on.
  void seek(const QString &typed);
  /// Goes to the next mark, or to the one before, and round again.
  void go_to_mark(bool backwards);
  qsizetype marks() const { return marks_.size(); }
  /// The number of the mark that was gone to, the first being 1; 0 for none.
  qsizetype mark_at_cursor() const;

  /// Another page is shown. A page of results brings the words that it was made for; nothing for the others.
  std::function<void(const std::optional<QString> &sought)> shown;

 protected:
  QVariant loadResource(int type, const QUrl &name) override;
  void changeEvent(QEvent *event) override;

 private:
  /// The address of "page#anchor" of the folder.
  QUrl url_of(const QString &page) const;
  QString href(const char *page) const;
  QString dressed(const QString &title, const QString &body) const;
  QString missing(const QString &context) const;
  QString results(const QString &typed) const;
  QString results_among(const std::vector<Section> &sections, const QString &typed) const;
  QString link(const Section &section) const;
  void mark_words();

  QString folder_;
  QString sought_;
  bool shows_results_ = false;
  QList<QTextEdit::ExtraSelection> marks_;
};

}  // namespace ardane
