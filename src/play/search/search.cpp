#include "play/search/search.h"

#include <algorithm>
#include <bit>

#include "play/search/exchange.h"

// The devices are those of the textbooks, under their names in the Chess Programming Wiki: principal
// variation search (Marsland and Campbell 1982), aspiration windows, transposition table (Greenblatt 1967),
// late move reductions and pruning, futility (Heinz 1998), quiescence (Harris 1975), mate distance.

namespace quorvane::play {

namespace {

constexpr std::int32_t infinite = mateScore + 1;
constexpr std::uint64_t nodesBetweenLooks = 256;

}  // namespace

Finding Search::run(const Position& position, std::span<const std::uint64_t> earlier, const Goal& wanted,
                    Onlooker& onlooker) {
  goal = &wanted;
  watching = &onlooker;
  nodes = 0;
  deepest = 0;
  ended = false;
  keys.assign(earlier.begin(), earlier.end());
  rootKeys = keys.size();
  table.growOlder();
  quietMoves.fade();

  Finding finding;
  MoveList legal = legalMoves(position);
  if (!wanted.amongMoves.empty()) {
    legal.keepIf(
        [&](Move move) { return std::ranges::find(wanted.amongMoves, move) != wanted.amongMoves.end(); });
  }
  if (legal.empty()) {
    finding.score = position.inCheck() ? matedIn(0) : 0;
    return finding;
  }
  finding.line = {legal[0]};
  for (std::int32_t depth = 1; depth <= std::min(wanted.depth, mostPlies - 1); ++depth) {
    lines[0].length = 0;
    firstAtRoot = finding.line[0];
    const std::int32_t score = searchRoot(position, depth, finding.score);
    // The best move of the last depth comes first, so that what was found until the end counts.
    if (lines[0].length > 0) {
      finding.line.assign(lines[0].moves.begin(), lines[0].moves.begin() + lines[0].length);
      finding.score = score;
    }
    finding.nodes = nodes;
    finding.deepest = deepest;
    if (ended) break;
    finding.depth = depth;
    finding.permilleUsed = table.permilleUsed();
    const bool mates = wanted.mateInMoves > 0 && finding.score > 0 && isMate(finding.score) &&
                       movesToMate(finding.score) <= wanted.mateInMoves;
    if (onlooker.isEnough(finding) || mates) break;
  }
  return finding;
}

// One depth. The score is expected near the one before; where it is not, the window opens on that side.
std::int32_t Search::searchRoot(const Position& position, std::int32_t depth, std::int32_t before) {
  constexpr std::int32_t firstDepth = 4;
  std::int32_t width = 30;
  std::int32_t alpha = -infinite;
  std::int32_t beta = infinite;
  if (depth >= firstDepth && uses(aspirationWindows) && !isMate(before)) {
    alpha = std::max(before - width, -infinite);
    beta = std::min(before + width, infinite);
  }
  for (;;) {
    const std::int32_t score = search(position, alpha, beta, depth, 0);
    if (ended || (score > alpha && score < beta)) return score;
    width *= 4;
    if (score <= alpha) alpha = width > 1000 ? -infinite : std::max(before - width, -infinite);
    if (score >= beta) beta = width > 1000 ? infinite : std::min(before + width, infinite);
  }
}

std::int32_t Search::search(const Position& position, std::int32_t alpha, std::int32_t beta,
                            std::int32_t depth, std::int32_t ply) {
  const bool inCheck = position.inCheck();
  if (depth <= 0) return quiesce(position, alpha, beta, ply);
  if (!countNode(ply)) return 0;
  if (ply > 0) {
    if (isDrawn(position)) return 0;
    alpha = std::max(alpha, matedIn(ply));
    beta = std::min(beta, -matedIn(ply + 1));
    if (alpha >= beta) return alpha;
  }
  if (ply >= mostPlies - 1) return judge(position);

  const bool isLine = beta - alpha > 1;  // of the principal variation
  Remembered known = recall(position, ply);
  if (!isLine && settles(known, depth, alpha, beta)) return known.score;
  if (inCheck) {
    known.judgement = Remembered::noJudgement;
  } else if (known.judgement == Remembered::noJudgement) {
    known.judgement = static_cast<std::int16_t>(judge(position));
  }
  return searchMoves(position, alpha, beta, depth, ply, known);
}

std::int32_t Search::searchMoves(const Position& position, std::int32_t alpha, std::int32_t beta,
                                 std::int32_t depth, std::int32_t ply, const Remembered& known) {
  const bool isLine = beta - alpha > 1;
  const bool inCheck = position.inCheck();
  const std::int32_t alphaBefore = alpha;
  std::int32_t best = -infinite;
  Move bestMove{};
  std::int32_t moveCount = 0;
  MoveList quiet;
  const Move first = ply == 0 ? firstAtRoot : unpacked(known.move);
  OrderedMoves moves(position, first, quietMoves, false, goal->devices);
  while (const Move move = moves.next()) {
    if (ply == 0 && !goal->amongMoves.empty() &&
        std::ranges::find(goal->amongMoves, move) == goal->amongMoves.end()) {
      continue;
    }
    const bool isQuiet = !position.takes(move) && !move.promotes();
    ++moveCount;
    Position next = position;
    next.make(move);
    if (!isLine && !inCheck && isQuiet && !next.inCheck() && best > -greatestJudgement) {
      if (uses(lateMovePruning) && depth <= 3 && moveCount > 4 + 3 * depth * depth) continue;
      if (uses(futility) && depth <= 4 && known.judgement + 100 + 80 * depth <= alpha) continue;
    }
    keys.push_back(position.key);
    const auto searched = [&](std::int32_t from, std::int32_t to, std::int32_t deep) {
      return -search(next, -to, -from, deep, ply + 1);
    };
    std::int32_t score;
    if (moveCount == 1 || !uses(zeroWindows)) {
      score = searched(alpha, beta, depth - 1);
    } else {
      std::int32_t reduced = 0;
      if (uses(lateMoveReductions) && isQuiet && !inCheck && !next.inCheck() && depth >= 3 && moveCount > 3)
        reduced = std::clamp(reduction(depth, moveCount) - (isLine ? 1 : 0), 0, depth - 2);
      score = searched(alpha, alpha + 1, depth - 1 - reduced);
      if (score > alpha && reduced > 0) score = searched(alpha, alpha + 1, depth - 1);
      if (score > alpha && score < beta) score = searched(alpha, beta, depth - 1);
    }
    keys.pop_back();
    if (ended) return best;
    if (score > best) {
      best = score;
      bestMove = move;
      if (score > alpha) {
        alpha = score;
        extendLine(ply, move);
      }
      if (score >= beta) {
        if (isQuiet) quietMoves.reward(position.sideToMove, move, quiet, depth);
        break;
      }
    }
    if (isQuiet) quiet.append(move);
  }
  if (moveCount == 0) return inCheck ? matedIn(ply) : 0;
  const Bound bound = best >= beta ? Bound::lower : best > alphaBefore ? Bound::exact : Bound::upper;
  remember(position, bestMove, best, known.judgement, depth, bound, ply);
  return best;
}

// Goes on until nothing is left to take, so that no exchange is judged in its middle. Whoever is not in check
// may stop at any time.
std::int32_t Search::quiesce(const Position& position, std::int32_t alpha, std::int32_t beta,
                             std::int32_t ply) {
  if (!countNode(ply)) return 0;
  lines[ply].length = 0;
  if (isDrawn(position)) return 0;
  if (ply >= mostPlies - 1) return judge(position);
  const bool inCheck = position.inCheck();
  Remembered known = recall(position, ply);
  if (beta - alpha == 1 && settles(known, 0, alpha, beta)) return known.score;
  const std::int32_t alphaBefore = alpha;
  std::int32_t best = matedIn(ply);
  if (inCheck) {
    known.judgement = Remembered::noJudgement;
  } else {
    if (known.judgement == Remembered::noJudgement)
      known.judgement = static_cast<std::int16_t>(judge(position));
    best = known.judgement;
    alpha = std::max(alpha, best);
    if (best >= beta || !uses(quiescence)) return best;
  }
  Move bestMove{};
  OrderedMoves moves(position, unpacked(known.move), quietMoves, true, goal->devices);
  while (const Move move = moves.next()) {
    if (!inCheck && uses(staticExchanges) && moves.isLosing()) break;
    Position next = position;
    next.make(move);
    keys.push_back(position.key);
    const std::int32_t score = -quiesce(next, -beta, -alpha, ply + 1);
    keys.pop_back();
    if (ended) return best;
    if (score <= best) continue;
    best = score;
    bestMove = move;
    if (score > alpha) {
      alpha = score;
      extendLine(ply, move);
    }
    if (score >= beta) break;
  }
  const Bound bound = best >= beta ? Bound::lower : best > alphaBefore ? Bound::exact : Bound::upper;
  remember(position, bestMove, best, known.judgement, 0, bound, ply);
  return best;
}

// About log2(depth) log2(moveCount) / 2, by whole numbers, so that it is the same everywhere.
std::int32_t Search::reduction(std::int32_t depth, std::int32_t moveCount) const {
  const auto halves = [](std::int32_t number) {
    const auto width = static_cast<std::int32_t>(std::bit_width(static_cast<std::uint32_t>(number)));
    return 2 * width - 2 + (number >> std::max(width - 2, 0) & 1);  // of the logarithm
  };
  return halves(depth) * halves(moveCount) / 8;
}

bool Search::countNode(std::int32_t ply) {
  if (ended) return false;
  if (nodes >= goal->nodes ||
      (nodes % nodesBetweenLooks == nodesBetweenLooks - 1 && watching->endsNow(nodes))) {
    ended = true;
    return false;
  }
  ++nodes;
  deepest = std::max(deepest, ply);
  lines[ply].length = 0;
  return true;
}

// By fifty moves, unless they mate; by repetition: of a position of this search, the root included, once, as
// whoever repeats gets no further, of one of the game before it twice; or as neither side can mate.
bool Search::isDrawn(const Position& position) const {
  if (position.hasTooLittleMaterial()) return true;
  if (position.halfmoves >= 100 && (!position.inCheck() || !legalMoves(position).empty())) return true;
  const std::size_t back = std::min(keys.size(), static_cast<std::size_t>(position.halfmoves));
  bool before = false;
  for (std::size_t plies = 4; plies <= back; plies += 2) {
    const std::size_t place = keys.size() - plies;
    if (keys[place] != position.key) continue;
    if (place >= rootKeys || before) return true;
    before = true;
  }
  return false;
}

Remembered Search::recall(const Position& position, std::int32_t ply) const {
  Remembered known;
  known.judgement = Remembered::noJudgement;
  const Remembered* const found = uses(transpositions) ? table.find(position.key) : nullptr;
  if (found == nullptr) return known;
  known = *found;
  if (isMate(known.score))
    known.score = static_cast<std::int16_t>(known.score + (known.score > 0 ? -ply : ply));
  return known;
}

void Search::remember(const Position& position, Move move, std::int32_t score, std::int32_t judgement,
                      std::int32_t depth, Bound bound, std::int32_t ply) {
  if (!uses(transpositions)) return;
  if (isMate(score)) score += score > 0 ? ply : -ply;
  table.remember(position.key, move, score, judgement, depth, bound);
}

bool Search::settles(const Remembered& known, std::int32_t depth, std::int32_t alpha, std::int32_t beta) {
  if (known.depth < depth || known.bound() == Bound::none) return false;
  return known.bound() == Bound::exact || (known.bound() == Bound::lower && known.score >= beta) ||
         (known.bound() == Bound::upper && known.score <= alpha);
}

void Search::extendLine(std::int32_t ply, Move move) {
  const Line& rest = lines[ply + 1];
  Line& line = lines[ply];
  line.moves[0] = move;
  std::copy_n(rest.moves.begin(), rest.length, line.moves.begin() + 1);
  line.length = rest.length + 1;
}

}  // namespace quorvane::play
