#include "voices/sounds.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <span>
#include <stdexcept>
#include <utility>

#include "numbers/math.h"

namespace atelier {
namespace {

/// A sound under way: one amplitude a sample, of any size; the end brings it to its peak.
using Onde = std::vector<double>;

/// One vibration mode of a struck body: its frequency as a multiple of the note's, its loudness, and the
/// seconds in which it falls to 1/e.
struct Partiel {
  double rapport;
  double force;
  double décroissance;
};

/// The modes are those of the bodies: a marimba bar is cut so that its second mode lies two octaves up; a
/// bell bar is left free (1 : 2.76 : 5.40 : 8.93, the modes of a uniform bar); a hollow block of wood is all
/// short and inharmonic, with modes between 700 and 1,000 Hz that the small loudspeakers of a laptop can play
/// where its deepest are lost; the soft bar is a low bar with a resonator under it.
constexpr Partiel lame_de_marimba[] = {{1.0, 1.0, 0.30}, {3.98, 0.30, 0.085}, {9.6, 0.12, 0.030}};
constexpr Partiel lame_de_carillon[] = {
    {1.0, 1.0, 0.62}, {2.76, 0.38, 0.30}, {5.40, 0.18, 0.12}, {8.93, 0.07, 0.05}};
constexpr Partiel bloc_de_bois[] = {
    {1.0, 0.7, 0.095}, {2.14, 0.6, 0.080}, {3.46, 0.85, 0.090}, {4.6, 0.45, 0.055}, {5.9, 0.12, 0.012}};
constexpr Partiel lame_douce[] = {{1.0, 1.0, 0.42}, {2.0, 0.22, 0.20}, {4.0, 0.14, 0.10}};
constexpr Partiel baguette[] = {{1.0, 1.0, 0.014}, {2.57, 0.55, 0.008}, {4.3, 0.20, 0.004}};

struct Note {
  double début;      // seconds
  double fréquence;  // hertz
  double force;
};

constexpr double do5 = 523.25, mi5 = 659.26, sol5 = 783.99, do6 = 1046.50;
constexpr double la4 = 440.00, sol4 = 392.00, fa4 = 349.23, ré4 = 293.66;

constexpr Note appel_juste[] = {{0.0, sol5, 0.8}, {0.105, do6, 1.0}};
constexpr Note coups_erreur[] = {{0.0, 233.0, 1.0}, {0.135, 185.0, 0.85}};
constexpr Note carillon_gagné[] = {
    {0.0, do5, 0.75}, {0.115, mi5, 0.75}, {0.23, sol5, 0.8}, {0.36, do6, 1.0}, {0.36, mi5, 0.45}};
constexpr Note descente_perdu[] = {{0.0, la4, 1.0}, {0.19, sol4, 0.9}, {0.38, fa4, 0.85}, {0.60, ré4, 1.0}};
constexpr Note coup_choisi[] = {{0.0, 1480.0, 1.0}};

Onde silence(double secondes) {
  return Onde(static_cast<std::size_t>(std::lround(secondes * fréquence_échantillons)), 0.0);
}

double instant(std::size_t échantillon) {
  return static_cast<double>(échantillon) / fréquence_échantillons;
}

/// sin(2 pi x): the whole turns are cut off first, so that the argument stays small and exact.
double sinus_de_tours(double tours) {
  return sine(2.0 * pi * (tours - std::floor(tours)));
}

/// Rises from 0 to 1 in `durée` seconds, so that no note begins with a step or a kink.
double montée(double t, double durée) {
  return smooth_step(0.0, durée, t);
}

void frapper(Onde &onde, const Note &note, std::span<const Partiel> corps, double attaque) {
  const auto premier = static_cast<std::size_t>(std::lround(note.début * fréquence_échantillons));
  for (std::size_t i = premier; i < onde.size(); ++i) {
    const double t = instant(i - premier);
    double somme = 0.0;
    for (const Partiel &mode : corps) {
      somme += mode.force * exponential(-t / mode.décroissance) *
               sinus_de_tours(note.fréquence * mode.rapport * t);
    }
    onde[i] += note.force * montée(t, attaque) * somme;
  }
}

Onde jouer(double secondes, std::span<const Note> notes, std::span<const Partiel> corps, double attaque) {
  Onde onde = silence(secondes);
  for (const Note &note : notes) frapper(onde, note, corps, attaque);
  return onde;
}

/// Chamberlin's state-variable filter, its band-pass output.
class PasseBande {
 public:
  double filtrer(double entrée, double fréquence, double amortissement) {
    const double f = 2.0 * sine(pi * fréquence / fréquence_échantillons);
    bas_ += f * bande_;
    const double haut = entrée - bas_ - amortissement * bande_;
    bande_ += f * haut;
    return bande_;
  }

