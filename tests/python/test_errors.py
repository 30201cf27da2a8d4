from __future__ import annotations

import copy
import os
import pickle
import subprocess
import sys
from pathlib import Path

import pytest
from boards import START, PlainBoard

import quorvane

KINGS = "4k3/8/8/8/8/8/8/4K3 w"


@pytest.mark.parametrize(
    "fen, reason",
    [
        ("", "not made of 8 ranks"),
        (KINGS + "\0", "NUL"),
        ("\udcff\u2654", "not made of 8 ranks"),
        (KINGS[:-1] + "x", "neither w nor b"),
        ("4k3/8/8/8/8/8/8/8 w", "exactly one king"),
        pytest.param("x" * 100_000, "not made of 8 ranks", id="long"),
    ],
)
def test_what_is_no_position_is_refused_everywhere(network, fen, reason):
    for ask in (network.evaluate, network.explain, network.position_type):
        with pytest.raises(quorvane.PositionError, match=reason) as caught:
            ask(fen)
        assert caught.value.index is None
        assert len(str(caught.value)) < 400
    with pytest.raises(quorvane.PositionError, match=f"position 20000: .*{reason}") as caught:
        network.evaluate_many([KINGS] * 20_000 + [fen, fen])
    assert caught.value.index == 20_000
    again = pickle.loads(pickle.dumps(caught.value))  # as from a pool of processes
    assert (str(again), again.index) == (str(caught.value), 20_000)


def test_what_is_no_board_is_refused(network):
    crowd = PlainBoard("Kkqqqqqq/qqqqqqqq/qqqqqqqq/qqqqqqqq/qqqqqqqq/8/8/8 w")
    with pytest.raises(quorvane.PositionError, match="position 1: there are more than 16 pieces"):
        network.evaluate_many([KINGS, crowd])
    for thing in (None, 5, KINGS.encode(), object()):
        with pytest.raises(TypeError):
            network.evaluate(thing)
        with pytest.raises(TypeError, match="position 2: a position is a FEN or a chess.Board"):
            network.evaluate_many([KINGS, PlainBoard(START), thing])
    with pytest.raises(TypeError):
        network.evaluate_many(KINGS)


def test_evaluate_many_takes_anything_that_gives_positions(network):
    assert network.evaluate_many([]) == []
    assert network.evaluate_many(KINGS for _ in range(3)) == [network.evaluate(KINGS)] * 3


def test_names_of_files(random_network, tmp_path):
    content = random_network.read_bytes()
    for name in ("grün ♔.dat", os.fsencode("blank name"), b"\xff.dat"):
        path = Path(os.fsdecode(name))
        (tmp_path / path).write_bytes(content)
        for given in (tmp_path / path, os.fsencode(tmp_path / path), str(tmp_path / path)):
            with quorvane.open_network(given) as network:
                assert network.knows(6)


def test_files_that_are_no_networks(random_network, tmp_path):
    cut = tmp_path / "cut.dat"
    cut.write_bytes(random_network.read_bytes()[:-13])
    reasons = {
        tmp_path / "none": "none: cannot be opened",
        b"\xff": "cannot be opened",
        tmp_path: "folder",
        cut: "cut.dat: .*cut short",
        "a\0b": "NUL",
    }
    for name, reason in reasons.items():
        with pytest.raises(quorvane.NetworkError, match=reason) as caught:
            quorvane.open_network(name)
        str(caught.value).encode()
    assert issubclass(quorvane.NetworkError, ValueError) and issubclass(quorvane.PositionError, ValueError)


def test_a_closed_network_answers_nothing(random_network):
    with quorvane.open_network(random_network) as network:
        assert not network.closed
        network.evaluate(KINGS)
    network.close()
    assert network.closed
    for ask in (network.evaluate, network.explain, network.position_type, network.evaluate_many):
        with pytest.raises(quorvane.NetworkError, match="closed"):
            ask(KINGS if ask != network.evaluate_many else [])
    with pytest.raises(quorvane.NetworkError), network:
        pass


@pytest.mark.parametrize("copied", [pickle.dumps, copy.copy, copy.deepcopy])
def test_a_network_is_not_copied(network, copied):
    with pytest.raises(TypeError, match="open its file again"):
        copied(network)


@pytest.mark.parametrize("library", ["/nowhere/lib.so", "libc.so.6"])
def test_without_its_library_the_module_says_so(library):
    code = "try:\n  import quorvane\nexcept ImportError as error:\n  print(error)"
    environment = {**os.environ, "QUORVANE_LIBRARY": library}
    said = subprocess.run([sys.executable, "-c", code], env=environment, text=True, stdout=subprocess.PIPE).stdout
    assert "cannot be loaded" in said and "QUORVANE_LIBRARY" in said
