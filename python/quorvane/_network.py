"""Networks that are open."""

from __future__ import annotations

import os
import threading
import warnings
from collections.abc import Callable, Iterable
from ctypes import byref, c_char_p, c_double, c_int, c_size_t, create_string_buffer
from itertools import groupby, islice
from types import TracebackType
from typing import Any, NoReturn, TypeAlias

from ._errors import MissingNetworkError, NetworkError, NetworkFileError, refused
from ._explanation import Explanation, explanation_of
from ._library import Position, Worth, library, status_text
from ._positions import NUL_IN_FEN, GivenPosition, encoded, read_position


FileName: TypeAlias = str | bytes | os.PathLike[str] | os.PathLike[bytes]


def open_network(
    file: FileName, calibration: FileName | None = None, *, guess_castled: bool = False
) -> Network:
    """Reads a network file and a calibration of it, else the one beside it, FILE.calibration.json, if there is one.

    With `guess_castled`, a side of a FEN counts as having castled where it looks like it: the king on g1 or c1, a rook
    of its own beside it towards the centre, and none on the corner of that wing. Else nobody has castled in a FEN.
    Raises NetworkError if a file is damaged, or if the calibration is that of another network; if it is not there, one
    that is a FileNotFoundError as well, and an OSError if the system does not let it be read. A calibration that was
    not asked for is then left aside with a warning.
    """
    return Network(file, calibration, guess_castled=guess_castled)


class _Handle:
    """What the library has handed out, given back when nobody holds it any more.

    A call holds what it is given until it returns, on whatever thread, so nothing is freed under its feet.
    """

    __slots__ = ("_as_parameter_", "_free", "_needed")

    def __init__(self, pointer: int, free: Callable[[Any], None], needed: _Handle | None = None) -> None:
        self._as_parameter_ = pointer
        self._free = free
        self._needed = needed  # goes after this one

    def __del__(self) -> None:
        self._free(self)


class Network:
    """A network that was learned; made by `open_network`.

    It does not change, and any number of threads may use it at once. Close it, or leave a `with` statement on it, to
    free its memory at once rather than when nothing refers to it; what other threads are at by then, they finish.
    Once it is closed all that it is asked raises NetworkError, but for closing it again, which does nothing.
    """

    def __init__(
        self, file: FileName, calibration: FileName | None = None, *, guess_castled: bool = False
    ) -> None:
        self._name = os.fsdecode(file)
        self._guess_castled = guess_castled
        self._network: _Handle | None = _opened(file, library.quorvane_network_open, library.quorvane_network_close)
        self._caches = threading.local()  # one thread at a time may use a cache
        self._calibration: _Handle | None = None
        beside = os.fsencode(file) + b".calibration.json"
        if calibration is not None:
            self._calibration = _calibration(self._network, calibration)
        elif os.path.exists(beside):
            try:
                self._calibration = _calibration(self._network, beside)
            except NetworkError as error:
                warnings.warn(f"{error}, and is not used", stacklevel=3)

    def evaluate(self, position: GivenPosition) -> float:
        """The value of a FEN or a board, as the side to move sees it. Raises PositionError if it has none.

        It is 0 also where the network has no patterns for such positions, mostly in endings of few pieces; that is no
        draw, and `knows(position)` tells.
        """
        return self._evaluate(self._cache(), position)

    def evaluate_many(self, positions: Iterable[GivenPosition]) -> list[float]:
        """The values of many FENs or boards in their order, each as `evaluate` gives it.

        Much faster for FENs than one by one. Raises PositionError, whose `index` tells which it is, for the first that
        has no value.
        """
        if isinstance(positions, str):
            raise TypeError("evaluate_many takes many positions; evaluate takes one")
        cache = self._cache()
        remaining = iter(positions)
        values: list[float] = []
        while batch := list(islice(remaining, _BATCH)):
            for are_fens, run in groupby(batch, _is_fen):
                if are_fens and not self._guess_castled:
                    _evaluate_fens(cache, list(run), values)  # type: ignore[arg-type]
                else:
                    self._evaluate_each(cache, run, values)
        return values

    def pawns(self, position: GivenPosition) -> float:
        """What a FEN or a board is worth in pawns to the side to move: k value / 0.368208, and the material as 1 3 3 5 9.

        This is what a search should ask for, as a network alone does not know what a lost piece is worth. The k of the
        position's type comes from the calibration, and is 0.03 without one.
        """
        cache = self._cache()
        pawns = c_double()
        given = byref(self._read(position))
        _check(library.quorvane_pawns(cache, self._calibration, given, byref(pawns)), position)
        return pawns.value

    def expected_score(self, position: GivenPosition) -> float | None:
        """The points that the side to move may expect, from 0 to 1; None without a calibration of the position's type."""
        calibration = self._calibration
        value = self.evaluate(position)
        score = c_double()
        position_type = self.position_type(position)
        if calibration is None:
            return None
        status = library.quorvane_expected_score(calibration, position_type, value, byref(score))
        return score.value if status == 0 else None

    @property
    def calibrated(self) -> bool:
        """Whether there is a calibration."""
        return self._calibration is not None

    def explain(self, position: GivenPosition) -> Explanation:
        """What each piece of a FEN or a board is worth, and by which features."""
        network = self._open()
        worth = Worth()
        _check(library.quorvane_explain(network, byref(self._read(position)), byref(worth)), position)
        return explanation_of(worth)

    def position_type(self, position: GivenPosition) -> int:
        """The type of a FEN or a board by its material, 0 to 13; each type was learned on its own."""
        self._open()
        position_type = c_int()
        _check(library.quorvane_position_type(byref(self._read(position)), byref(position_type)), position)
        return position_type.value

    def knows(self, position_or_type: GivenPosition | int) -> bool:
        """Whether the network has patterns for a position, or for all of a type; the value of such is 0 if not.

        Raises PositionError for what is no position.
        """
        if not isinstance(position_or_type, int):
            position_or_type = self.position_type(position_or_type)
        return bool(library.quorvane_network_knows(self._open(), position_or_type))

    @property
    def name(self) -> str:
        """The file's name as it was given."""
        return self._name

    @property
    def closed(self) -> bool:
        return self._network is None

    def close(self) -> None:
        self._network = None
        self._caches = threading.local()
        self._calibration = None

    def __enter__(self) -> Network:
        self._open()
        return self

    def __exit__(
        self, kind: type[BaseException] | None, error: BaseException | None, trace: TracebackType | None
    ) -> None:
        self.close()

    def __reduce__(self) -> NoReturn:
        raise TypeError("a network cannot be copied or pickled; open its file again instead")

    def __repr__(self) -> str:
        return f"<{'closed ' if self.closed else ''}quorvane.Network {self._name!r}>"

    def _open(self) -> _Handle:
        network = self._network
        if network is None:
            raise _complaint(self._name, "the network is closed")
        return network

    def _read(self, given: GivenPosition) -> Position:
        position = read_position(given)
        if self._guess_castled and _is_fen(given):
            library.quorvane_guess_castled(byref(position))  # what has no value is refused where it is used
        return position

    def _evaluate(self, cache: _Handle, position: GivenPosition, index: int | None = None) -> float:
        value = c_double()
        status = library.quorvane_evaluate_cached(cache, byref(self._read(position)), byref(value))
        if status != 0:
            raise refused(status_text(status), position, index)
        return value.value

    def _evaluate_each(self, cache: _Handle, positions: Iterable[GivenPosition], values: list[float]) -> None:
        for position in positions:
            index = len(values)
            try:
                values.append(self._evaluate(cache, position, index))
            except TypeError as error:
                raise TypeError(f"position {index}: {error}") from error

    def _cache(self) -> _Handle:
        """The cache of this thread."""
        caches = self._caches  # before the network: a close in between takes the cache along
        network = self._open()
        cache: _Handle | None = getattr(caches, "cache", None)
        if cache is None:
            pointer = library.quorvane_cache_new(network)
            if pointer is None:
                raise MemoryError("no memory for a cache")
            cache = _Handle(pointer, library.quorvane_cache_free, network)
            caches.cache = cache
        return cache


