// An unforeseen error: one box, exit code 1, and not a line of the program after it.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMessageBox>
#include <QProcess>

#include "crash_child.h"

namespace {

struct Death {
  int code;
  QString output;
};

Death die(const char *way) {
  QProcess child;
  child.start(QCoreApplication::applicationFilePath(), {QString::fromUtf8(crash_option.data()), way});
  EXPECT_TRUE(child.waitForFinished());
  return {child.exitCode(), QString::fromUtf8(child.readAllStandardOutput())};
}

/// Words first; what only programmers understand comes last, and small.
QString box(const char *cause) {
  return QStringLiteral(
             "%1|L'Ardane et ses provinces|Une erreur imprévue arrête le programme.|<small>%2</small>|1\n")
      .arg(QMessageBox::Critical)
      .arg(QString::fromUtf8(cause));
}

TEST(Crash, AFatalErrorNamesItsPlace) {
  const Death death = die("fatale");
  EXPECT_EQ(death.code, 1);
  EXPECT_EQ(death.output, box("Panne &lt;b&gt; (regle.cpp, ligne 12)"));
}

TEST(Crash, AnIndexOutsideItsTableIsFatal) {
  const Death death = die("indice");
  EXPECT_EQ(death.code, 1);
  EXPECT_TRUE(death.output.contains("Indice 4 hors des bornes 1 à 3")) << death.output.toStdString();
}

TEST(Crash, WhateverIsThrownIsCaught) {
  const Death death = die("inconnue");
  EXPECT_EQ(death.code, 1);
  EXPECT_EQ(death.output, box("cause inconnue"));
}

TEST(Crash, SettingsThatCannotBeKeptEndTheStartInWordsThatHelp) {
  const Death death = die("réglages");
  EXPECT_EQ(death.code, 1);
  const QStringList lines = death.output.split('\n');
  ASSERT_GE(lines.size(), 3);
  EXPECT_TRUE(lines[0].endsWith("Le jeu ne peut pas démarrer sans garder ses réglages."));
  EXPECT_TRUE(lines[1].endsWith("ardane.pts/registre » : son dossier ne peut pas être créé."))
      << lines[1].toStdString();
  EXPECT_TRUE(lines[2].contains("ardane.pts »")) << "which folder";
  EXPECT_TRUE(lines[2].contains("--registre")) << "what to do";
  EXPECT_TRUE(death.output.endsWith("||1\n")) << "and no small print: the player can help himself";
}

TEST(Crash, SettingsThatCannotBeReadAtTheStartAreNotTakenForEmpty) {
  const Death death = die("réglages illisibles");
  EXPECT_EQ(death.code, 1);
  EXPECT_TRUE(death.output.contains("moment/registre » : il n'a pas pu être lu."))
      << death.output.toStdString();
  EXPECT_TRUE(death.output.contains("le droit de lire ce fichier"));
}

TEST(Crash, AnErrorInAModalWindowEndsTheProgramFromThere) {
  const Death death = die("boucle");
  EXPECT_EQ(death.code, 1);
  EXPECT_EQ(death.output, box("Panne &lt;b&gt; (regle.cpp, ligne 12)"));
}

}  // namespace
