#!/usr/bin/env python3
"""How long the Python module takes for positions, beside things that people know.

    PYTHONPATH=build/release/python bench/python_evaluation.py network.dat POSITIONS.txt

POSITIONS.txt has FENs, one a line. Of 100,000 of them it tells the CPU time of the best of five rounds. Boards
are those of python-chess where it is installed; without it those of tests/python, put into plain attributes.
"""

from __future__ import annotations

import sys
import time
from itertools import islice
from pathlib import Path
from types import SimpleNamespace

import quorvane

POSITIONS = 100_000
WORTH = {"p": -1, "n": -3, "b": -3, "r": -5, "q": -9, "P": 1, "N": 3, "B": 3, "R": 5, "Q": 9}


def boards_of(fens):
    """Boards, and the function that writes their FENs, or None."""
    try:
        import chess

        return [chess.Board(fen) for fen in fens], chess.Board.fen
    except ImportError:
        sys.path.insert(0, str(Path(__file__).parents[1] / "tests" / "python"))
        from boards import PlainBoard

        names = "pawns knights bishops rooks queens kings occupied_co turn chess960 move_stack".split()
        plain = (PlainBoard(fen) for fen in fens)
        return [SimpleNamespace(**{name: getattr(board, name) for name in names}) for board in plain], None


def material(fen):
    return sum(WORTH.get(letter, 0) for letter in fen[: fen.index(" ")])


def tell(name, work, count):
    best = float("inf")
    for _ in range(5):
        start = time.process_time()
        work()
        best = min(best, time.process_time() - start)
    print(f"{name:40} {best * 100_000 / count:8.3f} s for 100,000 {best / count * 1e6:8.2f} us each")


def main():
    network_file, positions_file = sys.argv[1:]
    with open(positions_file, encoding="utf-8") as lines:
        fens = [line.strip() for line in islice(lines, POSITIONS)]
    few = fens[::20]
    boards, write_fen = boards_of(few)
    print(f"{len(fens)} positions, {len(set(fens))} of them different; {len(few)} as boards")
    with quorvane.open_network(network_file) as network:
        tell("evaluate_many of FENs", lambda: network.evaluate_many(fens), len(fens))
        tell("evaluate, one FEN after the other", lambda: [network.evaluate(fen) for fen in fens], len(fens))
        tell("evaluate_many of boards", lambda: network.evaluate_many(boards), len(few))
        tell("evaluate, one board after the other", lambda: [network.evaluate(each) for each in boards], len(few))
        tell("explain of FENs", lambda: [network.explain(fen) for fen in few], len(few))
    tell("material counted in Python", lambda: [material(fen) for fen in fens], len(fens))
    if write_fen is not None:
        tell("board.fen() of python-chess", lambda: [write_fen(board) for board in boards], len(few))


if __name__ == "__main__":
    main()