_BATCH = 16384


def _complaint(name: str, reason: str) -> NetworkError:
    # Names may hold bytes that are no text, which could not be printed.
    return NetworkError(f"{name.encode(errors='backslashreplace').decode()}: {reason}")


def _raise_what_the_system_says(path: bytes, name: str) -> None:
    """Raises what keeps a file from being opened, if the system does."""
    try:
        os.close(os.open(path, os.O_RDONLY | getattr(os, "O_NONBLOCK", 0)))  # waits for nobody at a pipe
    except FileNotFoundError as error:
        raise MissingNetworkError(error.errno, error.strerror, name) from None
    except OSError as error:
        if not os.path.isdir(path):
            raise NetworkFileError(error.errno, error.strerror, name) from None


def _opened(file: FileName, reader: Callable[..., Any], free: Callable[[Any], None]) -> _Handle:
    """What `reader` reads from a file."""
    path = os.fsencode(file)
    if b"\0" in path:
        raise _complaint(os.fsdecode(file), "the name of a file holds no NUL character")
    error = create_string_buffer(512)
    pointer = reader(path, error, len(error))
    if pointer is None:
        _raise_what_the_system_says(path, os.fsdecode(file))
        raise NetworkError(os.fsdecode(error.value).encode(errors="backslashreplace").decode())
    return _Handle(pointer, free)


def _calibration(network: _Handle, file: FileName) -> _Handle:
    return _opened(
        file,
        lambda *arguments: library.quorvane_calibration_open(network, *arguments),
        library.quorvane_calibration_close,
    )


def _is_fen(position: GivenPosition) -> bool:
    return isinstance(position, str)


def _check(status: int, position: GivenPosition) -> None:
    if status != 0:
        raise refused(status_text(status), position)


def _evaluate_fens(cache: _Handle, fens: list[str], values: list[float]) -> None:
    texts = (c_char_p * len(fens))(*map(encoded, fens))
    found = (c_double * len(fens))()
    done = c_size_t()
    status = library.quorvane_evaluate_fens(cache, texts, len(fens), found, byref(done))
    if status != 0:
        fen = fens[done.value]
        reason = NUL_IN_FEN if "\0" in fen else status_text(status)
        raise refused(reason, fen, len(values) + done.value)
    values += found[:]
