"""The inspector, which walks the utility's own board, is the yardstick."""

from __future__ import annotations

import pytest
from boards import move_between
from quorvane import Explanation

# One for each type, 0 to 13.
ONE_OF_EACH_TYPE = """
8/8/3k4/8/8/8/8/R3K3 w
8/8/3k4/8/4P3/8/8/4K3 b
8/8/3k4/8/8/8/8/Q3K3 b
8/8/3k4/8/8/8/8/2B1KB2 w
8/2p5/3k4/8/4P3/8/8/4K3 b
8/8/3k4/8/8/8/8/2B1K1N1 w
8/2k5/2p5/2P5/2K5/3N4/8/8 w
8/2k2p2/2p5/2P5/2K5/3N4/5PP1/6r1 b
3r4/2k2p2/2p3p1/2P4p/2K5/3N2P1/3R1P1P/8 w
3r4/2k2pb1/2p3p1/2P4p/2K2P2/P2NR1PP/3R4/6r1 b
3rr1k1/5pb1/2p3p1/1pP4p/p4P2/P2NRBPP/3R4/6K1 w
3rr1k1/q4pb1/2p3p1/1pP4p/p4P2/PQ1NRBPP/3R4/6K1 b
r2qr1k1/5ppp/p1np1n2/1p6/4P3/1BP2N1P/PP3PP1/R2QR1K1 w
r1bq1rk1/pp2bppp/2n1pn2/3p4/3P4/2NBPN2/PP3PPP/R1BQ1RK1 b
""".split("\n")[1:-1]


def agree(explanation: Explanation, expected: dict) -> None:
    assert explanation.value == pytest.approx(expected["total"], abs=1e-9)
    assert explanation.type == expected["type"]
    pieces = {piece["square"]: piece for piece in expected["pieces"]}
    assert [piece.square_name for piece in explanation] == sorted(pieces, key=lambda name: (name[1], name[0]))
    for piece in explanation:
        other = pieces[piece.square_name]
        letter = "n" if other["kind"] == "knight" else other["kind"][0]
        assert piece.symbol == (letter.upper() if other["side"] == "white" else letter)
        assert piece.white == (other["side"] == "white")
        assert piece.value == pytest.approx(other["value"], abs=1e-9)
        if "word" in other:
            assert piece.word == other["word"]
            assert list(piece.features) == other["bits"]


def test_positions_of_games(network, inspector, games, new_board):
    types, castled = set(), set()
    for number in (20, 148, 184, 367):
        positions = inspector.game(games, number)
        expected = next(positions)
        board = new_board(expected["fen"])
        agree(network.explain(board), expected)
        for following in positions:
            board.push_uci(move_between(expected["fen"], following["fen"]))
            expected = following
            explanation = network.explain(board)
            agree(explanation, expected)
            assert network.evaluate(board) == explanation.value
            assert network.position_type(board) == explanation.type
            types.add(explanation.type)
            castled |= {piece.symbol for piece in explanation if "castled" in piece.features}
    assert types >= {0, 1, 2, 4, *range(6, 14)}
    assert castled == {"K", "k"}


def test_fens_of_every_type(network, inspector):
    fens = [fen[:-1] + side for fen in ONE_OF_EACH_TYPE for side in "wb"]
    expected = inspector.fens(fens)
    values = network.evaluate_many(fens)
    for index, fen in enumerate(fens):
        assert "error" not in expected[index]
        assert network.position_type(fen) == expected[index]["type"] == index // 2
        agree(network.explain(fen), expected[index])
        assert values[index] == network.evaluate(fen) == network.explain(fen).value
