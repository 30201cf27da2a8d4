"""What can be wrong with what is given."""

from __future__ import annotations


class NetworkError(ValueError):
    """A network file that cannot be read or is damaged, or a network that is closed."""

    __module__ = "quorvane"


class NetworkFileError(OSError, NetworkError):
    """A network file that the system does not let anybody read."""

    __module__ = "quorvane"


class MissingNetworkError(FileNotFoundError, NetworkError):
    """A network file that is not there."""

    __module__ = "quorvane"


class PositionError(ValueError):
    """A position that has no value.

    `index` is its place in what `evaluate_many` was given, counted from 0; None everywhere else.
    """

    __module__ = "quorvane"

    def __init__(self, message: str, index: int | None = None) -> None:
        super().__init__(message)
        self.index = index


def refused(reason: str, given: object, index: int | None = None) -> PositionError:
    """The error for what was given as a position."""
    shown = repr(given)
    if len(shown) > _SHOWN:
        shown = shown[:_SHOWN] + "..."
    place = "" if index is None else f"position {index}: "
    return PositionError(f"{place}{reason}: {shown}", index)


_SHOWN = 200  # characters of a position, which may be a file that somebody took for a FEN
