"""What a position is worth, piece by piece."""

from __future__ import annotations

from collections.abc import Iterator
from dataclasses import dataclass
from functools import cache

from ._library import Worth, library

_SYMBOLS = "PNBRQK..pnbrqk"  # by the library's numbers of pieces


@dataclass(frozen=True, slots=True)
class ExplainedPiece:
    """What one piece is worth, and the features that it is valued by."""

    square: int
    """a1 is 0, b1 is 1, h8 is 63, as in python-chess."""
    symbol: str
    """"N", a white knight; "n", a black one."""
    value: float
    """What the piece is worth to its own side."""
    word: int
    """The features, one bit each."""
    features: tuple[str, ...]
    """The same in words, from the highest bit down."""

    @property
    def square_name(self) -> str:
        """The square in letters, "e4"."""
        return "abcdefgh"[self.square % 8] + str(self.square // 8 + 1)

    @property
    def white(self) -> bool:
        return self.symbol.isupper()


@dataclass(frozen=True, slots=True)
class Explanation:
    """What a position is worth, and why; iterating over it gives its pieces, in the order of their squares."""

    value: float
    """As `evaluate` gives it: the pieces of the side to move less those of the other side."""
    type: int
    """The position's type by its material, 0 to 13; `type_name` puts it into words."""
    pieces: tuple[ExplainedPiece, ...]

    def __iter__(self) -> Iterator[ExplainedPiece]:
        return iter(self.pieces)


def type_name(position_type: int) -> str:
    """What a type of positions is: "material 70 and more". Raises ValueError if it is not 0 to 13."""
    name: bytes | None = library.quorvane_type_name(position_type) if 0 <= position_type < 14 else None
    if name is None:
        raise ValueError(f"types are 0 to 13, not {position_type}")
    return name.decode()


def explanation_of(worth: Worth) -> Explanation:
    pieces = (
        ExplainedPiece(
            square=piece.square,
            symbol=_SYMBOLS[piece.piece],
            value=piece.value,
            word=piece.word,
            features=_features(worth.type, piece.piece, piece.word),
        )
        for piece in worth.pieces[: worth.count]
    )
    return Explanation(value=worth.value, type=worth.type, pieces=tuple(pieces))


def _features(position_type: int, piece: int, word: int) -> tuple[str, ...]:
    names = []
    while word:
        bit = word.bit_length() - 1
        names.append(_feature(position_type, piece, bit))
        word ^= 1 << bit
    return tuple(names)


@cache
def _feature(position_type: int, piece: int, bit: int) -> str:
    name: bytes = library.quorvane_feature_name(position_type, piece, bit)
    return name.decode()
