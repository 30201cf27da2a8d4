"""Boards for the tests: python-chess's where it is installed, and a plain one that has what the module asks of it."""

from __future__ import annotations

import re
from typing import NamedTuple

SQUARES = [file + rank for rank in "12345678" for file in "abcdefgh"]
START = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"


def pieces_of(fen: str) -> dict[int, str]:
    """The letters of the pieces by their squares."""
    ranks = re.sub(r"\d", lambda free: "." * int(free[0]), fen.split()[0]).split("/")
    return {square: letter for square, letter in enumerate("".join(reversed(ranks))) if letter != "."}


def move_between(before: str, after: str) -> str:
    """The move, "e7e8q", that leads from one FEN to another. A king that castles moves two squares."""
    old, new = pieces_of(before), pieces_of(after)
    own = str.isupper if before.split()[1] == "w" else str.islower
    left = [square for square, letter in old.items() if own(letter) and square not in new]
    entered = [square for square, letter in new.items() if own(letter) and old.get(square) != letter]
    if len(left) == 2:
        left = [square for square in left if old[square] in "Kk"]
        entered = [square for square in entered if new[square] in "Kk"]
    (start,), (end,) = left, entered
    promoted = new[end].lower() if new[end] != old[start] else ""
    return SQUARES[start] + SQUARES[end] + promoted


class Move(NamedTuple):
    from_square: int
    to_square: int
    promotion: str


class PlainBoard:
    """Plays what it is told, legal or not. As in python-chess, castling in a game of Chess960 is the king taking its
    rook, and "0000" passes."""

    def __init__(self, fen: str = START, chess960: bool = False) -> None:
        self._start = fen
        self._pieces = pieces_of(fen)
        self.turn = fen.split()[1] == "w"
        self.chess960 = chess960
        self.move_stack: list[Move] = []

    def _squares(self, letters: str) -> int:
        return sum(1 << square for square, letter in self._pieces.items() if letter in letters)

    pawns = property(lambda self: self._squares("Pp"))
    knights = property(lambda self: self._squares("Nn"))
    bishops = property(lambda self: self._squares("Bb"))
    rooks = property(lambda self: self._squares("Rr"))
    queens = property(lambda self: self._squares("Qq"))
    kings = property(lambda self: self._squares("Kk"))
    occupied_co = property(lambda self: [self._squares("pnbrqk"), self._squares("PNBRQK")])

    def root(self) -> PlainBoard:
        return PlainBoard(self._start, self.chess960)

    def is_castling(self, move: Move) -> bool:
        king, target = self._pieces.get(move.from_square, ""), self._pieces.get(move.to_square)
        own_rook = target == ("R" if self.turn else "r")
        return king in ("K", "k") and (own_rook or abs(move.from_square - move.to_square) == 2)

    def push_uci(self, text: str) -> None:
        if text == "0000":
            self.push(Move(0, 0, ""))
        else:
            self.push(Move(SQUARES.index(text[:2]), SQUARES.index(text[2:4]), text[4:]))

    def push(self, move: Move) -> None:
        start, end, promotion = move
        if start != end:
            if self.is_castling(move):
                self._castle(start, end)
            else:
                self._step(start, end, promotion)
        self.move_stack.append(move)
        self.turn = not self.turn

    def _castle(self, start: int, end: int) -> None:
        corner = start // 8 * 8
        rook = end if self.chess960 else corner + (7 if end > start else 0)
        moved = self._pieces.pop(start), self._pieces.pop(rook)
        king_file = 6 if end > start else 2
        self._pieces[corner + king_file] = moved[0]
        self._pieces[corner + (5 if end > start else 3)] = moved[1]

    def _step(self, start: int, end: int, promotion: str) -> None:
        piece = self._pieces.pop(start)
        if piece in "Pp" and start % 8 != end % 8 and end not in self._pieces:
            del self._pieces[start // 8 * 8 + end % 8]  # en passant
        if promotion:
            piece = promotion.upper() if self.turn else promotion
        self._pieces[end] = piece
