// Plays the game's sounds through Qt Multimedia's QSoundEffect.
//
// Measured on an empty Qt window: linked in, the library costs every start 4 ms of CPU time and 3 MB, though
// no sound is played; loaded as here, it costs 4 ms and 5 MB at the first sound and nothing before. Finding
// the sound server, or finding that there is none, takes 30 ms and more, so it happens in a thread of its own
// and the first answer's picture does not wait for its sound.
#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QThread>
#include <QUrl>
#include <atomic>
#include <map>

#include "front/qt/child.h"
#include "front/qt/modules/process_end.h"
#include "platform/services.h"

namespace ardane {
namespace {

/// A sound server may never answer. A thread that waits for it can neither be stopped nor waited for.
constexpr unsigned long patience_ms = 200;

std::atomic<QThread *> silent_thread = nullptr;
QtMessageHandler other_handler = nullptr;

/// A machine without sound is no news to the player: what the sound's thread has to complain of is dropped.
void drop_complaints(QtMsgType type, const QMessageLogContext &context, const QString &text) {
  if (QThread::currentThread() != silent_thread && other_handler != nullptr)
    other_handler(type, context, text);
}

/// Lives in the sound's thread.
class Effects : public QObject {
 public:
  void play(const QString &path) {
    if (playing_ != nullptr) playing_->stop();
    if (QMediaDevices::defaultAudioOutput().isNull()) return;
    QSoundEffect &effect = effects_[path];
    if (effect.source().isEmpty()) effect.setSource(QUrl::fromLocalFile(path));
    playing_ = &effect;
    effect.play();
  }

 private:
  std::map<QString, QSoundEffect> effects_;  ///< by path
  QSoundEffect *playing_ = nullptr;
};

class SoundEffects : public Son {
 public:
  SoundEffects() {
    silent_thread = thread_;
    other_handler = qInstallMessageHandler(drop_complaints);
    effects_ = make_child<Effects>();
    effects_->moveToThread(thread_);
    QObject::connect(thread_, &QThread::finished, effects_, &QObject::deleteLater);
    thread_->start();
  }
  ~SoundEffects() override {
    thread_->quit();
    if (thread_->wait(patience_ms))
      delete thread_;
    else
      abréger_la_fin();
    qInstallMessageHandler(other_handler);
  }

  void jouer(const std::string &chemin) override {
    const QString path = QString::fromUtf8(chemin.data(), static_cast<qsizetype>(chemin.size()));
    QMetaObject::invokeMethod(effects_, [effects = effects_, path] { effects->play(path); });
  }

 private:
  QThread *thread_ = make_child<QThread>();  ///< stays behind if it cannot be ended
  Effects *effects_;                         ///< deletes itself when its thread ends
};

}  // namespace
}  // namespace ardane

extern "C" Q_DECL_EXPORT ardane::Son *ardane_make_sound() {
  return std::make_unique<ardane::SoundEffects>().release();
}
