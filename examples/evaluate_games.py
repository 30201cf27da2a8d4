#!/usr/bin/env python3
"""Shows for each game of a PGN file the move after which its value fell most for whoever made it.

    evaluate_games.py network.dat GAMES.pgn

Needs python-chess. Values are as White sees them, in the network's own unit.
"""

import sys

import chess.pgn

import quorvane


def white_sees(network, board):
    value = network.evaluate(board)
    return value if board.turn == chess.WHITE else -value


def worst_move(network, game):
    """The loss of the move, where it stands, and the values before and after it; None of a game without moves."""
    board = game.board()
    before = white_sees(network, board)
    worst = None
    for move in game.mainline_moves():
        mover, number, name = board.turn, board.fullmove_number, board.san(move)
        board.push(move)
        after = white_sees(network, board)
        loss = before - after if mover == chess.WHITE else after - before
        if worst is None or loss > worst[0]:
            worst = loss, f"{number}{'.' if mover == chess.WHITE else '...'} {name}", before, after
        before = after
    return worst


def main():
    network_file, games_file = sys.argv[1:]
    with quorvane.open_network(network_file) as network, open(games_file, encoding="utf-8") as games:
        while (game := chess.pgn.read_game(games)) is not None:
            worst = worst_move(network, game)
            if worst is not None:
                _, move, before, after = worst
                print(f"{game.headers['White']} - {game.headers['Black']}: {move}  {before:+.1f} to {after:+.1f}")


if __name__ == "__main__":
    main()
