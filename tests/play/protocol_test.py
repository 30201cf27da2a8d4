"""quorvane-play as chess windows and people use it: lines in, lines out."""

from __future__ import annotations

import json
import os
import random
import re
import subprocess

import pytest

PROGRAM = os.environ["QUORVANE_PLAY"]
START = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"


class Talk:
    """A program that is spoken to."""

    def __init__(self, folder):
        self.process = subprocess.Popen(
            [PROGRAM], cwd=folder, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, bufsize=1
        )

    def say(self, *lines):
        for line in lines:
            self.process.stdin.write(line + "\n")
        self.process.stdin.flush()

    def hear(self, wanted):
        """The lines up to one that begins with `wanted`."""
        lines = []
        while True:
            line = self.process.stdout.readline()
            assert line, f"ended after {lines} without {wanted}"
            lines.append(line.rstrip("\n"))
            if line.startswith(wanted):
                return lines

    def ask(self, *lines):
        """What it answers to lines that are no search."""
        self.say(*lines, "isready")
        return self.hear("readyok")[:-1]

    def best(self, *lines):
        self.say(*lines)
        return self.hear("bestmove")[-1].split()[1]

    def legal(self):
        return {line.split(":")[0] for line in self.ask("go perft 1") if re.match(r"[a-h][1-8]", line)}

    def fen(self):
        return next(line[5:] for line in self.ask("d") if line.startswith("Fen: "))


@pytest.fixture
def talk(tmp_path):
    talking = Talk(tmp_path)
    yield talking
    if talking.process.poll() is None:
        talking.say("quit")
        talking.process.stdin.close()
    assert talking.process.wait(timeout=60) == 0


def test_introduces_itself(talk):
    talk.say("uci")
    lines = talk.hear("uciok")
    options = [line.split(" type ")[0][12:] for line in lines if line.startswith("option name ")]
    assert options == ["Network", "Calibration", "Hash", "Ponder", "Move Overhead", "UCI_ShowWDL"]
    assert sum(line.startswith("id ") for line in lines) == 2


def test_positions(talk):
    talk.ask("position startpos moves e2e4 e7e5 g1f3 b8c6 f1b5 g8f6 e1g1")
    assert talk.fen() == "r1bqkb1r/pppp1ppp/2n2n2/1B2p3/4P3/5N2/PPPP1PPP/RNBQ1RK1 b kq - 5 4"
    castling = "r3k2r/8/8/8/8/8/8/R3K2R b Kq - 3 9"
    talk.ask(f"  position \t fen {castling}  ")
    assert talk.fen() == castling
    assert "e8c8" in talk.legal() and "e8g8" not in talk.legal()
    refused = {
        "position": "needs startpos or fen",
        "position fen": "has 1 rank instead of 8",
        "position fen 8/8/8/8/8/8/8/8 w - - 0 1": "does not give each side exactly one king",
        "position fen 4k3/8/8/8/8/8/8/4R1K1 w - - 0 1": "leaves the side that is not to move in check",
        "position nonsense": "needs startpos or fen",
    }
    for line, reason in refused.items():
        (said,) = talk.ask(line)
        assert said.startswith("info string ") and reason in said
        assert talk.fen() == castling
    (said,) = talk.ask("position startpos moves e2e4 e2e4 e7e5")
    assert "e2e4 is not legal" in said
    assert talk.fen().startswith("rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b")


