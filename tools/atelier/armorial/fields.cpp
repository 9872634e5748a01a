#include "armorial/fields.h"

#include <functional>

#include "numbers/math.h"

namespace atelier {
namespace {

using Parts = std::vector<Part_du_champ>;

class Diviseur {
 public:
  Diviseur(const Champ &champ, const Cadre &cadre, double unité)
      : champ_(champ),
        c_(cadre),
        coins_(cadre),
        pas_(pas_des_lignes(cadre, unité)),
        x1_(cadre.x - 3 * unité),
        x2_(cadre.droite() + 3 * unité),
        y1_(cadre.y - 3 * unité),
        y2_(cadre.bas() + 3 * unité) {}

  Parts parts() const {
    switch (champ_.partition) {
      case Partition::plein: return {};
      case Partition::parti: return bandes_debout(2);
      case Partition::coupé: return bandes_couchées(2);
      case Partition::tranché: return tranché();
      case Partition::taillé: return taillé();
      case Partition::écartelé: return écartelé();
      case Partition::écartelé_en_sautoir: return écartelé_en_sautoir();
      case Partition::gironné: return gironné();
      case Partition::tiercé_en_fasce: return bandes_couchées(3);
      case Partition::tiercé_en_pal: return bandes_debout(3);
      case Partition::chapé: return chapé();
      case Partition::chaussé: return chaussé();
      case Partition::fascé: return bandes_couchées(champ_.pièces);
      case Partition::palé: return bandes_debout(champ_.pièces);
      case Partition::bandé:
        return bandes_obliques(coins_.haut_sénestre, coins_.bas_dextre, coins_.haut_dextre,
                               coins_.bas_sénestre);
      case Partition::barré:
        return bandes_obliques(coins_.haut_dextre, coins_.bas_sénestre, coins_.bas_dextre,
                               coins_.haut_sénestre);
      case Partition::chevronné: return chevronné();
      case Partition::échiqueté: return échiqueté();
      case Partition::losangé: return losangé();
    }
    return {};
  }

 private:
  /// n parts between n + 1 boundaries.
  static Parts entre_bords(int n, const std::function<std::vector<Point>(int)> &bord) {
    Parts parts;
    for (int i = 0; i < n; ++i) parts.push_back({ruban(bord(i), bord(i + 1)), static_cast<std::size_t>(i)});
    return parts;
  }

  Parts bandes_couchées(int n) const {
    return entre_bords(n, [&](int i) -> std::vector<Point> {
      if (i == 0) return {{x1_, y1_}, {x2_, y1_}};
      if (i == n) return {{x1_, y2_}, {x2_, y2_}};
      const double y = c_.y + c_.h * i / n;
      return frontière({x1_, y}, {x2_, y}, champ_.ligne, pas_);
    });
  }

  Parts bandes_debout(int n) const {
    return entre_bords(n, [&](int i) -> std::vector<Point> {
      if (i == 0) return {{x1_, y1_}, {x1_, y2_}};
      if (i == n) return {{x2_, y1_}, {x2_, y2_}};
      const double x = c_.x + c_.l * i / n;
      return frontière({x, y1_}, {x, y2_}, champ_.ligne, pas_);
    });
  }

  /// Bands that lie along a - b, counted from `de` to `à`.
  Parts bandes_obliques(Point de, Point à, Point a, Point b) const {
    const int n = champ_.pièces;
    const Point d{(b.x - a.x) * 1.2, (b.y - a.y) * 1.2};
    return entre_bords(n, [&](int i) {
      const Point p = entre(de, à, i == 0 ? -0.5 : i == n ? 1.5 : static_cast<double>(i) / n);
      return frontière({p.x - d.x, p.y - d.y}, {p.x + d.x, p.y + d.y}, champ_.ligne, pas_);
    });
  }

  Parts chevronné() const {
    const int n = champ_.pièces;
    const double flèche = c_.l * 0.45;
    return entre_bords(n, [&](int i) -> std::vector<Point> {
      const double y = i == 0   ? y1_ - c_.h
                       : i == n ? y2_ + c_.h
                                : c_.y + c_.h * (i - 0.6) / (n - 1.0) - c_.h * 0.12;
      return {{x1_, y + flèche}, {c_.centre().x, y}, {x2_, y + flèche}};
    });
  }

  Parts tranché() const {
    const auto ligne = frontière(loin(coins_.bas_sénestre, coins_.haut_dextre),
                                 loin(coins_.haut_dextre, coins_.bas_sénestre), champ_.ligne, pas_);
    return {{ruban(ligne, {{x1_, y1_ - c_.h}, {x2_ + c_.l, y1_ - c_.h}, {x2_ + c_.l, y2_ + c_.h}}), 0},
            {ruban(ligne, {{x1_ - c_.l, y1_}, {x1_ - c_.l, y2_ + c_.h}, {x2_, y2_ + c_.h}}), 1}};
  }

