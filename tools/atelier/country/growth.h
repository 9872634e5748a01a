// Growth of territories over a field of travelling costs.
#pragma once

#include <vector>

#include "numbers/grid.h"

namespace atelier {

/// A step up or down costs so many times one across, so that territories come out wider than tall: the table
/// of points has room for so many borders a row and no more.
inline constexpr double steepness = 1.83;

struct Seed {
  Cell place;
  /// Head start, in the unit of the costs.
  double advance = 0;
};

/// Gives every cell of the domain to the seed whose front reaches it first: seed i gets label i + 1, cells
/// that no front reaches get 0. Fronts travel by the eikonal equation |grad T| = cost, solved by fast
/// marching (J. A. Sethian, 1996), and do not leave the zone in which they start (cells of an equal, non-zero
/// number).
Grid<int> grow(const std::vector<Seed> &seeds, const Field &cost, const Grid<int> &zone);

/// Grows with head starts adjusted until each label's area comes near its target (cells), and seeds that move
/// towards the middle of their territories in the first `moves` rounds.
Grid<int> grow_balanced(std::vector<Seed> seeds, const std::vector<double> &targets, const Field &cost,
                        const Grid<int> &zone, int rounds, int moves);

/// Rounds borders off: every cell of the domain (label not 0) takes the label that is strongest around it
/// under a bell of the given standard deviation.
void smooth_labels(Grid<int> &labels, double deviation);

/// Gives each strip of a label that is narrower than twice the half width, and at least `smallest` cells
/// large, to the label that it lies along.
void hand_over_strips(Grid<int> &labels, double half_width, int smallest);

/// Leaves each label in one piece that hangs together by sides: lesser pieces go to the label that they
/// border most, or to 0 where they border none.
void join_pieces(Grid<int> &labels);

/// The labels on a grid of twice the cells a side, with smooth borders; only cells where `domain` is set get
/// one, and each label stays within its rectangle on the first grid.
Grid<int> doubled_labels(const Grid<int> &labels, const Mask &domain);

}  // namespace atelier