def test_every_way_to_go_gives_a_legal_move(talk):
    ways = ["depth 3", "nodes 1", "nodes 5000", "movetime 20", "wtime 50 btime 50", "wtime -5 btime -5 winc 0"]
    ways += ["wtime 99999999999999999999 btime 1 movestogo 1 depth 2", "mate 1 depth 4", "depth x nodes 100", "depth 0"]
    for fen in (START, "8/P6k/8/8/8/8/p6K/8 b - - 0 1", "4k3/8/8/8/8/8/4q3/4K3 w - - 0 1"):
        talk.ask(f"position fen {fen}")
        legal = talk.legal()
        for way in ways:
            assert talk.best(f"go {way}") in legal, way
    talk.ask("position startpos")
    assert talk.best("go depth 4 searchmoves a2a3 zzzz h7h6") == "a2a3"
    for over in ("7k/5Q2/6K1/8/8/8/8/8 b - - 0 1", "7k/6Q1/6K1/8/8/8/8/8 b - - 0 1"):
        talk.ask(f"position fen {over}")
        assert talk.best("go depth 5") == "(none)"


def test_infinite_and_ponder_wait(talk):
    talk.ask("position fen 7k/8/8/8/8/8/8/KR6 w - - 0 1")
    talk.say("go infinite depth 1")
    assert not any(line.startswith("bestmove") for line in talk.ask("nonsense"))
    assert talk.best("stop") in talk.legal()
    talk.say("go ponder wtime 100 btime 100")
    assert not any(line.startswith("bestmove") for line in talk.ask())
    assert talk.best("ponderhit") in talk.legal()
    talk.ask("stop", "ponderhit")  # nothing runs any more
    talk.say("go infinite depth 1", "go depth 2")  # a new one ends the old one
    talk.hear("bestmove")
    talk.hear("bestmove")


def test_ends_with_its_input(tmp_path):
    for last in ("quit", ""):
        said = subprocess.run([PROGRAM], cwd=tmp_path, input=f"go infinite\n{last}", text=True, capture_output=True)
        assert said.returncode == 0 and re.search("^bestmove [a-h]", said.stdout, re.MULTILINE)


def test_options(talk, tmp_path):
    (tmp_path / "bad.dat").write_bytes(b"\1\0\0\0\0")
    (tmp_path / "empty net.dat").write_bytes(bytes([1, 0, 0, 0, 0, 0, 0, 0, 2, 0, 0, 0]))
    for name, reason in {"bad.dat": "is cut short", "none.dat": "cannot be opened", ".": "is no regular file"}.items():
        lines = talk.ask(f"setoption name Network value {name}")
        assert any(f"{name} {reason}" in line and "material" in line for line in lines), lines
    assert any("playing by empty net.dat" in line for line in talk.ask("setoption name network value empty net.dat"))
    assert any("no network" in line for line in talk.ask("setoption name Network value <empty>"))
    assert talk.ask("setoption name Hash value 1", "setoption name Hash value none", "setoption name Ponder value true") == []
    assert talk.ask("setoption name Move Overhead value -5", "setoption name UCI_ShowWDL value true") == []
    assert talk.ask("setoption name Colour value red") == ["info string unknown option: Colour"]
    talk.say("position startpos", "go depth 2")
    told = talk.hear("bestmove")[0]
    won, drawn, lost = map(int, re.search(r" wdl (\d+) (\d+) (\d+) ", told).groups())
    assert won + drawn + lost == 1000


def test_plays_by_the_network_beside_it(talk, tmp_path):
    learned = os.environ["QUORVANE_LEARN"], os.path.abspath(os.environ["QUORVANE_GAMES"])
    subprocess.run(learned, cwd=tmp_path, check=True, capture_output=True)
    with_network = Talk(tmp_path)
    with_network.say("eval", "quit")
    lines = with_network.hear("Pawns")
    assert lines[0] == "info string playing by network.dat"
    value = float(next(line for line in lines if line.startswith("Value ")).split()[1])
    pawns = float(lines[-1].split()[1].rstrip(","))
    assert abs(pawns - 0.03 * value / 0.368208) < 0.011
    with_network.process.wait(timeout=60)


