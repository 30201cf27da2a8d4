"""What positions are worth; the inspector, which replays games on the utility's own board, is the yardstick."""

from __future__ import annotations

import pytest
from conftest import GAMES, KINGS, ONE_OF_EACH_TYPE

import quorvane


@pytest.fixture
def chess():
    return pytest.importorskip("chess.pgn").chess


def agree(explanation, expected):
    assert explanation.value == pytest.approx(expected["total"], abs=1e-9)
    assert explanation.type == expected["type"]
    pieces = {piece["square"]: piece for piece in expected["pieces"]}
    assert [piece.square_name for piece in explanation] == sorted(pieces, key=lambda name: (name[1], name[0]))
    for piece in explanation:
        other = pieces[piece.square_name]
        letter = "n" if other["kind"] == "knight" else other["kind"][0]
        assert piece.white == (other["side"] == "white")
        assert piece.symbol == (letter.upper() if piece.white else letter)
        assert piece.value == pytest.approx(other["value"], abs=1e-9)
        if "word" in other:
            assert (piece.word, list(piece.features)) == (other["word"], other["bits"])


def test_fens_of_every_type(network, inspect):
    fens = [fen[:-1] + side for fen in ONE_OF_EACH_TYPE for side in "wb"]
    expected = inspect("--fens", "-", given="\n".join(fens))
    values = network.evaluate_many(fens)
    for index, fen in enumerate(fens):
        assert network.position_type(fen) == expected[index]["type"] == index // 2
        agree(network.explain(fen), expected[index])
        assert values[index] == network.evaluate(fen) == network.explain(fen).value
        if index % 5 == 0:
            agree(network.explain(fen), inspect("--fen", fen))


def test_who_looks_castled_is_taken_for_it_if_asked(random_network, network, inspect):
    fens = {
        "r4rk1/8/8/8/8/8/8/R4RK1 w": "Kk",
        "2kr3r/8/8/8/8/8/8/2KR3R b": "Kk",
        "1k1r4/8/8/8/8/8/8/4RRK1 w": "K",
        "r1kr4/8/8/8/8/8/8/5RKR w": "",  # a rook in the corner
        "4R1k1/8/8/8/8/8/5RK1/8 w": "",
        "5Rk1/8/8/8/8/8/8/2K1R3 w": "",  # of the other side, and not beside the king
    }
    with quorvane.open_network(random_network, guess_castled=True) as guessing:
        for fen, castled in fens.items():
            assert who_has_castled(guessing, fen) == set(castled)
            assert who_has_castled(network, fen) == set()
            agree(guessing.explain(fen), inspect("--guess-castling", "--lenient", "--fen", fen))
        values = guessing.evaluate_many(fens)
        assert values == [guessing.evaluate(fen) for fen in fens] == [guessing.explain(fen).value for fen in fens]
        with pytest.raises(quorvane.PositionError, match="position 1: "):
            guessing.evaluate_many([KINGS, "4k3/8/8/8/8/8/8/8 w"])


def test_boards_of_games(network, inspect, chess):
    with open(GAMES) as file:
        games = [chess.pgn.read_game(file) for _ in range(184)]
    castled = set()
    for number in (20, 148, 184):
        board = games[number - 1].board()
        for ply, move in enumerate(games[number - 1].mainline_moves(), 1):
            board.push(move)
            explanation = network.explain(board)
            agree(explanation, inspect("--pgn", GAMES, "--game", number, "--ply", ply))
            assert network.evaluate(board) == explanation.value
            castled |= who_has_castled(network, board)
    assert castled == {"K", "k"}


def who_has_castled(network, board):
    return {piece.symbol for piece in network.explain(board) if "castled" in piece.features}


ROOKS = "r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1"
# Kings beside the rooks that they castle with, by taking them.
CHESS960 = "rk5r/8/8/8/8/8/6P1/R4KR1 w GAha - 0 1"
QUEEN_ON_KINGS_SQUARE = "3k4/8/8/8/8/8/6K1/4Q3 w - - 0 1"


@pytest.mark.parametrize(
    "fen, moves, castled",
    [
        (ROOKS, "e1c1 e8g8", "Kk"),
        (ROOKS, "e1g1 e8c8 g1g2 c8b8", "Kk"),
        (ROOKS, "e1f1 e8d8 f1g1 d8c8", ""),  # the same squares on foot
        (ROOKS, "h1h2 e8g8 e1e2 g8g7", "k"),
        (ROOKS, "0000 e8g8 0000 g8g7", "k"),
        (QUEEN_ON_KINGS_SQUARE, "e1g1 d8d7", ""),  # no king
        (CHESS960, "f1g1", "K"),
        (CHESS960, "f1a1 b8a8", "Kk"),
        (CHESS960, "0000 b8h8", "k"),
        (CHESS960, "g1h1 b8c8 f1g1 c8d8", ""),  # a step to where the rook was
    ],
)
def test_castling_is_read_off_the_move_stack(network, chess, fen, moves, castled):
    board = chess.Board(fen, chess960=fen == CHESS960)
    for move in moves.split():
        board.push_uci(move)
    assert who_has_castled(network, board) == set(castled)
    alone = board.fen()
    assert network.evaluate_many([alone, board]) == [network.evaluate(alone), network.evaluate(board)]
    if len(castled) < 2:
        assert (network.evaluate(board) == network.evaluate(alone)) == (castled == "")


def test_boards_that_are_none(network, chess):
    crowd = chess.Board("Kkqqqqqq/qqqqqqqq/qqqqqqqq/qqqqqqqq/qqqqqqqq/8/8/8 w - - 0 1")
    with pytest.raises(quorvane.PositionError, match="position 1: there are more than 16 pieces"):
        network.evaluate_many([KINGS, crowd])