 private:
  double bas_ = 0.0;
  double bande_ = 0.0;
};

/// A sheet turned over: a breath whose pitch rises and sinks again, then the soft slap of the paper lying
/// down.
Onde feuille_tournée() {
  constexpr double geste = 0.26, pose = 0.245;
  Onde onde = silence(0.36);
  Random bruit(20070224);
  PasseBande souffle, tape;
  for (std::size_t i = 0; i < onde.size(); ++i) {
    const double t = instant(i);
    const double entrée = bruit.uniform(-1.0, 1.0);
    if (t < geste) {
      const double arche = sine(pi * t / geste);
      onde[i] += arche * arche * souffle.filtrer(entrée, 1600.0 + 3200.0 * arche, 0.7);
    }
    if (t >= pose) {
      const double u = t - pose;
      onde[i] += 3.0 * montée(u, 0.002) * exponential(-u / 0.022) * tape.filtrer(entrée, 900.0, 0.9);
    }
  }
  return onde;
}

/// Lets the last `durée` seconds sink to nothing, and sets both ends to 0.
void adoucir_la_fin(Onde &onde, double durée) {
  const double fin = instant(onde.size() - 1);
  for (std::size_t i = 0; i < onde.size(); ++i) onde[i] *= montée(fin - instant(i), durée);
  onde.front() = 0.0;
  onde.back() = 0.0;
}

/// A recursive filter of the second order.
class Biquad {
 public:
  Biquad(double b0, double b1, double b2, double a0, double a1, double a2)
      : b0_(b0 / a0), b1_(b1 / a0), b2_(b2 / a0), a1_(a1 / a0), a2_(a2 / a0) {}
  double filtrer(double entrée) {
    const double sortie = b0_ * entrée + s1_;
    s1_ = b1_ * entrée - a1_ * sortie + s2_;
    s2_ = b2_ * entrée - a2_ * sortie;
    return sortie;
  }

