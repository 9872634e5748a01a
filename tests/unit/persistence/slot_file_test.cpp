#include "persistence/slot_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>
#include <sstream>

#include "support/failing_device.h"

namespace ardane {
namespace {

using Cause = Défaut_de_case::Cause;

std::string case_de(std::string contenu) {
  contenu.resize(taille_de_case, '\0');
  return contenu;
}

template <class F>
std::string écrire(F &&écriture) {
  std::ostringstream flux;
  Scripteur_de_cases cases(flux);
  écriture(cases);
  EXPECT_TRUE(cases.terminer());
  return flux.str();
}

/// What reading one item from these bytes gives, and the fault.
template <class T>
struct Lu {
  std::optional<T> valeur;
  std::optional<Défaut_de_case> défaut;
};

template <class T, class Lecture>
Lu<T> lire(const std::string &octets, Lecture lecture) {
  std::istringstream flux(octets);
  Lecteur_de_cases cases(flux);
  const auto valeur = std::invoke(lecture, cases);
  return {valeur, cases.défaut()};
}

std::optional<std::string> lire_texte(Lecteur_de_cases &cases) {
  return cases.texte();
}

TEST(SlotWriter, EveryItemTakesASlot) {
  const std::string octets = écrire([](Scripteur_de_cases &cases) {
    cases.entier16(4);
    cases.entier16(-1);
    cases.entier32(999999);
    cases.texte("Été");
    cases.paire({330, -1});
    cases.score({"Zoé", -2, 3});
  });
  EXPECT_EQ(octets, case_de(std::string("\x04\0", 2)) + case_de("\xFF\xFF") +
                        case_de(std::string("\x3F\x42\x0F\0", 4)) + case_de(std::string("\3\0\xC9t\xE9", 5)) +
                        case_de(std::string("\x4A\x01\xFF\xFF", 4)) +
                        case_de(std::string("\3\0Zo\xE9\xFE\xFF\xFF\xFF\3\0", 11)));
}

TEST(SlotWriter, ATextOf126BytesFitsAndOneOf127DoesNot) {
  std::ostringstream flux;
  Scripteur_de_cases cases(flux);
  cases.texte(std::string(126, 'x'));
  EXPECT_FALSE(cases.défaut());
  cases.texte(std::string(127, 'x'));
  EXPECT_EQ(cases.défaut(), (Défaut_de_case{2, Cause::trop_long}));
  cases.entier16(1);
  EXPECT_FALSE(cases.terminer());
  EXPECT_EQ(flux.str().size(), taille_de_case);
}

TEST(SlotWriter, LengthsCountBytesOfWindows1252) {
  std::string accents;
  for (int i = 0; i < 126; ++i) accents += "é";
  const std::string octets = écrire([&](Scripteur_de_cases &cases) { cases.texte(accents); });
  EXPECT_EQ(octets.substr(0, 3), std::string("\x7E\0\xE9", 3));
}

TEST(SlotWriter, ANameOf120BytesFitsAndOneOf121DoesNot) {
  std::ostringstream flux;
  Scripteur_de_cases cases(flux);
  cases.score({std::string(120, 'n'), 1, 1});
  EXPECT_FALSE(cases.défaut());
  cases.score({std::string(121, 'n'), 1, 1});
  EXPECT_EQ(cases.défaut(), (Défaut_de_case{2, Cause::trop_long}));
}

TEST(SlotWriter, WhatWindows1252DoesNotHaveBecomesAQuestionMark) {
  const std::string octets = écrire([](Scripteur_de_cases &cases) { cases.texte("Ωa€"); });
  EXPECT_EQ(octets.substr(0, 5), std::string("\3\0?a\x80", 5));
}

TEST(SlotWriter, ADeviceThatFailsAfterAnyNumberOfBytesIsFoundOut) {
  constexpr int cases_en_tout = 6;
  for (std::size_t n = 0; n < cases_en_tout * taille_de_case; ++n) {
    AppareilDéfaillant appareil(n);
    std::ostream flux(&appareil);
    Scripteur_de_cases cases(flux);
    for (int i = 0; i < cases_en_tout; ++i) cases.entier16(1);
    EXPECT_FALSE(cases.terminer()) << n;
    EXPECT_EQ(cases.défaut(), (Défaut_de_case{static_cast<int>(n / taille_de_case) + 1, Cause::écriture}))
        << n;
  }
  AppareilDéfaillant assez(cases_en_tout * taille_de_case);
  std::ostream flux(&assez);
  Scripteur_de_cases cases(flux);
  for (int i = 0; i < cases_en_tout; ++i) cases.entier16(1);
  EXPECT_TRUE(cases.terminer());
}

TEST(SlotWriter, AFullDeviceIsFoundOut) {
  std::ofstream flux("/dev/full", std::ios::binary);
  ASSERT_TRUE(flux.is_open());
  Scripteur_de_cases cases(flux);
  cases.entier16(1);
  EXPECT_FALSE(cases.terminer());
  ASSERT_TRUE(cases.défaut());
  EXPECT_EQ(cases.défaut()->cause, Cause::écriture);
}

TEST(SlotReader, WhatIsWrittenIsReadBack) {
  constexpr auto petit = std::numeric_limits<std::int32_t>::min();
  const Enregistrement_score score{"Zoé d'Œuf", -999999, -32768};
  std::istringstream flux(écrire([&](Scripteur_de_cases &cases) {
    cases.entier16(-32768);
    cases.entier32(petit);
    cases.texte("Version 1.00 du 24/02/2007 – été");
    cases.paire({-1, 32767});
    cases.score(score);
    cases.texte("");
  }));
  Lecteur_de_cases cases(flux);
  EXPECT_EQ(cases.entier16(), -32768);
  EXPECT_EQ(cases.entier32(), petit);
  EXPECT_EQ(cases.texte(), "Version 1.00 du 24/02/2007 – été");
  EXPECT_EQ(cases.paire(), (Paire{-1, 32767}));
  EXPECT_EQ(cases.score(), score);
  EXPECT_EQ(cases.texte(), "");
  EXPECT_FALSE(cases.défaut());
}

TEST(SlotReader, ABooleanIsTrueForAnyNumberButZero) {
  for (const auto &[octets, valeur] :
       {std::pair{std::string("\0\0", 2), false}, {"\xFF\xFF", true}, {std::string("\2\0", 2), true}})
    EXPECT_EQ(lire<bool>(octets, &Lecteur_de_cases::booléen).valeur, valeur);
  EXPECT_EQ(lire<bool>("\1", &Lecteur_de_cases::booléen).valeur, std::nullopt);
}

TEST(SlotWriter, ABooleanIsMinusOneOrZero) {
  EXPECT_EQ(écrire([](Scripteur_de_cases &cases) {
              cases.booléen(true);
              cases.booléen(false);
            }),
            case_de("\xFF\xFF") + case_de(std::string("\0\0", 2)));
}

TEST(SlotReader, ATextCanBeAskedToBeShorterThanItsSlot) {
  const std::string octets = std::string("\3\0abc", 5);
  EXPECT_EQ(lire<std::string>(octets, [](Lecteur_de_cases &c) { return c.texte(3); }).valeur, "abc");
  EXPECT_EQ(lire<std::string>(octets, [](Lecteur_de_cases &c) { return c.texte(2); }).défaut,
            (Défaut_de_case{1, Cause::trop_long}));
}

TEST(SlotReader, ThePaddingIsNotLookedAt) {
  std::istringstream flux(std::string("\x07\0", 2) + std::string(126, '\xFF') + std::string("\x08\0", 2));
  Lecteur_de_cases cases(flux);
  EXPECT_EQ(cases.entier16(), 7);
  EXPECT_EQ(cases.entier16(), 8);
}

TEST(SlotReader, TheLastSlotMayEndBehindItsItem) {
  EXPECT_EQ(lire<std::int16_t>("\1\1", &Lecteur_de_cases::entier16).valeur, 257);
  EXPECT_EQ(lire<std::int32_t>("\1\1\1\1", &Lecteur_de_cases::entier32).valeur, 16843009);
  EXPECT_EQ(lire<Paire>("\1\1\2\2", &Lecteur_de_cases::paire).valeur, (Paire{257, 514}));
  EXPECT_EQ(lire<std::string>(std::string("\2\0ab", 4), lire_texte).valeur, "ab");
  EXPECT_EQ(lire<Enregistrement_score>(std::string("\1\0a\7\0\0\0\2\0", 9), &Lecteur_de_cases::score).valeur,
            (Enregistrement_score{"a", 7, 2}));
}

TEST(SlotReader, AnItemThatIsNotThereWholeIsTheEndOfTheFile) {
  const Défaut_de_case fin{1, Cause::fin_du_fichier};
  const std::string score("\1\0a\7\0\0\0\2\0", 9), texte("\2\0ab", 4);
  for (std::size_t n = 0; n < score.size(); ++n)
    EXPECT_EQ(lire<Enregistrement_score>(score.substr(0, n), &Lecteur_de_cases::score).défaut, fin) << n;
  for (std::size_t n = 0; n < texte.size(); ++n)
    EXPECT_EQ(lire<std::string>(texte.substr(0, n), lire_texte).défaut, fin) << n;
  for (std::size_t n = 0; n < 4; ++n) {
    EXPECT_EQ(lire<std::int32_t>(texte.substr(0, n), &Lecteur_de_cases::entier32).défaut, fin) << n;
    EXPECT_EQ(lire<Paire>(texte.substr(0, n), &Lecteur_de_cases::paire).défaut, fin) << n;
  }
  EXPECT_EQ(lire<std::int16_t>("\1", &Lecteur_de_cases::entier16).défaut, fin);
}

TEST(SlotReader, ALengthThatTheSlotCannotHoldIsRefused) {
  const Défaut_de_case trop_long{1, Cause::trop_long};
  for (const int longueur : {127, 128, 255, 65535}) {
    const std::string octets = {static_cast<char>(longueur), static_cast<char>(longueur >> 8)};
    const auto lu = lire<std::string>(case_de(octets), lire_texte);
    EXPECT_FALSE(lu.valeur);
    EXPECT_EQ(lu.défaut, trop_long) << longueur;
  }
  for (const int longueur : {121, 126, 65535}) {
    const std::string octets = {static_cast<char>(longueur), static_cast<char>(longueur >> 8)};
    const auto lu = lire<Enregistrement_score>(case_de(octets), &Lecteur_de_cases::score);
    EXPECT_FALSE(lu.valeur);
    EXPECT_EQ(lu.défaut, trop_long) << longueur;
  }
}

TEST(SlotReader, NamesOf0And120BytesAreRead) {
  EXPECT_EQ(lire<Enregistrement_score>(case_de(std::string("\0\0\1\0\0\0\1\0", 8)), &Lecteur_de_cases::score)
                .valeur,
            (Enregistrement_score{"", 1, 1}));
  const std::string nom(120, 'n');
  EXPECT_EQ(lire<Enregistrement_score>(std::string("\x78\0", 2) + nom + std::string("\1\0\0\0\1\0", 6),
                                       &Lecteur_de_cases::score)
                .valeur,
            (Enregistrement_score{nom, 1, 1}));
}

Lu<std::string> lire_les_octets(const std::string &octets) {
  return lire<std::string>(octets, [](Lecteur_de_cases &cases) { return cases.octets(1000); });
}

TEST(SlotReader, BytesTakeASlotForTheirNumberAndThoseThatTheyFill) {
  for (const auto &[nombre, pleines] :
       {std::pair<std::size_t, std::size_t>{0, 0}, {1, 1}, {128, 1}, {129, 2}, {1000, 8}}) {
    std::string valeur(nombre, '\xE9');
    const std::string octets = écrire([&](Scripteur_de_cases &cases) { cases.octets(valeur); });
    EXPECT_EQ(octets.size(), (1 + pleines) * taille_de_case) << nombre;
    EXPECT_EQ(lire_les_octets(octets).valeur, valeur) << nombre;
  }
}

TEST(SlotReader, BytesThatAreNotAllThereOrTooManyAreAFault) {
  const std::string octets = écrire([](Scripteur_de_cases &cases) { cases.octets(std::string(200, 'x')); });
  for (const std::size_t taille : {0U, 3U, 4U, 128U, 255U, 256U, 256U + 71U})
    EXPECT_EQ(lire_les_octets(octets.substr(0, taille)).défaut->cause, Cause::fin_du_fichier) << taille;
  EXPECT_EQ(lire_les_octets(octets.substr(0, 256 + 72)).valeur, std::string(200, 'x'));
  for (const std::string &nombre :
       {std::string("\xE9\x03\0\0", 4), std::string("\xFF\xFF\xFF\xFF"), std::string("\xFF\xFF\xFF\x7F")})
    EXPECT_EQ(lire_les_octets(case_de(nombre)).défaut, (Défaut_de_case{1, Cause::trop_long}));
}

TEST(SlotReader, AfterAFaultNothingMoreIsReadAndTheFirstFaultStays) {
  std::istringstream flux(case_de("\1") + case_de("\xFF\xFF") + case_de("\1"));
  Lecteur_de_cases cases(flux);
  EXPECT_TRUE(cases.entier16());
  EXPECT_FALSE(cases.texte());
  EXPECT_FALSE(cases.entier16());
  cases.refuser();
  EXPECT_EQ(cases.défaut(), (Défaut_de_case{2, Cause::trop_long}));
}

TEST(SlotReader, AnItemCanBeRefusedByWhoeverReadsIt) {
  std::istringstream flux(case_de("\1") + case_de("\1"));
  Lecteur_de_cases cases(flux);
  EXPECT_TRUE(cases.entier16());
  EXPECT_TRUE(cases.entier16());
  cases.refuser();
  EXPECT_EQ(cases.défaut(), (Défaut_de_case{2, Cause::valeur}));
  EXPECT_FALSE(cases.entier16());
}

TEST(SlotReader, ADeviceThatFailsIsTold) {
  AppareilDéfaillant appareil(taille_de_case);
  std::istream flux(&appareil);
  Lecteur_de_cases cases(flux);
  EXPECT_TRUE(cases.entier16());
  EXPECT_FALSE(cases.entier16());
  EXPECT_EQ(cases.défaut(), (Défaut_de_case{2, Cause::lecture}));
}

TEST(SlotReader, AFaultCanBeSaid) {
  EXPECT_EQ(décrire_défaut({118, Cause::trop_long}), "case 118 : texte trop long");
  EXPECT_EQ(décrire_défaut({1, Cause::fin_du_fichier}), "case 1 : fin du fichier");
  EXPECT_EQ(décrire_défaut({2, Cause::valeur}), "case 2 : valeur refusée");
  EXPECT_EQ(décrire_défaut({3, Cause::lecture}), "case 3 : lecture impossible");
  EXPECT_EQ(décrire_défaut({4, Cause::écriture}), "case 4 : écriture impossible");
}

}  // namespace
}  // namespace ardane