WORDS = "uci isready ucinewgame position go stop ponderhit setoption name value startpos fen moves e2e4 e7e5 a7a8q depth 2 \
nodes 50 wtime btime -1 99999999999999999999 winc movestogo 0 mate searchmoves infinite ponder d eval perft 1 Hash 3 \
4k3/8/8/8/8/8/8/R3K2R w KQ - b e3 \0 \xff debug register on bestmove 8/8 Network UCI_ShowWDL true".split(" ")


def test_nothing_on_the_line_ends_it(tmp_path):
    dice = random.Random(3)
    lines = []
    for _ in range(20_000):
        line = " ".join(dice.choices(WORDS, k=dice.randrange(12)))
        if line.split()[:1] == ["go"] and dice.random() < 0.9:
            line += " depth 1"
        lines.append(line.replace("infinite", "").replace("ponder ", "").replace("perft", "perft 1"))
    text = "\n".join(lines) + "\n" + "x" * 1_000_000 + "\nisready\n"
    process = subprocess.run([PROGRAM], cwd=tmp_path, input=text.encode(), capture_output=True, timeout=100)
    assert process.returncode == 0 and process.stdout.endswith(b"readyok\n")
    assert process.stdout.count(b"\nbestmove ") == sum(
        line.split()[:1] == ["go"] and line.split()[1:2] != ["perft"] for line in lines
    )


def test_match(tmp_path):
    (tmp_path / "empty.dat").write_bytes(bytes([1, 0, 0, 0, 0, 0, 0, 0, 2, 0, 0, 0]))
    command = [PROGRAM, "match", "empty.dat", "material", "--pairs", "3", "--nodes", "50"]
    run = [subprocess.run([*command, *more], cwd=tmp_path, text=True, capture_output=True) for more in (
        ["--json", "--pgn", "games.pgn"], ["--json", "--jobs", "2"], ["--pgn", "games.pgn"],
    )]
    told = json.loads(run[0].stdout)
    assert run[0].stdout == run[1].stdout
    assert told["wins"] + told["draws"] + told["losses"] == 6 and sum(told["pairs"]) == 3
    assert told["wins"] == told["losses"] and told["elo"] == 0  # an empty network is material alone
    games = (tmp_path / "games.pgn").read_text()
    assert games.count("[Event ") == 6 and games.count('[White "empty.dat"]') == 3 and "[%eval " in games
    assert run[2].returncode == 1 and "games.pgn exists" in run[2].stderr
    assert (tmp_path / "games.pgn").read_text() == games


@pytest.mark.parametrize(
    "arguments, status, reason",
    [
        (["nonsense"], 2, "there is no command 'nonsense'"),
        (["match", "material"], 2, "--help"),
        (["match", "material", "material", "--node", "5"], 2, "no option '--node'"),
        (["match", "material", "material", "--nodes", "0"], 2, "at least 1"),
        (["match", "material", "material", "--nodes"], 2, "--nodes needs something"),
        (["match", "material", "material", "--sprt", "5", "0"], 2, "lower number first"),
        (["match", "material", "material", "--without-b", "magic"], 2, "no device 'magic'"),
        (["match", "none.dat", "material"], 1, "none.dat cannot be opened"),
        (["match", "material", "material", "--openings", "none.pgn"], 1, "none.pgn cannot be read"),
        (["match", "material", "material", "--pairs", "41"], 1, "there are 40 openings"),
        (["match", "material", "material", "--pgn", "no/where.pgn"], 1, "cannot be written"),
        (["bench", "--network", "none.dat"], 1, "none.dat cannot be opened"),
        (["bench", "--nodes=1", "--network=material"], 0, ""),
        (["--help"], 0, ""),
        (["--version"], 0, ""),
    ],
)
def test_command_line(tmp_path, arguments, status, reason):
    done = subprocess.run([PROGRAM, *arguments], cwd=tmp_path, text=True, capture_output=True, timeout=60)
    assert done.returncode == status and reason in done.stderr
    assert (done.stderr.count("\n"), bool(done.stdout)) == ((0, True) if status == 0 else (1, False))