  Parts taillé() const {
    const auto ligne = frontière(loin(coins_.haut_sénestre, coins_.bas_dextre),
                                 loin(coins_.bas_dextre, coins_.haut_sénestre), champ_.ligne, pas_);
    return {{ruban(ligne, {{x1_ - c_.l, y2_}, {x1_ - c_.l, y1_ - c_.h}, {x2_, y1_ - c_.h}}), 0},
            {ruban(ligne, {{x1_, y2_ + c_.h}, {x2_ + c_.l, y2_ + c_.h}, {x2_ + c_.l, y1_}}), 1}};
  }

  Parts écartelé() const {
    const Point k = c_.centre();
    const bool émaux = champ_.quartiers.empty();
    return {{polygon({{x1_, y1_}, {k.x, y1_}, k, {x1_, k.y}}), 0},
            {polygon({{k.x, y1_}, {x2_, y1_}, {x2_, k.y}, k}), 1},
            {polygon({{x1_, k.y}, k, {k.x, y2_}, {x1_, y2_}}), émaux ? 1U : 2U},
            {polygon({k, {x2_, k.y}, {x2_, y2_}, {k.x, y2_}}), émaux ? 0U : 3U}};
  }

  Parts écartelé_en_sautoir() const {
    const Point o = coins_.cœur;
    const Point hd = loin(o, coins_.haut_dextre);
    const Point hs = loin(o, coins_.haut_sénestre);
    const Point bd = loin(o, coins_.bas_dextre);
    const Point bs = loin(o, coins_.bas_sénestre);
    return {{polygon({hd, hs, o}), 0},
            {polygon({hs, bs, o}), 1},
            {polygon({bs, {c_.centre().x, y2_ + c_.h}, bd, o}), 0},
            {polygon({bd, hd, o}), 1}};
  }

  Parts gironné() const {
    const Point o = coins_.cœur;
    const double haut = coins_.bas_dextre.y - c_.y;
    const auto rayon = [&](int i) {
      const double angle = 2 * pi * i / champ_.pièces - pi / 2;
      return Point{o.x + cosine(angle) * 2 * c_.l, o.y + sine(angle) * 2 * haut};
    };
    Parts parts;
    for (int i = 0; i < champ_.pièces; ++i)
      parts.push_back({polygon({o, rayon(i), rayon(i + 1)}), static_cast<std::size_t>(i)});
    return parts;
  }

  Parts chapé() const {
    const Point sommet{c_.centre().x, y1_};
    const double bas = coins_.bas_dextre.y;
    return {{polygon({sommet, {x2_, bas}, {x2_, y2_}, {x1_, y2_}, {x1_, bas}}), 0},
            {polygon({{x1_, y1_}, sommet, {x1_, bas}}), 1},
            {polygon({{x2_, y1_}, sommet, {x2_, bas}}), 1}};
  }

  Parts chaussé() const {
    const Point pied{c_.centre().x, y2_};
    return {{polygon({{x1_, y1_}, {x2_, y1_}, pied}), 0},
            {polygon({{x1_, y1_}, pied, {x1_, y2_}}), 1},
            {polygon({{x2_, y1_}, pied, {x2_, y2_}}), 1}};
  }

  Parts échiqueté() const {
    const double carreau = c_.l / champ_.pièces;
    Parts parts;
    int rang = 0;
    for (double y = c_.y; y < c_.bas(); y += carreau, ++rang)
      for (int i = (rang + 1) % 2; i < champ_.pièces; i += 2)
        parts.push_back({rectangle({c_.x + carreau * i, y, carreau, carreau}), 1});
    return parts;
  }

  Parts losangé() const {
    const double l = c_.l / champ_.pièces;
    const double h = l * 1.35;
    Parts parts;
    for (double y = c_.y; y < c_.bas() + h; y += h)
      for (int i = 0; i <= champ_.pièces; ++i) {
        const double x = c_.x + l * i;
        parts.push_back({polygon({{x, y - h / 2}, {x + l / 2, y}, {x, y + h / 2}, {x - l / 2, y}}), 1});
      }
    return parts;
  }

  static Point loin(Point a, Point b) { return entre(a, b, 1.4); }

  const Champ &champ_;
  Cadre c_;
  Coins coins_;
  double pas_;
  /// A little outside the frame, so that no seam shows at its edge.
  double x1_, x2_, y1_, y2_;
};

}  // namespace

std::vector<Part_du_champ> parts_du_champ(const Champ &champ, const Cadre &cadre, double unité) {
  return Diviseur(champ, cadre, unité).parts();
}

}  // namespace atelier
