"""What the module's own text and the scripts of examples/ say."""

from __future__ import annotations

import doctest
import subprocess
import sys

import pytest
from conftest import SOURCES
from test_agreement import ONE_OF_EACH_TYPE

import quorvane


def test_the_example_of_the_module(learned_network, monkeypatch):
    monkeypatch.chdir(learned_network.parent)
    assert doctest.testmod(quorvane) == (0, 4)


def run(script, *arguments, given=""):
    command = [sys.executable, str(SOURCES / "examples" / script), *map(str, arguments)]
    return subprocess.run(command, input=given, text=True, check=True, stdout=subprocess.PIPE).stdout.splitlines()


def test_sort_positions(learned_network):
    lines = run("sort_positions.py", learned_network, given="\n".join(ONE_OF_EACH_TYPE))
    values = [float(line.split()[0]) for line in lines[::2]]
    assert len(values) == len(ONE_OF_EACH_TYPE) and len(set(values)) > 5
    assert values == sorted(values, reverse=True)
    assert "  Pc5 -36.71: c- or f-file, " in "\n".join(lines[1::2])


def test_evaluate_games(learned_network, games, tmp_path):
    pytest.importorskip("chess.pgn")
    first = tmp_path / "first.pgn"
    first.write_text("[Event".join(games.read_text().split("[Event")[:4]))
    lines = run("evaluate_games.py", learned_network, first)
    assert len(lines) == 3 and all(" - " in line and " to " in line for line in lines)
