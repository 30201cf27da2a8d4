"""Positions as they are given, FENs and boards of python-chess, made into those of the library."""

from __future__ import annotations

from collections.abc import Sequence
from ctypes import byref
from struct import Struct
from typing import Any, Protocol, TypeAlias

from ._errors import refused
from ._library import MAX_PIECES, Position, library, status_text


class Move(Protocol):
    """What is asked of a `chess.Move`."""

    @property
    def from_square(self) -> int: ...
    @property
    def to_square(self) -> int: ...


class Board(Protocol):
    """What is asked of a `chess.Board`: sets of squares, a1 the lowest bit, and the moves that led here."""

    @property
    def pawns(self) -> int: ...
    @property
    def knights(self) -> int: ...
    @property
    def bishops(self) -> int: ...
    @property
    def rooks(self) -> int: ...
    @property
    def queens(self) -> int: ...
    @property
    def kings(self) -> int: ...
    @property
    def occupied_co(self) -> Sequence[int]: ...
    @property
    def turn(self) -> bool: ...
    @property
    def chess960(self) -> bool: ...
    @property
    def move_stack(self) -> Sequence[Move]: ...
    def root(self) -> Any: ...


GivenPosition: TypeAlias = str | Board

_ALL_SQUARES = (1 << 64) - 1
_BLACK = 8  # what a black piece's number has more than the white one's
# A whole Position at once, many times as fast as field by field.
_POSITION = Struct(f"=i{2 * MAX_PIECES}s4B")


def encoded(fen: str) -> bytes | None:
    """The FEN as the library takes it; None if it holds a NUL, at which the library would stop reading."""
    return None if "\0" in fen else fen.encode("utf-8", "surrogatepass")


def read_fen(fen: str) -> Position:
    position = Position()
    text = encoded(fen)
    if text is None:
        raise refused(NUL_IN_FEN, fen)
    status = library.quorvane_read_fen(text, byref(position))
    if status != 0:
        raise refused(status_text(status), fen)
    return position


NUL_IN_FEN = "the FEN holds a NUL character"


def read_board(board: Board) -> Position:
    """Raises TypeError for what is no board."""
    try:
        black, white = board.occupied_co
        kinds = (board.pawns, board.knights, board.bishops, board.rooks, board.queens, board.kings)
        side_to_move = 1 if board.turn else 0
        white_castled, black_castled = _castled(board)
    except AttributeError as error:
        raise TypeError(f"a position is a FEN or a chess.Board, not {type(board).__name__}") from error
    placed: list[int] = []
    for kind, squares in enumerate(kinds):
        for piece, own in ((kind, squares & white), (kind + _BLACK, squares & black)):
            own &= _ALL_SQUARES
            while own:
                lowest = own & -own
                placed += (piece, lowest.bit_length() - 1)
                own ^= lowest
    # Pieces beyond 32 are cut off; the library refuses their count.
    pieces = bytes(placed)
    return Position.from_buffer_copy(
        _POSITION.pack(len(placed) // 2, pieces, side_to_move, white_castled, black_castled, 0)
    )


def read_position(given: GivenPosition) -> Position:
    return read_fen(given) if isinstance(given, str) else read_board(given)


def _castled(board: Board) -> tuple[bool, bool]:
    """Whether White and Black have castled in the moves on the stack."""
    if board.chess960:
        return _castled_in_chess960(board)
    return _has_castled(board, True), _has_castled(board, False)


def _has_castled(board: Board, side: bool) -> bool:
    """Follows the king of a side back over that side's moves: castling is its step of two squares."""
    king = (board.kings & board.occupied_co[side]).bit_length() - 1
    last_own_move = -1 if side != board.turn else -2
    for move in board.move_stack[last_own_move::-2]:
        if move.to_square == king:
            king = move.from_square
            if abs(king - move.to_square) == 2:
                return True
    return False


def _castled_in_chess960(board: Board) -> tuple[bool, bool]:
    """Replays the game: there a king that castles takes its own rook, which the squares of the move do not show."""
    castled = [False, False]
    replayed = board.root()
    for move in board.move_stack:
        if replayed.is_castling(move):
            castled[replayed.turn] = True
        replayed.push(move)
    return castled[True], castled[False]
