"""Evaluates chess positions by a network that quorvane-learn has learned from games.

>>> import quorvane
>>> with quorvane.open_network("network.dat") as network:
...     value = network.evaluate("8/2k5/2p5/2P5/2K5/3N4/8/8 w - - 0 1")
...     values = network.evaluate_many(["8/2k5/2p5/2P5/2K5/3N4/8/8 w", "8/2k5/2p5/2P5/2K5/3N4/8/8 b"])
...     knight = network.explain("8/2k5/2p5/2P5/2K5/3N4/8/8 w").pieces[0]
>>> round(value, 3), [round(each, 3) for each in values]
(36.146, [36.146, 89.563])
>>> knight.symbol, knight.square_name, round(knight.value, 3), knight.features[0]
('N', 'd3', -37.31, 'centre distance 1')

A position is a FEN, of which the first two fields will do, or a `chess.Board` of python-chess, which this module does
not need. A FEN does not tell who has castled, which a king is valued by; `open_network` can be asked to guess. Of a
board it is read off the move stack, as far as that goes back.

A value is what the side to move may expect, in the unit in which the network was learned: mostly 40 to 100 at the end
of a game that is won, less the further off that is, 0 for a draw, and the same below zero for a loss. There is no
greatest value, and it is no number of pawns: for that, and for a search, there is `Network.pawns`. It is 0, too, of
positions that the network knows nothing of, mostly endings of few pieces; `network.knows(position)` tells those from
draws.

What cannot be evaluated raises `PositionError`, what cannot be read `NetworkError`; both are ValueErrors, and that for
a file that is not there is a FileNotFoundError as well. The module
needs the shared library quorvane-evaluator, which is installed with it; the environment variable QUORVANE_LIBRARY names
another one.
"""

from ._errors import MissingNetworkError, NetworkError, NetworkFileError, PositionError
from ._explanation import Explanation, ExplainedPiece, type_name
from ._library import version
from ._network import Network, open_network
from ._positions import Board

__all__ = [
    "Board",
    "ExplainedPiece",
    "Explanation",
    "MissingNetworkError",
    "Network",
    "NetworkError",
    "NetworkFileError",
    "PositionError",
    "open_network",
    "type_name",
]
__version__ = version
