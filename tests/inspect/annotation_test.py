"""Annotated games as python-chess reads them: values behind every move, and the same moves as before."""

import json
import math
import os
import pathlib
import shutil
import subprocess

import pytest

chess_pgn = pytest.importorskip("chess.pgn", reason="there is no python-chess")

GAMES = pathlib.Path(__file__).parents[2] / "examples" / "games.pgn"


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
    def inspect(*arguments):
        command = [os.environ["QUORVANE_INSPECT"], *arguments]
        return subprocess.run(command, cwd=tmp_path, text=True, check=True, capture_output=True).stdout

    shutil.copy(GAMES, tmp_path / "games.pgn")
    subprocess.run(os.environ["QUORVANE_LEARN"], cwd=tmp_path, input=b"games.pgn no\n", check=True, capture_output=True)
    inspect("validate", "games.pgn", "--calibration", "network.dat.calibration.json")
    inspect("annotate", "games.pgn", "-o", "out.pgn")
    before, after = games_of(tmp_path / "games.pgn"), list(games_of(tmp_path / "out.pgn"))
    assert [list(game.mainline_moves()) for game in before] == [list(game.mainline_moves()) for game in after]
    for number in range(1, len(after), 10):
        for ply, node in enumerate(after[number - 1].mainline(), 1):
            if ply % 7:
                continue
            place = ["--pgn", "games.pgn", "--game", str(number), "--ply", str(ply)]
            explained = json.loads(inspect("explain", *place, "--top", "0", "--json"))
            value = node.eval()
            assert (value is None) == (explained["expectedScore"] is None)
            assert value is None or abs(value.white().score() / 100 - pawns_of(explained)) < 0.0101
