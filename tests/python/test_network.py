"""Networks and what is refused, threads, and the examples."""

from __future__ import annotations

import copy
import doctest
import errno
import gc
import json
import math
import os
import pickle
import subprocess
import sys
import threading
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import pytest
from conftest import GAMES, KINGS, ONE_OF_EACH_TYPE, SOURCES

import quorvane


@pytest.mark.parametrize(
    "fen, reason",
    [
        ("", "not made of 8 ranks"),
        (KINGS + "\0", "NUL"),
        ("\udcff\u2654", "not made of 8 ranks"),
        ("4k3/8/8/8/8/8/8/8 w", "exactly one king"),
        pytest.param("x" * 100_000, "not made of 8 ranks", id="long"),
    ],
)
def test_what_is_no_position_is_refused_everywhere(network, fen, reason):
    for ask in (network.evaluate, network.explain, network.position_type):
        with pytest.raises(quorvane.PositionError, match=reason) as caught:
            ask(fen)
        assert caught.value.index is None and len(str(caught.value)) < 400
    with pytest.raises(quorvane.PositionError, match=f"position 20000: .*{reason}") as caught:
        network.evaluate_many([KINGS] * 20_000 + [fen, fen])
    again = pickle.loads(pickle.dumps(caught.value))  # as from a pool of processes
    assert (str(again), again.index) == (str(caught.value), 20_000)


def test_what_is_neither_text_nor_board_is_refused(network):
    for thing in (None, 5, KINGS.encode(), object()):
        with pytest.raises(TypeError):
            network.evaluate(thing)
        with pytest.raises(TypeError, match="position 2: a position is a FEN or a chess.Board"):
            network.evaluate_many([KINGS, KINGS, thing])
    with pytest.raises(TypeError):
        network.evaluate_many(KINGS)
    assert network.evaluate_many([]) == []
    assert network.evaluate_many(KINGS for _ in range(3)) == [network.evaluate(KINGS)] * 3


def test_names_of_files(random_network, tmp_path):
    content = random_network.read_bytes()
    for name in ("grün ♔.dat", "blank name", os.fsdecode(b"\xff.dat")):
        path = tmp_path / Path(name)
        path.write_bytes(content)
        for given in (path, os.fsencode(path), str(path)):
            with quorvane.open_network(given) as network:
                assert network.knows(6)
    (tmp_path / "cut.dat").write_bytes(content[:-13])
    for given, reason in {
        tmp_path / "none": "No such file.*none",
        b"\xff": "No such file",
        tmp_path: "folder",
        tmp_path / "cut.dat": "cut.dat: .*cut short",
        "a\0b": "NUL",
    }.items():
        with pytest.raises(quorvane.NetworkError, match=reason) as caught:
            quorvane.open_network(given)
        str(caught.value).encode()
    with pytest.raises(FileNotFoundError) as missing:
        quorvane.open_network("none")
    assert (missing.value.errno, missing.value.filename) == (errno.ENOENT, "none")
    with pytest.raises(OSError, match="Too many|loop|symbolic") as looping:
        os.symlink("loop", tmp_path / "loop")
        quorvane.open_network(tmp_path / "loop")
    assert isinstance(looping.value, quorvane.NetworkError)
    assert issubclass(quorvane.NetworkError, ValueError) and issubclass(quorvane.PositionError, ValueError)


def test_a_closed_network_answers_nothing(random_network):
    with quorvane.open_network(random_network) as network:
        for copied in (pickle.dumps, copy.copy, copy.deepcopy):
            with pytest.raises(TypeError, match="open its file again"):
                copied(network)
    network.close()
    assert network.closed
    for ask in (network.evaluate, network.explain, network.position_type, network.evaluate_many):
        with pytest.raises(quorvane.NetworkError, match="closed"):
            ask(KINGS if ask != network.evaluate_many else [])
    with pytest.raises(quorvane.NetworkError), network:
        pass


