// Reads pages of the publisher's site.
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <memory>

#include "platform/services.h"

namespace ardane {
namespace {

constexpr int time_limit_ms = 10'000;
constexpr const char *site = "https://www.mirabonde.example/";

class SiteReader : public Web {
 public:
  std::optional<std::string> lire_page(const std::string &page) override {
    QNetworkRequest request(QUrl(QString::fromUtf8(site) + QString::fromStdString(page)));
    request.setTransferTimeout(time_limit_ms);
    const std::unique_ptr<QNetworkReply> reply(manager_.get(request));
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    // The player waits: a click in between would meet a game in the middle of a procedure.
    if (!reply->isFinished()) loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (reply->error() != QNetworkReply::NoError) return std::nullopt;
    return reply->readAll().toStdString();
  }

 private:
  QNetworkAccessManager manager_;
};

}  // namespace
}  // namespace ardane

extern "C" Q_DECL_EXPORT ardane::Web *ardane_make_web() {
  return std::make_unique<ardane::SiteReader>().release();
}
