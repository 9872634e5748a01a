// The screen, sound and the command line.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "core/paths.h"
#include "front/qt/appearance.h"
#include "front/qt/demonstration/scratch_folder.h"
#include "front/qt/on_demand.h"
#include "front/qt/options.h"
#include "front/qt/screen.h"
#include "front/qt/sound_file.h"
#include "persistence/registry.h"
#include "sound_child.h"
#include "started_program.h"

namespace ardane {
namespace {

using namespace std::string_view_literals;

TEST(ScreenQt, MeasuresThePrimaryScreen) {
  const ScreenQt screen;
  EXPECT_EQ(screen.largeur(), 1280);
  EXPECT_EQ(screen.hauteur(), 1024);
  EXPECT_EQ(screen.bits_par_pixel(), QGuiApplication::primaryScreen()->depth());
  const QRect zone = QGuiApplication::primaryScreen()->availableGeometry();
  EXPECT_EQ(screen.zone_de_travail(),
            (Rect{zone.x(), zone.y(), zone.x() + zone.width(), zone.y() + zone.height()}));
  ASSERT_EQ(screen.modes().size(), 1U);
  EXPECT_EQ(screen.modes()[0].largeur, 1280);
}

TEST(ScreenQt, TakesItsHourglassAwayWithIt) {
  {
    ScreenQt screen;
    screen.sablier(true);
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
  }
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(SoundOnDemand, AMissingFileAndAMissingDeviceAreSilent) {
  SoundOnDemand sound;
  testing::internal::CaptureStderr();
  sound.jouer("/nulle/part.wav");
  sound.jouer(std::string(ARDANE_RESOURCES) + "/carte_ok.wav");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

/// How a program ends that has just begun to play a sound, with that sound server; with one that listens at a
/// socket not before it has been asked.
int code_after_sound(const QString &server, const std::string &file, int listening = -1) {
  QProcess child;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("PULSE_SERVER", server);
  child.setProcessEnvironment(environment);
  child.start(QCoreApplication::applicationFilePath(), {to_qt(std::string(sound_option)), to_qt(file)});
  EXPECT_TRUE(child.waitForStarted());
  pollfd asked{listening, POLLIN, 0};
  if (listening >= 0) EXPECT_EQ(poll(&asked, 1, end_ms), 1);
  child.closeWriteChannel();
  if (!child.waitForFinished()) child.kill();
  child.waitForFinished();
  return child.exitStatus() == QProcess::NormalExit ? child.exitCode() : -1;
}

TEST(SoundOnDemand, AServerThatIsNotThereOrDoesNotAnswerNeitherHoldsUpNorBreaksTheEnd) {
  const std::string file = std::string(ARDANE_RESOURCES) + "/carte_ok.wav";
  EXPECT_EQ(code_after_sound("unix:/nulle/part", file), sound_code);
  const QTemporaryDir folder;
  const std::string name = to_utf8(folder.filePath("serveur"));
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  ASSERT_LT(name.size(), sizeof address.sun_path);
  std::ranges::copy(name, address.sun_path);
  const int silent = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_EQ(bind(silent, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
  ASSERT_EQ(listen(silent, 1), 0);
  EXPECT_EQ(code_after_sound(to_qt("unix:" + name), file, silent), sound_code);
  close(silent);
}

/// A WAV of one channel; `place` and `byte` spoil its header.
QByteArray wav(unsigned rate, qsizetype place = 0, char byte = 'R') {
  constexpr std::string_view whole =
      "RIFF\x34\0\0\0WAVELIST\3\0\0\0abc\0fmt \x10\0\0\0\1\0\1\0rate\0\0\0\0\2\0\x10\0data\4\0\0\0\0\0\0\0"sv;
  QByteArray bytes(whole.data(), whole.size());
  qToLittleEndian(rate, bytes.data() + bytes.indexOf("rate"));
  bytes[place] = byte;
  return bytes;
}

TEST(SoundOnDemand, AFileThatNoSoundCanHaveIsNotHandedToTheLibrary) {
  constexpr qsizetype format = 32;  // where its 16 bytes begin
  const QTemporaryDir folder;
  const std::string file = to_utf8(folder.filePath("son.wav"));
  const auto played = [&](const QByteArray &bytes) {
    QFile out(to_qt(file));
    EXPECT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(bytes);
    out.close();
    return is_playable(file);
  };
  for (const unsigned rate : {8'000U, 44'100U, 192'000U}) EXPECT_TRUE(played(wav(rate))) << rate;
  for (const unsigned rate : {0U, 1U, 49U, 7'999U, 192'001U, 0xFFFF'FFFFU})
    EXPECT_FALSE(played(wav(rate))) << rate;
  const std::vector<std::pair<qsizetype, char>> spoilt = {
      {0, 'X'},        {8, 'X'},         {format - 8, 'X'}, {format, 2},      {format + 2, 0},
      {format + 2, 3}, {format + 12, 1}, {format + 14, 12}, {format - 4, 15}, {19, 127}};
  for (const auto &[place, byte] : spoilt) EXPECT_FALSE(played(wav(44'100, place, byte))) << place;
  for (qsizetype length = 0; length < format + 24; ++length)
    EXPECT_FALSE(played(wav(44'100).left(length))) << length;
  EXPECT_FALSE(played(wav(44'100) + QByteArray(16'000'000, '\0')));
  EXPECT_FALSE(is_playable(to_utf8(folder.path())));
  EXPECT_TRUE(std::filesystem::remove(file));
  ASSERT_EQ(mkfifo(file.c_str(), S_IRUSR | S_IWUSR), 0);
  EXPECT_FALSE(is_playable(file)) << "and it is not waited for";
  EXPECT_TRUE(std::filesystem::remove(file));
  EXPECT_FALSE(is_playable(file));

  EXPECT_FALSE(played(wav(1)));
  EXPECT_EQ(code_after_sound("unix:/nulle/part", file), no_sound_code);
  EXPECT_TRUE(played(wav(44'100)));
  EXPECT_EQ(code_after_sound("unix:/nulle/part", file), sound_code);
  for (const char *name : {"er", "es", "ga", "hl", "ok", "pe"})
    EXPECT_TRUE(is_playable(std::string(ARDANE_RESOURCES) + "/carte_" + name + ".wav")) << name;
}

/// A site on this machine that takes calls and never answers.
class SilentSite {
 public:
  SilentSite() : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    address_.sin_family = AF_INET;
    address_.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address_;
    auto *address = reinterpret_cast<sockaddr *>(&address_);
    ready_ = bind(socket_, address, size) == 0 && listen(socket_, 1) == 0 &&
             getsockname(socket_, address, &size) == 0;
  }
  ~SilentSite() { close(socket_); }
  SilentSite(const SilentSite &) = delete;
  SilentSite &operator=(const SilentSite &) = delete;

  bool ready() const { return ready_; }
  int socket() const { return socket_; }
  std::string name() const { return "http://127.0.0.1:" + std::to_string(ntohs(address_.sin_port)) + "/"; }

 private:
  int socket_;
  sockaddr_in address_{};
  bool ready_ = false;
};

TEST(WebOnDemand, ASiteThatDoesNotAnswerIsGivenUpAndTheHourglassStandsMeanwhile) {
  const SilentSite site;
  ASSERT_TRUE(site.ready());
  ScreenQt screen;
  WebOnDemand web(screen, site.name(), std::chrono::milliseconds(30));
  Qt::CursorShape shown = Qt::BlankCursor;
  QTimer::singleShot(0, [&] {
    if (QGuiApplication::overrideCursor() != nullptr) shown = QGuiApplication::overrideCursor()->shape();
  });
  EXPECT_EQ(web.lire_page("jeux/listejeux.htm"), std::nullopt);
  EXPECT_EQ(shown, Qt::WaitCursor);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(WebOnDemand, ASiteThatSendsAByteNowAndThenIsGivenUpAllTheSame) {
  const SilentSite site;
  ScreenQt screen;
  std::thread talk([&] {
    const int caller = accept(site.socket(), nullptr, nullptr);
    const std::string_view head = "HTTP/1.0 200 OK\r\n\r\n";
    send(caller, head.data(), head.size(), MSG_NOSIGNAL);
    pollfd hung_up{caller, POLLRDHUP, 0};
    constexpr int between_bytes_ms = 5;
    // A million bytes would end it, too, after more than an hour.
    while (poll(&hung_up, 1, between_bytes_ms) == 0 && send(caller, "x", 1, MSG_NOSIGNAL) == 1) {
    }
    close(caller);
  });
  EXPECT_EQ(WebOnDemand(screen, site.name(), std::chrono::milliseconds(100)).lire_page("p"), std::nullopt);
  talk.join();
}

TEST(WebOnDemand, APageLongerThanAMillionBytesIsGivenUp) {
  ScreenQt screen;
  const auto read = [&](std::size_t length) {
    const SilentSite site;
    std::thread talk([&] {
      const int caller = accept(site.socket(), nullptr, nullptr);
      std::array<char, 4096> question{};
      recv(caller, question.data(), question.size(), 0);
      const std::string answer = "HTTP/1.0 200 OK\r\n\r\n" + std::string(length, 'x');
      for (std::string_view rest = answer; !rest.empty();) {
        const ssize_t sent = send(caller, rest.data(), rest.size(), MSG_NOSIGNAL);
        if (sent <= 0) break;
        rest.remove_prefix(static_cast<std::size_t>(sent));
      }
      close(caller);
    });
    const auto page = WebOnDemand(screen, site.name()).lire_page("p");
    talk.join();
    return page.has_value() ? std::optional(page->size()) : std::nullopt;
  };
  EXPECT_EQ(read(1'000'000), 1'000'000U);
  EXPECT_EQ(read(1'000'001), std::nullopt);
  EXPECT_EQ(read(30'000'000), std::nullopt);
}

TEST(WebOnDemand, APlayerWaitsForFiveSecondsAtMost) {
  EXPECT_EQ(WebOnDemand::patience, std::chrono::seconds(5));
}

TEST(DesktopOptions, AreReadByName) {
  const std::array words{"ardane", "--programme", "/jeu", "--pret-et-quitter"};
  const DesktopOptions options = read_options(words.size(), words.data());
  EXPECT_EQ(options.programme, "/jeu");
  EXPECT_TRUE(options.prêt_et_quitter);
  EXPECT_FALSE(options.démonstration);
  EXPECT_EQ(options.erreur, "");
}

TEST(DesktopOptions, OneSavedGameOrConfigurationMayBeNamed) {
  for (const char *name : {"Souper.CAI", "/jeux/à table.cai", "nord.SCI"}) {
    const std::array words{"ardane", "--sans-cadre", name};
    const DesktopOptions options = read_options(words.size(), words.data());
    EXPECT_EQ(options.erreur, "");
    EXPECT_EQ(options.fichier, name);
  }
  const std::array own{"ardane", "reverse"};
  EXPECT_EQ(read_options(own.size(), own.data()).erreur, "Option inconnue ou incomplète : reverse")
      << "without a dash it is none of the toolkit's";
  const std::array two{"ardane", "a.CAI", "b.CAI"};
  EXPECT_EQ(read_options(two.size(), two.data()).erreur, "Option inconnue ou incomplète : b.CAI");
}

TEST(DesktopOptions, TheFoldersOfThePlayersFilesAreTold) {
  const ScratchFolder folder(ARDANE_RESOURCES);
  const std::filesystem::path settings = folder.places().registre, lifeline = folder.path() / "secours";
  const std::string before = files_text(RegistreFichier(settings), lifeline);
  EXPECT_THAT(before, testing::HasSubstr("choisi au premier démarrage"));
  EXPECT_THAT(before, testing::HasSubstr(settings.string() + "\n"));
  EXPECT_THAT(before, testing::HasSubstr(lifeline.string() + "\n"));
  RegistreFichier store(settings);
  store.créer(clé_du_jeu);
  store.écrire(clé_du_jeu, réglage_répertoire, "/home/ann/jeux");
  EXPECT_THAT(files_text(store, {}), testing::HasSubstr(" /home/ann/jeux\n"));
}

TEST(DesktopOptions, WhoIsAskedForAFolderIsAtFirstInTheOneThatHeCalledTheProgramFrom) {
  EXPECT_EQ(first_folder(), texte_du_chemin(std::filesystem::current_path()));
}

TEST(DesktopOptions, UnknownAndIncompleteOnesAreToldInFrench) {
  const std::array unknown{"ardane", "--zut"};
  EXPECT_EQ(read_options(unknown.size(), unknown.data()).erreur, "Option inconnue ou incomplète : --zut");
  const std::array incomplete{"ardane", "--demonstration"};
  EXPECT_EQ(read_options(incomplete.size(), incomplete.data()).erreur,
            "Option inconnue ou incomplète : --demonstration");
}

TEST(DesktopOptions, EarlierScoresAreListedOrGivenBackByTheirNumber) {
  const std::array list{"ardane", "--secours", "--registre", "r"};
  EXPECT_TRUE(read_options(list.size(), list.data()).secours);
  EXPECT_EQ(read_options(list.size(), list.data()).numéro, std::nullopt);
  const std::array one{"ardane", "--secours", "17"};
  EXPECT_EQ(read_options(one.size(), one.data()).numéro, 17);
  for (const char *wrong : {"0", "-1", "1x", "dernier", "99999999999999999999"}) {
    const std::array words{"ardane", "--secours", wrong};
    EXPECT_EQ(read_options(words.size(), words.data()).erreur,
              std::string("Option inconnue ou incomplète : ") + wrong);
  }
  const std::array astray{"ardane", "17"};
  EXPECT_EQ(read_options(astray.size(), astray.data()).erreur, "Option inconnue ou incomplète : 17");
}

TEST(DesktopOptions, ThoseOfTheToolkitArePassedOver) {
  const std::array words{"ardane",
                         "-style",
                         "fusion",
                         "--platform",
                         "offscreen",
                         "-style=fusion",
                         "-stylesheet=a.qss",
                         "-reverse",
                         "--version",
                         "-qwindowtitle",
                         "--help"};
  const DesktopOptions options = read_options(words.size(), words.data());
  EXPECT_EQ(options.erreur, "");
  EXPECT_TRUE(options.version);
  EXPECT_FALSE(options.aide) << "it is the title that was given";
  const std::array incomplete{"ardane", "-style"};
  EXPECT_EQ(read_options(incomplete.size(), incomplete.data()).erreur,
            "Option inconnue ou incomplète : -style");
}

/// What the program answers to a command line, without a screen.
struct Answered {
  explicit Answered(const QStringList &options) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "aucune");
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(ARDANE_PROGRAM), options);
    EXPECT_TRUE(program.waitForFinished());
    code = program.exitCode();
    out = to_utf8(QString::fromUtf8(program.readAllStandardOutput()));
    errors = to_utf8(QString::fromUtf8(program.readAllStandardError()));
  }
  int code = -1;
  std::string out, errors;
};

TEST(CommandLine, HelpAndVersionAreToldInFrench) {
  const Answered help({"--help"}), version({"--version"});
  EXPECT_EQ(help.code, 0);
  EXPECT_TRUE(help.out.starts_with(help_text() + "Vos fichiers :\n")) << help.out;
  EXPECT_EQ(version.code, 0);
  EXPECT_EQ(version.out, "ardane " ARDANE_RELEASE "\nVersion 1.00 du 24/02/2007\n");
}

TEST(CommandLine, WhatIsNotUnderstoodIsToldOnTheErrorStreamWithTheHelpAndEndsWithTwo) {
  struct Case {
    QStringList options;
    const char *word;
  };
  const std::vector<Case> cases = {{{"--zut"}, "--zut"},       {{"--version", "--zut"}, "--zut"},
                                   {{"--help", "zut"}, "zut"}, {{"--registre"}, "--registre"},
                                   {{"--secours", "0"}, "0"},  {{"--secours", "dernier"}, "dernier"}};
  for (const auto &[options, word] : cases) {
    const Answered answered(options);
    EXPECT_EQ(answered.code, 2) << word;
    EXPECT_EQ(answered.out, "") << word;
    EXPECT_EQ(answered.errors, std::string("Option inconnue ou incomplète : ") + word + "\n" + help_text());
  }
}

}  // namespace
}  // namespace ardane
