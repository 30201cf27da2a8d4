"""Annotated games as python-chess reads them: values behind every move, and the same moves as before."""

import json
import math
import os
import pathlib
import random
import shutil
import subprocess

import pytest

chess_pgn = pytest.importorskip("chess.pgn", reason="there is no python-chess")

LEARN = os.environ["QUORVANE_LEARN"]
INSPECT = os.environ["QUORVANE_INSPECT"]
GAMES = pathlib.Path(__file__).parents[2] / "examples" / "games.pgn"


def run(folder, *command, answers=None):
    return subprocess.run(command, cwd=folder, input=answers, text=True, check=True, capture_output=True)


def games_of(path):
    with open(path, encoding="latin-1") as file:
        while (game := chess_pgn.read_game(file)) is not None:
            yield game


def pawns_of(explained):
    """The published formula of lichess the other way about, as White sees it, within the limits of the program."""
    score = explained["expectedScore"]
    pawns = math.log(score / (1 - score)) / 0.368208 if 0 < score < 1 else math.copysign(10, score - 0.5)
    return max(-10.0, min(10.0, pawns if explained["sideToMove"] == "white" else -pawns))


def test_values_and_moves_are_read_as_they_were_written(tmp_path):
    shutil.copy(GAMES, tmp_path / "games.pgn")
    run(tmp_path, LEARN, answers="games.pgn no\n")
    run(tmp_path, INSPECT, "validate", "games.pgn", "--calibration", "network.dat.calibration.json")
    summary = run(tmp_path, INSPECT, "annotate", "games.pgn", "-o", "out.pgn").stderr
    before = list(games_of(tmp_path / "games.pgn"))
    after = list(games_of(tmp_path / "out.pgn"))
    assert len(before) == len(after) > 100
    annotated = 0
    valued = []
    for number, (old, new) in enumerate(zip(before, after), 1):
        nodes = list(new.mainline())
        assert [node.move for node in old.mainline()] == [node.move for node in nodes]
        values = [(number, ply, node.eval()) for ply, node in enumerate(nodes, 1)]
        if any(value is not None for _, _, value in values):
            annotated += 1
            valued += values
    assert f"annotated {annotated} games," in summary
    for number, ply, value in random.Random(1).sample(valued, 100):
        place = ["--pgn", "games.pgn", "--game", str(number), "--ply", str(ply)]
        explained = json.loads(run(tmp_path, INSPECT, "explain", *place, "--top", "0", "--json").stdout)
        if explained["expectedScore"] is None:
            assert value is None
        else:
            assert abs(value.white().score() / 100 - pawns_of(explained)) < 0.0101
