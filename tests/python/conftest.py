from __future__ import annotations

import json
import os
import subprocess
from collections.abc import Callable, Iterator
from itertools import count
from pathlib import Path
from subprocess import DEVNULL, PIPE
from typing import Any

import pytest
from boards import PlainBoard
from networks import learn, write_random

import quorvane

SOURCES = Path(os.environ["QUORVANE_SOURCES"])


class Inspector:
    """What quorvane-inspect says of positions under one network."""

    def __init__(self, network: Path) -> None:
        self._network = network

    def _run(self, *arguments: str, given: str = "") -> str:
        program = os.environ.get("QUORVANE_INSPECT")
        if not program:
            pytest.skip("quorvane-inspect is not built")
        command = [program, "explain", *arguments, str(self._network), "--json"]
        return subprocess.run(command, input=given, text=True, check=False, stdout=PIPE, stderr=DEVNULL).stdout

    def fens(self, fens: list[str]) -> list[dict[str, Any]]:
        lines = self._run("--fens", "-", given="".join(fen + "\n" for fen in fens)).splitlines()
        return [json.loads(line) for line in lines]

    def game(self, file: Path, number: int) -> Iterator[dict[str, Any]]:
        """All positions of a game, the one it starts from first."""
        for ply in count():
            text = self._run("--pgn", str(file), "--game", str(number), "--ply", str(ply))
            if not text:
                return
            yield json.loads(text)


@pytest.fixture(scope="session")
def games() -> Path:
    return SOURCES / "examples" / "games.pgn"


@pytest.fixture(scope="session")
def learned_network(tmp_path_factory: pytest.TempPathFactory, games: Path) -> Path:
    return learn(os.environ["QUORVANE_PROGRAM"], games, tmp_path_factory.mktemp("learned"))


@pytest.fixture(scope="session")
def random_network(tmp_path_factory: pytest.TempPathFactory) -> Path:
    return write_random(tmp_path_factory.mktemp("random") / "network.dat", 1)


@pytest.fixture(scope="session")
def inspector(random_network: Path) -> Inspector:
    return Inspector(random_network)


@pytest.fixture
def network(random_network: Path) -> Iterator[quorvane.Network]:
    with quorvane.open_network(random_network) as opened:
        yield opened


@pytest.fixture(params=["plain", "python-chess"])
def new_board(request: pytest.FixtureRequest) -> Callable[..., Any]:
    """Makes a board of a FEN, that of the usual start if there is none."""
    if request.param == "plain":
        return PlainBoard
    board: Callable[..., Any] = pytest.importorskip("chess").Board
    return board