def test_pawns_and_expected_scores(learned_network, tmp_path):
    fen = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBN1 w Qkq - 0 1"
    with quorvane.open_network(learned_network) as network:
        assert not network.calibrated and network.expected_score(fen) is None
        assert network.pawns(fen) == pytest.approx(0.03 * network.evaluate(fen) / 0.368208 - 5)
        bare = "4k3/8/8/8/8/8/8/R3K3 b"  # of a type without patterns
        assert network.pawns(bare) == -5
    inspect = os.environ.get("QUORVANE_INSPECT") or pytest.skip("quorvane-inspect is not built")
    copied = tmp_path / "network.dat"
    copied.write_bytes(learned_network.read_bytes())
    beside = tmp_path / "network.dat.calibration.json"
    arguments = ["validate", GAMES, "--network", copied, "--calibration", beside]
    subprocess.run([inspect, *map(str, arguments)], check=True, capture_output=True)
    explained = subprocess.run(
        [inspect, "explain", "--fen", fen, str(copied), "--json"], check=True, capture_output=True
    )
    expected = json.loads(explained.stdout)["expectedScore"]
    for network in (quorvane.open_network(copied), quorvane.open_network(learned_network, beside)):
        score = network.expected_score(fen)
        assert network.calibrated and score == pytest.approx(expected, abs=1e-12)
        assert network.pawns(fen) == pytest.approx(math.log(score / (1 - score)) / 0.368208 - 5)
        assert network.expected_score(bare) is None
    network.close()
    with pytest.raises(quorvane.NetworkError, match="closed"):
        network.pawns(fen)
    with pytest.raises(quorvane.NetworkError, match="No such file.*none.json"):
        quorvane.open_network(copied, tmp_path / "none.json")
    beside.write_text("{}")
    with pytest.warns(UserWarning, match="is no calibration .*, and is not used"):
        assert not quorvane.open_network(copied).calibrated


@pytest.mark.parametrize("library", ["/nowhere/lib.so", "libc.so.6"])
def test_without_its_library_the_module_says_so(library):
    code = "try:\n  import quorvane\nexcept ImportError as error:\n  print(error)"
    environment = {**os.environ, "QUORVANE_LIBRARY": library}
    said = subprocess.run([sys.executable, "-c", code], env=environment, text=True, stdout=subprocess.PIPE).stdout
    assert "cannot be loaded" in said and "QUORVANE_LIBRARY" in said


def test_threads_share_a_network_and_closing_it_breaks_nothing(random_network):
    interval = sys.getswitchinterval()
    sys.setswitchinterval(1e-6)  # threads take turns as often as they can
    fens = ONE_OF_EACH_TYPE * 200
    for _ in range(10):
        network = quorvane.open_network(random_network)
        expected = network.evaluate_many(fens)
        started = threading.Barrier(5)

        def work():
            assert [network.evaluate(fen) for fen in fens] == expected
            started.wait()
            try:
                while True:
                    assert network.evaluate_many(fens) == expected
            except quorvane.NetworkError:
                return network.closed

        with ThreadPoolExecutor(4) as pool:
            results = [pool.submit(work) for _ in range(4)]
            started.wait()
            network.close()
            assert all(result.result() for result in results)
    sys.setswitchinterval(interval)


def test_what_nobody_refers_to_is_freed(random_network):
    freed = []

    def count(free):
        return lambda handle: (freed.append(free.__name__), free(handle))

    networks = [quorvane.open_network(random_network) for _ in range(2)]
    for network in networks:
        network.evaluate(KINGS)
        for handle in (network._network, network._caches.cache):
            handle._free = count(handle._free)
    networks[0].close()
    del network, handle, networks
    gc.collect()
    assert freed == ["quorvane_cache_free", "quorvane_network_close"] * 2


def run(script, *arguments, given=""):
    command = [sys.executable, str(SOURCES / "examples" / script), *map(str, arguments)]
    return subprocess.run(command, input=given, text=True, check=True, stdout=subprocess.PIPE).stdout.splitlines()


def test_the_examples(learned_network, monkeypatch):
    monkeypatch.chdir(learned_network.parent)
    assert doctest.testmod(quorvane) == (0, 4)
    lines = run("sort_positions.py", learned_network, given="\n".join(ONE_OF_EACH_TYPE))
    values = [float(line.split()[0]) for line in lines[::2]]
    assert len(values) == len(ONE_OF_EACH_TYPE) and len(set(values)) > 5
    assert values == sorted(values, reverse=True)
    assert "  Pc5 -36.71: c- or f-file, " in "\n".join(lines[1::2])


def test_the_example_that_needs_python_chess(learned_network, tmp_path):
    pytest.importorskip("chess.pgn")
    first = tmp_path / "first.pgn"
    first.write_text("[Event".join(GAMES.read_text().split("[Event")[:4]))
    lines = run("evaluate_games.py", learned_network, first)
    assert len(lines) == 3 and all(" - " in line and " to " in line for line in lines)
