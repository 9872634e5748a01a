#include "front/qt/help_page.h"

#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QScrollBar>
#include <QTextBlock>
#include <QUrl>
#include <algorithm>

#include "front/qt/appearance.h"
#include "front/qt/plain_file.h"

namespace ardane {
namespace {

// Addresses of pages that are no files.
constexpr const char *search_scheme = "recherche", *missing_scheme = "introuvable";
constexpr const char *contents_page = "index.html", *words_page = "mots.html";
constexpr std::size_t most_results = 12;

QColor mixed(const QColor &ground, const QColor &colour, double share) {
  const auto mix = [&](int a, int b) { return qRound(a + (b - a) * share); };
  return {mix(ground.red(), colour.red()), mix(ground.green(), colour.green()),
          mix(ground.blue(), colour.blue())};
}

/// The style sheet tells the layout; the colours are the desktop's, light or dark.
QString colours(const QPalette &palette) {
  const QColor ground = palette.color(QPalette::Base), text = palette.color(QPalette::Text);
  const bool dark = ground.lightness() < text.lightness();
  const auto name = [](const QColor &colour) { return colour.name(); };
  return QStringLiteral(
             "body { background-color: %1; color: %2; } h1, h2 { color: %3; } a { color: %4; }"
             "table, th, td { border: 1px solid %5; } th { background-color: %6; }")
      .arg(name(ground), name(text), QLatin1String(dark ? "#f0b0a8" : "#701618"),
           QLatin1String(dark ? "#8fbcf0" : "#1f5fa8"), name(mixed(ground, text, 0.35)),
           name(mixed(ground, text, 0.1)));
}

QString marked_up(const Excerpt &excerpt) {
  const QByteArray text = QByteArray::fromStdString(excerpt.text);
  const auto piece = [&](std::size_t begin, std::size_t end) {
    return QString::fromUtf8(text.mid(static_cast<qsizetype>(begin), static_cast<qsizetype>(end - begin)))
        .toHtmlEscaped();
  };
  QString html;
  std::size_t done = 0;
  for (const Span &found : excerpt.found) {
    html += piece(done, found.begin) + QStringLiteral("<b>") + piece(found.begin, found.end) +
            QStringLiteral("</b>");
    done = found.end;
  }
  return html + piece(done, excerpt.text.size());
}

QString paragraph(const QString &html) {
  return QStringLiteral("<p>") + html + QStringLiteral("</p>");
}

/// The address of what is made for some words. They stand where an address may hold any.
QUrl address(const char *scheme, const QString &about) {
  QUrl url;
  url.setScheme(QLatin1String(scheme));
  url.setQuery(QString::fromLatin1(QUrl::toPercentEncoding(about)));
  return url;
}

QString about(const QUrl &url) {
  return QUrl::fromPercentEncoding(url.query(QUrl::FullyEncoded).toLatin1());
}

/// "page#anchor" of a context; empty if the list has none.
QString page_of(const QString &folder, int context) {
  QFile list(folder + QStringLiteral("/contextes.txt"));
  if (!is_plain_file(list.fileName()) || !list.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
  while (!list.atEnd()) {
    const QStringList fields = QString::fromUtf8(list.readLine()).trimmed().split(QLatin1Char('\t'));
    if (fields.size() == 2 && fields[0] == QString::number(context)) return fields[1];
  }
  return {};
}

}  // namespace

HelpPage::HelpPage() {
  setOpenLinks(true);
  setOpenExternalLinks(false);
  connect(this, &QTextBrowser::sourceChanged, this, [this](const QUrl &url) {
    shows_results_ = url.scheme() == QLatin1String(search_scheme);
    if (shows_results_) sought_ = about(url);
    mark_words();
    if (shown) shown(shows_results_ ? std::optional(sought_) : std::nullopt);
  });
}

QUrl HelpPage::url_of(const QString &page) const {
  QUrl url = QUrl::fromLocalFile(folder_ + QLatin1Char('/') + page.section(QLatin1Char('#'), 0, 0));
  url.setFragment(page.section(QLatin1Char('#'), 1));
  return url;
}

void HelpPage::open(const QString &folder, int context) {
  folder_ = folder;
  const QString page = page_of(folder, context);
  const QUrl url = url_of(page);
  const bool there = !page.isEmpty() && QFileInfo(url.toLocalFile()).isFile();
  setSource(there ? url : address(missing_scheme, QString::number(context)));
}

void HelpPage::open_contents() {
  setSource(url_of(QString::fromLatin1(contents_page)));
}

void HelpPage::search(const QString &typed) {
  setSource(address(search_scheme, typed));
}

QVariant HelpPage::loadResource(int type, const QUrl &name) {
  if (name.scheme() == QLatin1String(search_scheme)) return results(about(name));
  if (name.scheme() == QLatin1String(missing_scheme)) return missing(about(name));
  if (name.isLocalFile() && !is_plain_file(name.toLocalFile())) return {};
  QVariant resource = QTextBrowser::loadResource(type, name);
  if (type != QTextDocument::StyleSheetResource) return resource;
  return QString(QString::fromUtf8(resource.toByteArray()) + colours(palette()));
}

void HelpPage::changeEvent(QEvent *event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || source().isEmpty()) return;
  const int place = verticalScrollBar()->value();
  reload();
  verticalScrollBar()->setValue(place);
}

QString HelpPage::href(const char *page) const {
  return url_of(QString::fromLatin1(page)).toString(QUrl::FullyEncoded);
}

QString HelpPage::dressed(const QString &title, const QString &body) const {
  return QStringLiteral(
             "<html><head><link rel=\"stylesheet\" type=\"text/css\" href=\"%1\"></head>"
             "<body><h1>%2</h1>%3</body></html>")
      .arg(href("style.css"), title, body);
}

QString HelpPage::missing(const QString &context) const {
  return dressed(
      QStringLiteral("Aide"),
      paragraph(QStringLiteral("La page d’aide numéro %1 est introuvable dans le dossier «\u00A0%2\u00A0». "
                               "Le jeu se joue très bien sans elle.")
                    .arg(context, folder_.toHtmlEscaped())));
}

QString HelpPage::results(const QString &typed) const {
  const SearchIndex index =
      read_index(std::filesystem::path((folder_ + QLatin1Char('/')).toStdU16String()) / index_file);
  const QString found =
      index.trouble.empty()
          ? results_among(index.sections, typed)
          : paragraph(QStringLiteral(
                          "La recherche dans toute l’aide n’est pas possible\u00A0: son index, le fichier "
                          "«\u00A0%1\u00A0», %2. "
                          "Les pages se lisent très bien sans lui, par leur <a href=\"%3\">sommaire</a>.")
                          .arg(QLatin1String(index_file), to_qt(index.trouble), href(contents_page)));
  return dressed(QStringLiteral("Recherche\u00A0: «\u00A0%1\u00A0»").arg(typed.toHtmlEscaped()), found);
}

QString HelpPage::link(const Section &section) const {
  QUrl url = url_of(to_qt(section.page));
  url.setFragment(to_qt(section.anchor));
  const QString name = section.anchor.empty()
                           ? to_qt(section.title)
                           : to_qt(section.title) + QStringLiteral(" – ") + to_qt(section.heading);
  return QStringLiteral("<a href=\"%1\">%2</a>").arg(url.toString(QUrl::FullyEncoded), name.toHtmlEscaped());
}

QString HelpPage::results_among(const std::vector<Section> &sections, const QString &typed) const {
  const Query query(to_utf8(typed));
  if (query.empty())
    return paragraph(
        QStringLiteral("Ces mots sont trop courants pour être cherchés. Essayez-en un autre, par exemple "
                       "«\u00A0score\u00A0» ou «\u00A0drapeau\u00A0»."));
  const std::vector<Hit> hits = ardane::search(sections, query);
  if (hits.empty())
    return paragraph(QStringLiteral("Aucune page ne répond à ces mots. Essayez-en d’autres, ou cherchez dans "
                                    "l’<a href=\"%1\">index</a>.")
                         .arg(href(words_page)));
  QString html;
  if (!hits.front().whole)
    html += paragraph(QStringLiteral("Aucune page ne réunit tous ces mots\u00A0; voici les plus proches."));
  for (std::size_t i = 0; i < std::min(hits.size(), most_results); ++i) {
    const Section &section = *hits[i].section;
    html += paragraph(link(section) + QStringLiteral("<br>") + marked_up(excerpt(section.text, query)));
  }
  return html;
}

void HelpPage::seek(const QString &typed) {
  sought_ = typed;
  mark_words();
}

void HelpPage::mark_words() {
  marks_.clear();
  const Query query(to_utf8(sought_));
  QTextCharFormat format;
  format.setBackground(QColor(255, 226, 122));
  format.setForeground(Qt::black);
  for (QTextBlock block = document()->begin(); !shows_results_ && block.isValid(); block = block.next()) {
    const std::string text = to_utf8(block.text());
    const auto place = [&](std::size_t bytes) {
      return block.position() + static_cast<int>(to_qt(text.substr(0, bytes)).size());
    };
    for (const Span &found : query.found_in(text)) {
      QTextCursor cursor(document());
      cursor.setPosition(place(found.begin));
      cursor.setPosition(place(found.end), QTextCursor::KeepAnchor);
      marks_.append({cursor, format});
    }
  }
  setExtraSelections(marks_);
}

qsizetype HelpPage::mark_at_cursor() const {
  const auto here = [&](const QTextEdit::ExtraSelection &mark) { return mark.cursor == textCursor(); };
  const auto at = std::ranges::find_if(marks_, here);
  return at == marks_.end() || !textCursor().hasSelection() ? 0 : at - marks_.begin() + 1;
}

void HelpPage::go_to_mark(bool backwards) {
  if (marks_.isEmpty()) return;
  qsizetype next = mark_at_cursor();
  if (next == 0) {
    // From what the player sees.
    const int seen = cursorForPosition(QPoint(0, 0)).position();
    const auto below = [&](const QTextEdit::ExtraSelection &mark) {
      return mark.cursor.selectionStart() >= seen;
    };
    next = std::ranges::find_if(marks_, below) - marks_.begin();
    if (backwards) --next;
  } else if (backwards) {
    next -= 2;
  }
  setTextCursor(marks_[(next + marks_.size()) % marks_.size()].cursor);
}

}  // namespace ardane
