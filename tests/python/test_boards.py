"""What a board tells that a FEN does not: who has castled."""

from __future__ import annotations

import pytest
from boards import START

ROOKS = "r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1"
# Kings beside the rooks that they castle with.
CHESS960 = "rk5r/8/8/8/8/8/6P1/R4KR1 w GAha - 0 1"
QUEEN_ON_KINGS_SQUARE = "3k4/8/8/8/8/8/6K1/4Q3 w - - 0 1"


@pytest.mark.parametrize(
    "fen, moves, castled",
    [
        (START, "", ""),
        (START, "e2e4 e7e5 g1f3 g8f6 f1c4 f8c5 e1g1", "K"),
        (ROOKS, "e1c1 e8g8", "Kk"),
        (ROOKS, "e1g1 e8c8 g1h1 c8b8", "Kk"),
        (ROOKS, "e1f1 e8d8 f1g1 d8c8", ""),  # the same squares on foot
        (ROOKS, "h1h2 e8g8 e1e2 g8g7", "k"),
        (ROOKS, "0000 e8g8 0000 g8g7", "k"),
        (QUEEN_ON_KINGS_SQUARE, "e1g1 d8d7", ""),  # no king
        (QUEEN_ON_KINGS_SQUARE.replace("w", "b"), "d8d7 e1c1", ""),
    ],
)
def test_castling_is_read_off_the_move_stack(network, new_board, fen, moves, castled):
    assert who_has_castled(network, played(new_board(fen), moves)) == castled


@pytest.mark.parametrize(
    "moves, castled",
    [
        ("f1g1", "K"),
        ("f1a1 b8a8", "Kk"),
        ("0000 b8h8", "k"),
        ("g1h1 b8c8 f1g1 c8d8", ""),  # a step to where the rook was
    ],
)
def test_in_chess960_a_king_castles_by_taking_its_rook(network, new_board, moves, castled):
    assert who_has_castled(network, played(new_board(CHESS960, chess960=True), moves)) == castled


def test_castling_counts_in_the_value(network, new_board):
    board = played(new_board(ROOKS), "e1g1 e8e7")
    fen = "r6r/4k3/8/8/8/8/8/R4RK1 w - - 0 1"
    assert network.evaluate(board) != network.evaluate(fen)
    assert network.evaluate(new_board(fen)) == network.evaluate(fen)
    assert network.evaluate_many([fen, board, board, fen]) == [
        network.evaluate(each) for each in (fen, board, board, fen)
    ]


def played(board, moves):
    for move in moves.split():
        board.push_uci(move)
    return board


def who_has_castled(network, board) -> str:
    return "".join(sorted(piece.symbol for piece in network.explain(board) if "castled" in piece.features))