 private:
  double b0_, b1_, b2_, a1_, a2_;
  double s1_ = 0.0;
  double s2_ = 0.0;
};

double tangente(double radians) {
  return sine(radians) / cosine(radians);
}

/// The weighting of Recommendation ITU-R BS.1770, "Algorithms to measure audio programme loudness": the
/// head's shadow, a shelf of 4 dB above 1.7 kHz, then a high-pass at 38 Hz.
Biquad plateau() {
  const double k = tangente(pi * 1681.974450955533 / fréquence_échantillons);
  const double q = 0.7071752369554196;
  const double haut = power(10.0, 3.999843853973347 / 20);
  const double milieu = power(haut, 0.4996667741545416);
  return {haut + milieu * k / q + k * k,
          2 * (k * k - haut),
          haut - milieu * k / q + k * k,
          1 + k / q + k * k,
          2 * (k * k - 1),
          1 - k / q + k * k};
}
Biquad passe_haut() {
  const double k = tangente(pi * 38.13547087602444 / fréquence_échantillons);
  const double q = 0.5003270373238773;
  return {1, -2, 1, 1 + k / q + k * k, 2 * (k * k - 1), 1 - k / q + k * k};
}

/// How loud a sound is at its loudest: the weighted mean square over 400 ms, or over the whole of a shorter
/// sound.
double sonie(const Onde &onde) {
  Biquad tête = plateau();
  Biquad grave = passe_haut();
  std::vector<double> énergies{0.0};
  for (const double valeur : onde) {
    const double pesée = grave.filtrer(tête.filtrer(valeur));
    énergies.push_back(énergies.back() + pesée * pesée);
  }
  const std::size_t fenêtre = std::min<std::size_t>(onde.size(), fréquence_échantillons * 2 / 5);
  double plus_forte = 0.0;
  for (std::size_t i = fenêtre; i < énergies.size(); ++i)
    plus_forte = std::max(plus_forte, énergies[i] - énergies[i - fenêtre]);
  return plus_forte / static_cast<double>(fenêtre);
}

double sommet(const Onde &onde) {
  double plus_haut = 0.0;
  for (const double valeur : onde) plus_haut = std::max(plus_haut, std::abs(valeur));
  return plus_haut;
}

std::vector<std::int16_t> mettre_à_l_échelle(const Onde &onde, double échelle) {
  std::vector<std::int16_t> échantillons;
  échantillons.reserve(onde.size());
  for (const double valeur : onde) {
    échantillons.push_back(static_cast<std::int16_t>(std::floor(valeur * échelle + 0.5)));
  }
  return échantillons;
}

struct Ébauche {
  std::string fichier;
  Onde onde;
};

Ébauche achever(std::string fichier, Onde onde, double fin) {
  adoucir_la_fin(onde, fin);
  return {std::move(fichier), std::move(onde)};
}

void poser_entier(std::string &octets, std::uint32_t valeur, int taille) {
  for (int i = 0; i < taille; ++i) octets.push_back(static_cast<char>((valeur >> (8 * i)) & 0xFFU));
}

/// The bytes of a RIFF/WAVE file of one channel of 16-bit PCM: three chunks, all little-endian.
std::string octets_wav(const std::vector<std::int16_t> &échantillons) {
  constexpr std::uint32_t octets_par_échantillon = 2;
  const auto taille = static_cast<std::uint32_t>(échantillons.size()) * octets_par_échantillon;
  std::string octets = "RIFF";
  poser_entier(octets, 36 + taille, 4);
  octets += "WAVEfmt ";
  poser_entier(octets, 16, 4);
  poser_entier(octets, 1, 2);  // PCM
  poser_entier(octets, 1, 2);  // one channel
  poser_entier(octets, fréquence_échantillons, 4);
  poser_entier(octets, fréquence_échantillons * octets_par_échantillon, 4);
  poser_entier(octets, octets_par_échantillon, 2);
  poser_entier(octets, 16, 2);
  octets += "data";
  poser_entier(octets, taille, 4);
  for (const std::int16_t échantillon : échantillons) {
    poser_entier(octets, static_cast<std::uint16_t>(échantillon), 2);
  }
  return octets;
}

}  // namespace

std::vector<Son> composer_sons() {
  std::vector<Ébauche> sons;
  sons.push_back(achever("carte_er.wav", jouer(0.42, coups_erreur, bloc_de_bois, 0.004), 0.05));
  sons.push_back(achever("carte_ok.wav", jouer(0.80, appel_juste, lame_de_marimba, 0.002), 0.20));
  sons.push_back(achever("carte_ga.wav", jouer(1.45, carillon_gagné, lame_de_carillon, 0.002), 0.40));
  sons.push_back(achever("carte_pe.wav", jouer(1.40, descente_perdu, lame_douce, 0.012), 0.35));
  sons.push_back(achever("carte_es.wav", jouer(0.09, coup_choisi, baguette, 0.003), 0.02));
  sons.push_back(achever("carte_hl.wav", feuille_tournée(), 0.04));

  // As loud as the one can be that has the highest peak for its loudness.
  double commune = 1e300;
  for (const Ébauche &son : sons) commune = std::min(commune, std::sqrt(sonie(son.onde)) / sommet(son.onde));
  std::vector<Son> résultat;
  résultat.reserve(sons.size());
  for (const Ébauche &son : sons)
    résultat.push_back(
        {son.fichier, mettre_à_l_échelle(son.onde, crête_sons * commune / std::sqrt(sonie(son.onde)))});
  return résultat;
}

void écrire_sons(const std::filesystem::path &dossier) {
  for (const Son &son : composer_sons()) {
    const std::filesystem::path chemin = dossier / son.fichier;
    const std::string octets = octets_wav(son.échantillons);
    std::ofstream fichier(chemin, std::ios::binary | std::ios::trunc);
    fichier.write(octets.data(), static_cast<std::streamsize>(octets.size()));
    fichier.close();
    if (!fichier) throw std::runtime_error("cannot write " + chemin.string());
  }
}

}  // namespace atelier
