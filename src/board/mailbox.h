#ifndef QUORVANE_BOARD_MAILBOX_H_
#define QUORVANE_BOARD_MAILBOX_H_

#include "board/table.h"
#include "board/types.h"

namespace quorvane {

// The 10 by 12 mailbox: the 8 by 8 board in a border that is one file wide and two ranks high, so that every
// step of every piece, knights included, ends inside the table. +1 goes one file towards h, +10 one rank
// towards 8.
inline constexpr std::int32_t mailboxWidth = 10;
inline constexpr std::int32_t mailboxSize = mailboxWidth * 12;

constexpr std::int32_t mailboxIndex(Square square) {
  constexpr std::int32_t a1 = 2 * mailboxWidth + 1;
  return a1 + mailboxWidth * rankOf(square) + fileOf(square);
}

inline constexpr auto squareToMailbox = [] {
  Table<std::int32_t, squareCount> table{};
  for (Square square = 0; square < squareCount; ++square) table[square] = mailboxIndex(square);
  return table;
}();

// noSquare on the border.
inline constexpr auto mailboxToSquare = [] {
  Table<Square, mailboxSize> table{};
  for (Square& entry : table) entry = noSquare;
  for (Square square = 0; square < squareCount; ++square) table[mailboxIndex(square)] = square;
  return table;
}();

static_assert(mailboxToSquare[21] == 0 && mailboxToSquare[98] == 63 && mailboxToSquare[20] == noSquare);

// The square that `delta` mailbox steps lead to, noSquare if the step leaves the board.
constexpr Square stepFrom(Square square, std::int32_t delta) {
  return mailboxToSquare[squareToMailbox[square] + delta];
}

}  // namespace quorvane

#endif  // QUORVANE_BOARD_MAILBOX_H_
