// Reads pages of the publisher's site.
#include "front/qt/modules/web_module.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <memory>

namespace ardane {
namespace {

class SiteReader : public Web {
 public:
  SiteReader(const char *site, int time_limit_ms)
      : site_(QString::fromUtf8(site)), time_limit_ms_(time_limit_ms) {}

  std::optional<std::string> lire_page(const std::string &page) override {
    const std::unique_ptr<QNetworkReply> reply(
        manager_.get(QNetworkRequest(QUrl(site_ + QString::fromStdString(page)))));
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    // Of the whole answer: a site that sends a byte now and then would be waited for without an end
    // otherwise.
    QTimer::singleShot(time_limit_ms_, reply.get(), &QNetworkReply::abort);
    const auto is_too_long = [&reply] { return reply->bytesAvailable() > longest_page; };
    QObject::connect(reply.get(), &QNetworkReply::readyRead, reply.get(), [&] {
      if (is_too_long()) reply->abort();
    });
    // The player waits: a click in between would meet a game in the middle of a procedure.
    if (!reply->isFinished()) loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (reply->error() != QNetworkReply::NoError || is_too_long()) return std::nullopt;
    return reply->readAll().toStdString();
  }

 private:
  const QString site_;
  const int time_limit_ms_;
  QNetworkAccessManager manager_;
};

}  // namespace
}  // namespace ardane

extern "C" Q_DECL_EXPORT ardane::Make_web ardane_make_web;

ardane::Web *ardane_make_web(const char *site, int time_limit_ms) {
  return std::make_unique<ardane::SiteReader>(site, time_limit_ms).release();
}
