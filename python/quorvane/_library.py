"""The shared library: where it is, and what its functions take and give.

Whoever changes a structure or a function in quorvane/evaluator.h changes it here as well.
"""

from __future__ import annotations

import ctypes
import os
import sys
from ctypes import POINTER, c_char_p, c_double, c_int, c_int32, c_size_t, c_uint8, c_uint32, c_void_p

from ._build import FOLDER, MAJOR_VERSION

MAX_PIECES = 32


class Position(ctypes.Structure):
    """quorvane_position; `pieces` holds a piece and its square in turns."""

    _fields_ = [
        ("count", c_int32),
        ("pieces", c_uint8 * (2 * MAX_PIECES)),
        ("side_to_move", c_uint8),
        ("white_castled", c_uint8),
        ("black_castled", c_uint8),
    ]


class PieceWorth(ctypes.Structure):
    """One of the pieces of quorvane_explanation."""

    _fields_ = [("value", c_double), ("word", c_uint32), ("piece", c_uint8), ("square", c_uint8)]


class Worth(ctypes.Structure):
    """quorvane_explanation."""

    _fields_ = [
        ("value", c_double),
        ("type", c_int32),
        ("count", c_int32),
        ("pieces", PieceWorth * MAX_PIECES),
    ]


def _load() -> ctypes.CDLL:
    name = {
        "darwin": f"libquorvane-evaluator.{MAJOR_VERSION}.dylib",
        "win32": "quorvane-evaluator.dll",
    }.get(sys.platform, f"libquorvane-evaluator.so.{MAJOR_VERSION}")
    # By its bare name the system's loader looks for it.
    path = os.environ.get("QUORVANE_LIBRARY") or _beside(name) or name
    hint = "QUORVANE_LIBRARY may name another file"
    try:
        loaded = ctypes.CDLL(path)
        loaded.quorvane_version.restype = c_char_p
        found: str = loaded.quorvane_version().decode()
    except (OSError, AttributeError) as error:
        raise ImportError(f"the library quorvane-evaluator cannot be loaded: {error}; {hint}") from error
    if found.split(".")[0] != MAJOR_VERSION:
        raise ImportError(f"{path} has version {found}, this module needs version {MAJOR_VERSION}; {hint}")
    return loaded


def _beside(name: str) -> str | None:
    """The library that was built or installed together with this module, if it is still there."""
    path = os.path.join(os.path.dirname(os.path.abspath(__file__)), FOLDER, name)
    return path if os.path.exists(path) else None


def _declare(name: str, result: type | None, *arguments: type) -> None:
    function = getattr(library, name)
    function.restype = result
    function.argtypes = arguments


library = _load()
version: str = library.quorvane_version().decode()

_declare("quorvane_status_text", c_char_p, c_int)
_declare("quorvane_network_open", c_void_p, c_char_p, c_char_p, c_size_t)
_declare("quorvane_network_close", None, c_void_p)
_declare("quorvane_network_knows", c_int, c_void_p, c_int)
_declare("quorvane_cache_new", c_void_p, c_void_p)
_declare("quorvane_cache_free", None, c_void_p)
_declare("quorvane_read_fen", c_int, c_char_p, POINTER(Position))
_declare("quorvane_network_knows_position", c_int, c_void_p, POINTER(Position))
_declare("quorvane_guess_castled", c_int, POINTER(Position))
_declare("quorvane_position_type", c_int, POINTER(Position), POINTER(c_int))
_declare("quorvane_evaluate_cached", c_int, c_void_p, POINTER(Position), POINTER(c_double))
_declare(
    "quorvane_evaluate_fens", c_int, c_void_p, POINTER(c_char_p), c_size_t, POINTER(c_double), POINTER(c_size_t)
)
_declare("quorvane_calibration_open", c_void_p, c_void_p, c_char_p, c_char_p, c_size_t)
_declare("quorvane_calibration_close", None, c_void_p)
_declare("quorvane_pawns", c_int, c_void_p, c_void_p, POINTER(Position), POINTER(c_double))
_declare("quorvane_expected_score", c_int, c_void_p, c_int, c_double, POINTER(c_double))
_declare("quorvane_explain", c_int, c_void_p, POINTER(Position), POINTER(Worth))
_declare("quorvane_feature_name", c_char_p, c_int, c_int, c_int)
_declare("quorvane_type_name", c_char_p, c_int)


def status_text(status: int) -> str:
    text: bytes = library.quorvane_status_text(status)
    return text.decode()
